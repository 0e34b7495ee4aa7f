' A whole sale from a script host. Register the library once (regsvr32 CorvidAPI.dll), then
'
'   cscript //nologo sale.vbs [port number]
'
' Without a number the printer is looked for on COM7.
Option Explicit

Const kOk = 0
Dim printer

Main
WScript.Echo "fin"

Sub Main()
  Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
  If Not OpenSession(PortNumber()) Then Exit Sub
  ShowPrinter
  If Sell() Then
    WScript.Echo "The sale is closed."
  Else
    ' A document that stays open would take up the lines of the next sale.
    Report "CancelarTransaccion", printer.CancelarTransaccion()
  End If
  ShowStatus
  printer.Cerrar
End Sub

Function PortNumber()
  PortNumber = 7
  On Error Resume Next
  If WScript.Arguments.Count > 0 Then PortNumber = WScript.Arguments(0)
End Function

' Abrir is one of the few members that raise an error: 40001 when there is no such port.
Function OpenSession(number)
  On Error Resume Next
  printer.Abrir number
  OpenSession = (Err.Number = 0)
  If OpenSession Then
    WScript.Echo "Abrir " & number & ": COM" & number & " is open"
  Else
    WScript.Echo "Abrir " & number & ": error " & Err.Number & " from " & Err.Source
    WScript.Echo "  " & Err.Description
  End If
End Function

Sub ShowPrinter()
  Dim counters
  WScript.Echo "Printer " & printer.SerialPrinter
  Set counters = printer.StatusS1
  WScript.Echo "Last invoice " & counters.numeroUltimaFactura & ", invoices today " & _
    counters.facturasDia
End Sub

' Every command method leaves its outcome in pfError and DescripcionError.
Function Sell()
  Sell = False
  If Not Done("IniciarFactura", printer.IniciarFactura("Maria Perez", "V-12345678-9", _
    "Avenida Bolivar, edificio Los Proceres, piso 3, Caracas")) Then Exit Function
  If Not Done("PasarItem", printer.PasarItem("Pan campesino", 12.5, 2, 16)) Then Exit Function
  If Not Done("PasarItem", printer.PasarItem("Leche entera 1 l", 3.2, 6, 0)) Then Exit Function
  If Not Done("PasarItem", printer.PasarItem("Cafe molido 500 g", 8.75, 1, 8)) Then Exit Function
  ' These two answer True when something went wrong.
  If Not Done("SubTotal", printer.SubTotal()) Then Exit Function
  If Not Done("PasarDescuento", printer.PasarDescuento(10)) Then Exit Function
  If Not Done("CerrarConMedio", printer.CerrarConMedio(1, 100)) Then Exit Function
  Sell = True
End Function

' An accepted command gives 0 (or False); one that the printer refused does too, and then the reply
' flag is NAK.
Function Done(member, outcome)
  Const kRefused = 21
  Report member, outcome
  Done = (CLng(outcome) = kOk) And (printer.resultFlag <> kRefused)
End Function

Sub Report(member, outcome)
  Dim words
  words = printer.DescripcionError
  If printer.resultFlag = 21 Then words = "refused"
  WScript.Echo member & ": " & outcome & " (" & words & ")"
End Sub

Sub ShowStatus()
  printer.GetStatus
  WScript.Echo printer.explainSTS1
  WScript.Echo printer.explainSTS2
End Sub
