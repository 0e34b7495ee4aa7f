"""A virtual screen of a test's own, with its mouse and keyboard.

No window manager runs on it: a Wine prefix needs Managed=N, so that Wine itself draws the captions
and moves the focus. Waiting fails with what it waited for.
"""

import os
import re
import select
import subprocess
import tempfile
from typing import NamedTuple

from harness import wait_until


class Geometry(NamedTuple):
    """Pixels; x and y are those of the upper left corner on the screen."""

    x: int
    y: int
    width: int
    height: int


class Screen:
    """Runs from the entry of the context to its exit, or to the end of the test's process."""

    def __enter__(self):
        self._log = tempfile.TemporaryFile()
        reading, writing = os.pipe()
        # It finds a free number by itself, and tells it when programs may connect.
        self._server = subprocess.Popen(
            ["setpriv", "--pdeathsig", "TERM", "Xvfb", "-displayfd", str(writing), "-screen", "0",
             "1280x1024x24", "-nolisten", "tcp", "-ac", "-noreset"],
            pass_fds=[writing], stdout=self._log, stderr=self._log)  # fmt: skip
        os.close(writing)
        with os.fdopen(reading) as answer:
            ready = select.select([answer], [], [], 30)[0]
            number = answer.readline().strip() if ready else ""
        if not number:
            raise AssertionError(f"waited for the virtual screen to start: {self._end()}")
        self.display = f":{number}"
        self.environment = {"DISPLAY": self.display}
        return self

    def __exit__(self, *_):
        self._end()

    def _end(self):
        self._server.terminate()
        self._server.wait(timeout=30)
        self._log.seek(0)
        said = self._log.read().decode("utf-8", "replace").strip()
        self._log.close()
        return said

    def _call(self, *command):
        words = [str(word) for word in command]
        try:
            return subprocess.run(
                words, env={**os.environ, **self.environment}, timeout=30,
                stdin=subprocess.DEVNULL, capture_output=True, text=True)  # fmt: skip
        except subprocess.TimeoutExpired:
            raise AssertionError(f"waited 30 s for {words} to end") from None

    def _xdotool(self, *words):
        done = self._call("xdotool", *words)
        assert done.returncode == 0, f"xdotool {words}: {done.stderr.strip()}"
        return done.stdout

    def windows(self, title=None):
        """The visible windows of exactly that title, or all that have one, as their ids."""
        pattern = "." if title is None else f"^{re.escape(title)}$"
        found = self._call("xdotool", "search", "--onlyvisible", "--name", pattern)
        return [int(line) for line in found.stdout.split()]

    def titles(self):
        """The titles of what is to be seen, for a look at what went wrong."""
        return [self._call("xdotool", "getwindowname", w).stdout.strip() for w in self.windows()]

    def _wait(self, condition, seconds, what):
        wait_until(condition, seconds, lambda: f"{what}; there are {self.titles()}")

    def find_window(self, title, seconds=30):
        """Waits for a visible window of exactly that title, and gives its id."""
        self._wait(lambda: self.windows(title), seconds, f"a window '{title}'")
        return self.windows(title)[0]

    def wait_for_no_window(self, title, seconds=30):
        """Waits until no window of exactly that title is visible."""
        self._wait(lambda: not self.windows(title), seconds, f"no window '{title}'")

    def geometry(self, window):
        said = dict(re.findall(r"(\w+)=(-?\d+)", self._xdotool(
            "getwindowgeometry", "--shell", window)))  # fmt: skip
        return Geometry(*(int(said[name]) for name in ("X", "Y", "WIDTH", "HEIGHT")))

    def focus(self, window):
        """Keys go to this window from now on."""
        self._xdotool("windowfocus", "--sync", window)

    def click(self, x, y):
        """Clicks at a place of the screen."""
        self._xdotool("mousemove", x, y, "click", 1)

    def drag(self, x, y, to_x, to_y):
        """Moves the mouse from one place of the screen to another with its button down."""
        self._xdotool("mousemove", x, y, "mousedown", 1, "mousemove", to_x, to_y, "mouseup", 1)

    def key(self, *names):
        """Presses and releases one after the other: "Tab", "Return", "ctrl+p"."""
        self._xdotool("key", *names)

    def type(self, text):
        """Types characters of the ASCII set."""
        self._xdotool("type", "--", text)

    def screenshot(self, path):
        done = self._call("import", "-window", "root", path)
        assert done.returncode == 0, f"no screenshot at {path}: {done.stderr.strip()}"
