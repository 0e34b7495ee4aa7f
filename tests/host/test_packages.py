"""The packages: installed, used in both bitnesses, upgraded, refused, and removed without a trace.

    CORVID_BITS=32 python3 tests/host/test_packages.py

They are made by scripts/package from what the trees hold, once as they are and once signed and with
a lower version. All of it happens in a prefix of both bitnesses.
"""

import contextlib
import functools
import os
import re
import shutil
import subprocess
import unittest
import zipfile

import harness
from harness import BITS, BUILT, HostTest, PORTS, ROOT, TREES, WORK, wait_until, windows_path, wine
from screen import Screen
from test_examples import SALE
from test_registration import CREATED, CREATION, added
from test_side_by_side import PROGRAMS

NEW, OLD = "1.2.3", "1.2.2"
PACKAGES = WORK / "packages"
SIGNED = WORK / "packages-signed"
KEYS = WORK / "packages-keys"
FOLDERS = {64: "x64", 32: "x86"}
ENTRY = r"software\microsoft\windows\currentversion\uninstall\corvidapi"
SPANISH, ENGLISH = "es_VE.UTF-8", "C.UTF-8"
# The window's title, and a text on each page, of the setup and of the uninstaller.
PAGES = {
    SPANISH: [("Instalación de CorvidAPI ", {
        "users": "¿Quién usará la biblioteca?",
        "folder": "Elija el directorio para instalar CorvidAPI.",
        "progress": "La instalación se ha completado correctamente.",
        "end": "Abrir la carpeta con guías, ejemplos y simulador",
    }), ("Desinstalación de CorvidAPI ", {
        "removal": "Elimina CorvidAPI de su sistema.",
        "removed": "La desinstalación se ha completado correctamente.",
    })],
    ENGLISH: [("CorvidAPI Setup ", {
        "users": "Who is going to use the library?",
        "folder": "Choose the folder in which to install CorvidAPI.",
        "progress": "Setup was completed successfully.",
        "end": "Open the folder with guides, examples and simulator",
    }), ("CorvidAPI Uninstall ", {
        "removal": "Remove CorvidAPI from your computer.",
        "removed": "Uninstall was completed successfully.",
    })],
}  # fmt: skip
OK, WRITE_FAULT, BUSY, DISK_FULL, NO_REGISTRY, RUNNING, OTHER_VERSION = (
    0, 29, 32, 112, 1013, 1618, 1638)  # fmt: skip
REGISTRY = ("system.reg", "user.reg")
PATIENCE = 180  # seconds, since others may use the machine
# Empty places of the system's own, which it gets with the first thing that is put there.
COMMON = re.compile(
    r"software\\microsoft\\windows\\currentversion\\uninstall$|software\\classes(\\\w+)?$|"
    r".*\\installer(\\(features|products|upgradecodes|userdata.*))?$|"
    r"users/\w+/AppData/Local/Programs$")
# The system notes its own fonts when a window is shown.
PROGRAMS_KEYS = re.compile(
    r"software\\(?!wine\b|(wow6432node\\)?microsoft\\windows[^\\]*\\currentversion\\fonts$)")
# Not what the system's installer keeps of its packages.
CLASSES = re.compile(r"software\\(classes\\(?!installer\b)|wow6432node\\)")
# What comes and goes whether anything is installed or not.
PASSING = re.compile(
    r"windows/temp/|users/[^/]+/(AppData/Local/Temp|Temp)/|windows/Installer/?$|\.lock$")
HOST = """
Set printer = CreateObject("PrinterFiscalCorvid.PrinterFiscal")
MsgBox "The library is loaded.", 0, "Host"
"""
LAST_SERVER = re.compile(
    r"(^\[Software\\\\Classes\\\\CLSID\\\\\{7253da5e-8c84-4712-9a40-49ccbeb53623\}"
    r"\\\\InprocServer32\] \d+\n)(?:.+\n)+", re.IGNORECASE | re.MULTILINE)  # fmt: skip


def call(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True,
                          text=True, **options)  # fmt: skip


def make_keys():
    """An authority and a certificate for code of its own, for this run alone."""
    shutil.rmtree(KEYS, ignore_errors=True)
    KEYS.mkdir(parents=True)
    extension = KEYS / "code.ext"
    extension.write_text("extendedKeyUsage=codeSigning\n")
    call("openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", 2, "-subj",
         "/CN=Test authority", "-keyout", KEYS / "ca.key", "-out", KEYS / "ca.pem")  # fmt: skip
    call("openssl", "req", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=Test owner",
         "-keyout", KEYS / "owner.key", "-out", KEYS / "owner.csr")  # fmt: skip
    call("openssl", "x509", "-req", "-days", 2, "-in", KEYS / "owner.csr", "-CA", KEYS / "ca.pem",
         "-CAkey", KEYS / "ca.key", "-CAcreateserial", "-extfile", extension,
         "-out", KEYS / "owner.pem")  # fmt: skip


def package(folder, version, *options):
    call(ROOT / "scripts/package", "--built", "--output", folder, "--version", version, *options)


def package_signed():
    package(SIGNED, OLD, "--certificates", KEYS / "owner.pem", "--key", KEYS / "owner.key",
            "--more-certificates", KEYS / "ca.pem")  # fmt: skip


def setup_of(version):
    return {NEW: PACKAGES, OLD: SIGNED}[version] / f"CorvidAPI-{version}-setup.exe"


def msi_of(version):
    return {NEW: PACKAGES, OLD: SIGNED}[version] / f"CorvidAPI-{version}.msi"


class PackageTest(HostTest):
    system = "both"
    prefix = "prefixboth-packages"

    @classmethod
    def setUpClass(cls):
        cls.screen = cls.enterClassContext(Screen())
        cls.environment = cls.screen.environment
        cls.choose_prefix()
        WORK.mkdir(parents=True, exist_ok=True)
        cls.drive = ROOT / "build" / cls.prefix / "drive_c"
        # An earlier run that was cut off may have left anything.
        harness.stop_wine()
        shutil.rmtree(cls.drive.parent, ignore_errors=True)
        harness.map_ports()
        key = r"HKCU\Software\Wine\X11 Driver"
        assert harness.registry("add", key, "/v", "Managed", "/d", "N", "/f")[0] == 0
        for folder in PROGRAMS.values():  # they register themselves
            wine(f"{folder}\\cscript.exe", "//nologo", "none.vbs")

    def setUp(self):
        super().setUp()
        (self.folder / "create.vbs").write_text(CREATION, encoding="ascii")
        self.before = self.state()
        registry = {name: (self.drive.parent / name).read_bytes() for name in REGISTRY}
        self.addCleanup(self.restore, registry)

    def restore(self, registry):
        harness.stop_wine()
        for name, content in registry.items():
            (self.drive.parent / name).write_bytes(content)
        for kind, place in self.state().keys() - self.before.keys():
            path = self.drive / place
            if kind == "file" and path.is_dir():
                shutil.rmtree(path)
            elif kind == "file" and path.exists():
                path.unlink()

    # ---- what the system holds

    def state(self):
        """Every file of the drive with its size, and every key of the registry with its values."""
        harness.stop_wine()  # which writes the registry
        found = {}
        for path in self.drive.rglob("*"):
            place = path.relative_to(self.drive).as_posix()
            if not PASSING.search(place + ("/" if path.is_dir() else "")):
                found["file", place] = path.stat().st_size if path.is_file() else "folder"
        for name in REGISTRY:
            text = (self.drive.parent / name).read_text(encoding="utf-8", errors="replace")
            text = text.replace("\\\n  ", "")  # long values go over several lines
            parts = re.split(r"^\[(.+?)\] \d+$", text, flags=re.MULTILINE)
            for key, values in zip(parts[1::2], parts[2::2]):
                lines = [line for line in values.splitlines() if line]
                kept = [line for line in lines if not line.startswith("#time")]
                path = key.replace(r"\\", "\\").lower()
                found[name, path] = "\n".join(sorted(kept))
                # A key with others below it is left out where it has no value.
                while path := path.rpartition("\\")[0]:
                    found.setdefault((name, path), "")
        self.assertGreater(len(found), 1000, "the state was not read")
        return {key: value for key, value in found.items()
                if key[0] == "file" or PROGRAMS_KEYS.match(key[1])}  # fmt: skip

    def values(self, state, file, key):
        return dict(re.findall(r'^(?:"(.*?)"|@)=(.*)$', state[file, key], re.MULTILINE))

    def rows(self, state, folder, file="system.reg"):
        """What registration added to the tree of classes, with <64> and <32> for the libraries."""
        found = {}
        for (kind, key), text in added(self.before, state).items():
            if kind == file and CLASSES.match(key):
                for bits, name in FOLDERS.items():
                    library = f"{folder}\\{name}\\CorvidAPI.dll".replace("\\", "\\\\")
                    text = text.replace(f'"{library}"', f"<{bits}>")
                found[key] = text
        return found

    def assert_as_before(self):
        empty = ("", "folder")
        left = {key: value for key, value in self.state().items() if key in self.before
                or value not in empty or not COMMON.match(key[1])}  # fmt: skip
        self.assert_same(left, self.before)

    def assert_same(self, state, expected):
        differing = {key: (expected.get(key), state.get(key))
                     for key in expected.keys() | state.keys()
                     if expected.get(key) != state.get(key)}  # fmt: skip
        self.assertEqual(differing, {})

    # ---- what is done to it

    def unix_path(self, path):
        return self.drive / path.removeprefix("C:\\").replace("\\", "/")

    def run_logged(self, program, *options, code, locale=ENGLISH, last=()):
        """Runs the setup or the uninstaller silently; gives its words."""
        log = self.folder / "setup.log"
        log.unlink(missing_ok=True)
        wine(program, "/S", f"/LOG={windows_path(log)}", *options, *last, locale=locale)
        # An uninstaller goes on by itself, as a copy.
        wait_until(lambda: log.exists() and log.read_bytes().endswith(b"\n\0"), PATIENCE,
                   lambda: log)  # fmt: skip
        said, _, words = log.read_text(encoding="utf-16").strip().partition(" ")
        self.assertEqual(int(said), code, words)
        return words

    def install(self, version, *options, code=OK, **arguments):
        return self.run_logged(setup_of(version), *options, code=code, **arguments)

    def entry(self, state, file="system.reg"):
        return {name: re.sub(r'^"|"$', "", value).replace(r"\\", "\\").replace('\\"', '"')
                for name, value in self.values(state, file, ENTRY).items()}  # fmt: skip

    def remove(self, entry, **arguments):
        program = re.fullmatch(r'"(.*)" /S', entry["QuietUninstallString"])[1]
        return self.run_logged(program, **{"code": OK, **arguments})

    def register(self, bits, library, *options):
        code, output = wine(f"{PROGRAMS[bits]}\\regsvr32.exe", "/s", *options, library)
        self.assertEqual(code, 0, output)

    def msiexec(self, *options):
        return wine("msiexec", *options, "/qn")[0]

    # ---- what it serves

    def creations(self):
        """The bitnesses in which a script creates an object by its ProgID."""
        def create(bits):
            host = f"{PROGRAMS[bits]}\\cscript.exe"
            return dict(self.start_host([host, "//nologo", "create.vbs"])[0])

        said = self.run_together([functools.partial(create, bits) for bits in TREES])
        return {bits for bits, one in zip(TREES, said) if one == CREATED}

    def sell(self, port, name, command, **arguments):
        with self.printer(port, name) as printer:
            said, code = self.start_host([*command, port], **arguments)
            self.assertEqual(code, 0, said.whole)
            commands = [command.decode("cp1252") for command in printer.commands()]
            self.assertEqual([c for c in commands if c not in ("S1", "S3")], SALE, said.whole)

    def sell_in_both(self, folder):
        """The installed scripts sell in both bitnesses, and so do the compiled hosts."""
        hosts = []
        for bits, tree in TREES.items():
            for script in ("sale.vbs", "sale.js"):
                host = f"{PROGRAMS[bits]}\\cscript.exe"
                hosts.append([host, "//nologo", f"{folder}\\examples\\{script}"])
            hosts += [[tree / f"{name}.exe"] for name in ("early_bound_sale", "early_bound_sale_c")]
        self.run_together([
            functools.partial(self.sell, port, f"host{port}", host)
            for port, host in zip(PORTS, hosts, strict=True)
        ])  # fmt: skip


@unittest.skipIf(BITS == 64, "runs with the tests in 32 bits")
class Packages(PackageTest):
    @classmethod
    def setUpClass(cls):
        make_keys()
        package(PACKAGES, NEW)
        package_signed()
        super().setUpClass()

    def rows_by_hand(self, *options, file="system.reg"):
        """What the library itself writes, in both bitnesses."""
        hand = self.drive / "hand"
        for bits, name in FOLDERS.items():
            (hand / name).mkdir(parents=True)
            shutil.copy(TREES[bits] / "CorvidAPI.dll", hand / name)
            self.register(bits, f"C:\\hand\\{name}\\CorvidAPI.dll", *options)
        rows = self.rows(self.state(), r"C:\hand", file)
        for bits, name in FOLDERS.items():
            self.register(bits, f"C:\\hand\\{name}\\CorvidAPI.dll", "/u", *options)
        shutil.rmtree(hand)
        return rows

    def test_setup_serves_both_bitnesses_and_goes_without_a_trace(self):
        by_hand = self.rows_by_hand()
        self.assertEqual(sum("<64>" in text for text in by_hand.values()), 11)
        self.install(NEW)
        state = self.state()
        entry = self.entry(state)
        folder = entry.pop("InstallLocation")
        self.assertEqual(folder, rf"C:\Program Files\CorvidAPI\{NEW}")
        uninstaller = f"{folder}\\uninstall.exe"
        size = int(entry.pop("EstimatedSize").removeprefix("dword:"), 16)
        installed = sum(f.stat().st_size for f in self.unix_path(folder).rglob("*") if f.is_file())
        self.assertAlmostEqual(size, installed >> 10, delta=128)
        self.assertEqual(entry, {
            "DisplayName": "CorvidAPI", "DisplayVersion": NEW,
            "Publisher": "The CorvidAPI developers", "DisplayIcon": uninstaller,
            "UninstallString": f'"{uninstaller}"', "QuietUninstallString": f'"{uninstaller}" /S',
            "NoModify": "dword:00000001", "NoRepair": "dword:00000001",
        })  # fmt: skip
        self.assert_same(self.rows(state, folder), by_hand)
        self.sell_in_both(folder)
        printer = f"{folder}\\simulator\\corvid-printer.exe"
        self.assertIn("unknown option --nonsense", wine(printer, "--nonsense")[1])
        self.assertEqual(wine(f"{folder}\\x86\\corvid-diagnostico.exe", "--simulado")[0], 0)
        self.remove({"QuietUninstallString": f'"{uninstaller}" /S'})
        self.assert_as_before()

    def test_setup_for_one_user_leaves_the_machine_alone(self):
        by_hand = self.rows_by_hand("/n", "/i:user", file="user.reg")
        self.install(NEW, "/CurrentUser")
        state = self.state()
        entry = self.entry(state, "user.reg")
        self.assertIn("\\AppData\\Local\\Programs\\CorvidAPI\\", entry["InstallLocation"])
        self.assert_same(self.rows(state, entry["InstallLocation"], "user.reg"), by_hand)
        self.assertEqual({key for key, _ in added(self.before, state)}, {"file", "user.reg"})
        self.remove(entry)
        self.assert_as_before()

    def test_an_upgrade_keeps_settings_and_what_is_not_its_own(self):
        self.install(OLD)
        old = self.entry(self.state())["InstallLocation"]
        for name in ("ORV.ini", "notes.txt"):
            (self.unix_path(old) / "examples" / name).write_text("of the user")
        self.install(NEW)
        state = self.state()
        new = self.entry(state)["InstallLocation"]
        files = {place for kind, place in added(self.before, state) if kind == "file"}
        self.assertEqual({f for f in files if f"/{OLD}/" in f},
                         {f"Program Files/CorvidAPI/{OLD}/examples/notes.txt",
                          f"Program Files/CorvidAPI/{OLD}/examples"})  # fmt: skip
        self.assertTrue((self.unix_path(new) / "examples/ORV.ini").exists())
        self.sell_in_both(new)
        words = self.install(OLD, code=OTHER_VERSION)
        self.assertIn(f"Version {NEW} is installed", words)
        self.assert_same(self.state(), state)
        self.install(NEW)  # the same again repairs
        entry = self.entry(self.state())
        self.assertEqual(entry["InstallLocation"], f"{new}-2")
        self.remove(entry)
        left = {path.relative_to(self.unix_path(r"C:\Program Files\CorvidAPI")).as_posix()
                for path in self.unix_path(r"C:\Program Files\CorvidAPI").rglob("*.*")
                if path.is_file()}  # fmt: skip
        self.assertEqual(left, {f"{OLD}/examples/notes.txt", f"{NEW}-2/examples/ORV.ini"})

    def test_copies_that_were_registered_by_hand(self):
        hand = self.drive / "hand"
        for bits, name in FOLDERS.items():
            (hand / name).mkdir(parents=True)
            shutil.copy(TREES[bits] / "CorvidAPI.dll", hand / name)
            self.register(bits, f"C:\\hand\\{name}\\CorvidAPI.dll")
        copied = {key: text for key, text in added(self.before, self.state()).items()
                  if key[0] == "file"}  # fmt: skip
        self.install(NEW)
        state = self.state()
        entry = self.entry(state)
        rows = self.rows(state, entry["InstallLocation"])
        self.assertEqual(sum("<64>" in text or "<32>" in text for text in rows.values()), 22)
        # The 64-bit copy is registered again: removal has to leave it what it needs.
        self.register(64, r"C:\hand\x64\CorvidAPI.dll")
        self.remove(entry)
        self.assertEqual(self.creations(), {64})
        self.register(64, r"C:\hand\x64\CorvidAPI.dll", "/u")
        self.assert_same(self.state(), {**self.before, **copied})

    def test_pages_lead_through_in_both_languages(self):
        for locale, ((title, pages), (removal_title, removal_pages)) in PAGES.items():
            with self.subTest(locale=locale):
                self.walk_through(locale, title, pages, setup_of(NEW))
                entry = self.entry(self.state())
                self.assertEqual(entry["DisplayVersion"], NEW)
                uninstaller = entry["UninstallString"].strip('"')
                self.walk_through(locale, removal_title, removal_pages, uninstaller)
                self.assert_as_before()

    def walk_through(self, locale, title, pages, program):
        """Takes what each page proposes; pictures of them lie in the test's folder."""
        with self.running(title, program, locale=locale):
            for page, text in pages.items():
                wait_until(lambda text=text: text in self.texts(title), PATIENCE, lambda: text)
                self.screen.focus(self.screen.find_window(title))
                self.screen.screenshot(self.folder / f"{locale}-{page}.png")
                self.screen.key("Return")
            self.screen.wait_for_no_window(title, PATIENCE)

    def texts(self, title):
        """What stands in a window; nothing where there is none."""
        lines = wine(BUILT / "window_reader.exe", title)[1].splitlines()
        return [line.split("|", 7)[-1] for line in lines]

    # ---- what goes wrong

    @contextlib.contextmanager
    def running(self, title, *command, locale=ENGLISH):
        """A program that shows a window; everything in the prefix ends with it."""
        process, window = self.started(title, command, locale)
        try:
            yield window
        finally:
            harness.stop_wine()
            process.wait()

    def started(self, title, command, locale):
        """Of programs that start under Wine on a busy machine, a rare one ends without a look."""
        for attempt in (1, 2, 3):
            process = subprocess.Popen(
                [ROOT / "scripts/wine", "both", *command], cwd=self.folder,
                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                env={**harness.wine_environment(), "LC_ALL": locale})  # fmt: skip
            try:
                return process, self.screen.find_window(title, PATIENCE / 3)
            except AssertionError:
                harness.stop_wine()
                process.wait()
                if attempt == 3:
                    raise

    def while_host_runs(self, action):
        """A host that has the installed 32-bit library loaded, for as long as its box is there."""
        (self.folder / "host.vbs").write_text(HOST, encoding="ascii")
        with self.running("Host", f"{PROGRAMS[32]}\\wscript.exe", "host.vbs"):
            return action()

    def while_setup_runs(self, action):
        with self.running("CorvidAPI Setup ", setup_of(NEW)):
            return action()

    def with_unwritable_key(self, action):
        """Among the last keys to be written is a link that leads nowhere."""
        harness.stop_wine()
        file = self.drive.parent / "system.reg"
        kept = file.read_text(encoding="utf-8")
        target = "\\Registry\\Machine\\Nowhere\\Key".encode("utf-16-le").hex(",")
        link = f'#link\n"SymbolicLinkValue"=hex(6):{target}\n'
        broken, count = LAST_SERVER.subn(lambda found: found[1] + link, kept)
        self.assertEqual(count, 1)
        file.write_text(broken, encoding="utf-8")
        before = self.state()
        said = action()
        self.assert_same(self.state(), before)
        file.write_text(kept, encoding="utf-8")
        return said

    def test_a_failure_leaves_the_old_installation_as_it_was(self):
        self.install(OLD, last=[r"/D=C:\Corvid"])
        state = self.state()
        entry = self.entry(state)
        busy = entry["InstallLocation"] + r"\x86\CorvidAPI.dll"
        upgrade = functools.partial(self.install, NEW)
        # The folder in use is a bad choice, but no reason to lose it.
        inside = functools.partial(self.install, NEW, last=[f"/D={entry['InstallLocation']}"])
        remove = functools.partial(self.remove, entry)
        cases = [
            (self.while_host_runs, upgrade, BUSY, SPANISH, f"usando CorvidAPI.*{re.escape(busy)}"),
            (self.while_host_runs, remove, BUSY, ENGLISH, f"using CorvidAPI.*{re.escape(busy)}"),
            (self.while_setup_runs, upgrade, RUNNING, SPANISH, "está en curso"),
            (self.with_unwritable_key, inside, NO_REGISTRY, SPANISH, "registro de Windows"),
        ]  # fmt: skip
        for around, action, code, locale, words in cases:
            with self.subTest(around=around.__name__, code=code):
                said = around(lambda: action(code=code, locale=locale))
                self.assertRegex(said, words)
                self.assert_same(self.state(), state)
        self.assertEqual(self.creations(), {64, 32})

    @unittest.skipUnless(os.geteuid() == 0, "only root may mount a disk")
    def test_a_full_disk_leaves_the_old_installation_as_it_was(self):
        self.install(OLD)
        state = self.state()
        # The second one shows enough room, and refuses its fifteenth file.
        for disk, code, words in [("size=1m", DISK_FULL, "There is not enough room"),
                                  ("nr_inodes=15", WRITE_FAULT, "The files could not be written")]:
            with self.subTest(disk=disk):
                said, left = self.install_on_disk(disk)
                self.assertIn(f"{code} {words}", said)
                self.assertEqual(left, "")
                self.assert_same(self.state(), state)

    def install_on_disk(self, options):
        """The words of the setup, and what it left on a disk that is there for this run alone."""
        log = self.folder / "setup.log"
        wine_command = ROOT / "scripts/wine"
        # Wine's server opens the files; it ends before the disk does.
        done = subprocess.run(
            ["unshare", "--mount", "--propagation", "private", "sh", "-ec",
             f'mount -t tmpfs -o {options} none /dev/shm; "$@" >/dev/null 2>&1 || true; '
             'ls -A /dev/shm; "$0" both --stop >/dev/null 2>&1',
             wine_command, wine_command, "both", setup_of(NEW), "/S",
             f"/LOG={windows_path(log)}", r"/D=Z:\dev\shm\CorvidAPI"],
            env=harness.wine_environment(), stdin=subprocess.DEVNULL, capture_output=True,
            check=True, text=True)  # fmt: skip
        return log.read_text(encoding="utf-16"), done.stdout

    # ---- the other packages

    def test_msi_serves_both_bitnesses_and_goes_without_a_trace(self):
        by_hand = self.rows_by_hand()
        folder = r"C:\Program Files\CorvidAPI"
        self.assertEqual(self.msiexec("/i", windows_path(msi_of(OLD))), 0)
        self.assertEqual(self.msiexec("/i", windows_path(msi_of(NEW))), 0)
        state = self.state()
        self.assert_same(self.rows(state, folder), by_hand)
        shown = [values for (_, key), values in added(self.before, state).items()
                 if "\\uninstall\\" in key and "CorvidAPI" in (values or "")]  # fmt: skip
        self.assertEqual(len(shown), 1, shown)
        self.assertIn(f'"DisplayVersion"="{NEW}"', shown[0])
        self.sell_in_both(folder)
        self.assertNotEqual(self.msiexec("/i", windows_path(msi_of(OLD))), 0)
        words = self.install(NEW, code=OTHER_VERSION)
        self.assertIn("MSI", words)
        self.assert_same(self.state(), state)
        self.assertEqual(self.msiexec("/x", windows_path(msi_of(NEW))), 0)
        self.assert_as_before()
        self.install(NEW)
        state = self.state()
        self.assertNotEqual(self.msiexec("/i", windows_path(msi_of(NEW))), 0)
        self.assert_same(self.state(), state)

    def unzipped(self):
        with zipfile.ZipFile(PACKAGES / f"CorvidAPI-{NEW}.zip") as archive:
            archive.extractall(self.drive / "zip")
        return self.drive / "zip" / f"CorvidAPI-{NEW}"

    def test_zip_registers_by_its_script(self):
        self.unzipped()
        script = rf"C:\zip\CorvidAPI-{NEW}\registrar.cmd"
        state = self.state()
        for user in ([], ["usuario"]):
            code, output = wine("cmd", "/c", script, *user)
            self.assertEqual((code, output.count("bien / done")), (0, 2), output)
            if not user:
                self.assertEqual(self.creations(), {64, 32})
            code, output = wine("cmd", "/c", script, "quitar", *user)
            self.assertEqual((code, output.count("bien / done")), (0, 2), output)
        self.assert_same({k: v for k, v in self.state().items() if k[0] != "user.reg"},
                         {k: v for k, v in state.items() if k[0] != "user.reg"})  # fmt: skip

    def test_hosts_use_the_library_without_registration(self):
        source = self.unzipped()
        jobs = []
        for i, (bits, name) in enumerate(FOLDERS.items()):
            host = self.folder / name / "early_bound_sale.exe"
            host.parent.mkdir()
            shutil.copy(TREES[bits] / host.name, host)
            bare = wine(host, 7)[1]
            self.assertIn("Error", bare, "an object was made without registration or manifest")
            for file in ("CorvidAPI.dll", "PrinterFiscalCorvid.manifest"):
                shutil.copy(source / name / file, host.parent)
            shutil.copy(source / name / "host.exe.manifest", f"{host}.manifest")
            jobs.append(functools.partial(self.sell, 7 + i, name, [host]))
        self.run_together(jobs)
        self.assertEqual(self.rows(self.state(), "none"), {})

    def test_everything_that_runs_is_signed(self):
        self.install(OLD)
        folder = self.unix_path(self.entry(self.state())["InstallLocation"])
        signed = [setup_of(OLD), msi_of(OLD), *folder.rglob("*.dll"), *folder.rglob("*.exe")]
        self.assertEqual(len(signed), 8, signed)
        for path in signed:
            self.assertTrue(self.is_trusted(path), path)
        self.assertFalse(self.is_trusted(setup_of(NEW)), "nothing signed it")
        damaged = self.folder / "damaged.dll"
        data = bytearray((folder / "x64/CorvidAPI.dll").read_bytes())
        data[len(data) // 2] ^= 1
        damaged.write_bytes(data)
        self.assertFalse(self.is_trusted(damaged))

    def is_trusted(self, path):
        words = ["osslsigncode", "verify", "-CAfile", KEYS / "ca.pem", "-in", path]
        return subprocess.run(list(map(str, words)), capture_output=True).returncode == 0

    def test_equal_sources_make_equal_packages(self):
        first = (PACKAGES / "SHA256SUMS").read_text()
        call("sha256sum", "--check", "SHA256SUMS", cwd=PACKAGES)
        package(WORK / "packages-again", NEW)
        self.assertEqual((WORK / "packages-again/SHA256SUMS").read_text(), first)
        self.assertEqual(len(first.splitlines()), 4)


if __name__ == "__main__":
    harness.main()
