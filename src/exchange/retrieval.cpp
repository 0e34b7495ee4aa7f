// The members that return a reply's fields.
#include "basic/string_buffer.h"
#include "exchange/exchange.h"
#include "protocol/framing.h"
#include "protocol/reply.h"

namespace corvid {
namespace {

// A printer that never ends its reply must not hold the host for ever. More rows than a 16-bit
// index reaches, so that no reply a host can use is cut.
constexpr std::size_t kMostRows = 65536;

std::wstring behindFirstStx(const std::wstring& reply) {
  const std::size_t stx = reply.find(static_cast<wchar_t>(STX));
  return stx == std::wstring::npos ? reply : reply.substr(stx + 1);
}

Lines splitFields(std::wstring_view text) { return split(text, std::wstring_view(&kLineFeed, 1)); }

Lines fieldsOfBlock(const std::wstring& reply) {
  std::wstring text = behindFirstStx(reply);
  if (!text.empty()) text.pop_back();
  return splitFields(text);
}

void appendJoined(CStringBuffer& text, const Lines& fields, const std::wstring& separator) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i != 0) text.Append(separator);
    text.Append(fields[i]);
  }
}

}  // namespace

Lines Exchange::GetResponse(const std::wstring& command) {
  TraceLog& log = process_.trace();
  log.Trace(L"GetResponse: " + EscapeString(command));
  if (state_.testMode) {
    addToPreview(L"GET RESPONSE: " + command);
    return {L"Ok"};
  }
  if (state_.skipChecks) {
    log.Trace(L"@GetResponse with NO_STATUS_CHECK = VOID");
    return {L"VOID"};
  }
  GetStatus();
  if (state_.outcome.pfError != pfOk) {
    const std::wstring error(1, static_cast<wchar_t>(state_.outcome.pfError));
    log.Trace(L"@GetResponse pfError = " + EscapeString(error));
    return {kFailedReply};
  }
  if (Execute(command) != pfOk) return {kFailedReply};
  return fieldsOfResult();
}

Lines Exchange::fieldsOfResult() {
  TraceLog& log = process_.trace();
  std::wstring text = behindFirstStx(state_.outcome.result);
  log.Trace(L"GetResponse. After Execute (1), s = " + EscapeString(text));
  if (!text.empty()) {
    text.pop_back();
    log.Trace(L"GetResponse. After Execute (2), s = " + EscapeString(text));
  }
  Lines fields = splitFields(text);
  log.Trace(L"GetResponse. UBound = " + std::to_wstring(static_cast<int>(fields.size()) - 1));
  return fields;
}

std::wstring Exchange::GetResponseString(const std::wstring& command,
                                         const std::wstring& separator) {
  const std::wstring between = separator.empty() ? std::wstring(1, kLineFeed) : separator;
  CStringBuffer text;
  for (const std::wstring& field : GetResponse(command)) {
    text.Append(between);
    text.Append(field);
  }
  return text.Value();
}

std::vector<Lines> Exchange::GetMultipleResponses(const std::wstring& command) {
  process_.trace().Trace(L"GetMultipleResponses: " + EscapeString(command));
  state_.ready = false;
  std::vector<Lines> rows{GetResponse(command)};
  while (moreBlocksFollow() && rows.size() < kMostRows) {
    if (!receiveNextBlock()) break;
    rows.push_back(fieldsOfBlock(state_.outcome.result));
  }
  return rows;
}

std::wstring Exchange::GetMultipleResponsesStr(const std::wstring& command,
                                               const std::optional<std::wstring>& itemSep,
                                               const std::optional<std::wstring>& rowSep) {
  const std::wstring betweenItems = itemSep.value_or(std::wstring(1, US));
  const std::wstring betweenRows = rowSep.value_or(std::wstring(1, RS));
  CStringBuffer text;
  bool isFirst = true;
  for (const Lines& row : GetMultipleResponses(command)) {
    if (!isFirst) text.Append(betweenRows);
    appendJoined(text, row, betweenItems);
    isFirst = false;
  }
  return text.Value();
}

}  // namespace corvid
