"""Whole documents, driven by a script: every command byte for byte, whatever the cashier's locale."""

import harness
from harness import LOCALES, HostTest

DOCUMENTS = """
Set p = NewPrinter()
p.Abrir 7
Say "serial", p.SerialPrinter

' An invoice, with everything that can stand on one.
Say "customer", p.PasarDatosCliente("FERRETERÍA ÑANDÚ, C.A.", "J-98765432-1", _
  "CALLE 5" & vbCrLf & vbCrLf & "CARACAS")
Say "item", p.PasarItem("PAN CAMPESINO DE MASA MADRE GRANDE", 12.5, 2, 16)
Say "exempt", p.PasarItem("LECHE", CCur(3), 1, 0)
Say "reduced", p.PasarItem("CAFÉ", 1.005, 1.0005, 8)
Say "additional", p.PasarLineaFactura("RELOJ", 1000, 1, 31)
Say "collected", p.PasarItem("PERCIBIDO", 5, 1, -1)
Say "void", p.AnularItem("PAN", 12.5, 1, 16)
Say "negative", p.PasarItem("NADA", 1, -0.001, 16)
Say "negative words", p.DescripcionError
Say "general", p.detalleGeneral("F+", "QUESO BLANCO DURO DE PRIMERA CALIDAD", 1000, 1.5, 16, "ABC")
Say "general line", p.pasarLineaFacturaG("JAMON", 12.5, 2, 16)
Say "general void", p.anularLineaFacturaG("JAMON", 12.5, 1, 16, "X")
Say "as text", p.PasarItem("TEXTO", "12,5", "2", "16")
Say "subtotal", p.SubTotal()
Say "subtotal unprinted", p.SubTotal(False)
Say "percent", p.PasarDescuento(8.2)
Say "amount", p.PasarMontoDescuento(5.5)
Say "general percent", p.descuentoGeneral(True, True, 10)
Say "general surcharge", p.descuentoGeneral(False, False, 2.5)
Say "part", p.CerrarConMedio(3, 10.1)
Say "open", p.STS1
Say "rest", p.CerrarComprobante()
p.GetStatus
Say "idle", p.explainSTS1 & " " & p.explainSTS2

' Credit notes, closed in each of the three ways.
Say "note customer", p.PasarDatosClienteNC("CLIENTE", "V-1", "CALLE 5" & vbCrLf & "CARACAS", _
  "00000001", "Z1F0000001", DateSerial(2026, 3, 14))
Say "refund", p.RefundItem("PAN", 12.5, 1, 16)
Say "note", p.CerrarNotaCredito()
p.RefundItem "PAN", 10, 1, 0
Say "note by means", p.CerrarNotaCreditoConMedio(2, 10)
Say "note line", p.pasarLineaNCG("PAN", 10, 2, 0, "C1")
Say "note void", p.anularLineaNCG("PAN", 10, 1, 0)
Say "return", p.CerrarDevolucion(1, 10)

' Customers of the other families; a cancelled document; the drawer.
Say "opening", p.IniciarFactura("CLIENTE", "V-2", "Avenida Bolívar, edificio Los Próceres, piso 3, Caracas")
p.PasarItem "PAN", 1, 1, 0
Say "cancel", p.CancelarTransaccion()
Say "short", p.PasarDatosClientePA("CLIENTE", "J-12345678901234567890", "UNO" & vbCrLf & "DOS", "77")
Say "cancel customer", p.CancelarTransaccion()
Say "short note", p.PasarDatosClienteNCPA("CLIENTE", "V-3", "UNO", "77")
p.CancelarTransaccion
Say "reference", p.PasarDatosCliente("CLIENTE", "V-4", "", "1", "", DateSerial(2026, 1, 2))
p.CancelarTransaccion
Say "paid", p.CerrarComprobante(5)
Say "paid flag", p.resultFlag
Say "drawer", p.AbrirGaveta()
p.Cerrar
"""

ONE_ITEM_AS_TEXT = {"C.UTF-8": "!000001250000002000TEXTO", "es_VE.UTF-8": "!000000125000002000TEXTO"}


def expected_commands(locale):
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
        "F+112,50||2,000||JAMON",
        "F-112,50||1,000|||X|JAMON",
        ONE_ITEM_AS_TEXT[locale],
        "3", "4",
        "p-00820", "q-000000000550", "GP-*10,00", "GM+*2,50",
        "203000000001010", "101",
        "iS*CLIENTE", "iR*V-1", "iF*00000001", "iI*Z1F0000001", "iD*14-03-2026",
        "i00CALLE 5", "i01CARACAS",
        "d1000000125000001000PAN", "f01000000000000",
        "d0000000100000001000PAN", "f02000000001000",
        "C+010,00||2,000|||C1|PAN", "C-010,00||1,000||PAN", "f01000000001000",
        "iR*V-2", "iS*CLIENTE",
        "i01Avenida Bolívar, edificio Los Próceres,", "i02piso 3, Caracas",
        " 000000010000001000PAN", "7",
        "jRJ-123456789012345678", "jS" + "CLIENTE".ljust(40), "jF77", "j1UNO", "j2DOS", "7",
        "jR*V-3", "jS*CLIENTE", "jF*" + "77".ljust(22), "j1UNO", "7",
        "i01CLIENTE", "i02RIF:V-4", "i03#Factura afectada: 1", "i04Serial impresora: ",
        "i05Fecha factura: 02-01-2026", "7",
        *["201000000000500"] * 7,
        "w",
    ]  # fmt: skip


class Documents(HostTest):
    def test_the_wire_does_not_change_with_the_locale(self):
        for locale in LOCALES:
            with self.subTest(locale=locale):
                printer = self.printer(name=locale)
                said = self.run_script(DOCUMENTS, locale=locale)
                commands = [command.decode("cp1252") for command in printer.commands()]
                self.assertEqual(commands, expected_commands(locale))
                self.check_outcomes(said)
                self.check_receipt(printer.paper())
                printer.close()

    def check_outcomes(self, said):
        special = {
            "serial": "Z1F0000001",
            "negative": "3",
            "negative words": "Argumento inv{225}lido (cantidad negativa) en PasarItem",
            "subtotal": "False", "subtotal unprinted": "False",
            "percent": "False", "amount": "False", "drawer": "False",
            "open": "97",
            "idle": "Modo fiscal: IDLE (0x60) STS2 = Ok (0x40)",
            "paid flag": "21",
        }  # fmt: skip
        booleans = {"Falso": "False", "Verdadero": "True"}  # as the cashier's language says them
        outcomes = {name: booleans.get(value, value) for name, value in said.items()}
        self.assertEqual(outcomes, {name: special.get(name, "0") for name in said})
        self.assertGreater(len(outcomes), 35)

    def check_receipt(self, paper):
        self.assertEqual(paper.count("DOCUMENTO ANULADO"), 1)
        for line in ("RAZON SOCIAL", "FERRETERÍA ÑANDÚ, C.A.", "FACTURA:", "00000001",
                     "NOTA DE CREDITO:", "TOTAL", "EFECTIVO"):  # fmt: skip
            self.assertIn(line, paper)


if __name__ == "__main__":
    harness.main()
