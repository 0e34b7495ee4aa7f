// How documents look on the paper. Each function prints its part as soon as the printer gets to it.
#pragma once

#include "simulator/configuration.h"
#include "simulator/customer.h"
#include "simulator/document.h"
#include "simulator/fiscal_memory.h"
#include "simulator/local_time.h"
#include "simulator/paper.h"

#include <string_view>

namespace corvid::simulator {

// Owner, customer, kind and number of the document, date and time.
void printHeading(Paper& paper, const Configuration& configuration, const Customer& customer,
                  DocumentKind kind, int number, const LocalTime& time);
// Owner, and what names a document that is none of the fiscal kinds.
void printPlainHeading(Paper& paper, const Configuration& configuration, std::string_view title,
                       const LocalTime& time);

// Quantity and price where the quantity is not one; description with the mark of its rate.
void printItem(Paper& paper, const Item& item, Amount amount);
void printTakenBack(Paper& paper, const Item& item, Amount amount);

void printSubtotal(Paper& paper, const Document& document);
void printAdjustment(Paper& paper, const Adjustment& adjustment, Amount amount);

// Bases and taxes by rate, and the total.
void printTotals(Paper& paper, const Document& document);
void printPayment(Paper& paper, const Payment& payment);

// The change, and the foot.
void printClosing(Paper& paper, const Document& document, const Configuration& configuration);
void printCancelled(Paper& paper, const Configuration& configuration);
void printFoot(Paper& paper, const Configuration& configuration);

// A day's sums by document kind and rate, and its payments.
void printDay(Paper& paper, const Day& day, const LastNumbers& last, const Rates& rates);

}  // namespace corvid::simulator
