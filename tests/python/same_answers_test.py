"""Every member of every class from Python: the results, the changed arrays, the errors and what is
done to windows are those of the C++ calls that the program `answers` writes."""

import itertools
import json
import os
import struct
import subprocess
import unittest

import numpy
import torlib
from torlib import _torlib


class Watched:
    """A control that writes what is done to it."""

    def __init__(self, log, name, *watched, **more):
        vars(self).update(_log=log, _name=name, _watched=watched, **dict.fromkeys(watched, 0), **more)

    def __setattr__(self, member, value):
        vars(self)[member] = value
        if member in self._watched:
            self._log.append(f"{self._name}.{member}={value};")


class Panels(Watched):
    def Item(self, index, text):
        self._log.append(f"Item{index}={text};")


class Window(Watched):
    def __init__(self):
        log = []
        bar = Watched(log, "PrB", "Value", "Max")
        vars(bar)["Max"] = 7
        super().__init__(
            log, "window", "Visible", "Caption", PrB=bar,
            lbltime=Watched(log, "lbltime", "Visible", "Caption"),
            LblStufe=Watched(log, "LblStufe", "Caption"), Panels=Panels(log, "Panels"))
        vars(self)["Visible"] = True

    def Unload(self):
        self._log.append("Unload;")

    def Refresh(self):
        self._log.append("Refresh;")


def decoded(value, as_numpy):
    if not isinstance(value, dict):
        return value
    if "window" in value:
        return Window()
    array = torlib.Array(*map(tuple, value["bounds"]), dtype=value["dtype"])
    if value["dtype"] == "str":
        for place, text in zip(places(array), value["elements"]):
            array[place] = text
    else:
        memory = array[:].reshape(-1, order="F")
        memory[:] = value["elements"]
    if as_numpy and value["dtype"] != "str" and all(lower == 0 for lower, _ in value["bounds"]):
        return numpy.array(array[:], order="F")
    return array


def places(array):
    """The indices column by column."""
    ranges = [range(array.LBound(d), array.UBound(d) + 1) for d in range(array.Dimensions, 0, -1)]
    return [tuple(reversed(place)) for place in itertools.product(*ranges)]


def encoded(array):
    if isinstance(array, numpy.ndarray):
        bounds = [[0, extent - 1] for extent in array.shape]
        return bounds, bits(array.reshape(-1, order="F").tolist())
    elements = [array[place] for place in places(array)]
    bounds = [[array.LBound(d), array.UBound(d)] for d in range(1, array.Dimensions + 1)]
    return bounds, bits(elements)


def bits(values):
    """Types and bits of numbers, so that 0 and -0, 1 and True differ."""
    return [("float", struct.pack("<d", v)) if isinstance(v, float) else (type(v), v) for v in values]


class SameAnswers(unittest.TestCase):
    def setUp(self):
        self.torva = torlib.TORVAClass()
        _torlib.set_clock(43200)
        self.addCleanup(_torlib.set_clock, None)
        self.addCleanup(setattr, self.torva, "Exitcontrol", 0)

    def call(self, case, given):
        instance = torlib.CreateObject("TORVALib." + case["class"])
        if case["kind"] == "get":
            return getattr(instance, case["member"])
        if case["kind"] == "put":
            return setattr(instance, case["member"], given[0])
        member = getattr(instance, case["member"])
        if all(value is not None for value in given):
            return member(*given)
        return member(**{n: v for n, v in zip(case["names"], given) if v is not None})

    def outcome(self, case, given):
        try:
            answer = self.call(case, given)
        except torlib.RunTimeError as error:
            return [error.number, str(error)], None
        except AttributeError as error:
            # What a Python window does not have is Python's own error.
            return [438, str(error)], None
        results = case["results"]
        answers = [] if not results else [answer] if len(results) == 1 else list(answer)
        return None, answers

    def compare(self, case, as_numpy):
        """True when the call came to its end."""
        self.torva.Exitcontrol = case["state"]
        given = [decoded(value, as_numpy) for value in case["given"]]
        error, answers = self.outcome(case, given)
        if as_numpy and error and error[0] == 10:
            return False  # the member gives a NumPy array new bounds
        if error and error[0] == 438:
            self.assertEqual(error[0], case["error"][0])
        else:
            self.assertEqual(error, case["error"])
        if not error:
            self.assertEqual(bits(answers), bits(case["results"]))
        for before, after in zip(given, case["after"]):
            if isinstance(before, (torlib.Array, numpy.ndarray)):
                self.assertEqual(encoded(before), (after["bounds"], bits(after["elements"])))
        logs = ["".join(one._log) for one in given if isinstance(one, Window)]
        self.assertEqual(logs, case["logs"])
        self.assertEqual(self.torva.Exitcontrol, case["state after"])
        return not error

    def test_every_member_of_every_class(self):
        lines = subprocess.run([os.environ["TORLIB_ANSWERS"]], check=True, capture_output=True)
        completed = {}
        in_numpy = 0
        for line in lines.stdout.splitlines():
            case = json.loads(line)
            name = case["class"], case["member"]
            with self.subTest(name):
                ended = self.compare(case, as_numpy=False)
                completed[name] = completed.get(name, 0) + ended
                in_numpy += self.compare(case, as_numpy=True)
        members = {(c, m[0]) for c, _, members in _torlib.classes() for m in members}
        self.assertEqual({name for name, count in completed.items() if count}, members)
        self.assertGreater(in_numpy, len(members))


if __name__ == "__main__":
    unittest.main()
