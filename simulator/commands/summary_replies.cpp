#include "simulator/commands/summary_replies.h"

#include "simulator/commands/reply_fields.h"

namespace corvid::simulator {
namespace {

constexpr auto kInvoice = DocumentKind::Invoice;
constexpr auto kDebitNote = DocumentKind::DebitNote;
constexpr auto kCreditNote = DocumentKind::CreditNote;

Fields lastInvoice(const LastNumbers& last) {
  return {documentNumber(last.of(kInvoice)), wireDate(last.invoiceTime),
          wireTime(last.invoiceTime)};
}

Fields seven(const ZReport& day, DocumentKind kind) {
  const RateSums& sums = day.day.of(kind).byRate;
  Fields fields = {money(sums.front().base)};
  for (std::size_t rate = 1; rate <= kTaxRates; ++rate) {
    append(fields, {money(sums.at(rate).base), money(sums.at(rate).tax)});
  }
  return fields;
}

// The fields with which all layouts but the shortest begin.
Fields head(const ZReport& day) {
  Fields fields = {zReportNumber(day.last.zReports), wireDate(day.time), wireTime(day.time)};
  append(fields, lastInvoice(day.last));
  return fields;
}

Fields basicSummary(const ZReport& day) {
  Fields fields = {zReportNumber(day.last.zReports), wireDate(day.time)};
  append(fields, lastInvoice(day.last));
  append(fields, seven(day, kInvoice));
  append(fields, seven(day, kCreditNote));
  append(fields, {documentNumber(day.last.of(kCreditNote))});
  return fields;
}

Fields notedSummary(const ZReport& day) {
  Fields fields = head(day);
  append(fields, seven(day, kInvoice));
  append(fields, seven(day, kDebitNote));
  append(fields, {documentNumber(day.last.of(kDebitNote))});
  append(fields, seven(day, kCreditNote));
  append(fields, {documentNumber(day.last.of(kCreditNote))});
  return fields;
}

Fields levies(const Day& day) {
  Fields fields;
  for (const KindOfDay& kind : day.kinds) {
    fields.push_back(money(kind.byRate.at(kCollectedRate).base));
  }
  for (const KindOfDay& kind : day.kinds) {
    append(fields, {money(kind.levy.base), money(kind.levy.tax)});
  }
  return fields;
}

Fields fullSummary(const ZReport& day) {
  Fields fields = head(day);
  append(fields, {documentNumber(day.last.of(kDebitNote)), documentNumber(day.last.of(kCreditNote)),
                  documentNumber(day.last.nonFiscal)});
  for (const DocumentKind kind : {kInvoice, kDebitNote, kCreditNote}) {
    append(fields, seven(day, kind));
  }
  append(fields, levies(day.day));
  append(fields, {money(day.day.of(kInvoice).total), money(day.day.of(kCreditNote).total)});
  return fields;
}

Fields summary(const ZReport& day, std::size_t size) {
  constexpr std::size_t kBasic = 20;
  constexpr std::size_t kNoted = 29;
  if (size == kBasic) {
    return basicSummary(day);
  }
  if (size == kNoted) {
    return notedSummary(day);
  }
  Fields fields = fullSummary(day);
  fields.resize(size);
  return fields;
}

}  // namespace

std::string summaryReply(const ZReport& day, std::size_t fields) {
  return joined(summary(day, fields));
}

std::string zReportReply(const ZReport& zReport) {
  constexpr std::size_t kZReportFields = 30;
  return joined(summary(zReport, kZReportFields));
}

}  // namespace corvid::simulator
