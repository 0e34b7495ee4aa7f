"""A whole day at the printer, its sums against the receipts; and every query on printers that fail."""

import collections
import functools
import re

import harness
from harness import HostTest, LOCALES, ROOT, SENTINEL, windows_path

# Each read ends when the reply is whole.
QUICK = {r"Config\ModComm": {"LecturaInmediata": "1"}}

# Line of the summary -> kind of document and line of its receipts.
SUMMED = {
    "VentaExenta": ("FACTURA", "EXENTO (E)"),
    "VentaBase1": ("FACTURA", "BI G (16,00%)"),
    "IVABAse1": ("FACTURA", "IVA G (16,00%)"),
    "VentaBase2": ("FACTURA", "BI R (8,00%)"),
    "IVABase2": ("FACTURA", "IVA R (8,00%)"),
    "VentaBase3": ("FACTURA", "BI A (31,00%)"),
    "IVABase3": ("FACTURA", "IVA A (31,00%)"),
    "DevolucionExenta": ("NOTA DE CREDITO", "EXENTO (E)"),
    "DevolucionBase1": ("NOTA DE CREDITO", "BI G (16,00%)"),
    "IVADevBase1": ("NOTA DE CREDITO", "IVA G (16,00%)"),
    "DevolucionBase2": ("NOTA DE CREDITO", "BI R (8,00%)"),
    "IVADevBase2": ("NOTA DE CREDITO", "IVA R (8,00%)"),
    "DevolucionBase3": ("NOTA DE CREDITO", "BI A (31,00%)"),
    "IVADevBase3": ("NOTA DE CREDITO", "IVA A (31,00%)"),
    "ValorIGTF": ("FACTURA", "IGTF SOBRE Bs 33,50"),
}
# The same sums in the Z report that is read back from the fiscal memory.
IN_MEMORY = {
    "ventasExentas": "VentaExenta", "baseVG": "VentaBase1", "impuestoVG": "IVABAse1",
    "baseIR": "VentaBase2", "impuestoIR": "IVABase2", "NCExentas": "DevolucionExenta",
    "baseNCVG": "DevolucionBase1", "impuestoNCVG": "IVADevBase1", "baseNCIR": "DevolucionBase2",
    "impuestoNCIR": "IVADevBase2",
}  # fmt: skip


def hundredths(text):
    """An amount with two decimals, whatever stands around and between its digits."""
    return int(re.sub(r"\D", "", text))


def plain_hundredths(text):
    """An amount in its shortest form, with either decimal separator."""
    whole, _, decimals = text.replace(",", ".").partition(".")
    return int(whole) * 100 + int(decimals.ljust(2, "0"))


def sums_of_receipts(paper):
    """By kind of document and line: what the receipts come to, the reports left out."""
    sums = collections.Counter()
    for document in re.split(r"^=+$", paper, flags=re.MULTILINE):
        kinds = re.findall(r"^ +(FACTURA|NOTA DE CREDITO|REPORTE [XZ])$", document, re.MULTILINE)
        if len(kinds) != 1:
            continue
        for label, amount in re.findall(r"^(\S.*\S) +Bs (-?[\d.,]+)$", document, re.MULTILINE):
            sums[kinds[0], label] += hundredths(amount)
    return sums


def values(text):
    """The lines "name = value", by name; the last one counts."""
    return dict(re.findall(r"^(\w+) = (.*)$", text, re.MULTILINE))


ENUMERATOR = f"""
var printer = new ActiveXObject("PrinterFiscalCorvid.PrinterFiscal");
printer.Abrir(<port>);
for (var i = 0; i < 3; ++i) printer.CerrarZ();
var zReports = printer.reportesZMF(2, 9);
var walk = new Enumerator(zReports);
for (; !walk.atEnd(); walk.moveNext()) WScript.Echo("zReport " + walk.item().numeroCierre);
walk.moveFirst();
WScript.Echo("first=" + walk.item().numeroCierre);
WScript.Echo("count=" + zReports.Count);
WScript.Echo("default=" + zReports(2).numeroCierre + " " + zReports.Item("2").numeroCierre);
var record = new ActiveXObject("PrinterFiscalCorvid.ReporteZMF");
WScript.Echo("load=" + record.load(printer, 3) + " " + record.numeroCierre);
WScript.Echo("not there=" + record.load(printer, 9) + " " + record.numeroCierre);
try {{
  var beyond = zReports(3);
}} catch (error) {{
  WScript.Echo("outside=" + (error.number & 0xffff));
}}
var payments = new ActiveXObject("PrinterFiscalCorvid.PrinterResponse4");
payments.loadFromResponse(["S4100"]);
WScript.Echo("array of its own=" + payments.nMedios + " " + payments.valor(1));
try {{
  payments.loadFromResponse({{}});
}} catch (error) {{
  WScript.Echo("no array=" + (error.number & 0xffff));
}}
WScript.Echo("{SENTINEL}");
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
Say "kinds", Seen()
Dim fixed(6)
For i = 0 To 6: fixed(i) = i * 100: Next
fixed(0) = "S2 1600"
document.loadFromResponse fixed
state.loadFromResponse fixed
Say "fixed", Seen() & " " & UBound(fixed)
texts = Split("S2 1700,1,1,25,1,1,9", ",")
document.loadFromResponse texts
state.loadFromResponse texts
Say "texts", Seen()
reply = p.GetResponse("S2")
document.loadFromResponse reply
state.loadFromResponse p.GetResponse("S2")
Say "reply", Seen()
payments.loadFromResponse Array("S4100", 250)
Say "payments", payments.nMedios & " " & payments.valor(1) & " " & payments.valor("3")
rows = p.GetMultipleResponses("U3A")
zReport.loadFromResponse rows(1)
Say "row", zReport.numeroCierre & " " & TypeName(zReport.toString)
SayError "so far"
document.loadFromResponse "S2 1": SayError "no array"
state.loadFromResponse Nothing: SayError "no object"
document.loadFromResponse Array("S2 1800", 1): SayError "cut"
Say "cut keeps", CLng(document.subTotalVenta * 100)
zReport.loadFromResponse Array(7): SayError "cut row"
Say "cut row keeps", zReport.numeroCierre
"""

QUERIES = """
On Error Resume Next
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Say "counters", p.StatusS1.numeroUltimaFactura
Say "document", p.StatusS2.tipoTrans
Say "rates", CInt(p.StatusS3.isFake)
Say "payments", CInt(p.Response4.isFake)
Say "state", "[" & p.getEstadoDocumento.NotaS2 & "]"
Say "last invoice", p.numeroUltimaFactura
Say "last zReport", p.NumeroUltimoCierre
Say "rate", p.tasa(1)
Say "no rate", p.tasa(0)
Say "closing", CInt(p.CerrarZ Is Nothing)
Say "summary", p.ResumenZ.numeroUltimoZ
Set zReports = p.reportesZMF(5, 12)
Say "zReports", zReports.Count
For Each zReport In zReports: Say "zReport", zReport.numeroCierre: Next
Say "one zReport", CInt(p.loadReporteZMF(7) Is Nothing)
Set zReport = CreateObject("PrinterFiscalCorvid.ReporteZMF")
Say "load", CInt(zReport.load(p, 7))
SayError "all"
zReport.load document, 7: SayError "no session"
Say "again", p.numeroUltimaFactura & " " & p.StatusS2.tipoTrans
"""
QUERIES_SENT = 13  # of them fail; tasa(0) sends nothing

BAD_REPLIES = """
On Error Resume Next
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Say "counters", p.StatusS1.RIF
Say "last invoice", p.numeroUltimaFactura: SayError "letters"
Set document = p.Response2: SayError "cut short"
Set state = p.getEstadoDocumento: SayError "cut short state"
Set rates = p.StatusS3
Say "many fields", CLng(rates.ValorTasa1 * 100) & " " & CInt(rates.isFake) & " " & p.tasa(3)
Set payments = p.Response4: SayError "too large"
Set summary = p.ResumenZ
Say "summary", summary.numeroUltimoZ & " " & Day(summary.fechaUltimoReporte) & " " & _
  summary.ventasExentas
summary.Refresh p: SayError "summary again"
Set zReports = p.reportesZMF(1, 2): SayError "cut row"
Set zReport = p.loadReporteZMF(1): SayError "cut zReport"
Say "works", p.Execute("w") & " " & p.setFlag(21, 0)
Set payments = p.Response4: SayError "still"
"""


class Day(HostTest):
    def setUp(self):
        super().setUp()
        self.write_settings(QUICK)

    def number(self, said, name):
        return int(said[name].partition("|")[0])

    def test_the_example_agrees_with_its_receipts_in_every_locale(self):
        jobs = [functools.partial(self.check_example, 7 + i, locale)
                for i, locale in enumerate(LOCALES)]  # fmt: skip
        wires = self.run_together(jobs)
        self.assertEqual(wires[0], wires[1])
        for command in (b"I0X", b"I0Z", b"U0Z", b"U3A000001009999", b"U3A000001000001"):
            self.assertIn(command, wires[0])

    def check_example(self, port, locale):
        example = windows_path(ROOT / "examples/day.vbs")
        with self.printer(port, locale) as printer:
            said, _ = self.start_host(["cscript", "//nologo", example, port], locale=locale)
            self.assertEqual(said.whole.splitlines()[-1], "fin", said.whole)
            self.assertNotIn("refused", said.whole)
            shown = values(said.whole)
            receipts = sums_of_receipts(printer.paper())
            self.assertEqual({name: hundredths(shown[name]) for name in SUMMED},
                             {name: receipts[line] for name, line in SUMMED.items()})  # fmt: skip
            self.assertEqual({name: plain_hundredths(shown[name]) for name in IN_MEMORY},
                             {name: hundredths(shown[line]) for name, line in IN_MEMORY.items()})  # fmt: skip
            total = receipts["FACTURA", "TOTAL"] + receipts["FACTURA", "IGTF SOBRE Bs 33,50"]
            self.assertEqual(hundredths(shown["TotalVentasDiarias"]), total)
            self.assertEqual(receipts["REPORTE X", "TOTAL"], receipts["REPORTE Z", "TOTAL"])
            return printer.commands()

    def test_jscript_walks_over_the_z_reports(self):
        self.printer()
        script = ENUMERATOR.replace("<port>", "7").replace("\n", "\r\n")
        (self.folder / "host.js").write_bytes(script.encode("cp1252"))
        said, _ = self.start_host(["cscript", "//nologo", "host.js"])
        self.assertIn(SENTINEL, said.whole)
        self.assertEqual(re.findall(r"^zReport (\d+)$", said.whole, re.MULTILINE), ["2", "3"])
        self.assertEqual(said, {
            "first": "2", "count": "2", "default": "3 3", "load": "true 3",
            "not there": "false 3", "outside": "9", "array of its own": "1 1",
            "no array": "13",
        })  # fmt: skip

    def test_records_take_the_arrays_of_scripts_in_every_locale(self):
        rows = ["\\n".join(["1"] * 28), "\\n".join(["2"] * 28)]
        for locale in LOCALES:
            with self.subTest(locale=locale), self.printer(name=locale) as printer:
                printer.tell(f"answer U3A {rows[0]}")
                printer.tell(f"more U3A {rows[1]}")
                said = self.run_script(ARRAYS, locale=locale)
                numbers = {name: self.number(said, name) for name in said if "|" in said[name]}
                self.assertEqual(numbers, {
                    "so far": 0, "no array": 13, "no object": 13, "cut": 9, "cut row": 9,
                })  # fmt: skip
                plain = {name: said[name] for name in said if "|" not in said[name]}
                self.assertEqual(plain, {
                    "kinds": "1500 25 3 1500 2.5", "fixed": "1600 3000 600 1600 300 6",
                    "texts": "1700 250 9 1700 25", "reply": "0 0 0 0 0", "payments": "2 1 0",
                    "row": "2 String", "cut keeps": "1800", "cut row keeps": "7",
                })  # fmt: skip

    def test_queries_on_a_printer_that_refuses(self):
        self.write_settings({**QUICK, r"Config\NimbusPF\Response1": {"ultimaFactura": "77"}})
        attempts = 7
        printer = self.printer(options=["--last-invoice", "41"])
        printer.tell(f"refuse {attempts * QUERIES_SENT}")
        said = self.run_script(QUERIES)
        self.assertEqual(self.number(said, "no session"), 13)
        del said["no session"]
        self.assertEqual(said, {
            "counters": "77", "document": "-1", "rates": "-1", "payments": "-1", "state": "[]",
            "last invoice": "-1", "last zReport": "-1", "rate": "-1", "no rate": "0",
            "closing": "-1", "summary": "-1", "zReports": "0", "one zReport": "-1", "load": "0",
            "all": "0||", "again": "41 0",
        })  # fmt: skip

    def test_bad_replies_end_in_their_outcomes(self):
        self.write_settings({**QUICK, r"Config\NimbusPF\Response1": {"RIF": "J-1"}})
        printer = self.printer()
        many = "\\n".join(["21600", "20800", "23100", "20300", "0001"] + ["0"] * 4995)
        for line in (
            "answer S1 S1aa\\n1\\nfactura\\x01\\n4",
            "answer S2 S2 0000001500\\n240",
            f"answer S3 {many}",
            "answer S4 S41\\n99999999999999999999",
            "answer U0Z 0012\\n260314\\n8\\n260314\\n1030\\nletras\\n5",
            "answer U3A " + "\\n".join(["1"] * 27),
        ):
            printer.tell(line)
        said = self.run_script(BAD_REPLIES)
        numbers = {name: self.number(said, name) for name in said if "|" in said[name]}
        self.assertEqual(numbers, {
            "letters": 13, "cut short": 9, "cut short state": 9, "too large": 6,
            "summary again": 0, "cut row": 9, "cut zReport": 9, "still": 6,
        })  # fmt: skip
        plain = {name: said[name] for name in said if "|" not in said[name]}
        self.assertEqual(plain, {
            "counters": "J-1", "many fields": "1600 0 31", "summary": "12 14 0", "works": "0 0",
        })  # fmt: skip


if __name__ == "__main__":
    harness.main()
