"""The quiet package for administrators: 64-bit Windows, for all users, no dialogs."""

import datetime
import hashlib
import os
import struct
import subprocess
import uuid
import xml.etree.ElementTree as xml

import contents
import registry

NAMESPACE = uuid.UUID("c1a06e3e-6a37-4f3c-9c52-6a2f8f0f7b11")
UPGRADE_CODE = "8d0c0d8c-0f0e-4a51-9d0b-4a8e2f7c0f5d"
LANGUAGE = 3082  # Spanish
DOWNGRADE = "Ya está instalada una versión más nueva. / A newer version is installed."
SETUP_FIRST = ("CorvidAPI se instaló con el instalador; desinstálela primero. / "
               "CorvidAPI was installed by its setup; remove that first.")  # fmt: skip
SETUP_KEY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\CorvidAPI"
MARK_KEY = r"Software\CorvidAPI"  # by which the setup knows of this package
CLASSES = "Software\\Classes\\"
KEPT_TWICE = ("CLSID\\", "Interface\\")  # by the system, once for each bitness

SUMMARY_FORMAT = uuid.UUID("f29f85e0-4ff9-1068-ab91-08002b27b3d9").bytes_le
PACKAGE_CODE, CREATED, SAVED = 9, 12, 13  # properties of the summary
TEXT, TIME = 30, 64  # their kinds
SYSTEM_EPOCH = datetime.datetime(1601, 1, 1, tzinfo=datetime.timezone.utc)


def make(output, stage, groups, version, epoch, work):
    digest = _digest(stage)
    product = uuid.uuid5(NAMESPACE, f"product {version} {digest}")
    source = work / "product.wxs"
    xml.ElementTree(_document(stage, work, groups, version, product)).write(source, "utf-8", True)
    # It takes no full paths of files.
    subprocess.run(["wixl", "-a", "x64", "-o", output, source.name], cwd=work, check=True)
    _set_summary(output, uuid.uuid5(NAMESPACE, f"package {version} {digest}"), epoch)


def _digest(stage):
    digest = hashlib.sha256()
    for name in contents.files(stage):
        digest.update(f"{name}\0{hashlib.sha256((stage / name).read_bytes()).hexdigest()}".encode())
    return digest.hexdigest()


def _code(value):
    return str(value).upper()


def _document(stage, work, groups, version, product):
    wix = xml.Element("Wix", xmlns="http://schemas.microsoft.com/wix/2006/wi")
    root = xml.SubElement(
        wix, "Product", Id=_code(product), Name="CorvidAPI", Version=version,
        Manufacturer="The CorvidAPI developers", Language=str(LANGUAGE), Codepage="1252",
        UpgradeCode=_code(UPGRADE_CODE))  # fmt: skip
    xml.SubElement(root, "Package", InstallerVersion="500", Compressed="yes",
                   InstallScope="perMachine", Comments=f"CorvidAPI {version}")  # fmt: skip
    xml.SubElement(root, "MajorUpgrade", DowngradeErrorMessage=DOWNGRADE)
    _add_search(root)
    for name in ("ARPNOMODIFY", "ARPNOREPAIR"):
        xml.SubElement(root, "Property", Id=name, Value="1")
    xml.SubElement(root, "Media", Id="1", Cabinet="files.cab", EmbedCab="yes")
    components = _add_folders(root, stage, os.path.relpath(stage, work))
    _add_rows(components, groups, version)
    feature = xml.SubElement(root, "Feature", Id="All", Level="1")
    for component in components.values():
        xml.SubElement(feature, "ComponentRef", Id=component.get("Id"))
    return wix


def _add_search(root):
    found = xml.SubElement(root, "Property", Id="SETUPFOLDER")
    xml.SubElement(found, "RegistrySearch", Id="Setup", Root="HKLM", Key=SETUP_KEY,
                   Name="InstallLocation", Type="raw", Win64="yes")  # fmt: skip
    condition = xml.SubElement(root, "Condition", Message=SETUP_FIRST)
    condition.text = "Installed OR NOT SETUPFOLDER"


def _identifier(kind, path):
    return kind + hashlib.sha256(path.as_posix().encode()).hexdigest()[:16]


def _add_folders(root, stage, source):
    """One component for each folder that has files, by its place; `source` is where wixl sees the
    stage."""
    target = xml.SubElement(root, "Directory", Id="TARGETDIR", Name="SourceDir")
    programs = xml.SubElement(target, "Directory", Id="ProgramFiles64Folder")
    top = xml.SubElement(programs, "Directory", Id="INSTALLDIR", Name="CorvidAPI")
    folders = {"": top}
    components = {}
    for name in contents.files(stage):
        for parent in [*reversed(name.parents)][1:]:
            if parent.as_posix() not in folders:
                above = folders[_place(parent.parent)]
                folders[parent.as_posix()] = xml.SubElement(
                    above, "Directory", Id=_identifier("d", parent), Name=parent.name)  # fmt: skip
        place = _place(name.parent)
        if place not in components:
            components[place] = xml.SubElement(
                folders[place], "Component", Id=_identifier("c", name.parent),
                Guid=_code(uuid.uuid5(NAMESPACE, f"component {place}")),
                Win64="no" if place == contents.FOLDERS[32] else "yes")  # fmt: skip
        is_first = len(components[place]) == 0
        xml.SubElement(components[place], "File", Id=_identifier("f", name), Name=name.name,
                       Source=f"{source}/{name}", KeyPath="yes" if is_first else "no")  # fmt: skip
    return components


def _place(folder):
    return "" if folder.as_posix() == "." else folder.as_posix()


def _add_rows(components, groups, version):
    for bits, folder in contents.FOLDERS.items():
        for row in _rows(groups, bits):
            _add_row(components[folder], row)
    xml.SubElement(components[contents.FOLDERS[64]], "RegistryValue", Root="HKLM", Key=MARK_KEY,
                   Name="Msi", Type="string", Value=version)  # fmt: skip


def _rows(groups, view):
    """The rows of both libraries in the view of one bitness, each once, with the files' names. What
    the bitnesses share is in the view of 64 bits."""
    found = {}
    for bits, folder in contents.FOLDERS.items():
        file = f"[#{_identifier('f', contents.pathlib.Path(folder) / 'CorvidAPI.dll')}]"
        for group in groups:
            for row in group.own[bits] + group.shared[bits]:
                if (row.bits if row.key.startswith(KEPT_TWICE) else 64) == view:
                    text = row.text and row.text.replace(registry.LIBRARY, file)
                    found[row.key, row.name] = row._replace(text=text)
    parents = {key.rpartition("\\")[0] for key, _ in found}
    # A key without any value is there by its children.
    return [row for row in found.values() if row.text is not None or row.key not in parents]


def _add_row(component, row):
    """ "*" makes a key and removes it; an undefined property is an empty text, which the table
    itself cannot hold."""
    values = {"Name": row.name} if row.name else {}
    if row.text is None:
        values = {"Name": "*", "Type": "string", "Value": ""}
    else:
        values |= {"Type": "string", "Value": row.text or "[EMPTYTEXT]"}
    xml.SubElement(component, "RegistryValue", Root="HKLM", Key=CLASSES + row.key, **values)


def _set_summary(path, code, epoch):
    """Puts the package's code and the commit's time where wixl has a random one and the clock's."""
    data = bytearray(path.read_bytes())
    if data.count(SUMMARY_FORMAT) != 1:
        raise ValueError(f"{path}: the summary was not found")
    at = data.index(SUMMARY_FORMAT) + len(SUMMARY_FORMAT)
    section = at - 44 + struct.unpack_from("<I", data, at)[0]
    count = struct.unpack_from("<I", data, section + 4)[0]
    places = dict(struct.unpack_from("<2I", data, section + 8 + 8 * i) for i in range(count))
    moment = datetime.datetime.fromtimestamp(epoch, datetime.timezone.utc) - SYSTEM_EPOCH
    ticks = struct.pack("<Q", moment // datetime.timedelta(microseconds=1) * 10)
    text = b"{" + _code(code).encode() + b"}\0"
    for name, kind, value, skipped in [(PACKAGE_CODE, TEXT, text, 8), (CREATED, TIME, ticks, 4),
                                       (SAVED, TIME, ticks, 4)]:  # fmt: skip
        begin = section + places[name]
        if struct.unpack_from("<I", data, begin)[0] != kind:
            raise ValueError(f"{path}: the summary is not whole")
        data[begin + skipped : begin + skipped + len(value)] = value
    path.write_bytes(data)
