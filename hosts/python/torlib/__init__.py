"""Slab foundations, frames, walls and piled rafts on elastic soil by finite elements.

The classes, their members, the enumerations and the records of this module are those of the library;
they are built from the library's own tables when the module is loaded. docs/python.md tells how
arrays, results, errors, cancelling and Python objects as windows work.
"""

from . import _torlib, classes as _classes
from ._torlib import Array, ByRef, CreateObject, Object
from .classes import Default, RunTimeError

for _public in Array, ByRef, Object, RunTimeError:
    _public.__module__ = __name__
_published = _classes.build(__name__)
globals().update(_published)

__all__ = ["Array", "ByRef", "CreateObject", "Default", "Object", "RunTimeError", *_published]
