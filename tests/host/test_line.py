"""A printer that misbehaves, and one that vanishes."""

import concurrent.futures
import functools
import os

import harness
from harness import BUILT, PORTS, HostTest, Said, wait_until, windows_path

# Registered numbers are given, so that opening sends one status request and no query.
DRAWER = """
Set p = NewPrinter()
p.SerialPrinter = "Z1F0000001"
p.Abrir <port>
Expect "drawer", p.Execute("w"), 0
Say "outcome", p.pfError & " " & p.resultFlag & " " & p.STS1 & " " & p.DescripcionError
fields = p.GetResponse("S1")
Expect "fields", UBound(fields) & " " & fields(0), "15 S100"
"""

# fault, how often the command goes out, outcome: pfError, resultFlag, STS1, words (when they count)
FAULTS = [
    ("bytewise on 5", 1, "0 6 96 Ok"),
    ("split on 2 30", 1, "0 6 96 Ok"),
    ("enq-first on", 1, "0 6 96 Ok"),
    ("end-eot on", 1, "0 6 96 Ok"),
    ("corrupt-check on", 1, "0 6 96 Ok"),
    ("baud 9600", 1, "0 6 96 Ok"),
    ("refuse 3", 4, "0 6 96 Ok"),
    ("refuse 7", 7, "0 21 96 Ok"),
    ("lose 1", 1, "0 6 96 Ok"),
    ("silent 2", 1, "0 6 96 Ok"),
    ("noise 3 \\x7F\\x11", 1, "0 6 96 Ok"),
]

ITEMS = 200

# Sells until the printer is gone; then opens again as soon as there is a printer.
VANISHING = """
On Error Resume Next
Set p = NewPrinter()
p.Abrir 7
Expect "at first", p.PasarItem("PAN", 1, 1, 0), 0
sold = 0
Do
  sold = sold + 1
  failure = p.PasarItem("PAN", 1, 1, 0)
Loop While failure = 0 And sold < 100000 And Err.Number = 0
Expect "failure", failure & " " & p.pfError, "1 1"
Expect "again", p.Execute("w"), 1
fields = p.GetResponse("S1")
Expect "fields", UBound(fields) & " " & fields(0), "0 pfError"
p.Cerrar
started = Timer
Do
  Err.Clear
  p.Abrir 7
Loop While Err.Number <> 0 And Timer - started < 60
Expect "drawer", p.Execute("w"), 0
p.Cerrar
"""


class Line(HostTest):
    def test_misbehaviour_ends_in_the_outcome_it_must(self):
        self.write_settings({r"Config\NimbusPF": {"TimeOut": "1"}})
        ports = list(PORTS)
        for first in range(0, len(FAULTS), len(ports)):
            batch = zip(ports, FAULTS[first : first + len(ports)])
            self.run_together([functools.partial(self.check, *job) for job in batch])

    def check(self, port, case):
        fault, times, outcome = case
        name = fault.partition(" ")[0] + str(times)
        with self.printer(port, name) as printer:
            printer.tell(fault)
            said = self.run_script(DRAWER, port, f"{name}.vbs")
            self.assertEqual(said, {"outcome": outcome}, fault)
            self.assertEqual(printer.commands().count(b"w"), times, fault)

    def test_a_printer_that_vanishes_and_comes_back(self):
        printer = self.printer(name="first")
        with concurrent.futures.ThreadPoolExecutor() as pool:
            host = pool.submit(self.run_script, VANISHING)
            wait_until(lambda: len(printer.commands()) > 4 or host.done())
            printer.vanish()
            next_printer = self.printer(name="second")
            host.result()
        self.assertEqual(next_printer.commands(), [b"w"])


class Drivers(HostTest):
    def run_host(self, *arguments):
        said, code = self.start_host([windows_path(BUILT / "driver_host.exe"), *arguments])
        self.assertIn("<the host reached its end>", said.whole)
        self.assertEqual(code, 0, said.whole)
        return said

    def sell(self, port, reads, immediate):
        name = f"{reads}-{immediate}"
        folder = self.folder / name
        folder.mkdir()
        settings = ["[Config\\ModComm]", f"LecturaInmediata={immediate}", ""]
        (folder / "ORV.ini").write_text("\r\n".join(settings))
        with self.printer(port, name, ["--do", "baud 9600"]) as printer:
            command = [windows_path(BUILT / "driver_host.exe"), "sell", port, ITEMS, reads]
            output = harness.wine(*command, cwd=folder)[1]
            said = Said(output)
            self.assertEqual((said.get("sold"), said.get("right")), (str(ITEMS),) * 2, output)
            paper = printer.paper()
            lines = [paper.count(f"PAN{1000 + i}") for i in range(ITEMS)]
            self.assertEqual(lines, [1] * ITEMS, name)

    def test_items_stand_on_the_paper_once_whatever_the_driver_reads(self):
        ways = [("at-once", "True"), ("at-once", "False"), ("waits-out", "True")]
        self.run_together([
            functools.partial(self.sell, port, *way) for port, way in zip(PORTS, ways)
        ])  # fmt: skip

    def test_threads_sell_at_once_each_on_a_port_of_its_own(self):
        """Two of them in apartments of their own; a third one has none."""
        count = 20
        printers = [self.printer(port, f"COM{port}") for port in (7, 8, 9)]
        said = self.run_host("together", 7, count)
        self.assertEqual(said.whole.count(f"sold={count}\nright={count}\n"), 3, said.whole)
        for printer in printers:
            paper = printer.paper()
            lines = [paper.count(f"PAN{1000 + i}") for i in range(count)]
            self.assertEqual(lines, [1] * count)

    def test_memory_stays_flat_over_many_commands(self):
        """CORVID_EXCHANGES sets how many."""
        count = int(os.environ.get("CORVID_EXCHANGES", "1000"))
        self.printer()
        said = self.run_host("soak", 7, count)
        self.assertEqual(said["accepted"], str(count))
        self.assertLess(int(said["grown"]), 65536, "bytes")

    def test_a_member_called_in_the_middle_of_another_is_refused(self):
        printer = self.printer()
        printer.tell("split on 2 1000")
        said = self.run_host("nested", 7)
        self.assertEqual(said, {"nested": "3 -1", "outer": "0"})
        self.assertEqual(printer.commands(), [b"w"])

    def test_no_invisible_process_stays_with_a_silent_printer(self):
        self.write_settings({r"Config\NimbusPF": {"TimeOut": "2"}})
        for task, outcome in (("release", {"left": "0", "outer": "1"}), ("quit", {"outer": "1"})):
            with self.printer(name=task, options=["--do", "silent on"]) as printer:
                said = self.run_host(task, 7)
                self.assertEqual(said, outcome, task)
                self.assertEqual(printer.commands(), [])


if __name__ == "__main__":
    harness.main()
