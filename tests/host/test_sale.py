"""Whole documents, driven by a script: every command byte for byte, whatever the cashier's locale."""

import functools

import harness
from harness import LOCALES, HostTest

INVOICE = """
Set p = NewPrinter()
p.Abrir <port>
Expect "serial", p.SerialPrinter, "Z1F0000001"
Say "customer", p.PasarDatosCliente("FERRETERÍA ÑANDÚ, C.A.", "J-98765432-1", _
  "CALLE 5" & vbCrLf & vbCrLf & "CARACAS")
Say "item", p.PasarItem("PAN CAMPESINO DE MASA MADRE GRANDE", 12.5, 2, 16)
Say "exempt", p.PasarItem("LECHE", CCur(3), 1, 0)
Say "reduced", p.PasarItem("CAFÉ", 1.005, 1.0005, 8)
Say "additional", p.PasarLineaFactura("RELOJ", 1000, 1, 31)
Say "collected", p.PasarItem("PERCIBIDO", 5, 1, -1)
Say "void", p.AnularItem("PAN", 12.5, 1, 16)
Expect "negative", p.PasarItem("NADA", 1, -0.001, 16), 3
Expect "words", p.DescripcionError, "Argumento inv{225}lido (cantidad negativa) en PasarItem"
Say "general", p.detalleGeneral("F+", "QUESO BLANCO DURO DE PRIMERA CALIDAD", 1000, 1.5, 16, "ABC")
Say "as text", p.PasarItem("TEXTO", "12,5", "2", "16")
Say "part", p.CerrarConMedio(3, 10.1)
Expect "open", p.STS1, 97
Say "rest", p.CerrarComprobante()
p.GetStatus
Expect "idle", p.explainSTS1 & " " & p.explainSTS2, "Modo fiscal: IDLE (0x60) STS2 = Ok (0x40)"
p.Cerrar
"""
AS_TEXT = {"C.UTF-8": "!000001250000002000TEXTO", "es_VE.UTF-8": "!000000125000002000TEXTO"}


def invoice_commands(locale):
    return [
        "S1",
        "i01FERRETERÍA ÑANDÚ, C.A.", "i02RIF:J-98765432-1", "i03CALLE 5", "i04CARACAS",
        "S3",
        "!000000125000002000PAN CAMPESINO DE MASA MADRE ",
        " 000000030000001000LECHE",
        '"000000010100001001CAFÉ',
        "#000010000000001000RELOJ",
        "$000000050000001000PERCIBIDO",
        "\xa1000000125000001000PAN",
        "F+11000,00||1,500|||ABC|QUESO BLANCO DURO DE PRIMERA CALIDAD",
        AS_TEXT[locale],
        "203000000001010", "101",
    ]  # fmt: skip


# The rest of what can stand on an invoice; the last one is paid when nothing is left to pay.
DISCOUNTS = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Say "line", p.pasarLineaFacturaG("JAMON", 12.5, 2, 16)
Say "void", p.anularLineaFacturaG("JAMON", 12.5, 1, 16, "X")
p.pasarLineaFacturaG "ARROZ", 1000, 1, 16, ""
Say "subtotal", CInt(p.SubTotal())
Say "subtotal unprinted", CInt(p.SubTotal(False))
Say "percent", CInt(p.PasarDescuento(8.2))
Say "amount", CInt(p.PasarMontoDescuento(5.5))
Say "general percent", p.descuentoGeneral(True, False, 10)
Say "general amount", p.descuentoGeneral(False, True, 2.5)
Say "paid", p.CerrarComprobante(5000)
Say "again", p.CerrarComprobante(5)
Expect "again flag", p.resultFlag, 21
Say "drawer", CInt(p.AbrirGaveta())
p.Cerrar
"""


def discount_commands(_):
    return [
        "S3", "F+112,50||2,000||JAMON", "F-112,50||1,000|||X|JAMON", "F+11000,00||1,000||ARROZ",
        "3", "4", "p-00820", "q-000000000550", "GP+*10,00", "GM-*2,50",
        "201000000500000", *["201000000000500"] * 7, "w",
    ]  # fmt: skip


# Credit notes, closed in each of the three ways.
NOTES = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Say "customer", p.PasarDatosClienteNC("CLIENTE", "V-1", "CALLE 5" & vbCrLf & "CARACAS", _
  "00000001", "Z1F0000001", DateSerial(2026, 3, 14))
Say "refund", p.RefundItem("PAN", 12.5, 1, 16)
Say "note", p.CerrarNotaCredito()
p.RefundItem "PAN", 10, 1, 0
Say "note by method", p.CerrarNotaCreditoConMedio(2, 10)
Say "note line", p.pasarLineaNCG("PAN", 10, 2, 0, "C1")
Say "note void", p.anularLineaNCG("PAN", 10, 1, 0)
Say "return", p.CerrarDevolucion(1, 10)
p.Cerrar
"""


def note_commands(_):
    return [
        "iS*CLIENTE", "iR*V-1", "iF*00000001", "iI*Z1F0000001", "iD*14-03-2026",
        "i00CALLE 5", "i01CARACAS",
        "S3", "d1000000125000001000PAN", "f01000000000000",
        "d0000000100000001000PAN", "f02000000001000",
        "C+010,00||2,000|||C1|PAN", "C-010,00||1,000||PAN", "f01000000001000",
    ]  # fmt: skip


CUSTOMERS = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Say "opening", p.IniciarFactura("CLIENTE", "V-2", _
  "Avenida Bolívar, edificio Los Próceres, piso 3, Caracas")
p.PasarItem "PAN", 1, 1, 0
Say "cancel", p.CancelarTransaccion()
Say "short", p.PasarDatosClientePA("CLIENTE", "J-12345678901234567890", "UNO" & vbCrLf & "DOS", "77")
Say "cancel customer", p.CancelarTransaccion()
Say "short note", p.PasarDatosClienteNCPA("CLIENTE", "V-3", "UNO", "77")
Say "reference", p.PasarDatosCliente("CLIENTE", "V-4", "", "1", "", DateSerial(2026, 1, 2))
p.Cerrar
"""


def customer_commands(_):
    return [
        "iR*V-2", "iS*CLIENTE",
        "i01Avenida Bolívar, edificio Los Próceres,", "i02piso 3, Caracas",
        "S3", " 000000010000001000PAN", "7",
        "jRJ-123456789012345678", "jS" + "CLIENTE".ljust(40), "jF77", "j1UNO", "j2DOS", "7",
        "jR*V-3", "jS*CLIENTE", "jF*" + "77".ljust(22), "j1UNO",
        "i01CLIENTE", "i02RIF:V-4", "i03#Factura afectada: 1", "i04Serial impresora: ",
        "i05Fecha factura: 02-01-2026",
    ]  # fmt: skip


# What is no line of a sale; the receipt that is asked for again stands in no memory.
HOUSEKEEPING = """
Set p = NewPrinter()
p.SerialPrinter = "X"
p.Abrir <port>
Say "text", p.PrintNoFiscal("ENTREGA Ñ", False)
Say "last text", p.PrintNoFiscal("RECIBIDO", True)
Say "header", p.SetHeader(1, "FERRETERÍA")
Say "footer", p.SetFooter(2, "GRACIAS")
Say "date", p.SetDate(DateSerial(2026, 3, 15))
Say "time", p.SetTime(TimeSerial(17, 8, 9))
Say "flag", p.setFlag(21, 1)
Say "login", p.Login("3")
Say "logoff", p.Logoff()
Say "training", p.StartTraining()
Say "no training", p.EndTraining()
Say "report", p.ReporteDiario("0", "X")
p.reimprimirFactura 7
p.reimprimirDocumentos "C", 3, 5
p.reimprimirDocumentos "f", DateSerial(2026, 3, 14), DateSerial(2026, 3, 15)
p.Cerrar
"""


def housekeeping_commands(_):
    refused = ["RF00000070000007", "RC00000030000005", "Rf02603140260315"]
    return [
        "800ENTREGA Ñ", "810RECIBIDO", "PH1" + "FERRETERÍA".center(40), "PHB" + "GRACIAS".center(40),
        "PG150326", "PF170809", "PJ2101", "500003", "6", "T1", "T2", "I0X",
        *(command for command in refused for _ in range(7)),
    ]  # fmt: skip


# name, script, which says 0 in each line; commands for a locale, lines on the paper
CASES = [
    ("invoice", INVOICE, invoice_commands,
     ["FERRETERÍA ÑANDÚ, C.A.", "FACTURA:", "TOTAL", "EFECTIVO"]),
    ("discounts", DISCOUNTS, discount_commands,
     ["SUBTOTAL", "DESCUENTO 8,20%", "RECARGO", "CAMBIO"]),
    ("notes", NOTES, note_commands, ["NOTA DE CREDITO:", "FACTURA AFECTADA: 00000001"]),
    ("housekeeping", HOUSEKEEPING, housekeeping_commands, ["ENTREGA Ñ", "REPORTE X"]),
    ("customers", CUSTOMERS, customer_commands, ["DOCUMENTO ANULADO", "piso 3, Caracas"]),
]  # fmt: skip


class Documents(HostTest):
    def test_the_wire_does_not_change_with_the_locale(self):
        for locale in LOCALES:
            with self.subTest(locale=locale):
                ports = range(7, 7 + len(CASES))
                jobs = [functools.partial(self.check, locale, *job) for job in zip(ports, CASES)]
                self.run_together(jobs)

    def check(self, locale, port, case):
        name, script, commands_for, printed = case
        with self.printer(port, f"{name}-{locale}") as printer:
            said = self.run_script(script, port, f"{name}-{locale}.vbs", locale=locale)
            commands = [command.decode("cp1252") for command in printer.commands()]
            self.assertEqual(commands, commands_for(locale))
            self.assertEqual(set(said.values()), {"0"}, said)
            for line in printed:
                self.assertIn(line, printer.paper())


if __name__ == "__main__":
    harness.main()
