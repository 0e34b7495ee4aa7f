"""The installer: what setup.nsi includes, from the rows of registration and the staged files."""

import os
import subprocess

import contents
import registry

LIST = "CorvidAPI-files.txt"
UNINSTALLER_SIZE = 128 << 10  # at least; the room is looked at before anything is written


def make(output, stage, groups, version, work, sign):
    """Makes the installer; `sign` is the shell's command that signs %1 in its place, or nothing."""
    work.mkdir(parents=True, exist_ok=True)
    (work / "rows_generated.nsh").write_text(_rows(groups), encoding="utf-8-sig")
    (work / "files_generated.nsh").write_text(_files(stage, work), encoding="utf-8-sig")
    size = sum((stage / name).stat().st_size for name in contents.files(stage))
    defines = {"VERSION": version, "OUTPUT": output, "SIZE": (size + UNINSTALLER_SIZE) >> 10}
    if sign:
        defines["SIGN"] = sign
    subprocess.run(
        ["makensis", "-V2", "-WX", "-NOCD", "-INPUTCHARSET", "UTF8",
         *(f"-D{name}={value}" for name, value in defines.items()),
         f"-X!addincludedir {contents.ROOT / 'packaging'}", f"-X!addincludedir {work}",
         contents.ROOT / "packaging/setup.nsi"], check=True)  # fmt: skip


def _quoted(text):
    return '"' + text.replace("$", "$$").replace('"', '$\\"') + '"'


def _written(row, bits):
    key = f"{row.bits} {_quoted(row.key)}"
    if row.text is None:
        return f"WRITE_KEY {key}"
    text = _quoted(row.text).replace(registry.LIBRARY, f"$Library{bits}")
    return f"WRITE_VALUE {key} {_quoted(row.name)} {text}"


def _taken(row):
    key = f"{row.bits} {_quoted(row.key)}"
    return f"TAKE_KEY {key}" if row.text is None else f"TAKE_VALUE {key} {_quoted(row.name)}"


def _macro(name, calls):
    return "\n".join([f"!macro {name}", *(f"  !insertmacro {call}" for call in calls), "!macroend"])


def _rows(groups):
    macros = [
        _macro(f"WRITE_ROWS_{bits}",
               [_written(row, bits) for one in groups for row in one.own[bits] + one.shared[bits]])
        for bits in (64, 32)]  # fmt: skip
    calls = []
    for number, one in enumerate(groups):
        keys = {bits: _quoted(row.key) for bits, row in one.files.items()}
        for bits, key in keys.items():
            name = f"TAKE_{number}_{bits}"
            macros.append(_macro(name, map(_taken, reversed(one.own[bits]))))
            calls.append(f"TAKE_OWN {bits} {key} {name}")
        shared = [row for bits in keys for row in one.shared[bits]]
        macros.append(_macro(f"TAKE_{number}", map(_taken, reversed(list(dict.fromkeys(shared))))))
        calls.append(f"TAKE_SHARED {keys[64]} {keys[32]} TAKE_{number}")
    first = groups[0].files
    defines = [f"!define FIRST_FILE_{bits} {_quoted(row.key)}" for bits, row in first.items()]
    return "\n".join([*defines, *macros, _macro("TAKE_ROWS", calls), ""])


def _windows(path):
    return str(path).replace("/", "\\")


def _files(stage, work):
    """Writes each file; the list that removal goes by comes first, so that a run that is cut off
    leaves nothing that is not listed."""
    names = contents.files(stage)
    places = [_windows(name) for name in names]
    places += [_windows(folder) + "\\" for folder in contents.folders(stage)]
    listing = work / LIST
    listing.write_bytes("".join(f"{place}\r\n" for place in places).encode("ascii"))
    os.utime(listing, (stage / names[0]).stat()[7:9])
    lines = ['SetOutPath "$Stage"', f'File "/oname={LIST}" "{listing}"']
    folder = None
    for name in names:
        if name.parent != folder:
            folder = name.parent
            lines.append(f'SetOutPath "{_windows("$Stage" / folder)}"')
        lines.append(f'File "{stage / name}"')
    return "\n".join(["!macro STAGE_FILES", *(f"  {line}" for line in lines), "!macroend", ""])
