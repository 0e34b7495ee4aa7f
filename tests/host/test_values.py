"""Values across the boundary: optional arguments, arrays, records, and what is written back."""

import harness
from harness import LOCALES, HostTest

FRAMING = """
Set p = NewPrinter()
Say "block", p.BuildCommandBlock("w")
Say "upper half", p.BuildCommandBlock("Ñ")
Say "check", p.CalcXOr("w" & Chr(3))
Say "escaped", p.EscapeString(Chr(2) & "a b" & Chr(10) & Chr(23) & Chr(127))
p.result = "texto": p.pfError = 2: p.STS1 = 97
Say "state", p.result & " " & p.lError & " " & p.explainSTS1
Say "model", p.tipoPrinter
p.SerialPrinter = "Z7A0000001"
Say "model by serial", p.tipoPrinter
"""

QUERIES = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
fields = p.GetResponse("Q1")
Say "fields", TypeName(fields) & " " & UBound(fields) & " " & fields(0) & " " & fields(1) & _
  " " & VarType(fields(0))
Say "item", p.responseItem(1, fields) & " " & p.responseItem(2, fields) & " " & _
  p.responseItem(-1, fields)
Say "joined", p.GetResponseString("Q1", "|") & " " & p.GetResponseString("Q1")
rows = p.GetMultipleResponses("Q2")
Say "rows", UBound(rows) & " " & rows(0)(0) & rows(1)(0) & rows(1)(1) & rows(2)(0)
Say "rows joined", p.GetMultipleResponsesStr("Q2", ",", ";")
Say "rows by default", p.GetMultipleResponsesStr("Q2")
none = p.NextStatusBlock()
Say "none", VarType(none)
p.Cerrar
"""

RECORDS = """
Set p = NewPrinter()
p.Abrir <port>
Set s1 = p.StatusS1
Say "counters", s1.Serial & " " & s1.RIF & " " & s1.numeroUltimaFactura & " " & _
  FormatNumber(s1.totalVentasDiarias, 2) & " " & Year(s1.Fecha) & Hour(s1.Fecha) & " " & TypeName(s1)
Say "lines", UBound(Split(s1.toString, vbCrLf))
Set s3 = p.StatusS3
Say "rates", CStr(s3.ValorTasa1) & " " & CStr(s3.ValorTasa2) & " " & CInt(s3.TipoTasa1)
Say "rate index", p.IndiceTasa(8.05) & p.IndiceTasa(8.2) & p.IndiceTasa(-1)
Say "kept", p.f21 & " " & TypeName(p.s3)
Say "rate by the record", p.s3.ValorTasa3
"""

BUFFER = """
On Error Resume Next
Set b = CreateObject("PrinterFiscalCorvid.CStringBuffer")
b.Append "abc": b.AppendV 12: b.AppendV True
Say "default member", b
b.Value = "abcdef"
length = 2
b.Remove 4, length
Say "cut", b.Value & " " & length & " " & TypeName(length)
text = "XY": at = 2
b.Insert at, text
Say "inserted", b.Value & " " & at & " " & text
b.Value = "otro"
Say "let", b.Value
b.Replace "o", "0"
Say "replaced", b.Value
b.AppendV Null: SayError "null"
Set b = Nothing
"""


class Values(HostTest):
    def test_framing_without_a_port(self):
        said = self.run_script(FRAMING)
        self.assertEqual(said, {
            "block": "{2}w{3}t",
            "upper half": "{2}{209}{3}{210}",
            "check": "116",
            "escaped": "[STX]a[032]b[010][ETB]{127}",
            "state": "texto 2 Modo fiscal: TF (0x61)",
            "model": "0",
            "model by serial": "2",
        })  # fmt: skip

    def test_replies(self):
        printer = self.printer()
        for line in ("answer Q1 uno\\ndos", "answer Q2 a", "more Q2 b\\nc", "more Q2 \\xD1"):
            printer.tell(line)
        said = self.run_script(QUERIES)
        self.assertEqual(said, {
            "fields": "Variant() 1 uno dos 8",
            "item": "dos <nil> <nil>",
            "joined": "|uno|dos {10}uno{10}dos",
            "rows": "2 abc{209}",
            "rows joined": "a;b,c;{209}",
            "rows by default": "a{30}b{31}c{30}{209}",
            "none": "8200",
        })  # fmt: skip

    def test_records(self):
        for locale, decimal in zip(LOCALES, ".,"):
            with self.subTest(locale=locale):
                with self.printer(name=locale, options=["--last-invoice", "41"]):
                    said = self.run_script(RECORDS, locale=locale)
                lines = int(said.pop("lines"))
                self.assertGreater(lines, 10)
                self.assertEqual(said, {
                    "counters": f"Z1F0000001 J-12345678-9 41 0{decimal}00 202610 IPrinterResponse1",
                    "rates": "16 8 0",
                    "kept": "0 IPrinterResponse3",
                    "rate index": "204",
                    "rate by the record": "31",
                })  # fmt: skip

    def test_text_buffer_writes_back(self):
        said = self.run_script(BUFFER)
        self.assertEqual(said, {
            "default member": "abc12True",
            "cut": "abc 3 Long",
            "inserted": "aXYbc 2 XY",
            "let": "otro",
            "replaced": "0tr0c",  # what lies after a shorter new value comes to light
            "null": "13|PrinterFiscalCorvid|Type mismatch",
        })  # fmt: skip


if __name__ == "__main__":
    harness.main()
