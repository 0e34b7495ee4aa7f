#include "basic/format.h"

#include <algorithm>
#include <array>
#include <string>

namespace corvid {
namespace {

std::wstring padded(int value, std::size_t width) {
  std::wstring digits = std::to_wstring(value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
  return digits;
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
    if (pattern.starts_with(token.name)) return &token;
  }
  return nullptr;
}

bool isHour(Place place) { return place == Place::Hour || place == Place::ShortHour; }

std::wstring textOf(Place place, bool followsHour, const DateParts& parts) {
  switch (place) {
    case Place::Day:
      return padded(parts.day, 2);
    case Place::MonthOrMinute:
      return padded(followsHour ? parts.minute : parts.month, 2);
    case Place::Minute:
      return padded(parts.minute, 2);
    case Place::ShortYear:
      return padded(parts.year % 100, 2);
    case Place::Year:
      return padded(parts.year, 4);
    case Place::Hour:
      return padded(parts.hour, 2);
    case Place::ShortHour:
      return padded(parts.hour, 1);
    case Place::Second:
      return padded(parts.second, 2);
  }
  return {};
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
        text += textOf(letter, length);
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

  [[nodiscard]] std::wstring textOf(wchar_t letter, std::size_t length) const {
    const std::size_t width = std::min<std::size_t>(length, 2);
    switch (letter) {
      case L'd':
        return padded(parts_.day, width);
      case L'M':
        return padded(parts_.month, width);
      case L'y':
        return length > 2 ? padded(parts_.year, length) : padded(parts_.year % 100, width);
      case L'H':
        return padded(parts_.hour, width);
      case L'h':
        return padded(parts_.hour % 12 == 0 ? 12 : parts_.hour % 12, width);
      case L'm':
        return padded(parts_.minute, width);
      case L's':
        return padded(parts_.second, width);
      case L't':
        return halfOfDay(length);
      default:
        return std::wstring().append(length, letter);
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
  bool followsHour = false;
  while (!pattern.empty()) {
    const Token* const token = tokenAt(pattern);
    if (token == nullptr) {
      text += pattern.front();
      pattern.remove_prefix(1);
      continue;
    }
    text += textOf(token->place, followsHour, parts);
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
