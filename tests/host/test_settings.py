"""Settings from ORV.ini and from the user's store, the trace, and the port dump."""

import re

import harness
from harness import HostTest, registry, windows_path

STORE = r"HKCU\Software\VB and VBA Program Settings\ORV"

SALE = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir 7
Say "item", p.PasarItem("DESCRIPCION LARGA", 12.5, 2, 16)
Say "second rate", p.PasarItem("DOS", 1, 1, 7.95)
Say "collected", p.PasarItem("TRES", 1, 1, -1)
Say "payment", p.CerrarConMedio(1, 2.5)
Say "model", p.tipoPrinter
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

TRACED = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir 7
p.Execute "w"
p.Cerrar
"""
TRACE_LINE = re.compile(r"^\d\d/\d\d \d\d:\d\d:\d\d ( *[\d.,E+]+) (.*)$")
# What a session with one command leaves in the trace, but for times.
STEPS = [
    "Settings: *",
    "GetStatus: -> [ENQ]",
    "WaitForReply t = *; timeout = 10",
    "<-[STX]`@[ETX]#",
    "WaitForReply (ready = True): <-[STX]`@[ETX]",
    "ResponseComplete: [STX]`@[ETX]",
    "GetStatus: <- pfError = 0; resultFlag = 3, STS1=60, STS2= 40",
    "Execute: -> w",
    "GetStatus: -> [ENQ]",
    "WaitForReply t = *; timeout = 10",
    "<-[STX]`@[ETX]#",
    "WaitForReply (ready = True): <-[STX]`@[ETX]",
    "ResponseComplete: [STX]`@[ETX]",
    "GetStatus: <- pfError = 0; resultFlag = 3, STS1=60, STS2= 40",
    "SEND -> [STX]w[ETX]t",
    "WaitForReply t = *; timeout = 10",
    "<-[ACK]",
    " <- ACK",
]


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
        said = self.run_script(SALE)
        self.assertEqual(said["model"], "7")
        sent = [b"!000000012500000020DESCRIPCIO", b'"000000001000000010DOS',
                b"#000000001000000010TRES", b"201000000003"]  # fmt: skip
        seen = list(dict.fromkeys(printer.commands()))  # the printer refuses these widths
        self.assertEqual(seen, sent)

    def test_trace_of_one_command(self):
        trace = self.folder / "rastro.log"
        self.write_settings({r"Config\NimbusPF": {"IsDebug": "True",
                                                  "DEBUGFILE": windows_path(trace)}})  # fmt: skip
        self.printer()
        self.run_script(TRACED)
        lines = trace.read_bytes().decode("cp1252").split("\r\n")
        self.assertEqual(lines.pop(), "")
        found = [TRACE_LINE.match(line) for line in lines]
        self.assertTrue(all(found), lines)
        self.assertEqual({len(match[1]) for match in found}, {10})
        messages = [re.sub(r"(\bt =|^Settings:) [^;]+", r"\1 *", match[2]) for match in found]
        self.assertEqual(messages, STEPS)

    def test_dump_of_the_port(self):
        dump = self.folder / "puerto.txt"
        self.store({r"Config\ModComm": {"DEBUG": "1", "DumpFile": windows_path(dump)}})
        self.printer()
        self.run_script(TRACED)
        lines = dump.read_bytes().decode("cp1252").split("\r\n")
        heads = [line[:5] for line in lines if re.match(r"(Read|Send) +\d\d-\d\d-\d{4} ", line)]
        self.assertEqual(heads, ["Send ", "Read ", "Send ", "Read ", "Send ", "Read "])
        self.assertIn("02 77 03 74".ljust(48) + ".w.t", lines)
        self.assertIn("02 60 40 03 23".ljust(48) + ".`@.#", lines)


if __name__ == "__main__":
    harness.main()
