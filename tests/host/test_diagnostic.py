"""corvid-diagnostico as support runs it: against a printer on a mapped port, with the settings of a host's
folder and the registered library; and against its own simulation."""

import harness
from harness import BITS, BUILT, HIGHEST_PORT, HostTest, windows_path

PROGRAM = BUILT / "corvid-diagnostico.exe"
# What may stand on the line: the status request, and the query of the counters.
QUESTIONS = {b"\x05", b"\x02S1\x03\x61"}
LATE = "tras una respuesta perdida"
SERIAL, RIF = "Z1F0000001", "J-12345678-9"


class Diagnostic(HostTest):
    def run_program(self, *arguments):
        """The exit code, and the report's lines by name; of equal names the last one. The program
        waits two seconds for an answer, and says so where a busy machine took longer."""
        for _ in range(3):
            code, output = harness.wine(windows_path(PROGRAM), *arguments, cwd=harness.WORK)
            if LATE not in output:
                break
        lines = [line.strip().partition(": ") for line in output.splitlines()]
        return code, output, {name: value for name, _, value in lines}

    def test_it_tells_of_printer_settings_and_registration_and_changes_nothing(self):
        printer = self.printer(10)
        before = printer.tell("state")
        self.write_settings({
            r"Config\NimbusPF": {"TimeOut": "7", "SinMensajes": "quizá"},
        })  # fmt: skip
        report = self.folder / "informe ñandú.txt"
        code, output, told = self.run_program(
            "--puerto", "10", "--carpeta", windows_path(self.folder), "--informe", windows_path(report))

        file = windows_path(self.folder / "ORV.ini")
        self.assertEqual(told["Estado"], "Modo fiscal: IDLE (0x60); STS2 = Ok (0x40)")
        self.assertRegex(told["COM10"], r"^\\Device\\Serial\d+$")
        # Wine's driver waits out the time-out of a read that asks for more than is there.
        self.assertRegex(told["Una lectura que pide más de lo que hay"], "^espera hasta el final")
        self.assertEqual(told[r"Config\NimbusPF\TimeOut"], f"7 ({file})")
        version = output.split()[1]  # program and library are of one build
        library = told[f"{BITS} bits, toda la máquina"]
        self.assertEqual(library.lower(), f"{windows_path(harness.LIBRARY)}, versión {version}.0".lower())
        self.assertEqual(code, 4, output)

        written = report.read_bytes().decode("utf-8")
        self.assertEqual(written.replace("\r\n", "\n"), output)
        self.assertNotIn(SERIAL, written)
        self.assertNotIn(RIF, written)
        self.assertLessEqual({data for way, data in printer.messages() if way == ">"}, QUESTIONS)
        self.assertEqual((printer.paper(), printer.tell("state")), ("", before))

    def test_it_finds_the_printer_and_ends_with_its_exit_code(self):
        self.printer(HIGHEST_PORT)
        folder = windows_path(self.folder)
        code, output, told = self.run_program("--buscar", "--carpeta", folder)
        self.assertEqual(told["COM99"], "Modo fiscal: IDLE (0x60); STS2 = Ok (0x40)")
        self.assertEqual(code, 0, output)

        code, output, _ = self.run_program("--simulado", "--informe", r"Z:\there\is\no\folder.txt")
        self.assertEqual(code, 3, output)
        code, output, _ = self.run_program("--puerto", "siete")
        self.assertEqual(code, 2)
        self.assertIn("siete no es un número de 1 a 99", output)


if __name__ == "__main__":
    harness.main()
