#include "protocol/query_commands.h"

#include "basic/format.h"

namespace corvid {

std::wstring zReportsQuery(const Decimal& first, const Decimal& last) {
  return L"U3A" + format(first, L"000000") + format(last, L"000000");
}

}  // namespace corvid
