// Every member of every class against every kind of value that a host can pass.
#include "com/printer_fiscal_object.h"
#include "com/safe_array.h"
#include "com/string_buffer_object.h"
#include "com/z_report_objects.h"
#include "support/seeds.h"
#include "support/session_bench.h"
#include "unit/com/automation_host.h"

#include <psapi.h>

#include <array>
#include <climits>
#include <deque>
#include <limits>
#include <map>
#include <set>

namespace corvid::testing {

// In a file of its own: two parts of the core call different things an answer.
ComPtr<IDispatch> previewWithoutPrinter(const Settings& settings);

namespace {

VARIANT decimal(ULONG high) {
  VARIANT variant{};
  V_DECIMAL(&variant).Hi32 = high;
  V_DECIMAL(&variant).Lo64 = high;
  V_VT(&variant) = VT_DECIMAL;
  return variant;
}

// Values of every kind, with all that they refer to. What is handed out stays this object's.
class Values {
 public:
  Values() {
    addNumbers();
    addTexts();
    addObjects();
    addArrays();
    addReferences();
    for (const int type : std::initializer_list<int>{VT_RECORD, VT_CARRAY, VT_VECTOR | VT_I4,
                                                     VT_PTR, VT_USERDEFINED}) {
      add(raw<void*>(type, nullptr));
    }
  }
  Values(const Values&) = delete;
  Values& operator=(const Values&) = delete;
  ~Values() {
    for (SAFEARRAY* const array : arrays_) {
      array->cbElements = trueSizes_.at(array);
      EXPECT_EQ(S_OK, SafeArrayDestroy(array)) << "an array is still locked";
    }
    EXPECT_EQ(1U, plain_.references) << "an object is still held";
    EXPECT_EQ(1U, speaking_.references);
    EXPECT_EQ(1U, ring_.references);
  }

  [[nodiscard]] const std::vector<VARIANT>& all() const { return all_; }

 private:
  void add(const VARIANT& value) { all_.push_back(value); }

  void addNumbers() {
    using std::numeric_limits;
    add(raw(VT_EMPTY, 0));
    add(raw(VT_NULL, 0));
    add(raw(VT_ERROR, DISP_E_PARAMNOTFOUND));
    add(raw(VT_ERROR, E_FAIL));
    add(raw(VT_BOOL, VARIANT_TRUE));
    add(raw(VT_BOOL, VARIANT_BOOL{7}));
    for (const int n : {SHRT_MIN, -1, 0, 1, SHRT_MAX}) add(raw(VT_I2, static_cast<SHORT>(n)));
    for (const LONG n : {LONG_MIN, LONG_MAX}) {
      add(raw(VT_I4, n));
      add(raw(VT_INT, n));
    }
    add(raw(VT_I1, CHAR_MIN));
    add(raw(VT_UI1, BYTE{255}));
    add(raw(VT_UI2, WORD{65535}));
    add(raw(VT_UI4, ULONG_MAX));
    add(raw(VT_UINT, ULONG_MAX));
    for (const LONGLONG n : {LLONG_MIN, LLONG_MAX}) {
      add(raw(VT_I8, n));
      add(raw(VT_CY, n));
    }
    add(raw(VT_UI8, ULLONG_MAX));
    for (const float n : {8.2F, numeric_limits<float>::max(), numeric_limits<float>::infinity(),
                          numeric_limits<float>::quiet_NaN()}) {
      add(raw(VT_R4, n));
    }
    for (const double n :
         {0.00001, 8.2, numeric_limits<double>::max(), numeric_limits<double>::infinity(),
          numeric_limits<double>::quiet_NaN()}) {
      add(raw(VT_R8, n));
      add(raw(VT_DATE, n));
    }
    add(decimal(0));
    add(decimal(ULONG_MAX));
  }

  void addTexts() {
    add(raw<BSTR>(VT_BSTR, nullptr));
    for (const std::wstring& one : {std::wstring(), std::wstring(L"16"), std::wstring(L"A\0B", 3),
                                    std::wstring(5000, L'x'), std::wstring(L"\x02\x03\x06")}) {
      texts_.emplace_back(one);
      add(raw(VT_BSTR, texts_.back().get()));
    }
  }

  void addObjects() {
    add(raw<void*>(VT_DISPATCH, nullptr));
    add(raw<void*>(VT_UNKNOWN, nullptr));
    for (HostObject* const one : {&plain_, &speaking_, &ring_}) {
      one->isEverything = true;
      add(raw<IDispatch*>(VT_DISPATCH, one));
    }
    add(raw<IUnknown*>(VT_UNKNOWN, &plain_));
  }

  void addArray(VARTYPE type, std::vector<SAFEARRAYBOUND> bounds, ULONG elementSize = 0) {
    SAFEARRAY* const array = SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data());
    ASSERT_NE(nullptr, array);
    trueSizes_[array] = array->cbElements;
    if (elementSize != 0) array->cbElements = elementSize;
    arrays_.push_back(array);
    add(raw(VT_ARRAY | type, array));
  }

  void addArrays() {
    for (const VARTYPE type :
         {VT_VARIANT, VT_BSTR, VT_I4, VT_UI1, VT_R8, VT_DECIMAL, VT_DISPATCH}) {
      addArray(type, {{3, 0}});
      addArray(type, {{40, 1}});
    }
    addArray(VT_I2, {{0, 0}});
    addArray(VT_I2, {{2, -5}});
    addArray(VT_I2, {{1, LONG_MAX}});
    addArray(VT_VARIANT, {{2, 0}, {2, 0}});
    addArray(VT_VARIANT, {{3, 0}}, 200);  // as of records: reading one would run over a Variant
    add(raw<void*>(VT_ARRAY | VT_VARIANT, nullptr));
  }

  void addReferences() {
    number_ = raw(VT_I4, LONG{5});
    first_ = raw(VT_BYREF | VT_VARIANT, &number_);
    second_ = raw(VT_BYREF | VT_VARIANT, &first_);
    ringed_ = raw(VT_BYREF | VT_VARIANT, &ringed_);
    add(first_);
    add(second_);
    add(raw(VT_BYREF | VT_VARIANT, &second_));
    add(ringed_);
    add(raw(VT_BYREF | VT_I4, &V_I4(&number_)));
    add(raw(VT_BYREF | VT_BSTR, &text_));
    add(raw(VT_BYREF | VT_ARRAY | VT_VARIANT, arrays_.data()));
    for (const int type : std::initializer_list<int>{VT_I4, VT_BSTR, VT_VARIANT, VT_DISPATCH,
                                                     VT_ARRAY | VT_VARIANT}) {
      add(raw<void*>(VT_BYREF | type, nullptr));
    }
  }

  std::vector<VARIANT> all_;
  std::deque<Bstr> texts_;
  // Answer their default property: with nothing, a number, themselves.
  HostObject plain_{L"", [](DISPPARAMS&, VARIANT*) { return DISP_E_MEMBERNOTFOUND; }, DISPID_VALUE};
  HostObject speaking_{L"",
                       [](DISPPARAMS&, VARIANT* result) {
                         if (result != nullptr) *result = number(16).detach();
                         return S_OK;
                       },
                       DISPID_VALUE};
  HostObject ring_{L"",
                   [this](DISPPARAMS&, VARIANT* result) {
                     *result = objectValue(&ring_).detach();
                     return S_OK;
                   },
                   DISPID_VALUE};
  std::vector<SAFEARRAY*> arrays_;
  std::map<SAFEARRAY*, ULONG> trueSizes_;
  VARIANT number_{};
  VARIANT first_{};
  VARIANT second_{};
  VARIANT ringed_{};
  Bstr owner_{L"text"};
  BSTR text_ = owner_.get();
};

// What a member may return: run-time errors 5 to 13, 438 and 40001, and the system's words for
// arguments that do not fit.
bool isDocumented(HRESULT outcome, HRESULT raised) {
  static const std::set<HRESULT> known = {S_OK,
                                          DISP_E_TYPEMISMATCH,
                                          DISP_E_OVERFLOW,
                                          DISP_E_BADVARTYPE,
                                          E_INVALIDARG,
                                          E_POINTER,
                                          DISP_E_PARAMNOTOPTIONAL,
                                          RPC_E_WRONG_THREAD,
                                          static_cast<HRESULT>(0x80040005)};  // LeftMargin below 0
  static const std::set<int> numbers = {5, 6, 9, 13, 438, 40001};
  const HRESULT told = outcome == DISP_E_EXCEPTION ? raised : outcome;
  return known.contains(told) ||
         (HRESULT_FACILITY(told) == FACILITY_CONTROL && numbers.contains(HRESULT_CODE(told)));
}

// Members that show windows or ask a person.
bool needsAPerson(const std::wstring& member) {
  return member == L"Show" || member == L"PrintListBox";
}

class AnyValue : public AutomationTest {
 protected:
  AnyValue() : bench_({{L"TimeOut", L"1"}, {L"SinMensajes", L"True"}, {L"Tasas", L"1"}}) {
    bench_.open();
    auto& thread = bench_.thread();
    add(makeObject<PrinterFiscalObject>(
        std::shared_ptr<PrinterSession>(&bench_.session(), [](PrinterSession*) {})));
    add(makeObject<PrinterResponse1Object>(std::make_shared<CountersRecord>(thread)));
    add(makeObject<PrinterResponse2Object>(std::make_shared<TransactionRecord>(thread)));
    add(makeObject<EstadoDocumentoObject>(std::make_shared<DocumentStateRecord>(thread)));
    add(makeObject<PrinterResponse3Object>(std::make_shared<RatesRecord>(thread)));
    add(makeObject<PrinterResponse4Object>(std::make_shared<PaymentsRecord>()));
    add(makeObject<ResumenZObject>(std::make_shared<DailySummary>(thread)));
    add(makeObject<ReporteZMFObject>(std::make_shared<ZReportRecord>(thread)));
    add(makeObject<ColeccionZMFObject>(std::vector<std::shared_ptr<ZReportRecord>>(3)));
    add(makeObject<CStringBufferObject>());
    objects_.push_back(previewWithoutPrinter(thread.currentSettings()));
  }

  template <class Object>
  void add(ComPtr<Object> object) {
    typename Object::Published* const published = object.get();
    objects_.emplace_back(published);
  }

  struct Member {
    IDispatch* object;
    const FUNCDESC* description;
    std::wstring name;
  };
  // Calls every member in turn.
  template <class Call>
  void callEach(Call&& call) {
    for (const ComPtr<IDispatch>& object : objects_) {
      forEachMember(object.get(), [&](const FUNCDESC& one, const std::wstring& name) {
        if (!needsAPerson(name)) call(Member{object.get(), &one, name});
      });
    }
  }

  // The arguments stand last first.
  HRESULT invoke(const Member& member, std::vector<VARIANT>& arguments) {
    static DISPID put = DISPID_PROPERTYPUT;
    const auto flags = static_cast<WORD>(member.description->invkind);
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS given{arguments.data(), isPut ? &put : nullptr, static_cast<UINT>(arguments.size()),
                     isPut ? 1U : 0U};
    Variant result;
    EXCEPINFO told{};
    const HRESULT outcome =
        member.object->Invoke(member.description->memid, IID_NULL, 0, flags, &given,
                              isPut ? nullptr : result.put(), &told, nullptr);
    SysFreeString(told.bstrSource);
    SysFreeString(told.bstrDescription);
    raised_ = told.scode;
    bench_.printer().blocks.clear();
    return outcome;
  }

  SessionBench bench_;
  std::vector<ComPtr<IDispatch>> objects_;
  HRESULT raised_ = S_OK;
};

UINT argumentsOf(const FUNCDESC& description) {
  return static_cast<UINT>(description.cParams) -
         ((description.cParams > 0 &&
           (description.lprgelemdescParam[description.cParams - 1].paramdesc.wParamFlags &
            PARAMFLAG_FRETVAL) != 0)
              ? 1U
              : 0U);
}

TEST_F(AnyValue, GivesDocumentedErrorsAndSendsNothingAfterOne) {
  const Values values;
  int calls = 0;
  callEach([&](const Member& member) {
    const UINT count = argumentsOf(*member.description);
    for (UINT place = 0; place < count; ++place) {
      for (const VARIANT& value : values.all()) {
        std::vector<VARIANT> arguments(count, raw(VT_I2, SHORT{1}));
        arguments[place] = value;
        bench_.world().serial.clearLog();
        std::fflush(stderr);
        const HRESULT outcome = invoke(member, arguments);
        ++calls;
        EXPECT_TRUE(isDocumented(outcome, raised_))
            << ::testing::PrintToString(member.name) << " " << place << " type " << V_VT(&value)
            << " gave " << std::hex << outcome << " " << raised_;
        if (FAILED(outcome) && raised_ != static_cast<HRESULT>(0x800A0000 + 40001)) {
          EXPECT_TRUE(bench_.world().serial.written().empty())
              << ::testing::PrintToString(member.name) << " " << place << " type " << V_VT(&value);
        }
      }
    }
  });
  EXPECT_GT(calls, 10000);
  objects_.clear();  // the preview keeps the target of its notices
}

void runPendingMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
}

std::size_t privateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

// CORVID_CALLS sets how often each member is called; a leak of 128 bytes a call shows in any case.
TEST_F(AnyValue, LeavesNoMemoryBehind) {
  const unsigned calls = environmentNumber("CORVID_CALLS", 500);
  const std::size_t slack = std::size_t{128} * calls;
  const Bstr words(L"16" +
                   std::wstring(200, L' '));  // a number whose text is larger than the slack
  callEach([&](const Member& member) {
    // A report and a text grow by what they are given.
    if (member.name == L"Add" || member.name.starts_with(L"Append") || member.name == L"Insert" ||
        member.name == L"PageBreak" || member.name == L"LoadText") {
      return;
    }
    std::size_t before = 0;
    for (unsigned i = 0; i < 2 * calls; ++i) {
      std::vector<VARIANT> arguments(argumentsOf(*member.description), raw(VT_BSTR, words.get()));
      invoke(member, arguments);
      bench_.world().serial.clearLog();
      runPendingMessages();
      if (i == calls) before = privateBytes();
    }
    EXPECT_LE(privateBytes(), before + slack) << ::testing::PrintToString(member.name);
  });
}

}  // namespace
}  // namespace corvid::testing
