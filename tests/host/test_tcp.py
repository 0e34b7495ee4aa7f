"""A printer in the network: a whole sale with a hang-up in the middle of it, and places that do not open."""

import subprocess

import harness
from harness import BUILT, HostTest, ROOT, SYSTEM, windows_path, wine_environment

# The second item is printed, but its answer never comes: the connection ends in its place.
HANG_UP = "at 3 hang-up 1\n"

SALE = """
On Error Resume Next
Set p = NewPrinter()
p.SerialPrinter = "Z1F0000001"
p.Abrir 8
SayError "refused"
p.Abrir 9
SayError "no address"
p.Abrir 7
Expect "first", p.PasarItem("PAN", 12.5, 2, 16), 0
Expect "second", p.PasarItem("QUESO", 10, 1, 16), 1
Expect "outcome", p.pfError & " " & p.UltimoEnvio & " " & p.DescripcionError, _
  "1 4 pfError de comunicacion"
Expect "at once", p.Milisegundos < 5000, True
Expect "while lost", p.Execute("w"), 1
p.Abrir 7
Expect "document", p.STS1, 97
Expect "third", p.PasarItem("LECHE", 1, 1, 0), 0
Expect "payment", p.CerrarConMedio(1, 100), 0
Expect "invoice", p.numeroUltimaFactura, 1
p.Cerrar
"""


PLAIN_SALE = """
Set p = NewPrinter()
p.Abrir 7
Say "item", p.PasarItem("PAN", 12.5, 2, 16)
Say "payment", p.CerrarConMedio(1, 100)
p.Cerrar
"""


class Tcp(HostTest):
    def test_the_windows_program_serves_a_host_and_quits(self):
        paper = self.folder / "paper"
        command = [ROOT / "scripts/wine", SYSTEM, BUILT / "simulator/corvid-printer.exe",
                   "--tcp", "127.0.0.1:0", "--paper", windows_path(paper)]  # fmt: skip
        with subprocess.Popen(command, env=wine_environment(), stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE) as printer:  # fmt: skip
            self.addCleanup(printer.kill)
            ready, _, address = printer.stdout.readline().decode().strip().partition(" ")
            self.assertEqual(ready, "ready")
            self.write_settings({r"Config\Puertos": {"7": f"tcp:{address}"}})
            self.assertEqual(self.run_script(PLAIN_SALE), {"item": "0", "payment": "0"})
            # The pipe stays open: the program ends although it waits for more input.
            printer.stdin.write(b"quit\n")
            printer.stdin.flush()
            self.assertEqual(printer.wait(timeout=60), 0)
        self.assertEqual(paper.read_text(encoding="utf-8").count("PAN"), 1)

    def test_a_sale_survives_a_hang_up_by_opening_again(self):
        (self.folder / "script").write_text(HANG_UP)
        printer = self.printer(options=["--script", self.folder / "script"], line="tcp")
        self.write_settings({
            r"Config\NimbusPF": {"IsDebug": "True", "DEBUGFILE": "trace.log"},
            r"Config\ModComm": {"DEBUG": "1", "DumpFile": "dump.log"},
            r"Config\Puertos": {"7": f"tcp:{printer.line}", "8": "tcp:127.0.0.1:1", "9": "COM12"},
        })  # fmt: skip
        said = self.run_script(SALE)
        self.assertRegex(said["refused"], r"^40001\|PrinterFiscal\.Abrir\|Error \(10061\): "
                         r"tcp:127\.0\.0\.1:1 \(connect\) - .")  # fmt: skip
        self.assertEqual(said["no address"],
                         "40001|PrinterFiscal.Abrir|Error (-2): Config\\Puertos\\9 - "
                         '"COM12" no es una direcci{243}n como tcp:192.168.1.50:4000')  # fmt: skip
        paper = printer.paper()
        self.assertEqual([paper.count(name) for name in ("PAN", "QUESO", "LECHE")], [1, 1, 1])
        trace = (self.folder / "trace.log").read_bytes().decode("cp1252")
        self.assertIn(f"Abrir: COM7 = tcp:{printer.line}\r\n", trace)
        dump = (self.folder / "dump.log").read_bytes().decode("cp1252")
        self.assertRegex(dump, rf"Send [-:\d ]+ tcp:{printer.line}\r\n05 ")


if __name__ == "__main__":
    harness.main()
