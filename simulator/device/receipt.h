// How documents look on the paper. Each function prints its part as soon as the printer gets to it.
#pragma once

#include "simulator/device/configuration.h"
#include "simulator/device/customer.h"
#include "simulator/device/document.h"
#include "simulator/device/journal.h"
#include "simulator/device/local_time.h"
#include "simulator/device/paper.h"

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

std::string_view titleOf(DocumentKind kind);
// Bases and taxes by rate; what is zero is left out.
void printSums(Paper& paper, const RateSums& sums, const Rates& rates);
// An amount against the right margin.
void printAmount(Paper& paper, std::string_view name, Amount amount);

// Bases and taxes by rate, and the total.
void printTotals(Paper& paper, const Document& document);
// The payment, and the levy on it.
void printPayment(Paper& paper, const Payment& payment);
void printLevy(Paper& paper, const TaxedAmount& levy);

// What is due with the levy on the payments, if any; the change, and the foot.
void printClosing(Paper& paper, const Document& document, const Configuration& configuration);
void printCancelled(Paper& paper, const Configuration& configuration);
// Programmed lines and the serial number.
void printFoot(Paper& paper, const Configuration& configuration);

// The line on top of a document that does not count.
void printTrainingMark(Paper& paper);
// A document's lines again, marked as a copy.
void printCopy(Paper& paper, const Copy& copy);

}  // namespace corvid::simulator
