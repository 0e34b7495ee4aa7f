#include "com/guard.h"

#include "basic/run_time_error.h"
#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/module.h"

#include <new>
#include <string>
#include <string_view>

namespace corvid {
namespace {

constexpr const wchar_t* kLibraryName = L"PrinterFiscalCorvid";
constexpr HRESULT kFirstRunTimeError = static_cast<HRESULT>(0x800A0000);

HRESULT toHresult(std::int32_t number) {
  const HRESULT result = number > 0 ? kFirstRunTimeError + number : static_cast<HRESULT>(number);
  return FAILED(result) ? result : E_FAIL;
}

void setErrorInfo(REFIID interfaceId, std::wstring source, std::wstring description) {
  ComPtr<ICreateErrorInfo> creator;
  if (FAILED(CreateErrorInfo(creator.put()))) return;
  if (source.empty()) source = kLibraryName;
  creator->SetGUID(interfaceId);
  creator->SetSource(source.data());
  creator->SetDescription(description.data());
  if (const auto info = creator.as<IErrorInfo>()) SetErrorInfo(0, info.get());
}

// Without memory for the words the host gets the number alone.
template <class Source, class Words>
void leaveErrorInfo(REFIID interfaceId, const Source& source, const Words& words) noexcept {
  SetErrorInfo(0, nullptr);
  try {
    setErrorInfo(interfaceId, std::wstring(source.begin(), source.end()),
                 std::wstring(words.begin(), words.end()));
  } catch (...) {  // NOLINT(bugprone-empty-catch)
  }
}

}  // namespace

HRESULT reportCurrentException(REFIID interfaceId) noexcept {
  pinModule();
  try {
    throw;
  } catch (const RunTimeError& error) {
    leaveErrorInfo(interfaceId, error.source(), error.description());
    return toHresult(error.number());
  } catch (const std::bad_alloc&) {
    SetErrorInfo(0, nullptr);
    return E_OUTOFMEMORY;
  } catch (const std::exception& error) {
    leaveErrorInfo(interfaceId, std::wstring_view(), std::string_view(error.what()));
    return E_FAIL;
  } catch (...) {
    SetErrorInfo(0, nullptr);
    return E_FAIL;
  }
}

}  // namespace corvid
