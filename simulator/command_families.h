// The handlers behind the command table, in families; each has the shape of Command::run.
#pragma once

#include "simulator/commands.h"

#include <string_view>

namespace corvid::simulator {

// Customer data. The parameter of setCustomerField is a CustomerField.
enum CustomerField { kName, kRif, kAffectedInvoice, kAffectedSerial, kAffectedDate };
Reply setCustomerField(Machine& machine, std::string_view text, int field);
// Two digits of a line number, and the line.
Reply setCustomerLine(Machine& machine, std::string_view arguments, int);
// A line number without leading zeros, and the line.
Reply setShortCustomerLine(Machine& machine, std::string_view arguments, int);

// Items; the parameter is the rate index. Price and quantity as fields of digits, description.
Reply sellItem(Machine& machine, std::string_view arguments, int rate);
Reply refundItem(Machine& machine, std::string_view arguments, int rate);
Reply voidItem(Machine& machine, std::string_view arguments, int rate);
// Items with bars and decimal commas: rate index, price, "||", quantity, "||", perhaps "|code|",
// description. The parameter is a DocumentKind.
Reply sellGeneral(Machine& machine, std::string_view arguments, int kind);
Reply voidGeneral(Machine& machine, std::string_view arguments, int kind);

// Subtotal; the parameter tells whether to print it.
Reply subtotal(Machine& machine, std::string_view arguments, int doPrint);
// Discounts and surcharges; the parameter is a sum of AdjustmentParts.
enum AdjustmentPart { kPercent = 1, kSurcharge = 2 };
Reply adjustByDigits(Machine& machine, std::string_view arguments, int parts);
Reply adjustGeneral(Machine& machine, std::string_view arguments, int parts);

// Payments: two digits of the means, and an amount (0: all that is left). They close the document
// once it is paid. The parameter is the DocumentKind that they close.
Reply payAll(Machine& machine, std::string_view arguments, int kind);
Reply pay(Machine& machine, std::string_view arguments, int kind);
// Ends the open document, or forgets the customer data of the next.
Reply cancel(Machine& machine, std::string_view arguments, int);

// A line of a non-fiscal document, which the first opens; the parameter tells whether to close it.
Reply printPlain(Machine& machine, std::string_view arguments, int doClose);

// Housekeeping.
Reply openDrawer(Machine& machine, std::string_view arguments, int);
// Ends an error that needs no hand, and forgets the customer data of the next document.
Reply resetErrors(Machine& machine, std::string_view arguments, int);
Reply signOn(Machine& machine, std::string_view arguments, int);
Reply signOff(Machine& machine, std::string_view arguments, int);
Reply setTraining(Machine& machine, std::string_view arguments, int isOn);
// Two digits of the flag's index and two of its value.
Reply setFlag(Machine& machine, std::string_view arguments, int);

// Queries and reports.
Reply queryCounters(Machine& machine, std::string_view arguments, int);
Reply queryRates(Machine& machine, std::string_view arguments, int);
// Two closure numbers of six digits; one block for each closure in that range.
Reply queryClosures(Machine& machine, std::string_view arguments, int);
// The day's sums on paper; the parameter tells whether this ends the day.
Reply reportDay(Machine& machine, std::string_view arguments, int doClose);

}  // namespace corvid::simulator
