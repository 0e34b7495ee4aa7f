"""A whole day at the printer, its sums against the receipts, and the walk over its Z reports."""

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
printer.Abrir(7);
for (var i = 0; i < 3; ++i) printer.CerrarZ();
var zReports = printer.reportesZMF(2, 9);
var found = [zReports.Count, zReports(1).numeroCierre, zReports(2).numeroCierre, zReports.Item("2").numeroCierre];
var walk = new Enumerator(zReports);
for (; !walk.atEnd(); walk.moveNext()) found.push(walk.item().numeroCierre);
walk.moveFirst();
found.push(walk.item().numeroCierre);
var record = new ActiveXObject("PrinterFiscalCorvid.ReporteZMF");
found.push(record.load(printer, 3), record.numeroCierre);
found.push(record.load(printer, 9), record.numeroCierre);
for (var place = 0; place <= 3; place += 3) {{
  try {{
    found.push(zReports(place));
  }} catch (error) {{
    found.push("error", error.number & 0xffff);
  }}
}}
var payments = new ActiveXObject("PrinterFiscalCorvid.PrinterResponse4");
payments.loadFromResponse(["S4100"]);
found.push(payments.nMedios, payments.valor(1));
try {{
  payments.loadFromResponse({{}});
}} catch (error) {{
  found.push("error", error.number & 0xffff);
}}
WScript.Echo(found.join(" "));
WScript.Echo("{SENTINEL}");
"""


class Day(HostTest):
    def setUp(self):
        super().setUp()
        self.write_settings(QUICK)

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
        (self.folder / "host.js").write_text(ENUMERATOR)
        said, _ = self.start_host(["cscript", "//nologo", "host.js"])
        self.assertEqual(said.whole.splitlines(),
                         ["2 2 3 3 2 3 2 true 3 false 3 error 9 error 9 1 1 error 13", SENTINEL])  # fmt: skip


if __name__ == "__main__":
    harness.main()
