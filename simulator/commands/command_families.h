// The handlers behind the command table, in families; each has the shape of Command::run.
#pragma once

#include "simulator/commands/commands.h"

#include <string_view>
#include <vector>

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
// description. The parameter is a DocumentKind; debit notes are made in no other way.
Reply sellGeneral(Machine& machine, std::string_view arguments, int kind);
Reply voidGeneral(Machine& machine, std::string_view arguments, int kind);

// Subtotal; the parameter tells whether to print it.
Reply subtotal(Machine& machine, std::string_view arguments, int doPrint);
// Discounts and surcharges; the parameter is a sum of AdjustmentParts.
enum AdjustmentPart { kPercent = 1, kSurcharge = 2 };
Reply adjustByDigits(Machine& machine, std::string_view arguments, int parts);
Reply adjustGeneral(Machine& machine, std::string_view arguments, int parts);

// Payments: two digits of the method, and an amount (0: all that is left). They close the document
// once it is paid: these an invoice or a debit note, and with isRefund a credit note.
Reply payAll(Machine& machine, std::string_view arguments, int);
Reply pay(Machine& machine, std::string_view arguments, int isRefund);
// Ends the open document, or forgets the customer data of the next.
Reply cancel(Machine& machine, std::string_view arguments, int);

// A line of a non-fiscal document, which the first opens; the parameter tells whether to close it.
Reply printPlain(Machine& machine, std::string_view arguments, int doClose);

// Housekeeping.
Reply openDrawer(Machine& machine, std::string_view arguments, int);
// Ends an error that needs no hand, and forgets the customer data of the next document.
Reply resetErrors(Machine& machine, std::string_view arguments, int);

// What the host programs; only between documents.
Reply signOn(Machine& machine, std::string_view arguments, int);
Reply signOff(Machine& machine, std::string_view arguments, int);
// In training, documents bear a mark, take no number, enter no sum and leave no copy.
Reply setTraining(Machine& machine, std::string_view arguments, int isOn);
// Two digits of the flag's index and two of its value.
Reply setFlag(Machine& machine, std::string_view arguments, int);
// A header line's number ("1" to "8") or a footer line's letter ("A" to "H"), and a line of exactly
// 40 columns, which is printed as sent. Blanks take the line away.
Reply setProgrammedLine(Machine& machine, std::string_view arguments, int);
// Day, month and year of this century; hour, minute and second; two digits each. The clock goes on
// from there.
Reply setDate(Machine& machine, std::string_view arguments, int);
Reply setTime(Machine& machine, std::string_view arguments, int);

// Queries. The parameter of queryState is a StateQuery.
enum StateQuery { kCounters, kDocument, kRates, kPayments };
Reply queryState(Machine& machine, std::string_view arguments, int query);
// The running day's summary; or the latest day's: a day that was closed stays the latest until the
// next document.
Reply querySummary(Machine& machine, std::string_view arguments, int ofRunningDay);
// The first and the last Z report asked for, six digits each: numbers, or dates as yymmdd. One
// block for each Z report; a range in which there is none is refused.
Reply queryZReports(Machine& machine, std::string_view arguments, int isByDate);
[[nodiscard]] std::vector<ZReport> zReportsOf(const Machine& machine, std::string_view range,
                                              bool isByDate);

// Reports and reprints on the paper, only between documents.
// The day's sums; the parameter tells whether this ends the day. Refused in training.
Reply reportDay(Machine& machine, std::string_view arguments, int doClose);
// The Z reports of a range, as for queryClosures.
Reply reportZReports(Machine& machine, std::string_view arguments, int isByDate);
// A letter of kCopyKinds and two numbers, or the small letter and two dates as yymmdd, of seven
// digits each. Refused when there is no such document.
Reply reprint(Machine& machine, std::string_view arguments, int);

}  // namespace corvid::simulator
