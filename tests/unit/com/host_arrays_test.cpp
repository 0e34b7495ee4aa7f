#include "com/host_arrays.h"

#include "com/safe_array.h"
#include "support/error_of.h"
#include "unit/com/automation_host.h"

#include <utility>

namespace corvid::testing {
namespace {

using HostArrays = AutomationTest;

int errorOf(const HostArray& array, std::int32_t index) {
  return corvid::errorOf([&] { return array.text(index); });
}

Variant typedArray(VARTYPE type, std::vector<SAFEARRAYBOUND> bounds) {
  return Variant::ofArray(type,
                          SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data()));
}

TEST_F(HostArrays, GiveBackTheirFields) {
  const Lines fields = {L"A", L"", L"C"};
  const std::pair<Variant (*)(const Lines&), VARTYPE> kMakers[] = {{toHostArray, VT_VARIANT},
                                                                   {toStringArray, VT_BSTR}};
  for (const auto& [make, kind] : kMakers) {
    Variant array = make(fields);
    EXPECT_EQ(VT_ARRAY | kind, array.type());
    const HostArray reader(array.value());
    ASSERT_EQ(2, reader.upperBound());
    for (std::int32_t i = 0; i < 3; ++i) {
      EXPECT_EQ(fields[static_cast<std::size_t>(i)], reader.text(i));
    }
    // As a script's variable, which also holds what a function returned to it.
    EXPECT_EQ(L"C", HostArray(variable(array)).text(2));
    EXPECT_EQ(9, errorOf(reader, 3));
    EXPECT_EQ(9, errorOf(reader, -1));
  }
}

TEST_F(HostArrays, ThatAreTooLongAreAnOrdinaryLackOfMemory) {
  EXPECT_THROW(SafeArray(std::size_t{0x80000000}), std::bad_alloc);
}

TEST_F(HostArrays, ReadElementsOfEveryKind) {
  const Variant texts = typedArray(VT_BSTR, {{2, 0}});
  LONG second = 1;
  SafeArrayPutElement(V_ARRAY(&texts.value()), &second, Bstr(L"B").get());
  EXPECT_EQ(L"", HostArray(texts.value()).text(0));
  EXPECT_EQ(L"B", HostArray(texts.value()).text(1));

  const Variant numbers = typedArray(VT_I4, {{2, 1}});  // indexes 1 and 2
  LONG place = 2;
  LONG value = 1600;
  SafeArrayPutElement(V_ARRAY(&numbers.value()), &place, &value);
  const HostArray reader(numbers.value());
  EXPECT_EQ(2, reader.upperBound());
  EXPECT_EQ(L"1600", reader.text(2));
  EXPECT_EQ(9, errorOf(reader, 0));

  const Variant doubles = typedArray(VT_R8, {{1, 0}});
  LONG first = 0;
  double small = 0.00001;
  SafeArrayPutElement(V_ARRAY(&doubles.value()), &first, &small);
  EXPECT_EQ(L"0.00001", HostArray(doubles.value()).text(0)) << "as the printer writes it";

  const Variant decimals = typedArray(VT_DECIMAL, {{1, 0}});
  EXPECT_EQ(L"0", HostArray(decimals.value()).text(0));
}

TEST_F(HostArrays, RefuseWhatIsNoListOfTexts) {
  EXPECT_EQ(13, errorOf(HostArray(text(L"A").value()), 0));
  EXPECT_EQ(13, errorOf(HostArray(objectValue(nullptr).value()), 0));
  EXPECT_EQ(9, errorOf(HostArray(typedArray(VT_VARIANT, {{1, 0}, {1, 0}}).value()), 0));
  SafeArray mixed(2);
  mixed.set(0, text(L"A"));
  mixed.set(1, missing());
  const Variant array = std::move(mixed).toVariant();
  EXPECT_EQ(0, errorOf(HostArray(array.value()), 0));
  EXPECT_EQ(13, errorOf(HostArray(array.value()), 1));
}

}  // namespace
}  // namespace corvid::testing
