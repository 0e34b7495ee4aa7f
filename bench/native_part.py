"""Runs the native benchmarks and turns their medians into rows."""

import json
import os
import subprocess

from table import Row, row, time_text

UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}
OPTIONS = [
    "--benchmark_format=json",
    "--benchmark_repetitions=9",
    "--benchmark_min_time=0.05",
    "--benchmark_report_aggregates_only=true",
    # Two figures of one ratio are taken in turns, so that a busy moment meets both.
    "--benchmark_enable_random_interleaving=true",
]
RECORDS = [
    "PrinterResponse1", "PrinterResponse2", "PrinterResponse3", "PrinterResponse4",
    "EstadoDocumento", "ResumenZ", "ReporteZMF",
]  # fmt: skip
LINES = [1000, 10000, 100000]
ALL_LINES = 100000
# Memory that the program has had stays its own: the kernel's supply of new pages is not measured.
MEMORY = {"MALLOC_MMAP_THRESHOLD_": "1073741824", "MALLOC_TRIM_THRESHOLD_": "1073741824"}


class Figures:
    """Medians by name, and the linear fits of those that were run over several sizes."""

    def __init__(self, report):
        runs = report["benchmarks"]
        self.medians = {
            run["run_name"].partition("/iterations")[0]: run
            for run in runs if run.get("aggregate_name") == "median"
        }  # fmt: skip
        self.fits = {run["run_name"]: run for run in runs if run.get("aggregate_name") == "RMS"}

    def seconds(self, name):
        """Processor time of one run; these programs never wait."""
        run = self.medians[name]
        return run["cpu_time"] * UNITS[run["time_unit"]]

    def counter(self, name, counter):
        return self.medians[name][counter]

    def beside_wire(self, title, name):
        return row(title, self.seconds(name), self.counter(name, "wire"), "on the wire")

    def beside_standard(self, title, name, what, size="", most=None):
        beside = self.seconds(f"{name}/std{size}")
        return row(title, self.seconds(name + size), beside, what, most)


def sale_rows(figures):
    off, on, timer, ticks = (
        {name: figures.counter(sale, name) for name in ("simulated", "wire", "requests", "reads")}
        for sale in ("sale/off", "sale/on", "sale/timer", "sale/ticks")
    )
    reads = off["reads"]
    return [
        row("sale of 20 lines, simulated clock", on["simulated"], on["wire"], "on the wire", 1.05),
        row("the same, ticks of 15.6 ms and a timer", timer["simulated"], timer["wire"],
            "on the wire", 1.10),
        row("the same, bare ticks of 15.6 ms", ticks["simulated"], ticks["wire"], "on the wire",
            1.35),
        row("the same, reads that wait out a second", off["simulated"], reads, f"for {reads:.0f} reads"),
        row("the same, without the requests' wire time", off["simulated"] - off["requests"], reads,
            f"for {reads:.0f} reads", 1.02),
    ]  # fmt: skip


def buffer_rows(figures):
    rows = [
        figures.beside_standard(f"100,000 lines appended, texts of {count:,}", "buffer/append",
                                "std::wstring", f"/{count}", 1.5 if count == LINES[-1] else None)
        for count in LINES
    ]  # fmt: skip
    short, long = (figures.seconds(f"buffer/append/{count}") / ALL_LINES for count in LINES[::2])
    rows.append(Row(f"one line in a text of {LINES[-1]:,}", time_text(long),
                    f"{time_text(short)} in one of {LINES[0]:,}", long / short, "0.80 to 1.20",
                    0.8 <= long / short <= 1.2))  # fmt: skip
    fit = figures.fits["buffer/append"]["rms"]
    rows.append(Row("complexity of a line: a constant, within", f"{fit:.1%}", "a perfect fit", fit))
    rows += [
        figures.beside_standard(f"CStringBuffer, {title}", f"buffer/{name}", "std::wstring")
        for name, title in (("insert", "insert 100 lines among 1,000"),
                            ("remove", "remove 100 lines of 1,000"),
                            ("replace", "replace 1,000 words, and back"))
    ]  # fmt: skip
    return rows


def other_rows(figures):
    rows = [
        figures.beside_wire("framing of a command", "framing"),
        figures.beside_wire("escape of a command", "escape"),
        figures.beside_wire("exchange over a line in memory", "exchange"),
        figures.beside_wire("the same, with the trace on", "exchange/traced"),
    ]
    rows += [figures.beside_wire(f"parsing {name}", f"record/{name}") for name in RECORDS]
    rows += [
        figures.beside_standard("fixed-width amount", "format/amount", "swprintf"),
        figures.beside_standard("amount by pattern", "format/pattern", "swprintf"),
        figures.beside_standard("date by pattern", "format/date", "swprintf"),
        figures.beside_wire("word wrap of an address", "wrap"),
    ]
    return rows


def report_rows(figures):
    return [
        figures.beside_standard("report, add 100,000 lines", "report/add", "std::wstring"),
        figures.beside_standard("report, search 100,000 lines", "report/search", "std::wstring"),
    ]


def rows(program):
    output = subprocess.run([program, *OPTIONS], check=True, stdout=subprocess.PIPE,
                            env={**os.environ, **MEMORY}).stdout  # fmt: skip
    figures = Figures(json.loads(output))
    return [*sale_rows(figures), *other_rows(figures), *buffer_rows(figures), *report_rows(figures)]
