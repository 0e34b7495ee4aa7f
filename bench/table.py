"""The rows of the table of figures, and how numbers look in it."""

import dataclasses


def time_text(seconds):
    for unit, size in (("s", 1), ("ms", 1e-3), ("us", 1e-6)):
        if seconds >= size:
            return f"{seconds / size:.3g} {unit}"
    return f"{seconds / 1e-9:.3g} ns"


@dataclasses.dataclass
class Row:
    """One figure: what was measured, what stands beside it, and their ratio."""

    name: str
    figure: str
    beside: str
    ratio: float
    limit: str = ""
    reached: bool | None = None

    def cells(self):
        ratio = f"{self.ratio:.3f}" if self.ratio >= 0.01 else f"{self.ratio:.1e}"
        reached = {None: "", True: "yes", False: "NO"}[self.reached]
        return [self.name, self.figure, self.beside, ratio, self.limit, reached]


def row(name, seconds, beside, what, most=None):
    """A time beside another one, which its ratio may exceed `most` times."""
    ratio = seconds / beside
    limit = "" if most is None else f"at most {most:.2f}"
    reached = None if most is None else ratio <= most
    return Row(name, time_text(seconds), f"{time_text(beside)} {what}", ratio, limit, reached)


def print_table(rows):
    """As Markdown that can also be read as it stands."""
    lines = [["figure", "median", "beside", "ratio", "limit", "reached"]]
    lines += [one.cells() for one in rows]
    widths = [max(len(line[i]) for line in lines) for i in range(len(lines[0]))]
    lines.insert(1, ["-" * width for width in widths])
    for line in lines:
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(line, widths)) + " |")
