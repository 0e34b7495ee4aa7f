// The collection of Z reports: places, and the walks that hosts' loops make.
#include "com/automation_library.h"
#include "com/z_report_objects.h"
#include "records/z_report_record.h"
#include "unit/com/automation_host.h"

namespace corvid::testing {
namespace {

std::shared_ptr<ZReportRecord> report(std::int16_t number) {
  auto record = std::make_shared<ZReportRecord>(AutomationLibrary::here());
  record->values.numeroCierre = number;
  return record;
}

// Z reports 11, 12 and 13.
ComPtr<IColeccionZMF> threeReports() {
  const std::vector<std::shared_ptr<ZReportRecord>> records = {report(11), report(12), report(13)};
  return ComPtr<IColeccionZMF>::adopt(makeObject<ColeccionZMFObject>(records).detach());
}

ComPtr<IEnumVARIANT> walkOver(IColeccionZMF* collection) {
  ComPtr<IUnknown> walk;
  EXPECT_EQ(S_OK, collection->_NewEnum(walk.put()));
  return walk.as<IEnumVARIANT>();
}

short numberOf(const VARIANT& item) {
  short number = 0;
  if (V_VT(&item) != VT_DISPATCH) return -1;
  const ComPtr<IDispatch> object(V_DISPATCH(&item));
  object.as<IReporteZMF>()->get_numeroCierre(&number);
  return number;
}

// The numbers of the next reports, up to `count`; how the walk answered last stands after them.
std::vector<int> next(IEnumVARIANT* walk, ULONG count) {
  std::vector<VARIANT> items(count);
  ULONG fetched = 99;
  const HRESULT outcome = walk->Next(count, items.data(), &fetched);
  std::vector<int> numbers;
  for (ULONG i = 0; i < fetched; ++i) {
    numbers.push_back(numberOf(items[i]));
    VariantClear(&items[i]);
  }
  numbers.push_back(outcome);
  return numbers;
}

using ZReportCollection = AutomationTest;
using Numbers = std::vector<int>;

TEST_F(ZReportCollection, GivesTheSameObjectForAPlaceAndToAWalk) {
  const auto collection = threeReports();
  Variant first = Variant::ofInt16(1);
  DISPPARAMS arguments{first.get(), nullptr, 1, 0};
  const LateResult byDefault =
      invokeWith(collection.get(), DISPID_VALUE, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
  ASSERT_EQ(VT_DISPATCH, byDefault.value.type());
  ComPtr<IReporteZMF> item;
  collection->get_Item(first.value(), item.put());
  EXPECT_EQ(static_cast<IDispatch*>(item.get()), V_DISPATCH(&byDefault.value.value()));
  Variant walked;
  ASSERT_EQ(S_OK, walkOver(collection.get())->Next(1, walked.put(), nullptr));
  EXPECT_EQ(static_cast<IDispatch*>(item.get()), V_DISPATCH(&walked.value()));
}

TEST_F(ZReportCollection, IsWalkedInItsOrderAndNoFurther) {
  const auto walk = walkOver(threeReports().get());  // which outlives its collection
  EXPECT_EQ((Numbers{11, 12, S_OK}), next(walk.get(), 2));
  EXPECT_EQ((Numbers{13, S_FALSE}), next(walk.get(), 2));
  EXPECT_EQ((Numbers{S_FALSE}), next(walk.get(), 1));
  EXPECT_EQ((Numbers{S_OK}), next(walk.get(), 0));
  EXPECT_EQ(S_OK, walk->Reset());
  EXPECT_EQ((Numbers{11, S_OK}), next(walk.get(), 1));
  EXPECT_EQ(E_POINTER, walk->Next(1, nullptr, nullptr));
}

TEST_F(ZReportCollection, IsWalkedOverByTwoAtATime) {
  const auto first = walkOver(threeReports().get());
  EXPECT_EQ(S_OK, first->Skip(1));
  ComPtr<IEnumVARIANT> second;
  ASSERT_EQ(S_OK, first->Clone(second.put()));
  EXPECT_EQ((Numbers{12, 13, S_OK}), next(first.get(), 2));
  EXPECT_EQ((Numbers{12, S_OK}), next(second.get(), 1));
  EXPECT_EQ(S_FALSE, second->Skip(2));
  EXPECT_EQ((Numbers{S_FALSE}), next(second.get(), 1));
}

}  // namespace
}  // namespace corvid::testing
