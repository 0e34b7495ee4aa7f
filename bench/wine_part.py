"""Times the registered library under Wine, in a host of its own, against the simulated printer."""

import concurrent.futures
import os
import pathlib
import shutil
import statistics
import sys

from table import Row, row

ROOT = pathlib.Path(__file__).resolve().parent.parent
# A prefix of its own, so that the hosts of the tests may run in theirs.
PREFIX = "prefix64-bench"
sys.path.insert(0, str(ROOT / "tests/host"))
import harness  # noqa: E402
from screen import Screen  # noqa: E402

WORK = ROOT / "build/bench"
harness.PRINTER = ROOT / "build/native-release/simulator/corvid-printer"

HOST = harness.windows_path(ROOT / "build/windows-x64/corvid_bench_host.exe")
BAUD = 9600
BITS_PER_BYTE = 11
SECONDS_OF_A_READ = 1.0
SALES_ON = 5
SALES_OFF = 3
CALLS = 2000
LINES = 10000
BARE_SHARE = 5  # the bare calls get a part of the lines: nobody would wait for all


def run_host(folder, *arguments):
    """The figures that the host says: a list of values for each name."""
    code, output = harness.wine(HOST, *arguments, cwd=folder)
    assert code == 0, f"the host failed: {output}"
    figures = {}
    for line in output.splitlines():
        name, value = line.split()
        figures.setdefault(name, []).append(float(value))
    return figures


def prepare(name, immediate=True, timeout=10, traced=False, viewed=False):
    """A folder for one host, with its settings."""
    folder = WORK / name
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    lines = ["[Config\\ModComm]", f"LecturaInmediata={immediate}",
             "[Config\\NimbusPF]", f"TimeOut={timeout}", f"IsDebug={traced}",
             f"DebugInmediato={viewed}", "DEBUGFILE=trace.log", ""]  # fmt: skip
    (folder / "ORV.ini").write_bytes("\r\n".join(lines).encode())
    return folder


class Sale:
    """One sale, in seconds, and what stood on the wire after the opening's status request."""

    def __init__(self, name, port, **settings):
        folder = prepare(name, **settings)
        with harness.Printer(folder, port, "printer", ["--do", f"baud {BAUD}"]) as printer:
            self.seconds = run_host(folder, "sale", port)["seconds"][0]
            messages = printer.messages()
        assert messages[0] == (">", b"\x05") and messages[1][0] == "<", "no opening"
        self.sent = b"".join(data for way, data in messages[2:] if way == ">")
        self.answers = [data for way, data in messages[2:] if way == "<"]

    @property
    def wire_seconds(self):
        return self.wire_time(len(self.sent) + sum(map(len, self.answers)))

    @property
    def request_seconds(self):
        return self.wire_time(len(self.sent))

    @staticmethod
    def wire_time(count):
        return count * BITS_PER_BYTE / BAUD


def of_median(sales):
    return sorted(sales, key=lambda sale: sale.seconds)[len(sales) // 2]


def sales_off():
    """At the same time on ports of their own: they do little but wait."""
    with concurrent.futures.ThreadPoolExecutor() as pool:
        return list(pool.map(lambda port: Sale(f"off{port}", port, immediate=False),
                             harness.PORTS[:SALES_OFF]))


def sale_rows():
    on = of_median([Sale(f"on{i}", 7) for i in range(SALES_ON)])
    traced = of_median([Sale(f"traced{i}", 7, traced=True) for i in range(SALES_ON)])
    off = of_median(sales_off())
    reads = len(off.answers) * SECONDS_OF_A_READ
    what = f"for {len(off.answers)} reads"
    return [
        row("sale of 20 lines under Wine", on.seconds, on.wire_seconds, "on the wire", 1.10),
        row("the same, with the trace on", traced.seconds, traced.wire_seconds, "on the wire",
            1.10),
        row("the same, reads that wait out a second", off.seconds, reads, what),
        row("the same, without the requests' wire time", off.seconds - off.request_seconds, reads,
            what, 1.02),
    ]  # fmt: skip


def waiting_row(immediate, title):
    """The share of one processor that a host takes while nobody answers it."""
    folder = prepare(f"wait{immediate}", immediate, timeout=5)
    with harness.Printer(folder, 7, "printer", ["--do", "silent on"]):
        figures = run_host(folder, "wait", 7)
    processor, seconds = figures["processor"][0], figures["seconds"][0]
    share = processor / seconds
    return Row(f"waiting session{title}", f"{processor * 1e3:.0f} ms",
               f"{seconds:.2f} s of one core", share, "at most 0.03", share <= 0.03)  # fmt: skip


def call_row():
    figures = run_host(prepare("calls"), "calls", CALLS)
    late, early = (statistics.median(figures[kind]) * 1e-6 for kind in ("late", "early"))
    return row("one Invoke", late, early, "one early-bound call")


def lines_rows():
    figures = run_host(prepare("lines", traced=True, viewed=True), "lines", LINES)
    bare = figures["bare"][0] * BARE_SHARE
    what = f"bare rich edit, {LINES // BARE_SHARE:,} lines, times {BARE_SHARE}"
    return [
        row(f"{LINES:,} lines into a shown report", figures["report"][0], bare, what, 0.02),
        row(f"{LINES:,} trace lines into a shown view", figures["traced"][0], bare, what, 0.02),
    ]


def rows():
    WORK.mkdir(parents=True, exist_ok=True)
    with Screen() as screen:
        # From the prefix's first program on: what began without a screen stays without one.
        harness.ENVIRONMENT.update(screen.environment, CORVID_PREFIX=PREFIX)
        harness.map_ports()
        harness.register()
        try:
            return [*sale_rows(), waiting_row(True, ""), waiting_row(False, ", reads by the second"),
                    call_row(),
                    *lines_rows()]  # fmt: skip
        finally:
            harness.stop_wine()
