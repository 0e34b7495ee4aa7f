// The members that return a reply's fields.
#include "basic/string_buffer.h"
#include "exchange/exchange.h"
#include "protocol/framing.h"
#include "protocol/reply.h"

#include <utility>

namespace corvid {
namespace {

// A printer that never ends its reply must not hold the host for ever. One row more than a 16-bit
// index reaches, so that no reply that a host can use is cut.
constexpr std::size_t kMostRows = 32768;

void appendJoined(CStringBuffer& text, const Lines& fields, const std::wstring& separator) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i != 0) text.Append(separator);
    text.Append(fields[i]);
  }
}

}  // namespace

Lines Exchange::GetResponse(const std::wstring& command) {
  trace([&] { return L"GetResponse: " + EscapeString(command); });
  if (state_.testMode) {
    addToPreview(L"GET RESPONSE: " + command);
    return {L"Ok"};
  }
  const Turn turn(*this, L"GetResponse");
  if (turn.isRefused()) return {kFailedReply};
  const auto progress = beginCommand();
  if (state_.skipChecks) {
    trace([] { return L"@GetResponse with NO_STATUS_CHECK = VOID"; });
    return {L"VOID"};
  }
  requestStatus();
  if (state_.outcome.pfError != pfOk) {
    trace([&] {
      const std::wstring error(1, static_cast<wchar_t>(state_.outcome.pfError));
      return L"@GetResponse pfError = " + EscapeString(error);
    });
    return {kFailedReply};
  }
  if (runCommand(command) != pfOk) return {kFailedReply};
  return fieldsOfReply();
}

// None but of a whole block: a printer that merely acknowledged told no field.
Lines Exchange::fieldsOfReply() {
  if (!member_.block) return {};
  const std::wstring text = thread_.codePage().decode(member_.block->text);
  trace([&] {
    const std::wstring end = thread_.codePage().decode(std::string(1, member_.block->end));
    return L"GetResponse. After Execute (1), s = " + EscapeString(text + end);
  });
  trace([&] { return L"GetResponse. After Execute (2), s = " + EscapeString(text); });
  Lines fields = fieldsOf(text);
  trace([&] {
    return L"GetResponse. UBound = " + std::to_wstring(static_cast<int>(fields.size()) - 1);
  });
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
  trace([&] { return L"GetMultipleResponses: " + EscapeString(command); });
  const Turn turn(*this, L"GetMultipleResponses");
  if (turn.isRefused()) return {{kFailedReply}};
  member_.block.reset();
  std::vector<Lines> rows{GetResponse(command)};
  while (member_.block && member_.block->hasMore() && rows.size() < kMostRows &&
         receiveNextBlock()) {
    rows.push_back(fieldsOf(thread_.codePage().decode(member_.block->text)));
  }
  return rows;
}

// Nothing of the host has run since the last block came: the port is open.
bool Exchange::receiveNextBlock() {
  if (line_.isQuitting()) {
    setSilent();
    return false;
  }
  trace([] { return L" -> ACK"; });
  discardLate();
  write(kAcknowledge);
  return WaitForReply(false) == WaitEnd::Block;
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
