"""Values of the vision kit: texts, numbers, images, regions, figures, and the variant that carries
them from tool to tool and from machine to machine.

>>> import kdrdata
>>> recipe = kdrdata.Variant([1, "two", [3.5, True]])
>>> kdrdata.from_bytes(kdrdata.to_bytes(recipe)) == recipe
True
"""

from collections.abc import MutableSequence as _MutableSequence

from . import _kdrdata
from ._kdrdata import *  # noqa: F401,F403
from ._kdrdata import __version__
from ._kinds import Kind

__all__ = sorted(["Kind", *(name for name in vars(_kdrdata) if not name.startswith("_"))])


def _restored(cls, data, pictures):
    """What pickle calls to make an object again."""
    return cls._from_parts(data, pictures)


def _register_sequences():
    """Gives every list its place among Python's sequences, with the methods they have in common."""
    given = ("__contains__", "__iter__", "__reversed__", "__iadd__", "index", "count", "pop", "remove", "reverse")
    for name in __all__:
        cls = globals()[name]
        if isinstance(cls, type) and getattr(cls, "_is_sequence", False):
            for method in given:
                if method not in vars(cls):
                    setattr(cls, method, getattr(_MutableSequence, method))
            _MutableSequence.register(cls)


_register_sequences()
