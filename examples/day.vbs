' A whole day from a script host: sales, a credit note, a non-fiscal text, the reports, and what the
' printer tells of it. Register the library once (regsvr32 CorvidAPI.dll), then
'
'   cscript //nologo day.vbs [port number]
'
' Without a number the printer is looked for on COM7. The day is closed at the end: try it with a
' printer whose fiscal memory does not matter.
Option Explicit

Const kRefused = 21
Const kCash = 1
Const kCard = 9
Const kDollars = 20
Dim printer

Main
WScript.Echo "fin"

Sub Main()
  Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
  printer.Abrir PortNumber()
  WScript.Echo "Printer " & printer.SerialPrinter
  Prepare
  SellForCash
  SellWithDiscount
  SellForDollars
  TakeBack
  PrintNote
  ShowState
  CloseTheDay
  ShowClosures
  printer.Cerrar
End Sub

Function PortNumber()
  PortNumber = 7
  On Error Resume Next
  If WScript.Arguments.Count > 0 Then PortNumber = WScript.Arguments(0)
End Function

Sub Heading(words)
  WScript.Echo ""
  WScript.Echo "--- " & words
End Sub

' Every command method leaves its outcome in pfError and DescripcionError. One that the printer
' refused gives 0 (or False) too, and then the reply flag is NAK.
Sub Check(member, outcome)
  Dim words
  words = printer.DescripcionError
  If printer.resultFlag = kRefused Then words = "refused"
  WScript.Echo member & ": " & outcome & " (" & words & ")"
End Sub

Sub Prepare()
  Dim i
  Heading "Rates and programmed lines"
  Check "Login", printer.Login(3)
  Check "SetHeader", printer.SetHeader(1, "Abasto La Esquina, C.A.")
  Check "SetHeader", printer.SetHeader(2, "Calle 5, Caracas")
  Check "SetFooter", printer.SetFooter(1, "Gracias por su compra")
  For i = 1 To 3
    WScript.Echo "tasa(" & i & ") = " & printer.tasa(i)
  Next
End Sub

Sub SellForCash()
  Heading "A sale at every rate, paid in cash"
  Check "IniciarFactura", printer.IniciarFactura("Maria Perez", "V-12345678-9", "Caracas")
  Check "PasarItem", printer.PasarItem("Pan campesino", 12.5, 2, 16)
  Check "PasarItem", printer.PasarItem("Leche entera 1 l", 3.2, 6, 0)
  Check "PasarItem", printer.PasarItem("Cafe molido 500 g", 8.75, 1, 8)
  Check "PasarItem", printer.PasarItem("Reloj de pulsera", 100, 1, 31)
  ' The open document, as the two records see it.
  WScript.Echo printer.StatusS2.toString
  WScript.Echo printer.getEstadoDocumento.toString
  Check "CerrarConMedio", printer.CerrarConMedio(kCash, 200)
End Sub

Sub SellWithDiscount()
  Heading "A sale with a discount, paid by two methods"
  Check "PasarItem", printer.PasarItem("Queso blanco", 40, 2.5, 16)
  Check "SubTotal", printer.SubTotal()
  Check "PasarDescuento", printer.PasarDescuento(10)
  Check "CerrarConMedio", printer.CerrarConMedio(kCard, 50)
  Check "CerrarComprobante", printer.CerrarComprobante()
End Sub

Sub SellForDollars()
  Heading "A sale paid in foreign currency, on which a levy is due"
  Check "PasarItem", printer.PasarItem("Harina de maiz", 33.5, 1, 0)
  Check "CerrarConMedio", printer.CerrarConMedio(kDollars, 40)
End Sub

Sub TakeBack()
  Heading "A credit note"
  Check "PasarDatosClienteNC", printer.PasarDatosClienteNC("Maria Perez", "V-12345678-9", _
    "Caracas", "00000001", printer.SerialPrinter, Date)
  Check "RefundItem", printer.RefundItem("Pan campesino", 12.5, 1, 16)
  Check "CerrarNotaCreditoConMedio", printer.CerrarNotaCreditoConMedio(kCash, 14.5)
End Sub

Sub PrintNote()
  Heading "A non-fiscal text"
  Check "PrintNoFiscal", printer.PrintNoFiscal("Nota de entrega", False)
  Check "PrintNoFiscal", printer.PrintNoFiscal("Dos bultos de harina", True)
End Sub

Sub ShowState()
  Dim payments, i
  Heading "The X report, and the day so far"
  Check "ReporteDiario", printer.ReporteDiario("0", "X")
  WScript.Echo "numeroUltimaFactura = " & printer.numeroUltimaFactura
  WScript.Echo printer.StatusS1.toString
  WScript.Echo printer.StatusS3.toString
  Set payments = printer.Response4
  For i = 1 To payments.nMedios
    If payments.valor(i) <> 0 Then WScript.Echo "Means " & i & ": " & payments.valor(i)
  Next
End Sub

' CerrarZ gives Nothing when the day could not be closed.
Sub CloseTheDay()
  Dim summary
  Heading "The Z report closes the day"
  Set summary = printer.CerrarZ()
  If summary Is Nothing Then
    Check "CerrarZ", "Nothing"
    Exit Sub
  End If
  WScript.Echo summary.toString
  ' The same record, read again later.
  summary.Refresh printer
  WScript.Echo "Closure " & summary.numeroUltimoZ & ", sales with tax " & Sales(summary) & _
    ", returned " & Returned(summary)
  ' Of a printer with the long counters this is the last credit note's number.
  WScript.Echo "NumeroUltimoCierre = " & printer.NumeroUltimoCierre
End Sub

Function Sales(summary)
  Sales = summary.ventasExentas + summary.baseVG + summary.impuestoVG + summary.baseIR + _
    summary.impuestoIR + summary.baseIA + summary.impuestoIA
End Function

Function Returned(summary)
  Returned = summary.exentoNC + summary.baseVGNC + summary.impuestoVGNC + summary.baseIRNC + _
    summary.impuestoIRNC + summary.baseIANC + summary.impuestoIANC
End Function

Sub ShowClosures()
  Dim zReports, zReport
  Heading "The Z reports in the printer's fiscal memory"
  Set zReports = printer.reportesZMF(1, 9999)
  WScript.Echo zReports.Count & " found"
  For Each zReport In zReports
    WScript.Echo zReport.toString
  Next
  Set zReport = printer.loadReporteZMF(zReports(zReports.Count).numeroCierre)
  WScript.Echo "The last one is of " & zReport.fechaCierre
  Check "Logoff", printer.Logoff()
End Sub
