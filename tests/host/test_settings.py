"""Settings from ORV.ini and from the user's store."""

import harness
from harness import HostTest, registry

STORE = r"HKCU\Software\VB and VBA Program Settings\ORV"

SALE = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir 7
p.PasarItem "DESCRIPCION LARGA", 12.5, 2, 16
p.PasarItem "DOS", 1, 1, 7.95
p.PasarItem "TRES", 1, 1, -1
p.CerrarConMedio 1, 2.5
Expect "model", p.tipoPrinter, 7
p.Cerrar
"""

IN_FILE = {
    r"Config\NimbusPF": {
        "ColumnasDescripcion": "10", "DigitosPrecio": "12", "DecimalesPrecio": "3",
        "DigitosCantidad": "", "IndicePercibido": "3", "TipoPrinter": "7", "TimeOut": "1,5",
    },
    # A rate ends at a comma.
    r"Config\NimbusPF\Tasas": {"0": "0", "1": "16", "2": "8,5", "3": "8"},
}  # fmt: skip
IN_STORE = {
    r"Config\NimbusPF": {
        "ColumnasDescripcion": "5", "DigitosCantidad": "6", "DecimalesCantidad": "1",
        "DigitosMedio": "9", "DecimalesMedio": "0",
    }
}  # fmt: skip

class Settings(HostTest):
    def tearDown(self):
        registry("delete", STORE, "/f")

    def store(self, sections):
        for section, entries in sections.items():
            for key, value in entries.items():
                code, output = registry("add", f"{STORE}\\{section}", "/v", key, "/d", value, "/f")
                self.assertEqual(code, 0, output)

    def test_the_file_comes_before_the_store(self):
        self.write_settings(IN_FILE)
        self.store(IN_STORE)
        printer = self.printer()
        self.run_script(SALE)
        sent = [b"!000000012500000020DESCRIPCIO", b'"000000001000000010DOS',
                b"#000000001000000010TRES", b"201000000003"]  # fmt: skip
        seen = list(dict.fromkeys(printer.commands()))  # the printer refuses these widths
        self.assertEqual(seen, sent)


if __name__ == "__main__":
    harness.main()
