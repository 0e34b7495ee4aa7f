"""The examples that users copy: each host makes the same sale."""

import functools

import harness
from harness import BUILT, HostTest, ROOT, windows_path

EARLY_BOUND = BUILT / "early_bound_sale.exe"


def script(name):
    return ["cscript", "//nologo", windows_path(ROOT / "examples" / name)]


HOSTS = {"vbs": script("sale.vbs"), "js": script("sale.js"), "cpp": [EARLY_BOUND]}
SALE = [
    "iR*V-12345678-9", "iS*Maria Perez",
    "i01Avenida Bolivar, edificio Los Proceres,", "i02piso 3, Caracas",
    "!000000125000002000Pan campesino",
    " 000000032000006000Leche entera 1 l",
    '"000000087500001000Cafe molido 500 g',
    "3", "p-01000", "201000000010000",
]  # fmt: skip
# What the printer makes of it, worked out by hand: 25.00, 19.20 and 8.75 less ten per cent.
RECEIPT = {
    "RIF/C.I.: V-12345678-9": "",
    "RAZON SOCIAL: Maria Perez": "",
    "Pan campesino (G)": "Bs 25,00",
    "Leche entera 1 l (E)": "Bs 19,20",
    "Cafe molido 500 g (R)": "Bs 8,75",
    "DESCUENTO 10,00%": "Bs -5,30",
    "IVA G (16,00%)": "Bs 3,60",
    "TOTAL": "Bs 51,88",
    "CAMBIO": "Bs 48,12",
}


class Examples(HostTest):
    def test_each_host_makes_the_sale(self):
        jobs = [functools.partial(self.sale, 7 + i, *host) for i, host in enumerate(HOSTS.items())]
        receipts = self.run_together(jobs)
        self.assertEqual(receipts, receipts[:1] * len(receipts))
        lines = [line.partition("Bs ") for line in receipts[0].splitlines()]
        amounts = {label.strip(): unit + amount for label, unit, amount in lines}
        self.assertEqual({label: amounts.get(label) for label in RECEIPT}, RECEIPT)

    def sale(self, port, name, command):
        with self.printer(port, name) as printer:
            said, code = self.start_host([*command, port])
            self.assertEqual(code, 0, said.whole)
            for line in ("Z1F0000001", "The sale is closed.", "Modo fiscal: IDLE (0x60)", "fin"):
                self.assertIn(line, said.whole)
            commands = [command.decode("cp1252") for command in printer.commands()]
            self.assertEqual([c for c in commands if c not in ("S1", "S3")], SALE)
            return printer.paper()


if __name__ == "__main__":
    harness.main()
