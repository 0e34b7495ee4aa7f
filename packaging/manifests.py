"""Manifests by which a host uses the library without any registration."""

import re
from xml.sax.saxutils import quoteattr

# Not the name of the library: the system looks for NAME.dll with a manifest inside it first.
ASSEMBLY = "PrinterFiscalCorvid"
ASSEMBLY_FILE = f"{ASSEMBLY}.manifest"
HOST_FILE = "host.exe.manifest"
ARCHITECTURES = {64: "amd64", 32: "x86"}
TYPE_LIBRARY = re.compile(r"TypeLib\\([^\\]+)\\([\d.]+)\\FLAGS")

DOCUMENT = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
{}
</assembly>
"""
HOST_COMMENT = """\
  <!-- Uso sin registro: copie este archivo como NOMBRE.exe.manifest junto a NOMBRE.exe, y a su lado
       {assembly} y CorvidAPI.dll de la misma carpeta.
       Use without registration: copy this file as NAME.exe.manifest beside NAME.exe, and beside it
       {assembly} and CorvidAPI.dll of the same folder. -->"""


def _element(tag, indent=2, children=(), /, **attributes):
    words = " ".join(f"{key}={quoteattr(value)}" for key, value in attributes.items())
    start = f"{' ' * indent}<{tag} {words}".rstrip()
    if not children:
        return f"{start}/>"
    return "\n".join([f"{start}>", *children, f"{' ' * indent}</{tag}>"])


def _identity(name, version, bits, indent=2):
    return _element("assemblyIdentity", indent, type="win32", name=name, version=f"{version}.0",
                    processorArchitecture=ARCHITECTURES[bits])  # fmt: skip


def _values(rows):
    """The rows' texts by key and name."""
    return {(row.key, row.name): row.text for row in rows}


def _com_class(group):
    own = _values(group.own[64])
    key = group.own[64][0].key
    server = group.files[64].key
    return _element("comClass", 4, clsid=key.rpartition("\\")[2], progid=own[key + "\\ProgID", ""],
                    threadingModel=own[server, "ThreadingModel"], tlbid=own[key + "\\TypeLib", ""],
                    description=own[key, ""])  # fmt: skip


def _interfaces(group):
    """The system's marshaller for each interface of the type library."""
    values = _values(row for row in group.shared[64] if row.bits == 64)
    for (key, name), text in values.items():
        if re.fullmatch(r"Interface\\[^\\]+", key) and not name:
            yield _element(
                "comInterfaceExternalProxyStub", iid=key.rpartition("\\")[2], name=text,
                tlbid=values[key + "\\TypeLib", ""],
                proxyStubClsid32=values[key + "\\ProxyStubClsid32", ""])  # fmt: skip


def assembly(groups, version, bits):
    """The manifest of the library of one bitness, for ASSEMBLY_FILE beside it."""
    *classes, library = groups
    found = [TYPE_LIBRARY.fullmatch(row.key) for row in library.shared[64]]
    identifier, number = next(match for match in found if match).groups()
    typelib = _element("typelib", 4, tlbid=identifier, version=number, helpdir="", resourceid="1",
                       flags="HASDISKIMAGE")  # fmt: skip
    served = _element("file", 2, [*map(_com_class, classes), typelib], name="CorvidAPI.dll")
    body = [_identity(ASSEMBLY, version, bits), served, *_interfaces(library)]
    return DOCUMENT.format("\n".join(body))


def host(version, bits):
    """The manifest of a host of one bitness, for HOST_FILE, to be renamed."""
    needed = _element("dependentAssembly", 4, [_identity(ASSEMBLY, version, bits, 6)])
    body = [HOST_COMMENT.format(assembly=ASSEMBLY_FILE), _identity("host", "1.0.0", bits),
            _element("dependency", 2, [needed])]  # fmt: skip
    return DOCUMENT.format("\n".join(body))
