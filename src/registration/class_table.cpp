#include "registration/class_table.h"

#include "corvid_interfaces.h"
#include "registration/automation_library.h"
#include "registration/printer_fiscal_object.h"
#include "registration/printer_response1_object.h"
#include "registration/printer_response3_object.h"
#include "registration/string_buffer_object.h"

#include <algorithm>
#include <array>
#include <memory>

namespace corvid {
namespace {

IUnknown* createSession() {
  AutomationLibrary& automation = AutomationLibrary::instance();
  auto session = std::make_shared<PrinterFiscal>(automation.library(), automation.statusSource());
  IPrinterFiscal* object = makeObject<PrinterFiscalObject>(std::move(session)).detach();
  return object;
}

IUnknown* createResponse1() {
  auto record = std::make_shared<PrinterResponse1>(AutomationLibrary::instance().library());
  IPrinterResponse1* object = makeObject<PrinterResponse1Object>(std::move(record)).detach();
  return object;
}

IUnknown* createResponse3() {
  auto record = std::make_shared<PrinterResponse3>(AutomationLibrary::instance().library());
  IPrinterResponse3* object = makeObject<PrinterResponse3Object>(std::move(record)).detach();
  return object;
}

IUnknown* createStringBuffer() {
  ICStringBuffer* object = makeObject<CStringBufferObject>().detach();
  return object;
}

}  // namespace

std::span<const PublicClass> publicClasses() noexcept {
  static const std::array<PublicClass, 4> classes = {{
      {__uuidof(::PrinterFiscal), L"PrinterFiscal", L"Corvid fiscal printer session",
       createSession},
      {__uuidof(::PrinterResponse1), L"PrinterResponse1", L"Corvid cashier and counters record",
       createResponse1},
      {__uuidof(::PrinterResponse3), L"PrinterResponse3", L"Corvid tax rate record",
       createResponse3},
      {__uuidof(::CStringBuffer), L"CStringBuffer", L"Corvid text buffer", createStringBuffer},
  }};
  return classes;
}

const PublicClass* findPublicClass(REFCLSID id) noexcept {
  const auto classes = publicClasses();
  const auto found =
      std::find_if(classes.begin(), classes.end(), [&](const auto& one) { return one.id == id; });
  return found == classes.end() ? nullptr : &*found;
}

}  // namespace corvid
