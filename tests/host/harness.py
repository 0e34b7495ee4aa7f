"""Real parts for host tests: a Wine prefix with the registered library, and a simulated printer.

A test derives from HostTest, starts a Printer on one of the mapped ports and runs scripts; what it
looks at is what the script said, what stood on the wire and what was printed.
"""

import concurrent.futures
import functools
import operator
import os
import pathlib
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

BITS = int(os.environ.get("CORVID_BITS", "64"))
ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / f"host{BITS}"
TREES = {64: ROOT / "build/windows-x64", 32: ROOT / "build/windows-x86"}
BUILT = TREES[BITS]
LIBRARY = BUILT / "CorvidAPI.dll"
PRINTER = ROOT / "build/native-sanitize/simulator/corvid-printer"
PORTS = range(7, 15)
HIGHEST_PORT = 99
LOCALES = ("C.UTF-8", "es_VE.UTF-8")
SKIPPED = 77
# In what Wine's loader says, on a busy machine seldom and in the locale's language, when it could not
# start a program: nothing of it has run.
NOT_STARTED = "ShellExecuteEx"

# What every script begins with. Say writes a value so that any console can carry it; the script
# host under Wine knows Asc alone, so codes are those of Windows-1252. After On Error Resume Next a
# line that fails is left out, with what it expects: the error stays, and the next Expect tells it.
PRELUDE = """
Function Plain(text)
  Dim i, code
  For i = 1 To Len(text)
    code = Asc(Mid(text, i, 1))
    If code < 32 Or code > 126 Then
      Plain = Plain & "{" & code & "}"
    Else
      Plain = Plain & Mid(text, i, 1)
    End If
  Next
End Function
Sub Say(name, value)
  WScript.Echo name & "=" & Plain("" & value)
End Sub
Sub SayError(name)
  Say name, Err.Number & "|" & Err.Source & "|" & Err.Description
  Err.Clear
End Sub
Sub Expect(name, value, expected)
  If Err.Number <> 0 Or Plain("" & value) <> "" & expected Then
    WScript.Echo "wrong " & name & ": " & Plain("" & value) & " with error " & Err.Number
  End If
End Sub
Sub ExpectError(name, number)
  If Err.Number <> number Then WScript.Echo "wrong " & name & ": error " & Err.Number
  Err.Clear
End Sub
Function NewPrinter()
  Set NewPrinter = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
End Function
"""
SENTINEL = "<the script reached its end>"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


# What is added to the environment of programs under Wine, and the system that they run in, as
# scripts/wine names it; each HostTest class sets both anew.
ENVIRONMENT = {}
SYSTEM = str(BITS)


def wine_environment():
    machine = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "CUPS_SERVER")}
    return {**machine, **ENVIRONMENT}


def wine(*arguments, cwd=ROOT, locale=LOCALES[0], timeout=240):
    """Runs a program in the prefix and gives its output; ends the prefix when it takes too long."""
    for _ in range(3):
        code, output = run_in_prefix(arguments, cwd, locale, timeout)
        if NOT_STARTED not in output:
            break
    return code, output


def run_in_prefix(arguments, cwd, locale, timeout):
    command = [ROOT / "scripts/wine", SYSTEM, *map(str, arguments)]
    environment = {**wine_environment(), "LC_ALL": locale}
    # No pipe: the desktop, which a program may start, would hold it while any other one runs.
    with tempfile.TemporaryFile() as output:
        try:
            ended = subprocess.run(command, cwd=cwd, env=environment, stdin=subprocess.DEVNULL,
                                   stdout=output, stderr=subprocess.STDOUT, timeout=timeout)  # fmt: skip
        except subprocess.TimeoutExpired:
            stop_wine()
            raise AssertionError(f"{arguments} took more than {timeout} s") from None
        output.seek(0)
        return ended.returncode, output.read().decode("utf-8", "replace").replace("\r", "")


def line_of(port):
    """The link that a printer on the port makes; each prefix has its own, as they run at once."""
    return ROOT / "build/lines" / ENVIRONMENT["CORVID_PREFIX"] / f"com{port}"


def stop_wine():
    subprocess.run([ROOT / "scripts/wine", SYSTEM, "--stop"], env=wine_environment(),
                   check=True, capture_output=True)  # fmt: skip


def registry(*arguments):
    """A call of the registry tool: its exit code and output."""
    return wine("reg", *arguments)


class Printer:
    """The simulated printer on the port of a number, as a program of its own; or, with the line
    "tcp", on a free TCP port, whose address `line` is then."""

    def __init__(self, folder, port, name, options, line="pty"):
        self.port = port
        place = ["--tcp", "127.0.0.1:0"] if line == "tcp" else ["--pty", line_of(port)]
        self.paper_file = folder / f"{name}.paper"
        self.wire_file = folder / f"{name}.wire"
        command = [PRINTER, *place, "--paper", self.paper_file, "--wire", self.wire_file,
                   "--clock", "2026-03-14 10:30:15", *options]  # fmt: skip
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        ready, _, self.line = self._line().partition(" ")
        assert ready == "ready", "the simulated printer did not start"

    def _line(self, seconds=10):
        waiting = select.select([self.process.stdout], [], [], seconds)[0]
        assert waiting, "the simulated printer does not answer"
        return self._read_line()

    def _read_line(self):
        line = bytearray()
        while not line.endswith(b"\n"):
            byte = os.read(self.process.stdout.fileno(), 1)
            assert byte, "the simulated printer ended"
            line += byte
        return line.decode().strip()

    def tell(self, line):
        """Steers the printer; gives the lines that it says before "ok"."""
        self.process.stdin.write(line.encode() + b"\n")
        self.process.stdin.flush()
        said = []
        while (answer := self._line()) != "ok":
            assert not answer.startswith("error"), f"{line}: {answer}"
            said.append(answer)
        return said

    def messages(self):
        """Every message so far: '>' from the host or '<' to it, and its bytes."""
        lines = self.wire_file.read_text(encoding="utf-8", errors="replace").splitlines()
        return [(line[0], bytes.fromhex(line.rpartition("\t")[2])) for line in lines]

    def commands(self):
        """What stood between STX and ETX of each block from the host; the check byte is checked."""
        blocks = [data for way, data in self.messages() if way == ">" and data[0] == 2]
        for block in blocks:
            check = functools.reduce(operator.xor, block[1:-1])
            assert block[-2] == 3 and block[-1] == check, f"bad block {block.hex(' ')}"
        return [block[1:-2] for block in blocks]

    def paper(self):
        return self.paper_file.read_text(encoding="utf-8")

    def vanish(self):
        """The cable is pulled: the line hangs up."""
        self.process.kill()
        self.process.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self.process.poll() is None:
            self.process.terminate()
            self.process.wait(timeout=10)
        self.process.stdin.close()
        self.process.stdout.close()


class Said(dict):
    """What a script said, by name; `whole` is the output as it stands."""

    def __init__(self, whole):
        super().__init__(re.findall(r"^([^=\n]+)=(.*)$", whole, re.MULTILINE))
        self.whole = whole


class HostTest(unittest.TestCase):
    """Classes whose programs need more than a command line set what stands first here."""

    maxDiff = None
    system = str(BITS)
    prefix = f"prefix{BITS}"  # below build/
    environment = {}

    @classmethod
    def choose_prefix(cls):
        global SYSTEM
        SYSTEM = cls.system
        ENVIRONMENT.clear()
        ENVIRONMENT.update(cls.environment, CORVID_PREFIX=cls.prefix)

    @classmethod
    def setUpClass(cls):
        cls.choose_prefix()
        WORK.mkdir(parents=True, exist_ok=True)
        map_ports()
        register()

    @classmethod
    def tearDownClass(cls):
        stop_wine()

    def setUp(self):
        self.folder = WORK / self.id().rpartition("__main__.")[2]
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)

    def printer(self, port=7, name="printer", options=(), line="pty"):
        printer = Printer(self.folder, port, name, options, line)
        self.addCleanup(printer.close)
        return printer

    def start_host(self, command, timeout=240, cwd=None, **arguments):
        """Of many script hosts that start at once under Wine, one in fifty ends with 0 and without a
        look at its script, whatever that says. Each script here prints something."""
        for _ in range(3):
            code, output = wine(*command, cwd=cwd or self.folder, timeout=timeout, **arguments)
            if output or code != 0:
                break
        return Said(output), code

    def run_script(self, text, port=7, name="host.vbs", **arguments):
        """Runs VBScript as a host's file would be: Windows-1252, CR LF. It must reach its end and find
        what it expects.

        The number of the port stands for "<port>" in the script.
        """
        end = f'ExpectError "the end", 0\nWScript.Echo "{SENTINEL}"\n'
        whole = f"{PRELUDE}{text}\n{end}".replace("<port>", str(port))
        (self.folder / name).write_bytes(whole.replace("\n", "\r\n").encode("cp1252"))
        said, _ = self.start_host(["cscript", "//nologo", name], **arguments)
        self.assertIn(SENTINEL, said.whole, "the script did not reach its end")
        self.assertNotRegex(said.whole, "(?m)^wrong ")
        return said

    def run_together(self, jobs):
        """Calls all functions at once and gives their results: a read of a port lasts a second."""
        with concurrent.futures.ThreadPoolExecutor(len(jobs)) as pool:
            running = [pool.submit(job) for job in jobs]
            return [one.result() for one in running]

    def write_settings(self, sections):
        """Writes ORV.ini into the host's folder."""
        lines = []
        for section, entries in sections.items():
            lines += [f"[{section}]", *(f"{key}={value}" for key, value in entries.items())]
        (self.folder / "ORV.ini").write_bytes("\r\n".join([*lines, ""]).encode("cp1252"))


def map_ports():
    """Each port is a link in the prefix to the link that a printer makes when it starts."""
    line_of(PORTS[0]).parent.mkdir(parents=True, exist_ok=True)
    devices = ROOT / "build" / ENVIRONMENT["CORVID_PREFIX"] / "dosdevices"
    lines = {devices / f"com{port}": line_of(port) for port in (*PORTS, HIGHEST_PORT)}
    if all(device.is_symlink() and device.readlink() == line for device, line in lines.items()):
        return
    pairs = [word for device, line in lines.items() for word in (device.name.upper(), str(line))]
    subprocess.run([ROOT / "scripts/wine", SYSTEM, "--map", *pairs], env=wine_environment(),
                   check=True)  # fmt: skip


def register(*options):
    code, output = wine("regsvr32", "/s", *options, windows_path(LIBRARY))
    assert code == 0, f"regsvr32 {options} failed: {code} {output}"


def wait_until(condition, seconds=30, describe=lambda: "a state"):
    """Waits for a state; fails with its description when it does not come about."""
    end = time.monotonic() + seconds
    while not condition():
        assert time.monotonic() < end, f"waited {seconds} s for {describe()}"
        time.sleep(0.05)


def main():
    """Runs the tests of the calling file; exit code 77 where this machine cannot."""
    reason = ROOT / "build/skipped-32-bit"
    if BITS == 32 and reason.exists():
        print(f"skipped: {reason.read_text().strip()}")
        sys.exit(SKIPPED)
    unittest.main(verbosity=2)
