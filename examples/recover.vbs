' What a host does when it starts again after a power cut in the middle of a sale: it finds out
' whether the printer closed the sale. Register the library once (regsvr32 CorvidAPI.dll), then
'
'   cscript //nologo recover.vbs port number
'
' The number is numeroUltimaFactura as the host wrote it to its disk before the sale.
Option Explicit

Const kSent = 1
Const kNone = 0
Const kFiscal = 1
Const kNonFiscal = 2
Dim printer

Main
WScript.Echo "fin"

Sub Main()
  Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
  printer.Abrir WScript.Arguments(0)
  printer.GetStatus
  If printer.pfError <> 0 Then
    WScript.Echo "La impresora no responde todavía: " & printer.DescripcionError
  Else
    Recover OpenDocument(printer.STS1), CLng(WScript.Arguments(1))
  End If
  printer.Cerrar
End Sub

' Of the first status byte: 96 and 64 without a document, by the fiscal and the training mode.
Function OpenDocument(status)
  OpenDocument = kNone
  Select Case status
    Case 97, 65, 105
      OpenDocument = kFiscal
    Case 98, 66, 106
      OpenDocument = kNonFiscal
  End Select
End Function

Sub Recover(document, kept)
  Select Case document
    Case kFiscal
      printer.CancelarTransaccion
      Tell "Quedó un documento abierto: anulado. Venda de nuevo."
    Case kNonFiscal
      printer.PrintNoFiscal "", True
      Tell "Quedó un texto no fiscal abierto: cerrado."
    Case Else
      WScript.Echo WhatBecameOfTheSale(kept)
  End Select
End Sub

Sub Tell(success)
  If printer.UltimoEnvio = kSent Then
    WScript.Echo success
  Else
    WScript.Echo "El documento sigue abierto: " & printer.explainSTS2
  End If
End Sub

Function WhatBecameOfTheSale(kept)
  Dim last
  last = printer.numeroUltimaFactura
  Select Case True
    Case printer.pfError <> 0, last < 0
      WhatBecameOfTheSale = "La consulta falló: no decida todavía."
    Case last = kept
      WhatBecameOfTheSale = "La venta no se cerró: venda de nuevo."
    Case last = kept + 1
      WhatBecameOfTheSale = "La venta se cerró con la factura " & last & "."
    Case Else
      WhatBecameOfTheSale = "Hay facturas que el programa no conoce: mire el papel."
  End Select
End Function
