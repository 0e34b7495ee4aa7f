"""Registering and taking back: exact, repeatable, and without a trace."""

import functools
import operator
import re

import harness
from harness import HostTest, LIBRARY, ROOT, register, registry, windows_path

IDL = (ROOT / "src/com/corvid.idl").read_text(encoding="cp1252")
CLASS = re.compile(r"^ +CLASS\(([0-9a-f-]+), (\w+),", re.MULTILINE)
CLASSES = [*(name for _, name in CLASS.findall(IDL)), "lfQuickView"]
MACHINE = r"HKEY_LOCAL_MACHINE\Software\Classes"
USER = r"HKEY_CURRENT_USER\Software\Classes"

CREATION = """
On Error Resume Next
state = "none"
Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
number = Err.Number
state = printer.pfError
WScript.Echo "error=" & number
WScript.Echo "state=" & state
"""
CREATED = {"error": "0", "state": "0"}


class RegistrationTest(HostTest):
    def setUp(self):
        super().setUp()
        (self.folder / "create.vbs").write_text(CREATION, encoding="ascii")

    def rows(self, place):
        """Each key below a place, in small letters, and its values as they are exported."""
        file = self.folder / f"{place.partition(chr(92))[0]}.reg"
        file.unlink(missing_ok=True)
        code, _ = registry("export", place, windows_path(file), "/y")
        text = file.read_text(encoding="utf-16") if code == 0 else ""
        keys = re.split(r"^\[(.*)\]$", text, flags=re.MULTILINE)
        return {(place, key[len(place) + 1:].lower()): values.strip()
                for key, values in zip(keys[1::2], keys[2::2])}  # fmt: skip

    def all_rows(self, places=(MACHINE, USER)):
        found = self.run_together([lambda place=place: self.rows(place) for place in places])
        self.assertGreater(len(found[0]), 100, "the registry was not exported")
        return functools.reduce(operator.or_, found)

    def creation(self, folder=""):
        """What a script host in a folder says of CREATION."""
        host = f"{folder}\\cscript.exe" if folder else "cscript"
        said, _ = self.start_host([host, "//nologo", "create.vbs"])
        self.assertIn("error", said, said.whole)
        return dict(said)


def added(before, now):
    """The rows that came to be or changed; none of those before may have gone."""
    assert before.keys() <= now.keys(), before.keys() - now.keys()
    return {key: values for key, values in now.items() if before.get(key) != values}


class Registration(RegistrationTest):
    def setUp(self):
        super().setUp()
        self.creation()  # the script host registers itself
        register("/u")
        self.before = self.all_rows()
        self.addCleanup(register)

    def test_taking_back_leaves_no_key(self):
        register()
        registered = self.all_rows()
        register()
        self.assertEqual(self.all_rows(), registered, "registering twice changes something")
        self.assertIn("PrinterFiscal", CLASSES)
        rows = added(self.before, registered)
        for name in CLASSES:
            self.assertIn((MACHINE, f"printerfiscalcorvid.{name.lower()}"), rows)
        server = windows_path(LIBRARY).replace("\\", "\\\\")
        server = f'@="{server}"\n"ThreadingModel"="Apartment"'
        self.assertEqual(list(rows.values()).count(server), len(CLASSES))
        register("/u")
        self.assertEqual(self.all_rows(), self.before)
        register("/u")
        self.assertEqual(self.all_rows(), self.before, "taking back twice changes something")


if __name__ == "__main__":
    harness.main()
