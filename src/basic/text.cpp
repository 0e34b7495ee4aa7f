#include "basic/text.h"

#include "basic/run_time_error.h"

#include <algorithm>

namespace corvid {
namespace {

// Cuts a count to the characters there are. The comparison is made in 64 bits: a size has fewer on
// 32-bit systems.
std::size_t atMost(std::int64_t count, std::size_t available) {
  if (count < 0) throw invalidProcedureCall();
  return static_cast<std::size_t>(
      std::min<std::uint64_t>(static_cast<std::uint64_t>(count), available));
}

struct LetterPair {
  wchar_t upper;
  wchar_t lower;
};

// The letters of the Western European page whose two forms do not lie 32 apart.
constexpr LetterPair kOddPairs[] = {
    {L'\u0152', L'\u0153'}, {L'\u0160', L'\u0161'}, {L'\u0178', L'\u00FF'}, {L'\u017D', L'\u017E'}};

constexpr wchar_t kCaseDistance = 32;

bool isBetween(wchar_t character, wchar_t first, wchar_t last) {
  return character >= first && character <= last;
}

// Between the accented letters stand the signs of multiplication and division.
wchar_t toUpper(wchar_t character) {
  if (isBetween(character, L'a', L'z') ||
      (isBetween(character, L'\u00E0', L'\u00FE') && character != L'\u00F7')) {
    return static_cast<wchar_t>(character - kCaseDistance);
  }
  for (const LetterPair& pair : kOddPairs) {
    if (pair.lower == character) return pair.upper;
  }
  return character;
}

wchar_t toLower(wchar_t character) {
  if (isBetween(character, L'A', L'Z') ||
      (isBetween(character, L'\u00C0', L'\u00DE') && character != L'\u00D7')) {
    return static_cast<wchar_t>(character + kCaseDistance);
  }
  for (const LetterPair& pair : kOddPairs) {
    if (pair.upper == character) return pair.lower;
  }
  return character;
}

}  // namespace

Text left(TextView text, std::int64_t count) {
  return Text(text.substr(0, atMost(count, text.size())));
}

Text right(TextView text, std::int64_t count) {
  return Text(text.substr(text.size() - atMost(count, text.size())));
}

Text mid(TextView text, std::int64_t start) {
  if (start < 1) throw invalidProcedureCall();
  return Text(text.substr(atMost(start - 1, text.size())));
}

Text mid(TextView text, std::int64_t start, std::int64_t count) {
  return left(mid(text, start), count);
}

Lines split(TextView text, TextView separator) {
  Lines pieces;
  if (text.empty()) return pieces;
  if (separator.empty()) return {Text(text)};
  std::size_t begin = 0;
  for (std::size_t end = text.find(separator); end != TextView::npos;
       end = text.find(separator, begin)) {
    pieces.emplace_back(text.substr(begin, end - begin));
    begin = end + separator.size();
  }
  pieces.emplace_back(text.substr(begin));
  return pieces;
}

Text join(const Lines& pieces, TextView separator) {
  Text result;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) result += separator;
    result += pieces[i];
  }
  return result;
}

Text replaceAll(TextView text, TextView from, TextView to) {
  if (from.empty()) return Text(text);
  Text result;
  result.reserve(text.size());
  std::size_t end = 0;
  for (std::size_t found = text.find(from); found != TextView::npos; found = text.find(from, end)) {
    result.append(text, end, found - end).append(to);
    end = found + from.size();
  }
  return result.append(text, end);
}

Text trim(TextView text) {
  const std::size_t first = text.find_first_not_of(L' ');
  if (first == TextView::npos) return {};
  return Text(text.substr(first, text.find_last_not_of(L' ') - first + 1));
}

Text upperCase(TextView text) {
  Text result(text);
  std::ranges::transform(result, result.begin(), toUpper);
  return result;
}

Text lowerCase(TextView text) {
  Text result(text);
  std::ranges::transform(result, result.begin(), toLower);
  return result;
}

Text spaces(std::int64_t count) {
  if (count < 0) throw invalidProcedureCall();
  return Text().append(static_cast<std::size_t>(count), L' ');
}

bool equalIgnoringCase(TextView a, TextView b) {
  return std::ranges::equal(a, b, {}, toLower, toLower);
}

}  // namespace corvid
