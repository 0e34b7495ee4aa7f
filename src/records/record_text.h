// The text form of a record: one line per value.
#pragma once

#include "basic/string_buffer.h"

#include <string>
#include <string_view>

namespace corvid {

class RecordText {
 public:
  // Adds the label, the value and CR LF; the label brings its own " = ".
  void line(std::wstring_view label, std::wstring_view value);
  [[nodiscard]] std::wstring text() const { return buffer_.Value(); }

 private:
  CStringBuffer buffer_;
};

}  // namespace corvid
