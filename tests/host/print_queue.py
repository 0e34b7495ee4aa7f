"""A print server of a test's own, whose default printer writes each document as a PDF file.

It shares nothing with the machine's own print server, which need not run, but one file below
/etc/cups while it runs: the printer's backend looks for its settings nowhere else.
"""

import os
import pathlib
import pwd
import re
import shutil
import subprocess
import tempfile
from typing import NamedTuple

from harness import wait_until

NAME = "PDF"
DESCRIPTION = "/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd"
LONGEST_SOCKET_PATH = 107  # what the system's address of a socket takes

# The server and what belongs to it lies in a folder of the system's for passing files: filters run
# as a user who may not enter the test's folder below a private home.
PLACES = """\
ServerRoot {server}
ServerBin {server}/bin
CacheDir {server}/cache
RequestRoot {server}/spool
StateDir {server}/state
TempDir {server}/tmp
AccessLog /dev/null
PageLog /dev/null
ErrorLog {folder}/cups.log
LogFilePerm 0644
SystemGroup root
"""
SERVER = """\
Listen {folder}/cups.sock
Browsing No
WebInterface No
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
JobPrivateAccess all
JobPrivateValues none
SubscriptionPrivateAccess all
SubscriptionPrivateValues none
<Limit All>
Order deny,allow
</Limit>
</Policy>
"""
BACKEND = """\
Out {folder}/documents
AnonDirName {folder}/documents
AnonUser {user}
AnonUMask 0022
UserUMask 0022
Spool {server}/pdf
Log {server}
Label 1
"""

# Runs as root, and clears up when it is told to end. The programs are copies: where the system
# confines the originals, these may reach no other folders than the machine's print server uses.
RUN = """
server=$1 settings=$2
trap '[[ -z $! ]] || kill $! || true; wait; rm -rf "$server" "$settings"' EXIT
trap exit TERM
chown -R root:root "$server"
chmod 755 "$server"
mkdir "$server/bin" "$server/cache" "$server/spool" "$server/state"
mkdir -m 1777 "$server/tmp"
ln -s /usr/lib/cups/* "$server/bin/"
rm "$server/bin/backend"
mkdir "$server/bin/backend"
install -m 700 /usr/lib/cups/backend/cups-pdf "$server/bin/backend/"
install -m 755 /usr/sbin/cupsd "$server/bin/"
mv "$server/cups-pdf.conf" "$settings"
"$server/bin/cupsd" -f -c "$server/cupsd.conf" -s "$server/cups-files.conf" &
wait
"""
AS_ROOT = [] if os.geteuid() == 0 else ["sudo"]


class PaperLine(NamedTuple):
    page: int
    y: float
    x: float
    height: float
    text: str


class PrintQueue:
    """Runs from the entry of the context to its exit, or to the end of the test's process.

    The folder, which is made anew, takes the documents, the server's socket and its log.
    """

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.server = self.folder / "cups.sock"
        self.environment = {"CUPS_SERVER": str(self.server)}
        self._taken = set()

    def __enter__(self):
        path = os.fsencode(self.server)
        assert len(path) <= LONGEST_SOCKET_PATH, f"{self.server}: too long a name for a socket"
        shutil.rmtree(self.folder, ignore_errors=True)
        (self.folder / "documents").mkdir(parents=True)
        self._start()
        try:
            wait_until(self._answers, 30, lambda: f"the print server to start; {self._log()}")
            self._add(NAME)
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_):
        self._end()

    def _start(self):
        server = pathlib.Path(tempfile.mkdtemp(prefix="corvid-queue-"))
        self._id = server.name
        values = {"server": server, "folder": self.folder,
                  "user": pwd.getpwuid(os.getuid()).pw_name}  # fmt: skip
        files = {"cups-files.conf": PLACES, "cupsd.conf": SERVER, "cups-pdf.conf": BACKEND}
        for name, text in files.items():
            (server / name).write_text(text.format(**values), encoding="utf-8")
        settings = f"/etc/cups/cups-pdf-{self._id}.conf"
        with open(self.folder / "start.log", "wb") as log:
            self._process = subprocess.Popen(
                [*AS_ROOT, "setpriv", "--pdeathsig", "TERM", "bash", "-ec", RUN, "queue", server,
                 settings], stdin=subprocess.DEVNULL, stdout=log, stderr=log)  # fmt: skip

    def _end(self):
        subprocess.run([*AS_ROOT, "kill", str(self._process.pid)], check=False, capture_output=True)
        self._process.wait(timeout=30)

    def _call(self, *command):
        done = subprocess.run(command, env={**os.environ, **self.environment}, timeout=60,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True)  # fmt: skip
        assert done.returncode == 0, f"{command}: {done.stderr.strip()}; {self._log()}"
        return done.stdout

    def rename(self, name):
        """Programs that start from now on find the printer by this name only."""
        self._call("/usr/sbin/lpadmin", "-x", self._name)
        self._add(name)

    def _add(self, name):
        self._call("/usr/sbin/lpadmin", "-p", name, "-v", f"cups-pdf:/{self._id}", "-P",
                   DESCRIPTION, "-o", "printer-error-policy=abort-job", "-E")  # fmt: skip
        self._call("/usr/sbin/lpadmin", "-d", name)
        self._name = name

    def _answers(self):
        assert self._process.poll() is None, f"the print server ended; {self._log()}"
        return self.server.exists() and "is running" in self._call("lpstat", "-r")

    def _log(self):
        logs = [self.folder / "start.log", self.folder / "cups.log"]
        return "\n".join(log.read_text("utf-8", "replace")[-2000:] for log in logs if log.exists())

    def _new_documents(self):
        found = set((self.folder / "documents").glob("*.pdf")) - self._taken
        return sorted(found, key=lambda path: path.stat().st_mtime_ns)

    def wait_for_documents(self, count, seconds=60):
        """Waits until the queue is empty and that many documents came since the last call.

        Gives their files, the oldest first. More documents are a failure.
        """

        def done():
            return not self._call("lpstat", "-o") and len(self._new_documents()) >= count

        wait_until(done, seconds, lambda: f"{count} documents, not {self._new_documents()};"
                                          f" {self._log()}")  # fmt: skip
        documents = self._new_documents()
        assert len(documents) == count, f"{count} documents were expected, not {documents}"
        self._taken.update(documents)
        return documents

    def text(self, pdf):
        """The text as it stands on the paper; each page ends with a form feed."""
        return self._call("pdftotext", "-layout", pdf, "-")

    def lines(self, pdf):
        """The lines on the paper in their order; places and heights are points."""
        places = self._call("pdftotext", "-bbox-layout", pdf, "-")
        found = []
        for page, text in enumerate(places.split("<page ")[1:], 1):
            for line in text.split("<line ")[1:]:
                x, y, _, bottom = map(float, re.findall(r'(?:xM|yM)\w+="(.+?)"', line)[:4])
                words = " ".join(re.findall(">(.+)</word>", line))
                found.append(PaperLine(page, y, x, bottom - y, words))
        return sorted(found)

    def pages(self, pdf):
        return int(re.search(r"^Pages: +(\d+)$", self._call("pdfinfo", pdf), re.MULTILINE)[1])
