#include "records/record_text.h"

namespace corvid {

void RecordText::line(std::wstring_view label, std::wstring_view value) {
  buffer_.Append(label);
  buffer_.Append(value);
  buffer_.Append(L"\r\n");
}

}  // namespace corvid
