/* The tests do not run this one. A short sale in C, early bound, by the header that the build makes
   from the interface definition (corvid_interfaces.h). Link with ole32, oleaut32 and uuid. */
#define COBJMACROS
#include <initguid.h>
#include <windows.h>
#include <oleauto.h>
#include "corvid_interfaces.h"
#include <stdio.h>

static VARIANT text(const wchar_t* words) {
  VARIANT value;
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = SysAllocString(words);
  return value;
}

static VARIANT number(double amount) {
  VARIANT value;
  V_VT(&value) = VT_R8;
  V_R8(&value) = amount;
  return value;
}

/* An optional argument that is left out; VT_EMPTY and VT_NULL count as given. */
static VARIANT missing(void) {
  VARIANT value;
  V_VT(&value) = VT_ERROR;
  V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
  return value;
}

/* 0 is success. Error n of the library is 0x800A0000 + n: 9, 6, 13, 40001. */
static int open_session(IPrinterFiscal2* printer, int port) {
  const HRESULT result = IPrinterFiscal2_Abrir(printer, number(port));
  if (FAILED(result)) printf("Abrir: %lu\n", (unsigned long)result & 0xFFFFUL);
  return FAILED(result);
}

static int sell_line(IPrinterFiscal2* printer, const wchar_t* words, double price) {
  VARIANT description = text(words);
  short outcome = 0;
  EnviosPF sent = envNinguno;
  HRESULT result = IPrinterFiscal2_PasarItem(printer, description, number(price), number(2),
                                             number(16), &outcome);
  VariantClear(&description);
  if (SUCCEEDED(result)) result = IPrinterFiscal2_get_UltimoEnvio(printer, &sent);
  printf("PasarItem: %d, UltimoEnvio: %d\n", outcome, sent);
  return FAILED(result) || sent != envAceptado;
}

int main(void) {
  IPrinterFiscal2* printer = NULL;
  VARIANT_BOOL failed = VARIANT_TRUE;
  short outcome = 0;
  CoInitializeEx(NULL, COINIT_APARTMENTTHREADED);
  if (FAILED(CoCreateInstance(&CLSID_PrinterFiscal, NULL, CLSCTX_INPROC_SERVER,
                              &IID_IPrinterFiscal2, (void**)&printer))) {
    printf("not registered for this bitness\n");
    return 1;
  }
  if (open_session(printer, 7) == 0 && sell_line(printer, L"PAN", 12.5) == 0) {
    IPrinterFiscal2_SubTotal(printer, missing(), &failed);
    if (!failed) IPrinterFiscal2_CerrarConMedio(printer, number(1), number(29), &outcome);
  }
  IPrinterFiscal2_Cerrar(printer);
  IPrinterFiscal2_Release(printer);
  CoUninitialize();
  return failed ? 1 : 0;
}
