"""Registering and taking back: exact, repeatable, and without a trace."""

import re

import harness
from harness import HostTest, LIBRARY, ROOT, register, registry, windows_path

IDL = (ROOT / "src/com/corvid.idl").read_text(encoding="utf-8")
COCLASS = re.compile(r"^ +(\[[^\]]*\])\s+coclass (\w+)", re.MULTILINE)
CLASSES = [name for attributes, name in COCLASS.findall(IDL) if "noncreatable" not in attributes]
PLACES = (r"HKLM\Software\Classes", r"HKCU\Software\Classes")


class Registration(HostTest):
    def exported(self):
        """Everything below the classes' keys, as one text for each place."""
        texts = []
        for number, place in enumerate(PLACES):
            file = self.folder / f"{number}.reg"
            file.unlink(missing_ok=True)
            code, _ = registry("export", place, windows_path(file), "/y")
            texts.append(file.read_text(encoding="utf-16") if code == 0 else "")
        self.assertGreater(len(texts[0]), 10000, "the registry was not exported")
        return texts

    def test_taking_back_leaves_no_key(self):
        register("/u")
        before = self.exported()
        register()
        registered = self.exported()
        register()
        self.assertEqual(self.exported(), registered, "registering twice changes something")
        added = "".join(registered).replace("\\\\", "\\")
        self.assertIn("PrinterFiscal", CLASSES)
        for name in CLASSES:
            self.assertIn(f"PrinterFiscalCorvid.{name}", added)
        self.assertEqual(added.count(f'@="{windows_path(LIBRARY)}"\n"ThreadingModel"="Apartment"'),
                         len(CLASSES))  # fmt: skip
        register("/u")
        self.assertEqual(self.exported(), before)
        register("/u")
        self.assertEqual(self.exported(), before, "taking back twice changes something")


if __name__ == "__main__":
    harness.main()
