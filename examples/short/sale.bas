' Not run: written from the language's documentation. A short sale in Visual Basic 6, or in VBA of
' Office, early bound: add a reference to "Corvid: biblioteca para impresoras fiscales".
Option Explicit

Private printer As PrinterFiscalCorvid.PrinterFiscal

Public Sub SellOneLine()
  Set printer = New PrinterFiscalCorvid.PrinterFiscal
  If Not OpenSession(7) Then Exit Sub
  printer.PasarDatosCliente "MARIA PEREZ", "V-12345678-9", "Caracas"
  If SellLine("PAN", 12.5, 2, 16) Then
    ' The optional argument is simply left out. False is success.
    If Not printer.SubTotal Then printer.CerrarConMedio 1, 29
  End If
  Debug.Print printer.StatusS1.numeroUltimaFactura
  printer.Cerrar
End Sub

Private Function OpenSession(ByVal number As Integer) As Boolean
  On Error GoTo failed
  printer.Abrir number
  OpenSession = True
  Exit Function
failed:
  ' 9: no such number; 6, 13: no number at all; 40001: the port does not open.
  MsgBox Err.Number & " (" & Err.Source & "): " & Err.Description
End Function

Private Function SellLine(description As String, ByVal price As Currency, _
    ByVal quantity As Double, ByVal rate As Double) As Boolean
  printer.PasarItem description, price, quantity, rate
  SellLine = (printer.UltimoEnvio = envAceptado)
  If Not SellLine Then MsgBox printer.UltimoEnvio & ": " & printer.DescripcionError
End Function
