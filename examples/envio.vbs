' A sale that looks at what became of each command. A result of 0 does not tell a line that stands on
' the paper once from one that may stand there twice, nor a failure a line that was not sold from one
' that may have been; UltimoEnvio does. Register the library once (regsvr32 CorvidAPI.dll), then
'
'   cscript //nologo envio.vbs [port number [quantity of each article]]
'
' Without a number the printer is looked for on COM7. With the setting LimiteEspera a printer that
' stays silent does not hold the shop up.
Option Explicit

' EnviosPF
Const envNinguno = 0
Const envAceptado = 1
Const envRechazado = 2
Const envNoEnviado = 3
Const envIncierto = 4
Const envAceptadoDudoso = 5
' What a host does next.
Const kGoOn = 0
Const kAsk = 1
Const kStop = 2
Const kUnknown = -1
Dim printer

Main
WScript.Echo "fin"

Sub Main()
  Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
  Report "Antes de Abrir"
  If OpenSession(Argument(0, 7)) Then
    If Sell(CDbl(Argument(1, 2))) Then
      WScript.Echo "Venta cerrada."
    Else
      ' A document that stays open would take up the lines of the next sale.
      WScript.Echo "La venta no sigue."
      printer.CancelarTransaccion
      Report "CancelarTransaccion"
    End If
  End If
  ' For whoever supports the shop; it asks the printer nothing.
  WScript.Echo printer.Diagnostico
  printer.Cerrar
End Sub

Function Argument(index, usual)
  Argument = usual
  If WScript.Arguments.Count > index Then Argument = WScript.Arguments(index)
End Function

Function OpenSession(number)
  On Error Resume Next
  printer.Abrir number
  OpenSession = (Err.Number = 0)
  If Not OpenSession Then WScript.Echo "Abrir " & number & ": " & Err.Description
End Function

Function Sell(quantity)
  Sell = False
  If Not SellSurely("Pan campesino", 12.5, quantity, 16) Then Exit Function
  If Not SellSurely("Leche entera 1 l", 3.2, quantity, 0) Then Exit Function
  Sell = CloseSurely(1, 100)
End Function

' True when the line stands on the paper once. One that is missing there is sold once more; with one
' that stands there several times the sale does not go on.
Function SellSurely(description, price, quantity, rate)
  Dim before, attempt, times
  SellSurely = False
  before = AmountDue()
  For attempt = 1 To 2
    Select Case SellLine(description, price, quantity, rate)
      Case kGoOn
        SellSurely = True
        Exit Function
      Case kStop
        Exit Function
    End Select
    times = TimesOnPaper(before, price * quantity)
    SellSurely = (times = 1)
    If times <> 0 Then Exit Function
  Next
End Function

' Sells a line once, and tells whether to go on, to ask the printer first, or to stop.
Function SellLine(description, price, quantity, rate)
  printer.PasarItem description, price, quantity, rate
  SellLine = Report("PasarItem")
End Function

' A payment that closed the document made its number the last invoice's.
Function CloseSurely(method, amount)
  Dim before, after
  before = LastInvoice()
  printer.CerrarConMedio method, amount
  Select Case Report("CerrarConMedio")
    Case kGoOn
      CloseSurely = True
    Case kAsk
      after = LastInvoice()
      WScript.Echo "  Factura: antes " & before & ", ahora " & after
      CloseSurely = (before <> kUnknown And after = before + 1)
    Case Else
      CloseSurely = False
  End Select
End Function

' Before anything else is asked: a query is a command too, and has an outcome of its own.
Function Report(member)
  Dim outcome
  outcome = printer.UltimoEnvio
  WScript.Echo member & ": " & Words(outcome) & " (bloques: " & printer.BloquesEnviados & _
    ", " & printer.Milisegundos & " ms)"
  Report = NextStep(outcome)
End Function

Function Words(outcome)
  Dim all
  all = Array("nada enviado", "aceptado", "rechazado", "no enviado", "incierto", _
    "aceptado, tal vez dos veces")
  Words = all(outcome)
End Function

Function NextStep(outcome)
  NextStep = kStop
  Select Case outcome
    Case envNinguno, envAceptado
      NextStep = kGoOn
    Case envRechazado
      Advise "No está en el papel; atienda la impresora. " & printer.explainSTS2
    Case envNoEnviado
      Advise "No está en el papel. Corrija la causa: " & printer.DescripcionError
    Case envIncierto
      Advise "Puede estar en el papel. Mire el documento antes de repetir."
      NextStep = kAsk
    Case envAceptadoDudoso
      Advise "Está en el papel, tal vez dos veces. Mire el documento antes de seguir."
      NextStep = kAsk
  End Select
End Function

Sub Advise(text)
  WScript.Echo "  " & text
End Sub

' 0, 1, or 2 for several times. Tax, which some printers add, is less than half of the price.
Function TimesOnPaper(before, lineAmount)
  Dim after
  after = AmountDue()
  WScript.Echo "  Por pagar: antes " & before & ", ahora " & after
  If before = kUnknown Or after = kUnknown Then
    TimesOnPaper = kUnknown
  ElseIf after - before < lineAmount * 0.5 Then
    TimesOnPaper = 0
  ElseIf after - before < lineAmount * 1.5 Then
    TimesOnPaper = 1
  Else
    TimesOnPaper = 2
  End If
End Function

' What the open document comes to; 0 without one. A failed query gives a record of zeros.
Function AmountDue()
  Dim amount
  On Error Resume Next
  amount = printer.getEstadoDocumento.MontoPorPagar
  AmountDue = Told(amount)
End Function

Function LastInvoice()
  Dim number
  On Error Resume Next
  number = printer.numeroUltimaFactura
  LastInvoice = Told(number)
End Function

' The value, or kUnknown when the query that gave it did not go well. A query that was answered late
' has done no harm.
Function Told(value)
  Told = kUnknown
  If Err.Number <> 0 Or printer.pfError <> 0 Then Exit Function
  Select Case printer.UltimoEnvio
    Case envAceptado, envAceptadoDudoso
      Told = value
  End Select
End Function
