"""Manifests by which a host uses the library without any registration: those of the examples, for
each bitness."""

import pathlib
import re
import xml.etree.ElementTree as xml

EXAMPLES = pathlib.Path(__file__).resolve().parents[1] / "examples/unregistered"
# In the packages: the assembly's, and the host's under the name that it has to be given.
FILES = {
    "PrinterFiscalCorvid.manifest": EXAMPLES / "PrinterFiscalCorvid.manifest",
    "host.exe.manifest": EXAMPLES / "sale.exe.manifest",
}
ARCHITECTURES = {64: "amd64", 32: "x86"}
NAMESPACE = "{urn:schemas-microsoft-com:asm.v1}"
TYPE_LIBRARY = re.compile(r"TypeLib\\([^\\]+)\\([\d.]+)\\FLAGS")


def text(name, groups, bits):
    """The manifest of one of FILES for one bitness; throws where the examples are behind the rows."""
    _check(FILES["PrinterFiscalCorvid.manifest"].read_text("utf-8"), groups)
    found = FILES[name].read_text("utf-8")
    return found.replace(f'"{ARCHITECTURES[64]}"', f'"{ARCHITECTURES[bits]}"')


def _check(assembly, groups):
    told = {(element.tag.removeprefix(NAMESPACE), *_lowered(element.attrib.values()))
            for element in xml.fromstring(assembly).iter()}  # fmt: skip
    *classes, library = groups
    for one in [*map(_com_class, classes), _type_library(library), *_interfaces(library)]:
        tag, *values = one
        if not any(tag == other and set(_lowered(values)) <= set(found) for other, *found in told):
            raise ValueError(f"{EXAMPLES}: the assembly's manifest does not tell {one}")


def _lowered(texts):
    return [one.lower() for one in texts]


def _values(rows):
    """The rows' texts by key and name."""
    return {(row.key, row.name): row.text for row in rows}


def _com_class(group):
    own = _values(group.own[64])
    key = group.own[64][0].key
    return ("comClass", key.rpartition("\\")[2], own[key + "\\ProgID", ""],
            own[group.files[64].key, "ThreadingModel"], own[key + "\\TypeLib", ""])  # fmt: skip


def _type_library(group):
    found = [TYPE_LIBRARY.fullmatch(row.key) for row in group.shared[64]]
    return ("typelib", *next(match for match in found if match).groups())


def _interfaces(group):
    """Each interface of the type library with the system's marshaller for it."""
    values = _values(row for row in group.shared[64] if row.bits == 64)
    for (key, name), value in values.items():
        if re.fullmatch(r"Interface\\[^\\]+", key) and not name:
            yield ("comInterfaceExternalProxyStub", key.rpartition("\\")[2], value,
                   values[key + "\\TypeLib", ""], values[key + "\\ProxyStubClsid32", ""])  # fmt: skip
