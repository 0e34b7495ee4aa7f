"""Every property of every record, read by its published name from a reply whose fields all differ."""

import re

import harness
from harness import HostTest, ROOT
from test_day import QUICK

PUBLISHED = (ROOT / "tests/unit/com/published_interface.txt").read_text(encoding="cp1252")

# Field i of the long replies: a date or a time where one is expected, else hundreds of its own.
DATES, TIMES = {1: "260314", 4: "260228"}, {2: "1030", 5: "1107"}
MANY = {i: DATES.get(i) or TIMES.get(i) or str((i + 100) * 100) for i in range(40)} | {0: "77"}
FIRST_DATE, SECOND_DATE = "2026-3-14 10:30", "2026-2-28 11:7"

# The amounts of the daily summary and of the Z report stand in these fields, in interface order.
AMOUNTS = {"IResumenZ": range(9, 39), "IReporteZMF": [*range(9, 14), *range(23, 28)]}

# Member that asks -> command, reply, interface, what its properties show.
RECORDS = {
    "StatusS1": (
        "S1",
        ["S107", "4150", *map(str, range(42, 52)), "J-98765432-1", "z7f0000123", "1030", "260314"],
        "IPrinterResponse1",
        {
            "numeroCajero": "7", "totalVentasDiarias": "41.5", "numeroUltimaFactura": "42",
            "facturasDia": "43", "numeroUltimaND": "44", "notasDebitoDia": "45",
            "numeroUltimaNC": "46", "notasCreditoDia": "47", "ultimoDNF": "48", "ndfDia": "49",
            "contadorReportes": "50", "nCierres": "51", "RIF": "J-98765432-1",
            "Serial": "z7f0000123", "Fecha": FIRST_DATE, "isFake": "False",
        },
    ),
    "StatusS2": (
        "S2",
        ["S2 0001250", "250", "NOTA", "2.5", "350", "4", "5"],
        "IPrinterResponse2",
        {
            "subTotalVenta": "12.5", "subTotalImpuestos": "2.5", "cantidadItems": "2.5",
            "total": "3.5", "cantidadPagos": "4", "tipoTrans": "5",
        },
    ),
    "getEstadoDocumento": (
        "S2",
        ["S2 0001250", "250", "NOTA", "2.5", "350", "4", "5"],
        "IEstadoDocumento",
        {
            "subTotalBasesImponibles": "12.5", "subTotalIVA": "2.5", "NotaS2": "2.5",
            "MontoPorPagar": "3.5", "numeroPagosRealizados": "4", "estado": "5",
        },
    ),
    "StatusS3": (
        "S3",
        ["11650", "20825", "13175", "20350", "000102"],
        "IPrinterResponse3",
        {
            "TipoTasa1": "True", "ValorTasa1": "16.5", "TipoTasa2": "False", "ValorTasa2": "8.25",
            "TipoTasa3": "True", "ValorTasa3": "31.75", "TasaIGTF": "3.5", "nFlags": "2",
            "isFake": "False",
        },
    ),
    "Response4": ("S4", ["S4150", "250", "350"], "IPrinterResponse4",
                  {"isFake": "False", "nMedios": "3"}),
    "ResumenZ": (
        "U0Z",
        [MANY[i] for i in range(39)],
        "IResumenZ",
        {
            "numeroUltimoZ": "77", "fechaUltimoReporte": FIRST_DATE,
            "numeroUltimaFactura": MANY[3], "fechaUltimaFactura": SECOND_DATE,
            "ultimaNC": MANY[7], "ultimaND": MANY[6], "ultimoDNF": MANY[8],
        },
    ),
    "loadReporteZMF(1)": (
        "U3A",
        [MANY[i] for i in range(28)],
        "IReporteZMF",
        {
            "numeroCierre": "77", "fechaCierre": FIRST_DATE, "horaCierre": "1899-12-30 0:0",
            "numeroUltimaFactura": MANY[3], "fechaUltimaFactura": "2026-2-28 0:0",
            "horaUltimaFactura": "1899-12-30 11:7",
        },
    ),
}  # fmt: skip

SHOWN = """
Function Shown(value)
  Shown = CStr(value)
  If VarType(value) = vbDate Then Shown = Year(value) & "-" & Month(value) & "-" & Day(value) & _
    " " & Hour(value) & ":" & Minute(value)
End Function
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
"""


def properties(interface):
    """The published names that can be read, in interface order."""
    members = PUBLISHED.split(f"dual interface {interface} ")[1].split("\ndual interface")[0]
    return re.findall(r"^  \d+ Get (?:Let )?(\w+) As", members, re.MULTILINE)


def expected(interface, known):
    names = properties(interface)
    amounts = [name for name in names if name not in known]
    fields = AMOUNTS.get(interface, [])
    shown = {name: str(int(MANY[i]) // 100) for name, i in zip(amounts, fields, strict=True)}
    return {f"{interface}.{name}": (known | shown)[name] for name in names}


class Names(HostTest):
    def test_each_property_shows_its_own_field(self):
        self.write_settings(QUICK)
        printer = self.printer()
        script, wanted = SHOWN, {}
        for member, (command, fields, interface, known) in RECORDS.items():
            printer.tell(f"answer {command} " + "\\n".join(fields))
            script += f"Set record = p.{member}\n"
            for name in properties(interface):
                script += f'Say "{interface}.{name}", Shown(record.{name})\n'
            wanted |= expected(interface, known)
        script += 'For i = 1 To 3: Say "payment " & i, CStr(p.Response4.valor(i)): Next\n'
        script += 'For i = 0 To 2: Say "flag " & i, p.StatusS3.Flag(i): Next\n'
        wanted |= {"payment 1": "1.5", "payment 2": "2.5", "payment 3": "3.5"}
        wanted |= {"flag 0": "0", "flag 1": "1", "flag 2": "2"}
        self.assertEqual(self.run_script(script), wanted)


if __name__ == "__main__":
    harness.main()
