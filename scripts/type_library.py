"""The layout of a type library's file, as far as its size hints and its custom data go.

For each type the file tells how much memory the descriptions of its members take once they are read
("used"), and how large a block to take for them at first ("room"), which grows by doubling. Both are
counted for descriptions as they are in 32 bits. Types without members have neither.
"""

import struct

MARK = struct.pack("<2I", 0x5446534D, 0x10002)  # what a type library begins with
HEADER_SIZE = 0x54
HAS_HELP_LIBRARY = 0x100  # a flag of the header; one more word follows it then
TYPES, GUIDS, NAMES, VALUES, CUSTOM = 0, 5, 7, 11, 12  # segments
NO_MEMBERS = (0, 0xFFFFFFFF)
SMALLEST_ROOM = 0x40
HAS_DEFAULT = 0x20  # a flag of a parameter
CONSTANT = 2  # a kind of variable

# Bytes of a description in memory, and of the reference to it.
FUNCTION, PARAMETER, DEFAULT, VARIABLE, ITS_VALUE, REFERENCE = 52, 16, 24, 36, 16, 4


def words(data, at, count):
    return struct.unpack_from(f"<{count}I", data, at)


class Member:
    """One record of a function or a variable."""

    def __init__(self, data, at, is_function):
        self.size = words(data, at, 1)[0] & 0xFFFF
        self._record = words(data, at, self.size // 4)
        self.stated = self._record[3] >> 16  # bytes of its description in memory, in 16 bits
        self.least = self._least_of_function() if is_function else self._least_of_variable()

    def _least_of_function(self):
        count = self._record[5] & 0xFFFF
        # Parameters end the record, each with its flags.
        flags = self._record[-1 : -3 * count - 1 : -3]
        defaults = sum(1 for word in flags if word & HAS_DEFAULT)
        return FUNCTION + PARAMETER * count + DEFAULT * defaults

    def _least_of_variable(self):
        kind = self._record[3] & 0xFFFF
        return VARIABLE + (ITS_VALUE if kind == CONSTANT else 0)


class Type:
    """One type of the library: its hints, where they stand, and its members."""

    def __init__(self, data, at, names):
        _, begin, self.room, self.used, _, _, counts = words(data, at, 7)
        self.at = at + 8
        name = names + words(data, at + 0x34, 1)[0]
        self.name = data[name + 12 : name + 12 + data[name + 8]].decode()
        self.members = list(self._read_members(data, begin, counts & 0xFFFF, counts >> 16))

    @staticmethod
    def _read_members(data, begin, functions, variables):
        if functions + variables == 0:
            return
        at = begin + 4
        for number in range(functions + variables):
            member = Member(data, at, number < functions)
            yield member
            at += member.size
        if at != begin + 4 + words(data, begin, 1)[0]:
            raise ValueError("the records do not fill their place")

    def needed(self):
        """The room and the used that the members' own records ask for."""
        if not self.members:
            return NO_MEMBERS
        used = sum(member.stated + REFERENCE for member in self.members)
        room = SMALLEST_ROOM
        while room < used:
            room *= 2
        return room, used


def segments(data):
    flags, count = words(data, 0x14, 1)[0], words(data, 0x20, 1)[0]
    at = HEADER_SIZE + (4 if flags & HAS_HELP_LIBRARY else 0)
    offsets = words(data, at, count)
    table = [words(data, at + 4 * count + 16 * i, 2) for i in range(15)]
    return offsets, table


def types(data):
    """The library's types in the order of the file; throws for what is no type library."""
    if not data.startswith(MARK):
        raise ValueError("no type library")
    offsets, table = segments(data)
    return [Type(data, table[TYPES][0] + offset, table[NAMES][0]) for offset in offsets]


def custom_value(data, identifier):
    """Where the value of a custom datum of the library begins."""
    _, table = segments(data)
    begin, length = table[CUSTOM]
    for at in range(begin, begin + length, 12):
        guid, value, _ = words(data, at, 3)
        if data[table[GUIDS][0] + guid :][:16] == identifier:
            return table[VALUES][0] + value
    raise ValueError("no such custom datum")
