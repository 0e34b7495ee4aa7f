"""What class browsers show of a type library's file: types, members, arguments, help strings."""

import dataclasses
import uuid

from type_library import GUIDS, NAMES, TYPES, VALUES, segments, types, words

REFERENCES, STRINGS, DESCRIPTIONS = 3, 8, 9  # segments
KIND_MASK, ENUMERATION, CLASS = 0xF, 0, 5  # kinds of types
NONE = 0xFFFFFFFF
AT_ONCE = 1 << 31  # in the place of an offset: what follows is the value itself
HEAD_OF_FUNCTION, HEAD_OF_VARIABLE, PARAMETER = 6, 5, 3  # words of records, before what is optional
HELP = 1  # which of the optional words
HAS_DEFAULTS = 0x1000
BY_REFERENCE, USER_DEFINED = 26, 29  # kinds of values
RESTRICTED = 1  # a flag of a function
RESULT, OPTIONAL, DEFAULT = 8, 0x10, 0x20  # flags of a parameter
BASIC = {2: "Integer", 3: "Long", 4: "Single", 5: "Double", 6: "Currency", 7: "Date", 8: "String",
         9: "Object", 11: "Boolean", 12: "Variant", 13: "Unknown", 24: "", 25: ""}  # fmt: skip
METHOD, GET, LET, SET = 1, 2, 4, 8  # what calling a function does


@dataclasses.dataclass
class Argument:
    name: str
    type: str
    by_reference: bool
    is_optional: bool
    default: str  # empty for none


@dataclasses.dataclass
class Member:
    name: str
    help: str
    call: int = 0  # METHOD and so on; 0 for a value of an enumeration
    type: str = ""  # of the result; empty for none
    arguments: list = dataclasses.field(default_factory=list)
    value: int = 0
    is_settable: bool = False  # a property
    id: int = 0  # by which it is called


@dataclasses.dataclass
class Published:
    name: str
    kind: int
    help: str
    members: list
    offers: list  # of a class: the names of its interfaces; of an interface: the one that it extends
    flags: int
    identifier: str  # in braces


class Reader:
    def __init__(self, data):
        self._data = data
        self._offsets, self._table = segments(data)
        self._names = [found.name for found in types(data)]

    def published(self):
        for name, offset in zip(self._names, self._offsets):
            record = words(self._data, self._table[TYPES][0] + offset, 25)
            kind = record[0] & KIND_MASK
            yield Published(name, kind, self._string(record[15]), list(self._members(record)),
                            list(self._offered(kind, record)), record[12],
                            self._identifier(record[11]))  # fmt: skip

    @property
    def library(self):
        """Name, identifier and version."""
        identifier, version, name = (words(self._data, at, 1)[0] for at in (8, 0x18, 0x38))
        return f"{self._name(name)} {self._identifier(identifier)} {version & 0xFFFF}.{version >> 16}"

    @property
    def library_help(self):
        return self._string(words(self._data, 0x24, 1)[0])

    def _identifier(self, offset):
        at = self._table[GUIDS][0] + offset
        return f"{{{uuid.UUID(bytes_le=self._data[at : at + 16])}}}".upper()

    def _offered(self, kind, record):
        reference = record[21]
        if kind != CLASS:
            yield from [self._referred(reference)] if reference in self._offsets else []
            return
        while reference != NONE:
            found = words(self._data, self._table[REFERENCES][0] + reference, 4)
            yield self._referred(found[0])
            reference = found[3]

    def _members(self, record):
        begin, functions, variables = record[1], record[6] & 0xFFFF, record[6] >> 16
        count = functions + variables
        if not count:
            return
        at = begin + 4
        told = words(self._data, at + words(self._data, begin, 1)[0], 2 * count)
        for number, (identifier, name) in enumerate(zip(told[:count], told[count:])):
            size = words(self._data, at, 1)[0] & 0xFFFF
            read = self._function if number < functions else self._variable
            member = read(self._name(name), words(self._data, at, size // 4))
            if member:
                member.id = identifier
                yield member
            at += size

    def _function(self, name, record):
        if record[2] & RESTRICTED:
            return None
        count = record[5] & 0xFFFF
        parameters = record[len(record) - PARAMETER * count :]
        optional = record[HEAD_OF_FUNCTION : len(record) - PARAMETER * count]
        defaults = [NONE] * count
        if record[4] & HAS_DEFAULTS:
            optional, defaults = optional[: len(optional) - count], optional[len(optional) - count :]
        text = self._string(optional[HELP]) if len(optional) > HELP else ""
        member = Member(name, text, record[4] >> 3 & 0xF)
        for i in range(count):
            kind, called, flags = parameters[PARAMETER * i : PARAMETER * (i + 1)]
            named, by_reference = self._type(kind)
            if flags & RESULT:
                member.type = named
            else:
                default = self._default(defaults[i]) if flags & DEFAULT else ""
                member.arguments.append(Argument(self._name(called) if called != NONE else "", named,
                                                 by_reference, bool(flags & OPTIONAL), default))  # fmt: skip
        return member

    def _variable(self, name, record):
        optional = record[HEAD_OF_VARIABLE:]
        text = self._string(optional[HELP]) if len(optional) > HELP else ""
        return Member(name, text, value=record[4] & 0x3FFFFFF)

    def _string(self, offset):
        if offset == NONE:
            return ""
        at = self._table[STRINGS][0] + offset
        return self._text(at + 2, words(self._data, at, 1)[0] & 0xFFFF)

    def _name(self, offset):
        at = self._table[NAMES][0] + offset
        return self._text(at + 12, self._data[at + 8])

    def _text(self, at, length):
        return self._data[at : at + length].decode("cp1252", "replace")

    def _referred(self, reference):
        return self._names[self._offsets.index(reference)]

    def _type(self, code):
        """The type's name, and whether it is a reference to a value of it."""
        if code & AT_ONCE:
            return BASIC[code & 0xFFFF], False
        first, second = words(self._data, self._table[DESCRIPTIONS][0] + code, 2)
        kind = first & 0xFFFF
        if kind == USER_DEFINED:
            return self._referred(second), False
        if kind != BY_REFERENCE:
            return BASIC[kind], False
        inner = BASIC[second & 0xFFFF] if second & AT_ONCE else self._type(second)[0]
        return inner, inner in BASIC.values()

    def _default(self, code):
        if code & AT_ONCE:
            return str(code & 0x3FFFFFF)
        at = self._table[VALUES][0] + code
        return '"' + self._text(at + 6, words(self._data, at + 2, 1)[0]) + '"'


def as_hosts_see_them(data):
    """The classes, with the members of all that they offer, their events, and the enumerations."""
    types = {one.name: one for one in Reader(data).published()}
    classes = [one for one in types.values() if one.kind == CLASS]
    events = [types[name] for one in classes for name in one.offers[1:]]
    names = {}  # by which hosts know interfaces
    for one in classes:
        chain = [types[one.offers[0]]]
        while chain[0].offers:
            chain.insert(0, types[chain[0].offers[0]])
        names.update({found.name: one.name for found in chain})
        one.members = merged([member for found in chain for member in found.members])
    for member in [member for one in [*classes, *events] for member in one.members]:
        for typed in [member, *member.arguments]:
            typed.type = names.get(typed.type, typed.type)
    return [one for one in types.values() if one.kind in (CLASS, ENUMERATION) or one in events]


def merged(members):
    """One entry for a property, however many ways there are to call it."""
    found = {}
    for member in members:
        first = found.setdefault(member.name, member)
        if member.call == GET:
            first.type, first.arguments = member.type, member.arguments
        first.is_settable = first.is_settable or member.call in (LET, SET)
    return list(found.values())
