"""Both bitnesses registered in one system, in every order."""

import itertools
import unittest

import harness
import test_registration as registration
from harness import BITS, TREES, windows_path, wine
from test_registration import CREATED, MACHINE, added

PROGRAMS = {64: r"C:\windows\system32", 32: r"C:\windows\syswow64"}


# Needs a system that runs programs of both bitnesses, which is there where 32-bit programs are.
@unittest.skipIf(BITS == 64, "runs with the tests in 32 bits")
class SideBySide(registration.RegistrationTest):
    system = "both"
    prefix = "prefixboth"

    @classmethod
    def setUpClass(cls):
        cls.choose_prefix()
        for bits in TREES:
            cls.change(bits, "/u")

    @staticmethod
    def change(bits, *options):
        path = windows_path(TREES[bits] / "CorvidAPI.dll")
        code, output = wine(f"{PROGRAMS[bits]}\\regsvr32.exe", "/s", *options, path)
        assert code == 0, f"{bits} bits, regsvr32 {options} failed: {code} {output}"

    def creations(self):
        """The bitnesses in which a script creates an object by its ProgID."""
        jobs = [lambda bits=bits: self.creation(PROGRAMS[bits]) for bits in TREES]
        said = self.run_together(jobs)
        return {bits for bits, one in zip(TREES, said) if one == CREATED}

    def test_every_order_leaves_what_each_bitness_alone_would_have(self):
        self.creations()  # the script hosts register themselves
        before = self.all_rows([MACHINE])
        steps = [(bits, options) for bits in TREES for options in ((), ("/u",))]
        orders = [one for one in itertools.permutations(steps)
                  if all(one.index((b, ())) < one.index((b, ("/u",))) for b in TREES)]  # fmt: skip
        self.assertEqual(len(orders), 6)
        seen = {}
        taken = set()
        for order in orders:
            registered = frozenset()
            for step in order:
                bits, options = step
                way = registered, step
                self.change(bits, *options)
                registered ^= {bits}
                with self.subTest(order=order, registered=registered):
                    self.assertEqual(self.creations(), registered)
                    # From equal entries a step leads to equal ones: once for each is enough.
                    if way not in taken:
                        rows = added(before, self.all_rows([MACHINE]))
                        self.assertEqual(rows, seen.setdefault(registered, rows))
                    taken.add(way)
        self.assertEqual(len(taken), 8)
        self.assertEqual(seen[frozenset()], {})
        both = seen[frozenset(TREES)]
        for bits in TREES:
            self.assertLess(seen[frozenset({bits})].items(), both.items())


if __name__ == "__main__":
    harness.main()
