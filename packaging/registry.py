"""What registration writes, as the library's own code tells it (registry_rows.cpp)."""

from typing import NamedTuple, Optional

LIBRARY = "<file>"  # stands for the library's path in the texts
OTHER = {64: 32, 32: 64}


class Row(NamedTuple):
    """One value below the tree of classes, in the view of a bitness."""

    bits: int
    key: str
    name: str  # "": the key's default value
    text: Optional[str]  # None: a key without any value


class Group(NamedTuple):
    """The rows of one class or of the type library; see com/registry_entries.h.

    Each holds the rows for the library of one bitness, by its bits.
    """

    own: dict
    shared: dict
    files: dict  # the row that names the library's file, without a text


def read_groups(output):
    """The groups in what the 64-bit registry_rows printed, in the order of writing."""
    groups = {}
    for line in output.splitlines():
        number, kind, view, key, *value = line.split("\t")
        name, separator, text = "".join(value).partition("=")
        row = Row(64 if view == "own" else 32, key, name, text if separator else None)
        groups.setdefault(int(number), {}).setdefault(kind, []).append(row)
    found = [_both(rows["own"], rows["shared"], rows["file"]) for rows in groups.values()]
    if len(found) < 2:
        raise ValueError(f"registry_rows printed too little: {output!r}")
    return found


def _both(own, shared, files):
    """A group for both bitnesses: views change places, and so do the keys that name files."""
    keys = {files[0].key: files[1].key}
    mirrored = [_mirrored(row)._replace(key=keys.get(row.key, row.key)) for row in own]
    return Group(
        own={64: own, 32: mirrored},
        shared={64: shared, 32: [_mirrored(row) for row in shared]},
        files={64: files[0], 32: files[1]._replace(bits=32)},
    )


def _mirrored(row):
    return row._replace(bits=OTHER[row.bits])
