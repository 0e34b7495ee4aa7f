/* A whole sale in C, early bound, by the header that the build makes from the interface definition
   (corvid_interfaces.h). Link with ole32, oleaut32 and uuid.

     early_bound_sale_c [port number]        (without a number: COM7) */
#define COBJMACROS
#include <initguid.h>
#include <windows.h>
#include <oleauto.h>
#include "corvid_interfaces.h"
#include <stdio.h>
#include <stdlib.h>

static IPrinterFiscal2* printer;

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
static int open_session(int port) {
  const HRESULT result = IPrinterFiscal2_Abrir(printer, number(port));
  BSTR serial = NULL;
  if (FAILED(result)) {
    printf("Abrir: %lu\n", (unsigned long)result & 0xFFFFUL);
    return 0;
  }
  IPrinterFiscal2_get_SerialPrinter(printer, &serial);
  printf("Printer %ls\n", serial ? serial : L"");
  SysFreeString(serial);
  return 1;
}

/* Only a command that the printer accepted once lets the sale go on. */
static int is_done(const char* member, HRESULT result) {
  EnviosPF sent = envNinguno;
  if (SUCCEEDED(result)) result = IPrinterFiscal2_get_UltimoEnvio(printer, &sent);
  printf("%s: %08lX, UltimoEnvio: %d\n", member, (unsigned long)result, sent);
  return SUCCEEDED(result) && sent == envAceptado;
}

static int begin_invoice(void) {
  VARIANT name = text(L"Maria Perez");
  VARIANT tax_id = text(L"V-12345678-9");
  VARIANT address = text(L"Avenida Bolivar, edificio Los Proceres, piso 3, Caracas");
  VARIANT outcome;
  HRESULT result;
  VariantInit(&outcome);
  result = IPrinterFiscal2_IniciarFactura(printer, name, tax_id, address, &outcome);
  VariantClear(&name);
  VariantClear(&tax_id);
  VariantClear(&address);
  VariantClear(&outcome);
  return is_done("IniciarFactura", result);
}

static int sell(const wchar_t* words, double price, double quantity, double rate) {
  VARIANT description = text(words);
  short outcome = 0;
  const HRESULT result = IPrinterFiscal2_PasarItem(printer, description, number(price),
                                                   number(quantity), number(rate), &outcome);
  VariantClear(&description);
  return is_done("PasarItem", result);
}

static int close_sale(void) {
  VARIANT_BOOL failed = VARIANT_TRUE; /* these two answer True when something went wrong */
  short outcome = 0;
  return is_done("SubTotal", IPrinterFiscal2_SubTotal(printer, missing(), &failed)) && !failed &&
         is_done("PasarDescuento", IPrinterFiscal2_PasarDescuento(printer, number(10), &failed)) &&
         !failed &&
         is_done("CerrarConMedio",
                 IPrinterFiscal2_CerrarConMedio(printer, number(1), number(100), &outcome));
}

static int make_sale(void) {
  short outcome = 0;
  const int closed = begin_invoice() && sell(L"Pan campesino", 12.5, 2, 16) &&
                     sell(L"Leche entera 1 l", 3.2, 6, 0) &&
                     sell(L"Cafe molido 500 g", 8.75, 1, 8) && close_sale();
  if (closed) {
    printf("The sale is closed.\n");
  } else {
    /* A document that stays open would take up the lines of the next sale. */
    is_done("CancelarTransaccion", IPrinterFiscal2_CancelarTransaccion(printer, &outcome));
  }
  return closed;
}

static void show_status(void) {
  VARIANT words;
  VariantInit(&words);
  IPrinterFiscal2_GetStatus(printer);
  if (SUCCEEDED(IPrinterFiscal2_explainSTS1(printer, &words)) && V_VT(&words) == VT_BSTR) {
    printf("%ls\n", V_BSTR(&words));
  }
  VariantClear(&words);
}

int main(int count, char** arguments) {
  int closed = 0;
  CoInitializeEx(NULL, COINIT_APARTMENTTHREADED);
  if (FAILED(CoCreateInstance(&CLSID_PrinterFiscal, NULL, CLSCTX_INPROC_SERVER,
                              &IID_IPrinterFiscal2, (void**)&printer))) {
    printf("not registered for this bitness\n");
    return 1;
  }
  if (open_session(count > 1 ? atoi(arguments[1]) : 7)) {
    closed = make_sale();
    show_status();
    IPrinterFiscal2_Cerrar(printer);
  }
  IPrinterFiscal2_Release(printer);
  CoUninitialize();
  printf("fin\n");
  return closed ? 0 : 1;
}
