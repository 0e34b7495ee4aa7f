"""Values across the boundary: optional arguments, arrays, records, what is written back, and errors."""

import functools

from harness import BITS, HostTest, LOCALES, PORTS, main

FRAMING = """
Set p = NewPrinter()
Expect "block", p.BuildCommandBlock("w"), "{2}w{3}t"
Expect "upper half", p.BuildCommandBlock("Ñ"), "{2}{209}{3}{210}"
Expect "check", p.CalcXOr("w" & Chr(3)), 116
Expect "escaped", p.EscapeString(Chr(2) & "a b" & Chr(10) & Chr(23) & Chr(127)), _
  "[STX]a[032]b[010][ETB]{127}"
p.result = "texto": p.pfError = 2: p.STS1 = 97
Expect "state", p.result & " " & p.lError & " " & p.explainSTS1, "texto 2 Modo fiscal: TF (0x61)"
Expect "model", p.tipoPrinter, 0
p.SerialPrinter = "Z7A0000001"
Expect "model by serial", p.tipoPrinter, 2
"""

REPLIES = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
fields = p.GetResponse("Q1")
Expect "fields", TypeName(fields) & " " & UBound(fields) & " " & fields(0) & " " & fields(1) & _
  " " & VarType(fields(0)), "Variant() 1 uno dos 8"
Expect "item", p.responseItem(0, fields) & " " & p.responseItem(1, fields) & " " & _
  p.responseItem(2, fields) & " " & p.responseItem(-1, fields), "uno dos <nil> <nil>"
Expect "joined", p.GetResponseString("Q1", "|") & " " & p.GetResponseString("Q1"), _
  "|uno|dos {10}uno{10}dos"
rows = p.GetMultipleResponses("Q2")
Expect "rows", UBound(rows) & " " & rows(0)(0) & rows(1)(0) & rows(1)(1) & rows(2)(0), "2 abc{209}"
Expect "rows joined", p.GetMultipleResponsesStr("Q2", ",", ";"), "a;b,c;{209}"
Expect "rows by default", p.GetMultipleResponsesStr("Q2"), "a{30}b{31}c{30}{209}"
Expect "none", VarType(p.NextStatusBlock()), 8200
p.Cerrar
"""

RECORDS = """
Set p = NewPrinter()
p.Abrir <port>
Set s1 = p.StatusS1
Expect "counters", s1.Serial & " " & s1.RIF & " " & s1.numeroUltimaFactura & " " & _
  s1.totalVentasDiarias & " " & Year(s1.Fecha) & Hour(s1.Fecha) & " " & TypeName(s1), _
  "Z1F0000001 J-12345678-9 41 0 202610 IPrinterResponse1"
Expect "lines", UBound(Split(s1.toString, vbCrLf)) > 10, True
Set s3 = p.StatusS3
Expect "rates", CStr(s3.ValorTasa1) & " " & CStr(s3.ValorTasa2) & " " & CInt(s3.TipoTasa1), "16 8 0"
Expect "rate index", p.IndiceTasa(8.05) & p.IndiceTasa(8.2) & p.IndiceTasa(-1), "204"
Expect "kept", p.f21 & " " & TypeName(p.s3), "0 IPrinterResponse3"
Expect "rate by the record", p.s3.ValorTasa3, 31
"""

# What lies after a shorter new value comes to light.
BUFFER = """
On Error Resume Next
Set b = CreateObject("PrinterFiscalCorvid.CStringBuffer")
b.Append "abc": b.AppendV 12: b.AppendV True
Expect "default member", b, "abc12True"
b.Value = "abcdef"
length = 2
b.Remove 4, length
Expect "cut", b.Value & " " & length & " " & TypeName(length), "abc 3 Long"
text = "XY": at = 2
b.Insert at, text
Expect "inserted", b.Value & " " & at & " " & text, "aXYbc 2 XY"
b.Value = "otro"
Expect "let", b.Value, "otro"
b.Replace "o", "0"
Expect "replaced", b.Value, "0tr0c"
b.AppendV Null
words = Err.Source & ": " & Err.Description
ExpectError "null", 13
Expect "null", words, "PrinterFiscalCorvid: Type mismatch"
Set b = Nothing
"""

ARRAYS = """
On Error Resume Next
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Set document = CreateObject("PrinterFiscalCorvid.PrinterResponse2")
Set state = CreateObject("PrinterFiscalCorvid.EstadoDocumento")
Set payments = CreateObject("PrinterFiscalCorvid.PrinterResponse4")
Set zReport = CreateObject("PrinterFiscalCorvid.ReporteZMF")
Function Seen()
  Seen = CLng(document.subTotalVenta * 100) & " " & CLng(document.cantidadItems * 10) & " " & _
    document.tipoTrans & " " & CLng(state.subTotalBasesImponibles * 100) & " " & state.NotaS2
End Function

document.loadFromResponse Array("S2 1500", 240, Nothing, 2.5, CCur(1740), 1, "3")
state.loadFromResponse Array("S2 1500", 240, Nothing, 2.5, CCur(1740), 1, "3")
Expect "kinds", Seen(), "1500 25 3 1500 2.5"
Dim fixed(6)
For i = 0 To 6: fixed(i) = i * 100: Next
fixed(0) = "S2 1600"
document.loadFromResponse fixed
state.loadFromResponse fixed
Expect "fixed", Seen() & " " & UBound(fixed), "1600 3000 600 1600 300 6"
texts = Split("S2 1700,1,1,25,1,1,9", ",")
document.loadFromResponse texts
state.loadFromResponse texts
Expect "texts", Seen(), "1700 250 9 1700 25"
reply = p.GetResponse("S2")
document.loadFromResponse reply
state.loadFromResponse p.GetResponse("S2")
Expect "reply", Seen(), "0 0 0 0 0"
payments.loadFromResponse Array("S4100", 250)
Expect "payments", payments.nMedios & " " & payments.valor(1) & " " & payments.valor("3"), "2 1 0"
rows = p.GetMultipleResponses("U3A")
zReport.loadFromResponse rows(1)
Expect "row", zReport.numeroCierre & " " & TypeName(zReport.toString), "2 String"
document.loadFromResponse "S2 1": ExpectError "no array", 13
state.loadFromResponse Nothing: ExpectError "no object", 13
document.loadFromResponse Array("S2 1800", 1): ExpectError "cut", 9
Expect "cut keeps", CLng(document.subTotalVenta * 100), 1800
zReport.loadFromResponse Array(7): ExpectError "cut row", 9
Expect "cut row keeps", zReport.numeroCierre, 7
"""

REFUSED = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Expect "counters", p.StatusS1.numeroUltimaFactura, 77
Expect "document", p.StatusS2.tipoTrans, -1
Expect "rates", CInt(p.StatusS3.isFake), -1
Expect "payments", CInt(p.Response4.isFake), -1
Expect "state", p.getEstadoDocumento.NotaS2, ""
Expect "last invoice", p.numeroUltimaFactura, -1
Expect "last zReport", p.NumeroUltimoCierre, -1
Expect "rate", p.tasa(1) & " " & p.tasa(0), "-1 0"
Expect "closing", p.CerrarZ Is Nothing, True
Expect "summary", p.ResumenZ.numeroUltimoZ, -1
Expect "zReports", p.reportesZMF(5, 12).Count, 0
Expect "one zReport", p.loadReporteZMF(7) Is Nothing, True
Set zReport = CreateObject("PrinterFiscalCorvid.ReporteZMF")
Expect "load", zReport.load(p, 7), False
Expect "again", p.numeroUltimaFactura & " " & p.StatusS2.tipoTrans, "41 0"
"""
REFUSALS = 7 * 13  # attempts of each command that fails; tasa(0) sends nothing

BAD_REPLIES = """
On Error Resume Next
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Expect "counters", p.StatusS1.RIF, "J-1"
number = p.numeroUltimaFactura: ExpectError "letters", 13
Set document = p.Response2: ExpectError "cut short", 9
Set state = p.getEstadoDocumento: ExpectError "cut short state", 9
Set rates = p.StatusS3
Expect "many fields", CLng(rates.ValorTasa1 * 100) & " " & CInt(rates.isFake) & " " & p.tasa(3), _
  "1600 0 31"
Set payments = p.Response4: ExpectError "too large", 6
Set summary = p.ResumenZ
Expect "summary", summary.numeroUltimoZ & " " & Day(summary.fechaUltimoReporte) & " " & _
  summary.ventasExentas, "12 14 0"
Set summary = CreateObject("PrinterFiscalCorvid.ResumenZ")
summary.Refresh p: Expect "summary again", summary.numeroUltimoZ, 12
Set zReports = p.reportesZMF(1, 2): ExpectError "cut row", 9
Set zReport = p.loadReporteZMF(1): ExpectError "cut zReport", 9
Expect "works", p.Execute("w") & " " & p.setFlag(21, 0), "0 0"
"""
BAD_ANSWERS = [
    "answer S1 S1aa\\n1\\nfactura\\x01\\n4",
    "answer S2 S2 0000001500\\n240",
    "answer S3 " + "\\n".join(["21600", "20800", "23100", "20300", "0001"] + ["0"] * 4995),
    "answer S4 S41\\n99999999999999999999",
    "answer U0Z 0012\\n260314\\n8\\n260314\\n1030\\nletras\\n5",
    "answer U3A " + "\\n".join(["1"] * 27),
]

# There is no device at port 98.
BAD_CALLS = f"""
Expect "version", Right(NewPrinter().Version, 10), " ({BITS} bits)"
On Error Resume Next
Set p = NewPrinter()
p.Abrir: ExpectError "no port", 450
p.Abrir 98
words = Err.Source & ": " & Left(Err.Description, 35)
ExpectError "no such port", 40001
Expect "words", words, "PrinterFiscal.Abrir: Error (2): CommOpen (CreateFile) - "
p.PasarItem "PAN": ExpectError "too few", 450
p.NoSuchMember: ExpectError "no such member", 438
Set c = CreateObject("PrinterFiscalCorvid.NoSuchClass"): ExpectError "no such class", 429
p.Cerrar
Expect "closed", p.Execute("w") & " " & p.pfError & " " & p.DescripcionError, "1 1 PUERTO CERRADO"
p.ExecuteNoCheck "w": ExpectError "unchecked", 0
p.SendDirect "w": ExpectError "direct", 9
p.SendAck: ExpectError "ack", 9
block = p.NextStatusBlock: ExpectError "next", 9
Expect "drawer", CInt(p.AbrirGaveta()) & CInt(p.SubTotal()), "-1-1"
Expect "status", p.explainSTS1 & " " & p.explainSTS2, "STS1 = 0 (0x0) STS2 = 0 (0x0)"
p.Abrir "<port>"
Expect "opened", p.Execute("w"), 0
"""

# name: script, and what the printer is told before
CASES = {
    "framing": (FRAMING, []),
    "replies": (REPLIES, ["answer Q1 uno\\ndos", "answer Q2 a", "more Q2 b\\nc", "more Q2 \\xD1"]),
    "records": (RECORDS, []),
    "buffer": (BUFFER, []),
    "arrays": (ARRAYS, ["answer U3A " + "\\n".join("1" * 28), "more U3A " + "\\n".join("2" * 28)]),
    "refused": (REFUSED, [f"refuse {REFUSALS}"]),
    "bad replies": (BAD_REPLIES, BAD_ANSWERS),
    "bad calls": (BAD_CALLS, []),
}


class Values(HostTest):
    def test_values_cross_over_in_every_locale(self):
        self.write_settings({
            r"Config\ModComm": {"LecturaInmediata": "1"},
            r"Config\NimbusPF\Response1": {"ultimaFactura": "77", "RIF": "J-1"},
        })  # fmt: skip
        for locale in LOCALES:
            with self.subTest(locale=locale):
                self.run_together([functools.partial(self.check, locale, *job)
                                   for job in zip(PORTS, CASES.items())])  # fmt: skip

    def check(self, locale, port, case):
        name, (script, lines) = case
        name = f"{name} {locale}"
        with self.printer(port, name, ["--last-invoice", "41"]) as printer:
            for line in lines:
                printer.tell(line)
            self.run_script(script, port, f"{name}.vbs", locale=locale)


if __name__ == "__main__":
    main()
