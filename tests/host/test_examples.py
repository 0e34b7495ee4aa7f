"""The examples that users copy: each host makes the same sale, and one looks at each outcome."""

import functools
import re
import typing

import harness
from harness import BUILT, HostTest, PORTS, ROOT, windows_path

EARLY_BOUND = BUILT / "early_bound_sale.exe"


def script(name):
    return ["cscript", "//nologo", windows_path(ROOT / "examples" / name)]


HOSTS = {"vbs": script("sale.vbs"), "js": script("sale.js"), "cpp": [EARLY_BOUND],
         "c": [BUILT / "early_bound_sale_c.exe"]}  # fmt: skip
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

ENVIO = ["cscript", "//nologo", windows_path(ROOT / "examples" / "envio.vbs")]
OUTCOME = re.compile(r"^(.+): (.+) \(bloques: (\d+), (\d+) ms\)$", re.MULTILINE)
ARTICLES = ("Pan campesino", "Leche entera 1 l")
CLOSED = "Venta cerrada."
ENDED = "La venta no sigue."
REPEATED = "aceptado, tal vez dos veces"
SILENCE_MS = 1000  # a time-out, by the settings below


class Case(typing.NamedTuple):
    """A sale under a fault: outcomes are member, words, blocks, and blocks without answer."""

    fault: str
    limit: int  # LimiteEspera
    outcomes: list
    paper: tuple  # how often each article stands there
    verdict: str = ENDED
    advice: str = ""
    quantity: int = 2


BEFORE = ("Antes de Abrir", "nada enviado", 0, 0)
CANCEL = "CancelarTransaccion"
CASES = {
    "refused": Case("error 65", 0, [
        ("PasarItem", "rechazado", 7, 0), (CANCEL, "rechazado", 7, 0),
    ], (0, 0), advice="atienda la impresora. Sin papel"),
    "argument": Case("reset", 0, [
        ("PasarItem", "no enviado", 0, 0), (CANCEL, "rechazado", 7, 0),
    ], (0, 0), advice="(cantidad negativa) en PasarItem", quantity=-1),
    "silent": Case("silent on", 1, [
        ("PasarItem", "no enviado", 0, 0), (CANCEL, "no enviado", 0, 0),
    ], (0, 0), advice="pfError de comunicacion"),
    # Every answer to a block is lost, and what the printer tells of itself closes the sale.
    "cleared up": Case("lose-ack on", 1, [
        ("PasarItem", "incierto", 1, 1), ("PasarItem", "incierto", 1, 1),
        ("CerrarConMedio", "incierto", 1, 1),
    ], (1, 1), CLOSED, advice="Factura: antes 0, ahora 1"),
    "not sold": Case("error 65|lose-ack 1", 1, [
        ("PasarItem", "incierto", 1, 1), ("PasarItem", "rechazado", 7, 0),
        (CANCEL, "rechazado", 7, 0),
    ], (0, 0), advice="Por pagar: antes 0, ahora 0"),
    "sold twice": Case("lose-ack 1", 0, [
        ("PasarItem", REPEATED, 2, 1), (CANCEL, "aceptado", 1, 0),
    ], (2, 0), advice="Por pagar: antes 0, ahora 58"),
}  # fmt: skip

RECOVER = ["cscript", "//nologo", windows_path(ROOT / "examples" / "recover.vbs")]
KEPT = 4  # the last invoice's number before the sale that the power cut ended
ITEM = 'p.PasarItem "Pan", 10, 1, 16\n'
# What stood at the printer when the power went, and what the host says when it is back.
POWER_CUTS = {
    "nothing": ("", "no se cerr"),
    "invoice": (ITEM, "anulado. Venda de nuevo."),
    "closed": (ITEM + "p.CerrarComprobante", "con la factura 5."),
    "text": ('p.PrintNoFiscal "Nota", False', "no fiscal abierto: cerrado."),
}


class SaleTest(HostTest):
    """Hosts, commands by their names, that all make the same sale."""

    def make_sales(self, hosts):
        jobs = [functools.partial(self.sale, 7 + i, *host) for i, host in enumerate(hosts.items())]
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


class Examples(SaleTest):
    def test_each_host_makes_the_sale(self):
        self.make_sales(HOSTS)

    def test_a_sale_goes_on_only_with_lines_that_stand_once(self):
        self.run_together([
            functools.partial(self.sell_surely, *job) for job in zip(PORTS, CASES, CASES.values())
        ])  # fmt: skip

    def folder_with_limit(self, name, limit):
        folder = self.folder / name
        folder.mkdir()
        (folder / "ORV.ini").write_text(f"[Config\\NimbusPF]\nTimeOut=1\nLimiteEspera={limit}\n")
        return folder

    def sell_surely(self, port, name, case):
        folder = self.folder_with_limit(name, case.limit)
        with self.printer(port, name) as printer:
            for line in case.fault.split("|"):
                printer.tell(line)
            output = self.start_host([*ENVIO, port, case.quantity], cwd=folder)[0].whole
            said = [(*words, int(blocks), int(ms)) for *words, blocks, ms in
                    OUTCOME.findall(output)]  # fmt: skip
            expected = [BEFORE, *case.outcomes]
            self.assertEqual([one[:3] for one in said], [one[:3] for one in expected], output)
            for (*_, took), (*_, unanswered) in zip(said, expected):
                self.assertGreaterEqual(took, SILENCE_MS * unanswered, output)
            diagnosis = f"\nBloquesEnviados: {said[-1][2]}\n"
            for line in (case.verdict, case.advice, diagnosis, "\nfin\n"):
                self.assertIn(line, output, name)
            paper = printer.paper()
            self.assertEqual(tuple(map(paper.count, ARTICLES)), case.paper, name)

    def test_a_sale_stays_whole_whatever_answer_is_lost(self):
        """The nth command is carried out and never answered, for each n of the sale."""
        verdicts = []
        while None not in verdicts:
            jobs = zip(PORTS, range(len(verdicts) + 1, len(verdicts) + 1 + len(PORTS)))
            verdicts += self.run_together([functools.partial(self.sell_despite, *job)
                                           for job in jobs])  # fmt: skip
        self.assertGreater(verdicts.count(CLOSED), 5, verdicts)

    def sell_despite(self, port, nth):
        """The host's verdict, or none where the sale had fewer commands."""
        name = f"lost {nth}"
        folder = self.folder_with_limit(name, 1)
        (folder / "script").write_text(f"after {nth} lose 1\n")
        with self.printer(port, name, ["--script", str(folder / "script")]) as printer:
            output = self.start_host([*ENVIO, port], cwd=folder)[0].whole
            paper = printer.paper()
            verdict = CLOSED if CLOSED in output else ENDED
            self.assertIn(verdict, output, name)
            self.assertEqual(verdict == CLOSED, paper.count("CAMBIO") == 1, name)
            if verdict == CLOSED:
                self.assertEqual(tuple(map(paper.count, ARTICLES)), (1, 1), name)
            return verdict if len(printer.commands()) >= nth else None

    def test_a_host_recovers_from_a_power_cut(self):
        self.run_together([
            functools.partial(self.recover, *job)
            for job in zip(PORTS, POWER_CUTS, POWER_CUTS.values())
        ])  # fmt: skip

    def recover(self, port, name, case):
        left_behind, words = case
        with self.printer(port, name, ["--last-invoice", str(KEPT)]) as printer:
            begun = f"Set p = NewPrinter()\np.Abrir <port>\n{left_behind}"
            self.run_script(begun, port, f"{name}.vbs")
            output = self.start_host([*RECOVER, port, KEPT])[0].whole
            for line in (words, "\nfin\n"):
                self.assertIn(line, output, name)
            self.assertIn("status 96 64", printer.tell("state"), name)


if __name__ == "__main__":
    harness.main()
