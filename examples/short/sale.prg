* Not run: written from the language's documentation. A short sale in Visual FoxPro.
LOCAL loPrinter
loPrinter = CREATEOBJECT("PrinterFiscalCorvid.PrinterFiscal")
IF OpenSession(loPrinter, 7)
  loPrinter.PasarDatosCliente("MARIA PEREZ", "V-12345678-9", "Caracas")
  IF SellLine(loPrinter, "PAN", 12.5, 2, 16)
    * The optional argument is left out; .NULL. would count as given. .F. is success.
    IF NOT loPrinter.SubTotal()
      loPrinter.CerrarConMedio(1, 29)
    ENDIF
  ENDIF
  ? loPrinter.StatusS1().numeroUltimaFactura
  loPrinter.Cerrar()
ENDIF

FUNCTION OpenSession(toPrinter, tnNumber)
  LOCAL llOpen, laError[1]
  TRY
    toPrinter.Abrir(tnNumber)
    llOpen = .T.
  CATCH
    * The words are in column 3, the library's number in the low half of column 7.
    AERROR(laError)
    ? laError[1, 3]
  ENDTRY
  RETURN llOpen
ENDFUNC

FUNCTION SellLine(toPrinter, tcDescription, tnPrice, tnQuantity, tnRate)
  toPrinter.PasarItem(tcDescription, tnPrice, tnQuantity, tnRate)
  IF toPrinter.UltimoEnvio <> 1
    ? toPrinter.UltimoEnvio, toPrinter.DescripcionError
  ENDIF
  RETURN toPrinter.UltimoEnvio = 1
ENDFUNC
