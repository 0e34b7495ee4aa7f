"""The examples in Object Pascal, built here: early bound by what the compiler's own importer makes
of the type library, and late bound."""

import functools
import subprocess

import harness
import test_examples as examples
from harness import BITS, LIBRARY, ROOT, windows_path, wine

BUILT = ROOT / "build" / f"pascal{BITS}"
IMPORTED = BUILT / "PrinterFiscalCorvid_TLB.pas"
NAMES = ("sale", "sale_late")
HOSTS = {name: [BUILT / f"{name}.exe"] for name in NAMES}
# What does not open, and the error; there is no device at port 98.
BAD_PORTS = {
    "0": "9 from PrinterFiscalCorvid: Subscript out of range\n",
    "1E+20": "6 from PrinterFiscalCorvid: Overflow\n",
    "abc": "13 from PrinterFiscalCorvid: Type mismatch\n",
    "98": "40001 from PrinterFiscal.Abrir: Error (2): CommOpen (CreateFile) - ",
}
# The second item; a refused command is sent seven times.
REFUSAL = "at 8 refuse 7\n"


def build(*sources):
    subprocess.run([ROOT / "scripts/pascal", str(BITS), *sources], check=True)


class Pascal(examples.SaleTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        build("tests/host/type_importer.pas")
        for path in (IMPORTED, *(host for (host,) in HOSTS.values())):
            path.unlink(missing_ok=True)
        code, output = wine(BUILT / "type_importer.exe", windows_path(LIBRARY),
                            windows_path(BUILT) + "\\")  # fmt: skip
        assert code == 0, output
        build(*(f"examples/pascal/{name}.dpr" for name in NAMES))

    def test_each_host_makes_the_sale(self):
        self.make_sales(HOSTS)

    def test_errors_keep_their_numbers_and_words(self):
        for port, error in BAD_PORTS.items():
            for name, host in HOSTS.items():
                with self.subTest(port=port, host=name):
                    said, code = self.start_host([*host, port])
                    self.assertIn(f"Abrir: error {error}", said.whole)
                    self.assertEqual(code, 1)

    def test_a_refused_line_ends_the_sale(self):
        jobs = enumerate(HOSTS.items())
        self.run_together([functools.partial(self.end_sale, 7 + i, *host) for i, host in jobs])

    def end_sale(self, port, name, host):
        script = self.folder / f"{name}.script"
        script.write_text(REFUSAL)
        with self.printer(port, name, ["--script", str(script)]) as printer:
            said, code = self.start_host([*host, port])
            self.assertIn("PasarItem: UltimoEnvio 2, ", said.whole)
            self.assertEqual(code, 1, said.whole)
            *_, last_sold, cancelled = printer.commands()
            self.assertIn(b"Leche", last_sold, said.whole)
            self.assertEqual(cancelled, b"7", said.whole)


if __name__ == "__main__":
    harness.main()
