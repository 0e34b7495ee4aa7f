"""The report preview as its user meets it: looked at, clicked, searched, saved, printed, closed."""

import concurrent.futures
from typing import NamedTuple

import harness
import print_queue
from desktop import DesktopTest
from harness import BUILT, ROOT, windows_path

TITLE = "Documento: Vista Rápida"
TEXT, LABEL, MARGIN, STEPS, FONT, SAVE, SEARCH, PRINT, CLOSE, GROW, SHRINK = range(100, 111)

REPORT = """
Class Clicks
  Public Sub ReportClicked(line, column)
    Say "clicked", column & ":" & line
  End Sub
End Class
Set view = CreateObject("PrinterFiscalCorvid.lfQuickView")
view.SetNotify New Clicks
Expect "fitted", view.SetReportWidth(60), True
view.SetLinesPerPage 10
For number = 1 To 20
  view.Add "Línea " & number, 0
Next
view.Add "centrada", 2
view.Add "a la derecha", 1
Expect "place", view.Linea & " on page " & view.Pagina, "7 on page 3"
view.LeftMargin = 3
Expect "size", view.Width & " x " & view.Height, "11895 x 7995"
view.Show 1
view.Width = 100
view.Height = 100
Expect "least size", view.Width & " x " & view.Height, "11895 x 3495"
view.Caption = "Otra vez"
view.Show 1
"""
# Eight lines fill a page of ten; a line ends with a blank, a page with a rule of 62 characters.
LINES = [f"Línea {number} " for number in range(1, 21)]
LINES += ["centrada".rjust(34) + " ", "a la derecha".rjust(60) + " "]
PAGES = [LINES[:8], LINES[8:16], LINES[16:]]
WHOLE = ("_" * 62 + "\r\n").join("".join(f"{line}\r\n" for line in page) for page in PAGES)

# Identifier, text, and left, top, width and height in pixels of the window at its first size.
CONTROLS = [
    (FONT, "Fuente Impresora", 215, 484, 103, 29),
    (SAVE, "Guardar como", 329, 484, 103, 29),
    (SEARCH, "Buscar Texto", 443, 484, 103, 29),
    (PRINT, "Imprimir", 557, 484, 103, 29),
    (CLOSE, "Cerrar", 671, 484, 103, 29),
    (LABEL, "Margen Izq.:", 88, 500, 66, 16),
    (MARGIN, "3", 156, 498, 33, 19),
    (GROW, "Ampliar Fuente de Pantalla", 12, 484, 32, 32),
    (SHRINK, "Reducir Fuente de Pantalla", 48, 484, 32, 32),
]

TEST_MODE = """
Set p = NewPrinter()
p.Abrir 999
p.PasarDatosCliente "FERRETERÍA ÑANDÚ", "J-98765432-1", "CARACAS"
Expect "item", p.PasarItem("PAN", 12.5, 2, 16), 0
p.SendDirect "w"
Expect "answer", p.GetResponseString("S1"), "{10}Ok"
Expect "closed", p.CerrarComprobante(), 0
p.Cerrar
"""
# Nobody tells the printer's rates: the item goes without tax.
TEST_MODE_LINES = [
    "i01FERRETERÍA ÑANDÚ", "i02RIF:J-98765432-1", "i03CARACAS",
    " 000000125000002000PAN", "SendDirect: w", "GET RESPONSE: S1", "101",
]  # fmt: skip

STRIP = """
Set view = CreateObject("PrinterFiscalCorvid.lfQuickView")
view.SetLinesPerPage 1000
For number = 101 To 250
  view.Add "Fila " & number, 0
Next
view.Show 1
"""


class Control(NamedTuple):
    id: int
    left: int
    top: int
    width: int
    height: int
    selection: slice
    text: str


class Window:
    """A visible window of the host, by its title, and the controls in it."""

    def __init__(self, screen, title):
        self.screen = screen
        self.title = title
        self.id = screen.find_window(title)

    def controls(self):
        code, output = harness.wine(BUILT / "window_reader.exe", self.title)
        assert code == 0, f"no window '{self.title}' to read: {output}"
        return {control.id: control for control in map(self.parse, output.splitlines()[1:])}

    def parse(self, line):
        *numbers, text = line.split("|", 7)
        id, left, top, width, height, start, end = map(int, numbers)
        text = text.replace(r"\r", "\r").replace(r"\n", "\n")
        return Control(id, left, top, width, height, slice(start, end), text)

    def text(self):
        return self.controls()[TEXT].text

    def selected(self):
        """The box holds a line break as one character."""
        box = self.controls()[TEXT]
        return box.text.replace("\r\n", "\r")[box.selection]

    def click(self, id, x=0.5, y=0.5):
        """Clicks into a control; x and y from 0 to 1 are the place in it."""
        control = self.controls()[id]
        place = self.screen.geometry(self.id)
        self.screen.click(place.x + control.left + int(control.width * x),
                          place.y + control.top + int(control.height * y))  # fmt: skip

    def answer(self, title, *keys, text=""):
        """Types into the dialog that opens, and waits until it has gone."""
        dialog = self.screen.find_window(title)
        self.screen.focus(dialog)
        self.screen.type(text)
        self.screen.key(*keys)
        self.screen.wait_for_no_window(title)

    def wait_for_end(self):
        self.screen.wait_for_no_window(self.title)


class Preview(DesktopTest):
    def window(self, title=TITLE):
        return Window(self.screen, title)

    def run_beside(self, host, use):
        """Runs a host, and a function that does what its user would do; gives both results."""
        with concurrent.futures.ThreadPoolExecutor() as pool:
            running = pool.submit(host)
            try:
                used = use()
            except BaseException:
                self.screen.screenshot(self.folder / "failed.png")
                harness.stop_wine()  # or the host would wait for its user
                raise
            return running.result(), used

    def test_report_is_looked_at_searched_saved_printed_and_shown_again(self):
        (self.folder / "Halewood.ini").write_text(
            f"[General]\r\nDataDir={windows_path(self.folder)}\r\n")  # fmt: skip
        said, _ = self.run_beside(lambda: self.run_script(REPORT), self.use_report)
        self.assertEqual(said, {"clicked": "4:L{237}nea 3 "})

    def use_report(self):
        window = self.window()
        self.look(window)
        self.screen.screenshot(self.folder / "report.png")
        self.click_line(window)
        self.search(window)
        self.save(window)
        self.drag_corner(window)
        self.print(window)
        window.click(CLOSE)
        window.wait_for_end()
        again = self.window("Otra vez")
        self.assertEqual(again.text(), WHOLE)
        self.screen.focus(again.id)
        self.screen.key("Escape")
        again.wait_for_end()

    def look(self, window):
        controls = window.controls()
        self.assertEqual(controls[TEXT].text, WHOLE)
        seen = [(c.id, c.text, *c[1:5]) for c in map(controls.get, (id for id, *_ in CONTROLS))]
        self.assertEqual(seen, CONTROLS)

    def click_line(self, window):
        # The third of 13 pixels each; characters are 7 wide.
        place = self.screen.geometry(window.id)
        box = window.controls()[TEXT]
        self.screen.click(place.x + box.left + 4 + 4 * 7, place.y + box.top + 4 + int(2.5 * 14))

    def search(self, window):
        window.click(SEARCH)
        window.answer("Buscar", "Return", text="NEA 1")
        self.assertEqual(window.selected(), "nea 1")
        self.assertEqual(window.controls()[TEXT].selection.start, 146)
        self.screen.key("F3")
        self.assertEqual(window.controls()[TEXT].selection.start, 156)
        window.click(SEARCH)
        window.answer("Buscar", "Return", text="nada")
        window.answer("ADVERTENCIA", "Return")
        self.assertEqual(window.controls()[TEXT].selection.start, 156, "stays where it was")

    def save(self, window):
        window.click(SAVE)
        window.answer("Nombre del archivo", "Return", text="saved")
        saved = self.folder / "saved.txt"
        harness.wait_until(saved.exists)
        self.assertEqual(saved.read_bytes(), WHOLE.encode("cp1252"))

    def drag_corner(self, window):
        before = self.screen.geometry(window.id)
        corner = before.x + before.width - 2, before.y + before.height - 2
        self.screen.drag(*corner, before.x + 200, before.y + 300)
        harness.wait_until(
            lambda: self.screen.geometry(window.id)[2:] == (793, 302), 10,
            lambda: f"no narrower than its buttons, and lower: {self.screen.geometry(window.id)}")  # fmt: skip
        button = window.controls()[CLOSE]
        self.assertEqual((button.left, button.top), (671, 302 - 533 + 484))

    def print(self, window):
        window.click(STEPS, y=0.2)
        self.assertEqual(window.controls()[MARGIN].text, "4")
        window.click(PRINT)
        (paper,) = self.queue.wait_for_documents(1)
        self.assertIn("Documento", paper.name, "the window's caption is the document's title")
        self.assertEqual(self.queue.pages(paper), len(PAGES))
        printed = self.queue.text(paper).split("\f")[: len(PAGES)]
        # A blank line comes first.
        lines = [[line.strip() for line in page.splitlines() if line.strip()] for page in printed]
        self.assertEqual(lines, [[line.strip() for line in page] for page in PAGES])

    def test_strip_printer_gets_each_line_below_the_other(self):
        self.queue.rename("Verifone")
        self.addCleanup(self.queue.rename, print_queue.NAME)
        self.run_beside(lambda: self.run_script(STRIP), self.print_by_key)
        (paper,) = self.queue.wait_for_documents(1)
        lines = self.queue.lines(paper)
        self.assertEqual([line.text for line in lines], [f"Fila {n}" for n in range(101, 251)])
        self.assertEqual(len({line.x for line in lines}), 1, "all begin at one edge")
        pages = {line.page: [one.y for one in lines if one.page == line.page] for line in lines}
        self.assertGreater(len(pages), 1)
        steps = [b - a for ys in pages.values() for a, b in zip(ys, ys[1:])]
        self.assertLess(max(steps) - min(steps), 0.02, "even spaces")
        self.assertLess(max(steps), 2 * lines[0].height, "and no blank lines")
        self.assertAlmostEqual(pages[1][0] - pages[2][0], steps[0], 1, "but the first one")

    def print_by_key(self):
        window = self.window()
        self.screen.focus(window.id)
        self.screen.key("ctrl+p", "Escape")
        window.wait_for_end()

    def test_test_mode_shows_what_would_have_been_sent(self):
        self.write_settings({r"Config\NimbusPF": {"TestMode": "True"}})
        _, lines = self.run_beside(lambda: self.run_script(TEST_MODE), self.read_preview)
        self.assertEqual(lines, TEST_MODE_LINES)

    def read_preview(self, title=TITLE):
        window = self.window(title)
        lines = [line.removesuffix(" ") for line in window.text().splitlines()]
        self.screen.focus(window.id)
        self.screen.key("Escape")
        window.wait_for_end()
        return lines

    def test_examples_show_their_reports(self):
        script = ["cscript", "//nologo", windows_path(ROOT / "examples/report.vbs")]
        (said, _), lines = self.run_beside(lambda: self.start_host(script),
                                           lambda: self.read_preview("Ventas del dia"))  # fmt: skip
        self.assertIn("The window was closed.", said.whole)
        self.assertEqual(sum(line.startswith("Leche entera 1 l") for line in lines), 38)
        host = [BUILT / "early_bound_report.exe"]
        (said, _), _ = self.run_beside(lambda: self.start_host(host), self.click_example)
        self.assertIn("Clicked at column 4: Factura 2 ", said.whole)
        self.assertIn("The window was closed.", said.whole)

    def click_example(self):
        window = self.window()
        self.click_line(window)
        self.screen.focus(window.id)
        self.screen.key("Escape")
        window.wait_for_end()


if __name__ == "__main__":
    harness.main()
