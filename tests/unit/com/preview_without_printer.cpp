// A preview for tests that cannot include its headers: two parts of the core call different things
// an answer.
#include "com/quick_view_object.h"
#include "unit/windows/desktop.h"

namespace corvid::testing {

ComPtr<IDispatch> previewWithoutPrinter(const Settings& settings);

ComPtr<IDispatch> previewWithoutPrinter(const Settings& settings) {
  return ComPtr<IDispatch>(
      static_cast<IlfQuickView*>(QuickViewObject::create(settings, noPrinter).get()));
}

}  // namespace corvid::testing
