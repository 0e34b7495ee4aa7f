' Builds a report of several pages, shows it in the preview window, and says which lines its user
' clicks. It needs no fiscal printer.
'
'   cscript report.vbs
Option Explicit

Const LeftAligned = 0
Const RightAligned = 1
Const Centred = 2
Const ReportWidth = 80
Const vbModal = 1

' The window calls ReportClicked of the object that SetNotify was given.
Class ClickedLines
  Public Sub ReportClicked(line, column)
    WScript.Echo "Clicked at column " & column & ": " & Trim(line)
  End Sub
End Class

Function Padded(text, width)
  Padded = Left(text & Space(width), width)
End Function

Function Amount(value, width)
  Amount = Right(Space(width) & FormatNumber(value, 2), width)
End Function

' The first lines of a page.
Sub AddHeading
  view.Add "VENTAS POR ARTICULO", Centred
  view.Add "Pagina " & view.Pagina, RightAligned
  view.Add Padded("Articulo", 40) & Right(Space(20) & "Cantidad", 20) & _
    Right(Space(20) & "Monto", 20), LeftAligned
  view.Add "", LeftAligned
End Sub

Dim view, articles, number, name, quantity, sum, total
Set view = CreateObject("PrinterFiscalCorvid.lfQuickView")
view.Caption = "Ventas del dia"
view.SetNotify New ClickedLines

' Fits the report to the default printer; without one nothing is paged.
view.SetReportWidth ReportWidth
If view.LineasPagina > 200 Then view.SetLinesPerPage 60

articles = Array("Pan campesino", "Leche entera 1 l", "Cafe molido 500 g", "Arroz 1 kg")
total = 0
For number = 1 To 150
  If view.Linea = 1 Then AddHeading
  name = articles((number - 1) Mod 4) & " " & number
  quantity = 1 + number Mod 7
  sum = quantity * 2.25
  total = total + sum
  view.Add Padded(name, 40) & Right(Space(20) & quantity, 20) & Amount(sum, 20), LeftAligned
  ' The page is full: the next line would begin a new one by itself, without its heading.
  If view.Linea >= view.LineasPagina Then view.PageBreak
Next
view.Add "", LeftAligned
view.Add "TOTAL " & Amount(total, 20), RightAligned

WScript.Echo "The report has " & view.Pagina & " pages."
view.Show vbModal
WScript.Echo "The window was closed."
