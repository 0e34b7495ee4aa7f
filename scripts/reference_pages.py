"""The reference's pages, from the published types and what src/com/reference.txt tells of them."""

import textwrap
from types import SimpleNamespace

from published_types import CLASS, ENUMERATION, METHOD

WIDTH = 100
UNBROKEN = "\N{NO-BREAK SPACE}"
MARK = "<!-- Made by scripts/reference; change src/com/reference.txt or the IDL instead. -->"


# What the pages say by themselves; the table tells everything in this order of languages.
LANGUAGES = [
    SimpleNamespace(
        at=0, index="Referencia", enumerations="enumeraciones", other="In English",
        there="../../guide/reference", rules="Para todos", properties="Propiedades",
        methods="Métodos", events="Eventos", columns="| propiedad | tipo | dice |",
        values="| nombre | valor | dice |", read_only="solo lectura", returns="Devuelve",
        errors="Errores", fails="Si falla", numbers="../errores.md#números-de-error"),
    SimpleNamespace(
        at=1, index="Reference", enumerations="enumerations", other="En español",
        there="../../guia/referencia", rules="For all of them", properties="Properties",
        methods="Methods", events="Events", columns="| property | type | tells |",
        values="| name | value | tells |", read_only="read-only", returns="Returns",
        errors="Errors", fails="On failure", numbers="../errors.md#error-numbers"),
]  # fmt: skip


def sentence(text):
    return text if text.endswith((".", ":")) else text + "."


def wrapped(text, indent=""):
    return textwrap.fill(text, WIDTH, subsequent_indent=indent, break_long_words=False,
                         break_on_hyphens=False)  # fmt: skip


def declaration(member, kind=""):
    """As class browsers of Visual Basic write it."""
    arguments = []
    for one in member.arguments:
        text = f"{'ByRef ' if one.by_reference else ''}{one.name} As {one.type}"
        text += f" = {one.default}" if one.default else ""
        text = text.replace(" ", UNBROKEN)
        arguments.append(f"[{text}]" if one.is_optional else text)
    kind = kind or ("Function" if member.type else "Sub")
    result = f" As {member.type}".replace(" ", UNBROKEN) if member.type else ""
    text = f"{kind} {member.name}({', '.join(arguments)}){result}"
    lines = textwrap.wrap(text, WIDTH - 2, subsequent_indent="    ")
    return " _\n".join(lines).replace(UNBROKEN, " ")


class Page:
    """The pages of one language."""

    def __init__(self, words, table):
        self.words, self.table, self.at = words, table, words.at

    def what(self, kind, name, help_text):
        """The first sentence of a type or a member."""
        return sentence(self.table.entry(kind, name)["en"] if self.at else help_text)

    def head(self, titles, files):
        """The beginning of a page whose titles and file names in both languages these are."""
        link = f"[{titles[1 - self.at]}]({self.words.there}/{files[1 - self.at]}.md)"
        return [f"# {titles[self.at]}", MARK, f"*{self.words.other}: {link}.*"]

    def errors(self, entry):
        return f"[{entry['errors'].replace(' ', ', ')}]({self.words.numbers})"

    def details(self, member, entry):
        """What follows the first sentence: label and text."""
        for one in member.arguments:
            text = entry.get(one.name) or self.table.shared["@" + one.name]
            yield f"`{one.name}`", text[self.at]
        if "returns" in entry:
            yield f"**{self.words.returns}**", entry["returns"][self.at]
        if "errors" in entry:
            yield f"**{self.words.errors}**", self.errors(entry)
        if "words" in entry:
            ends = (text + " " + member.name if text.endswith(" en") else text
                    for text in entry["words"].split("; "))  # fmt: skip
            yield "**`DescripcionError`**", ", ".join(f"`{text}`" for text in ends)
        if "fails" in entry:
            yield f"**{self.words.fails}**", entry["fails"][self.at]

    def section(self, kind, member, declared=""):
        entry = self.table.entry(kind, member.name)
        text = self.what(kind, member.name, member.help)
        text += " " + sentence(entry["note"][self.at]) if "note" in entry else ""
        yield f"### {member.name}"
        yield f"```vb\n{declaration(member, declared)}\n```"
        yield wrapped(text)
        details = self.details(member, entry)
        bullets = [wrapped(f"- {label}: {sentence(value)}", "  ") for label, value in details]
        if bullets:
            yield "\n".join(bullets)

    def property_row(self, kind, member):
        entry = self.table.entry(kind, member.name)
        texts = [self.what(kind, member.name, member.help)]
        texts += [sentence(entry["note"][self.at])] if "note" in entry else []
        texts += [sentence(f"{label}: {value}") for label, value in self.details(member, entry)]
        arguments = ", ".join(one.name for one in member.arguments)
        name = f"{member.name}({arguments})" if arguments else member.name
        only = "" if member.is_settable else f", {self.words.read_only}"
        return f"| `{name}` | {member.type}{only} | {' '.join(texts)} |"

    def of_class(self, one, events):
        properties = [member for member in one.members if member.call != METHOD]
        methods = [member for member in one.members if member.call == METHOD]
        parts = [*self.head([one.name] * 2, [one.name] * 2), wrapped(self.what(one.name, "", one.help))]
        note = self.table.entry(one.name, "").get("note")
        parts += [wrapped(sentence(note[self.at]))] if note else []
        if properties:
            rows = [self.property_row(one.name, member) for member in properties]
            parts.append(f"## {self.words.properties}")
            parts.append("\n".join([self.words.columns, "|---|---|---|", *rows]))
        parts += [f"## {self.words.methods}"] if methods else []
        for member in methods:
            parts += self.section(one.name, member)
        parts += [f"## {self.words.events}"] if events else []
        for source in events:
            for member in source.members:
                parts += self.section(source.name, member, "Event")
        return "\n\n".join(parts) + "\n"

    def of_enumerations(self, types):
        files = [words.enumerations for words in LANGUAGES]
        parts = self.head([file.capitalize() for file in files], files)
        for one in types:
            rows = [f"| `{member.name}` | {member.value} | "
                    f"{self.table.entry(one.name, member.name)['en'].split(' | ')[self.at]} |"
                    for member in one.members]  # fmt: skip
            parts += [f"## {one.name}", self.what(one.name, "", one.help)]
            parts.append("\n".join([self.words.values, "|---|---|---|", *rows]))
        return "\n\n".join(parts) + "\n"

    def index(self, classes, enumerations):
        parts = self.head([words.index for words in LANGUAGES], ["README"] * 2)
        parts.append(wrapped(self.table.shared["@intro"][self.at]))
        rows = [f"- [{one.name}]({one.name}.md): {self.what(one.name, '', one.help)}"
                for one in classes]  # fmt: skip
        names = ", ".join(f"`{one.name}`" for one in enumerations)
        file = self.words.enumerations
        parts.append("\n".join([*rows, f"- [{file.capitalize()}]({file}.md): {names}."]))
        parts.append(f"## {self.words.rules}")
        rules = [text[self.at] for name, text in self.table.shared.items() if "rule" in name]
        parts.append("\n".join(wrapped("- " + sentence(rule), "  ") for rule in rules))
        return "\n\n".join(parts) + "\n"


def pages(types, table, words):
    """The file name and the text of every page."""
    page = Page(words, table)
    classes = [one for one in types if one.kind == CLASS]
    enumerations = [one for one in types if one.kind == ENUMERATION]
    by_name = {one.name: one for one in types}
    yield "README.md", page.index(classes, enumerations)
    yield words.enumerations + ".md", page.of_enumerations(enumerations)
    for one in classes:
        yield one.name + ".md", page.of_class(one, [by_name[name] for name in one.offers[1:]])
