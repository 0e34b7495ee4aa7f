"""Real parts for tests of windows and paper: a screen and a print queue around the host."""

from harness import BITS, HostTest, WORK, registry
from print_queue import PrintQueue
from screen import Screen


class DesktopTest(HostTest):
    """A HostTest whose programs show their windows on `screen` and print to `queue`."""

    # Not the prefix of the other tests, which boots without a screen and without a printer.
    prefix = f"prefix{BITS}-preview"

    @classmethod
    def setUpClass(cls):
        cls.screen = cls.enterClassContext(Screen())
        cls.queue = cls.enterClassContext(PrintQueue(WORK / "queue"))
        cls.environment = {**cls.screen.environment, **cls.queue.environment}
        super().setUpClass()
        # Or each window that goes waits two seconds for a window manager.
        key = r"HKCU\Software\Wine\X11 Driver"
        code, output = registry("add", key, "/v", "Managed", "/d", "N", "/f")
        assert code == 0, f"the registry refused Managed: {output}"
