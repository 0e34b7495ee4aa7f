"""What a script gets for bad input, and on a session that is closed or has no port."""

import harness
from harness import HostTest

BAD_PORTS = """
On Error Resume Next
Set p = NewPrinter()
p.Abrir 0: SayError "zero"
p.Abrir 100: SayError "hundred"
p.Abrir "abc": SayError "text"
p.Abrir: SayError "missing"
p.Abrir 98: SayError "no such port"
Say "after failure", p.Execute("w") & " " & p.DescripcionError
p.Abrir "7": SayError "number as text"
Say "works", p.Execute("w")
p.NoSuchMember: SayError "no such member"
"""

TWO_OBJECTS = """
On Error Resume Next
Set p = NewPrinter()
Set q = NewPrinter()
p.Abrir 7: SayError "first"
q.Abrir 7: SayError "second"
q.Cerrar: SayError "second closes"
Set q = Nothing
Say "first works", p.Execute("w")
Set r = NewPrinter()
r.Abrir 8: SayError "other port"
Say "other works", r.Execute("w")
r.Abrir 12: SayError "two digits"
Say "two digits work", r.Execute("w")
Say "first still works", p.Execute("w")
p.Cerrar
r.Abrir 7: SayError "now free"
Say "now works", r.Execute("w")
"""

BAD_VALUES = """
On Error Resume Next
Set p = NewPrinter()
p.Abrir 7
p.PasarItem "PAN", "abc", 1, 16: SayError "price"
p.PasarItem "PAN", 1, "x", 16: SayError "quantity"
p.PasarItem "PAN", 1, 1, "": SayError "rate"
p.CerrarConMedio 1, "mucho": SayError "payment"
p.PasarItem "PAN", 1E+20, 1, 16: SayError "overflow"
p.PasarItem "PAN", Nothing, 1, 16: SayError "object"
p.PasarItem "PAN": SayError "too few"
p.CalcXOr "": SayError "no character"
p.PasarItem "PAN", 1, -1, 16: SayError "negative"
Say "negative outcome", p.pfError & " " & p.lError & " " & p.lStatus & " " & p.DescripcionError
Set b = CreateObject("PrinterFiscalCorvid.CStringBuffer")
b.Insert 2, "x": SayError "insert"
Set c = CreateObject("PrinterFiscalCorvid.NoSuchClass"): SayError "no such class"
"""

CLOSED = """
On Error Resume Next
Set p = NewPrinter()
p.Cerrar: SayError "close"
Say "execute", p.Execute("w") & " " & p.pfError & " " & p.DescripcionError
p.ExecuteNoCheck "w": SayError "unchecked"
p.SendDirect "w": SayError "direct"
p.SendAck: SayError "ack"
p.NextStatusBlock: SayError "next"
Say "drawer", CInt(p.AbrirGaveta())
Say "subtotal", CInt(p.SubTotal())
fields = p.GetResponse("S1")
Say "fields", UBound(fields) & " " & fields(0)
Say "rows", UBound(p.GetMultipleResponses("U3A"))
Set s = p.StatusS1
Say "record", TypeName(s) & " " & p.pfError & " " & p.DescripcionError
Say "rates", p.StatusS3.ValorTasa1
Say "item", p.PasarItem("PAN", 1, 1, 16)
Say "words", p.explainSTS1 & " " & p.explainSTS2
"""


def number(said, name):
    return int(said[name].partition("|")[0])


class Errors(HostTest):
    def test_ports_that_cannot_be_opened(self):
        printer = self.printer()
        said = self.run_script(BAD_PORTS)
        numbers = {name: number(said, name) for name in ("zero", "hundred", "text", "missing")}
        self.assertEqual(numbers, {"zero": 9, "hundred": 9, "text": 13, "missing": 450})
        self.assertRegex(said["no such port"],
                         r"^40001\|PrinterFiscal\.Abrir\|"
                         r"Error \(2\): CommOpen \(CreateFile\) - .*[^\s}]$")  # fmt: skip
        self.assertTrue(said["after failure"].startswith("1 "), said["after failure"])
        self.assertEqual(said["number as text"], "0||")
        self.assertEqual(said["works"], "0")
        self.assertEqual(number(said, "no such member"), 438)
        self.assertEqual(printer.commands(), [b"S1", b"w"])

    def test_a_port_belongs_to_the_session_that_opened_it(self):
        printers = [self.printer(port, f"COM{port}") for port in (7, 8, 12)]
        said = self.run_script(TWO_OBJECTS)
        in_use = "40001|PrinterFiscal.Abrir|Error (-1): CommOpen - Port in use."
        fine = {name: "0" if "work" in name else "0||" for name in said}
        self.assertEqual(said, {**fine, "second": in_use})
        self.assertEqual([p.commands() for p in printers],
                         [[b"S1", b"w", b"w", b"w"], [b"S1", b"w"], [b"w"]])  # fmt: skip

    def test_what_cannot_be_converted_sends_nothing(self):
        printer = self.printer()
        said = self.run_script(BAD_VALUES)
        numbers = {name: number(said, name) for name in said if name != "negative outcome"}
        self.assertEqual(numbers, {
            "price": 13, "quantity": 13, "rate": 13, "payment": 13, "overflow": 6, "object": 13,
            "too few": 450, "no character": 5, "negative": 0, "insert": 5, "no such class": 429,
        })  # fmt: skip
        self.assertEqual(said["negative outcome"],
                         "3 3 0 Argumento inv{225}lido (cantidad negativa) en PasarItem")  # fmt: skip
        self.assertEqual(printer.commands(), [b"S1"])

    def test_a_closed_session_answers_and_writes_nothing(self):
        said = self.run_script(CLOSED)
        self.assertEqual(said["execute"], "1 1 PUERTO CERRADO")
        self.assertEqual([number(said, n) for n in ("close", "unchecked")], [0, 0])
        self.assertEqual([number(said, n) for n in ("direct", "ack", "next")], [9, 9, 9])
        self.assertEqual([said["drawer"], said["subtotal"], said["item"]], ["-1", "-1", "1"])
        self.assertEqual([said["fields"], said["rows"]], ["0 pfError", "0"])
        self.assertEqual(said["record"], "IPrinterResponse1 1 PUERTO CERRADO")
        self.assertEqual(said["words"], "STS1 = 0 (0x0) STS2 = 0 (0x0)")


if __name__ == "__main__":
    harness.main()
