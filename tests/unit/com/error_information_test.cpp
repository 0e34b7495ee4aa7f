// What a host sees of a failure: the number, the source, the words; nothing else crosses over.
#include "basic/run_time_error.h"
#include "com/guard.h"
#include "unit/com/automation_host.h"

#include <functional>
#include <stdexcept>

namespace corvid::testing {
namespace {

using ErrorInformation = AutomationTest;

struct Left {
  std::wstring source;
  std::wstring description;
  bool operator==(const Left&) const = default;
};

Left takeErrorInfo() {
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) != S_OK) return {L"none", L"none"};
  Bstr source;
  Bstr description;
  info->GetSource(source.put());
  info->GetDescription(description.put());
  return {std::wstring(source.view()), std::wstring(description.view())};
}

TEST_F(ErrorInformation, TurnsEveryExceptionIntoAResultWithItsWords) {
  struct Case {
    std::function<void()> body;
    HRESULT result;
    Left left;
    const char* reason;
  };
  const Left none{L"none", L"none"};
  const std::wstring library = L"PrinterFiscalCorvid";
  const std::vector<Case> cases = {
      {[] {}, S_OK, none, "no failure"},
      {[] { throw RunTimeError(5, L"", L"words"); },
       static_cast<HRESULT>(0x800A0005),
       {library, L"words"},
       "a run-time error; an empty source is the library"},
      {[] { throw RunTimeError(40001, L"PrinterFiscal.Abrir", L"words"); },
       static_cast<HRESULT>(0x800A9C41),
       {L"PrinterFiscal.Abrir", L"words"},
       "a source of its own"},
      {[] { throw RunTimeError(static_cast<std::int32_t>(0x80040005), L"window", L"words"); },
       static_cast<HRESULT>(0x80040005),
       {L"window", L"words"},
       "a negative number stands"},
      {[] { throw RunTimeError(0, L"", L"words"); },
       E_FAIL,
       {library, L"words"},
       "a failure never looks like a success"},
      {[] { throw std::bad_alloc(); }, E_OUTOFMEMORY, none, "no memory, no words"},
      {[] { throw std::logic_error("words"); }, E_FAIL, {library, L"words"}, "any exception"},
      {[] { throw 1; }, E_FAIL, none, "no exception object at all"},
  };
  for (const Case& one : cases) {
    // What an earlier failure left must not show.
    if (FAILED(one.result)) {
      EXPECT_TRUE(FAILED(guarded(IID_NULL, [] { throw RunTimeError(1, L"stale", L"stale"); })));
    }
    EXPECT_EQ(one.result, guarded(IID_NULL, one.body)) << one.reason;
    EXPECT_EQ(one.left, takeErrorInfo()) << one.reason;
  }
}

// Arguments convert in their order: the first that cannot decides.
TEST_F(ErrorInformation, ComesFromTheFirstArgumentThatDoesNotConvert) {
  const auto session = newSession();
  short sent = -1;
  EXPECT_EQ(static_cast<HRESULT>(0x800A0006),
            session->PasarItem(text(L"PAN").value(), number(1e20).value(), text(L"dos").value(),
                               number(16).value(), &sent));
  EXPECT_EQ(static_cast<HRESULT>(0x800A000D),
            session->PasarItem(text(L"PAN").value(), number(1).value(), text(L"dos").value(),
                               number(16).value(), &sent));
  EXPECT_EQ(0, sent);
}

TEST_F(ErrorInformation, IsOfferedForTheOwnInterfaceAlone) {
  const auto supports = newSession().as<ISupportErrorInfo>();
  ASSERT_TRUE(supports);
  EXPECT_EQ(S_OK, supports->InterfaceSupportsErrorInfo(__uuidof(IPrinterFiscal)));
  EXPECT_EQ(S_FALSE, supports->InterfaceSupportsErrorInfo(__uuidof(ICStringBuffer)));
}

TEST_F(ErrorInformation, RefusesMissingPlaces) {
  const auto session = newSession();
  const auto buffer = newBuffer();
  LONG index = 1;
  EXPECT_EQ(E_POINTER, session->get_result(nullptr));
  EXPECT_EQ(E_POINTER, session->CancelarTransaccion(nullptr));
  EXPECT_EQ(E_POINTER, session->get_s3(nullptr));
  EXPECT_EQ(E_POINTER, session->GetTypeInfo(0, 0, nullptr));
  EXPECT_EQ(E_POINTER, session->QueryInterface(IID_IUnknown, nullptr));
  EXPECT_EQ(E_POINTER, buffer->Append(nullptr));
  EXPECT_EQ(E_POINTER, buffer->Remove(&index, nullptr));
  EXPECT_EQ(E_POINTER, DllGetClassObject(__uuidof(::CStringBuffer), IID_IUnknown, nullptr));
}

}  // namespace
}  // namespace corvid::testing
