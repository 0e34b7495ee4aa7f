#include "basic/format.h"

#include <algorithm>
#include <array>
#include <string>

namespace corvid {
namespace {

void appendPadded(std::wstring& text, int value, std::size_t width) {
  std::array<wchar_t, 10> digits{};
  std::size_t begin = digits.size();
  do {
    digits[--begin] = static_cast<wchar_t>(L'0' + value % 10);
    value /= 10;
  } while (value != 0);
  const std::size_t count = digits.size() - begin;
  text.append(std::max(count, width) - count, L'0');
  text.append(&digits[begin], count);
}

enum class Place { Day, MonthOrMinute, Minute, ShortYear, Year, Hour, ShortHour, Second };

struct Token {
  std::wstring_view name;
  Place place;
};

// The longer of two names that begin alike stands first.
constexpr std::array<Token, 8> kTokens = {{{L"dd", Place::Day},
                                           {L"mm", Place::MonthOrMinute},
                                           {L"nn", Place::Minute},
                                           {L"yyyy", Place::Year},
                                           {L"yy", Place::ShortYear},
                                           {L"hh", Place::Hour},
                                           {L"h", Place::ShortHour},
                                           {L"ss", Place::Second}}};

const Token* tokenAt(std::wstring_view pattern) {
  for (const Token& token : kTokens) {
    if (pattern.front() == token.name.front() && pattern.starts_with(token.name)) return &token;
  }
  return nullptr;
}

bool isHour(Place place) { return place == Place::Hour || place == Place::ShortHour; }

void append(std::wstring& text, Place place, bool followsHour, const DateParts& parts) {
  switch (place) {
    case Place::Day:
      return appendPadded(text, parts.day, 2);
    case Place::MonthOrMinute:
      return appendPadded(text, followsHour ? parts.minute : parts.month, 2);
    case Place::Minute:
      return appendPadded(text, parts.minute, 2);
    case Place::ShortYear:
      return appendPadded(text, parts.year % 100, 2);
    case Place::Year:
      return appendPadded(text, parts.year, 4);
    case Place::Hour:
      return appendPadded(text, parts.hour, 2);
    case Place::ShortHour:
      return appendPadded(text, parts.hour, 1);
    case Place::Second:
      return appendPadded(text, parts.second, 2);
  }
}

// The short patterns of a region, which tell months from minutes and the two clocks by case.
class RegionPattern {
 public:
  RegionPattern(const DateParts& parts, const Locale& locale) : parts_(parts), locale_(locale) {}

  [[nodiscard]] std::wstring render(std::wstring_view pattern) const {
    std::wstring text;
    while (!pattern.empty()) {
      const wchar_t letter = pattern.front();
      if (letter == L'\'') {
        text += takeQuoted(pattern);
      } else {
        const std::size_t length = std::min(pattern.find_first_not_of(letter), pattern.size());
        append(text, letter, length);
        pattern.remove_prefix(length);
      }
    }
    return text;
  }

 private:
  static std::wstring takeQuoted(std::wstring_view& pattern) {
    pattern.remove_prefix(1);
    const std::size_t end = std::min(pattern.find(L'\''), pattern.size());
    std::wstring text(pattern.substr(0, end));
    pattern.remove_prefix(std::min(end + 1, pattern.size()));
    return text;
  }

  void append(std::wstring& text, wchar_t letter, std::size_t length) const {
    const std::size_t width = std::min<std::size_t>(length, 2);
    switch (letter) {
      case L'd':
        return appendPadded(text, parts_.day, width);
      case L'M':
        return appendPadded(text, parts_.month, width);
      case L'y':
        return length > 2 ? appendPadded(text, parts_.year, length)
                          : appendPadded(text, parts_.year % 100, width);
      case L'H':
        return appendPadded(text, parts_.hour, width);
      case L'h':
        return appendPadded(text, parts_.hour % 12 == 0 ? 12 : parts_.hour % 12, width);
      case L'm':
        return appendPadded(text, parts_.minute, width);
      case L's':
        return appendPadded(text, parts_.second, width);
      case L't':
        text += halfOfDay(length);
        return;
      default:
        text.append(length, letter);
    }
  }

  [[nodiscard]] std::wstring halfOfDay(std::size_t length) const {
    const std::wstring& mark = parts_.hour < 12 ? locale_.morning : locale_.afternoon;
    return length > 1 ? mark : mark.substr(0, 1);
  }

  const DateParts& parts_;
  const Locale& locale_;
};

bool isMidnight(const DateParts& parts) {
  return parts.hour == 0 && parts.minute == 0 && parts.second == 0;
}

bool isZeroDate(const DateParts& parts) {
  const DateParts zero;
  return parts.year == zero.year && parts.month == zero.month && parts.day == zero.day;
}

}  // namespace

std::wstring format(Date value, std::wstring_view pattern) {
  const DateParts parts = toParts(value);
  std::wstring text;
  text.reserve(pattern.size());
  bool followsHour = false;
  while (!pattern.empty()) {
    const Token* const token = tokenAt(pattern);
    if (token == nullptr) {
      text += pattern.front();
      pattern.remove_prefix(1);
      continue;
    }
    append(text, token->place, followsHour, parts);
    followsHour = isHour(token->place);
    pattern.remove_prefix(token->name.size());
  }
  return text;
}

std::wstring toText(Date value, const Locale& locale) {
  const DateParts parts = toParts(value);
  const RegionPattern region(parts, locale);
  std::wstring time = region.render(locale.timePattern);
  if (isZeroDate(parts)) return time;
  const std::wstring day = region.render(locale.shortDatePattern);
  return isMidnight(parts) ? day : day + L" " + time;
}

}  // namespace corvid
