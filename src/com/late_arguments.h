// The arguments of late-bound calls.
#pragma once

#include "com/platform.h"
#include "com/variant.h"

#include <vector>

namespace corvid {

// The arguments of one call, made to fit the member's.
class LateArguments {
 public:
  LateArguments(ITypeInfo& info, const DISPPARAMS& given);

  // Whether the arguments are formed as the system forms them.
  [[nodiscard]] static bool areWellFormed(const DISPPARAMS& given) noexcept;
  // The failure's HRESULT and, in badArgument (may be null), the place of the argument that does
  // not fit.
  [[nodiscard]] HRESULT fit(const FUNCDESC& member, UINT* badArgument);
  [[nodiscard]] DISPPARAMS* get() noexcept { return &arguments_; }
  // Hands the host what the member changed, converted to the kind of the host's variable.
  [[nodiscard]] HRESULT writeBack();

 private:
  // A typed value that stands in for one of the host's arguments.
  struct StandIn {
    UINT place = 0;
    bool isReference = false;
    Variant value;
    Variant before;  // what the member found, where it is a reference
  };

  [[nodiscard]] UINT parameterOf(UINT place, const FUNCDESC& member) const;
  [[nodiscard]] HRESULT fitOne(UINT place, const TYPEDESC& type);
  [[nodiscard]] HRESULT checkObject(UINT place, HREFTYPE interfaceType) const;
  [[nodiscard]] HRESULT passObject(UINT place);
  [[nodiscard]] HRESULT passReference(UINT place, VARTYPE type);
  [[nodiscard]] HRESULT passTyped(UINT place);
  [[nodiscard]] HRESULT passValue(UINT place, VARTYPE type);

  ITypeInfo& info_;
  const DISPPARAMS& given_;
  DISPPARAMS arguments_;
  std::vector<VARIANT> values_;    // shallow copies: the host or a stand-in owns what they hold
  std::vector<StandIn> standIns_;  // room for all from the start: the call holds their addresses
};

}  // namespace corvid
