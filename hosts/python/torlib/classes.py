"""Builds the Python classes from the library's tables of classes, records and enumerations."""

import enum
import functools
import keyword

from . import _torlib


class RunTimeError(Exception):
    """An error of the library: number, the member at work, and a description."""

    def __init__(self, number, member="", description=""):
        super().__init__(number, member, description)
        self.number = int(number)
        self.member = member
        self.description = description

    def __str__(self):
        where = f"{self.member}: " if self.member else ""
        return f"{where}{self.description} (error {self.number})"


def build(module):
    """Every published class by its name, as a member of the module of this name."""
    _torlib.publish("RunTimeError", RunTimeError)
    published = {}
    for name, values in _torlib.enumerations():
        published[name] = enum.IntEnum(name, values, module=module)
    for name, doc, fields in _torlib.records():
        published[name] = _record_class(name, doc, fields)
    for name, doc, members in _torlib.classes():
        published[name] = _public_class(name, doc, members)
    for name, made in published.items():
        made.__module__ = module
        _torlib.publish(name, made)
    return published


def Default(public_class):
    """The implicit default instance of a public class: Default(torlib.Math_Class).

    By its identifier, Default("TORVALib.Math_Class"), also that of a class of another server.
    """
    if not isinstance(public_class, str):
        return _own_default(public_class.__name__)
    name = _torlib.own_class(public_class)
    return _own_default(name) if name else _torlib.registered_default(public_class)


@functools.cache
def _own_default(name):
    return _torlib.default_object(name)


def _public_class(name, doc, members):
    def __init__(self):
        _torlib.Object.__init__(self, name)
        _torlib.remember(self)

    body = {"__doc__": doc, "__slots__": (), "__init__": __init__}
    readers, writers = {}, {}
    for member in members:
        function = _member_function(name, *member)
        kind, parameters = member[1], member[3]
        if kind == "get" and not parameters:
            readers[member[0]] = function
        elif kind == "put" and len(parameters) == 1:
            writers[member[0]] = function
        else:
            # A property that takes indices is a pair of methods.
            body[("put_" if kind == "put" else "") + member[0]] = function
    for prop in {**readers, **writers}:
        reader, writer = readers.get(prop), writers.get(prop)
        body[prop] = property(reader, writer, doc=(reader or writer).__doc__)
    return type(name, (_torlib.Object,), body)


def _member_function(class_name, name, kind, doc, parameters, result, row):
    names = [_identifier(parameter[0]) for parameter in parameters]
    described = [
        python_name if not optional else f"{python_name}={default!r}"
        for python_name, (_, _, _, optional, default) in zip(names, parameters)
    ]
    text = [doc, ""]
    for python_name, (_, type_name, changed, optional, _) in zip(names, parameters):
        marks = (", changed" if changed else "") + (", optional" if optional else "")
        text.append(f"    {python_name}: {type_name}{marks}")
    results = ["the result"] if result != "None" else []
    results += [
        python_name
        for python_name, (_, type_name, changed, _, _) in zip(names, parameters)
        if changed and not type_name.startswith("array of ") and not _is_record(type_name)
    ]
    if results:
        one = len(results) == 1
        said = f"{result}" if one and result != "None" else ", ".join(results)
        text.append(f"Returns: {said if one else '(' + said + ')'}")
    return _function(name, f"{class_name}.{name}", "\n".join(text).strip(), names, described, row)


def _function(name, qualified_name, doc, names, described, call):
    """A Python function with a real signature, so that help() and inspect see it as it is."""
    source = (
        f"def {_identifier(name)}(self{''.join(', ' + one for one in described)}):\n"
        f"    return _call_({', '.join(['self', *names])})\n"
    )
    scope = {"_call_": call}
    exec(source, scope)  # the text is made of the library's own names
    function = scope[_identifier(name)]
    function.__doc__ = doc
    function.__qualname__ = qualified_name
    return function


def _identifier(name):
    return name + "_" if keyword.iskeyword(name) else name


@functools.cache
def _record_names():
    return {name for name, _, _ in _torlib.records()}


def _is_record(type_name):
    return type_name in _record_names()


def _record_class(name, doc, fields):
    scalars = [field for field, _, is_array in fields if not is_array]

    def fill(self, *values):
        _torlib.Record.__init__(self, name)
        for field, value in zip(scalars, values):
            if value is not None:
                setattr(self, field, value)

    def __repr__(self):
        return f"{name}({', '.join(f'{field}={getattr(self, field)!r}' for field, _, _ in fields)})"

    def __eq__(self, other):
        if type(other) is not type(self):
            return NotImplemented
        return all(getattr(self, field) == getattr(other, field) for field in scalars)

    body = {
        "__doc__": doc,
        "__slots__": (),
        "__init__": _function("__init__", f"{name}.__init__", None, scalars,
                              [f"{field}=None" for field in scalars], fill),
        "__repr__": __repr__,
        "__eq__": __eq__,
        "__hash__": None,
    }
    for number, (field, type_name, _) in enumerate(fields):
        body[field] = property(
            lambda self, n=number: self._get(n),
            lambda self, value, n=number: self._put(n, value),
            doc=type_name,
        )
    return type(name, (_torlib.Record,), body)
