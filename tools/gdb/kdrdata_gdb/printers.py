"""The pretty printers, one for each public class, and the setting that lets elements unfold."""

import gdb
import gdb.printing

from . import core, pieces, qt, records
from .memory import checked, target

# Arrays: the class of the elements where they are handles in memory, and the way to one from its
# slot; otherwise the elements are shown as text.
ELEMENTS = {
    "KDRNumberArray": ("KDRNumber", records.itself),
    "KDRBoolArray": ("bool", records.itself),
    "KDREnumArray": ("KDREnum", records.itself),
    "KDRBufferArray": ("KDRBuffer", records.itself),
    "KDRShapeArray": ("KDRShape", records.itself),
    "KDRVariantArray": ("KDRVariant", target),
}
TEXT_ELEMENTS = {"KDRStringArray": records.string}
CORE_ELEMENTS = {
    "KDRPointArray": ("VelPoint", core.point),
    "KDRContour": ("VelPoint", core.point),
    "KDRContourArray": ("VelContour", core.contour),
    "KDRImageArray": ("VelImage", core.image),
    "KDRRegionArray": ("VelRegion", core.region),
    "KDRMatrixArray": ("VelMatrix", core.matrix),
    "KDRROIAlignment": ("VelMatrix", core.matrix),
}
ARRAYS = {**ELEMENTS, **TEXT_ELEMENTS, **CORE_ELEMENTS}


def speaks_to_a_program():
    """Whether a graphical front end drives GDB."""
    try:
        with open("/proc/self/cmdline", "rb") as command:
            words = command.read().decode(errors="replace").split("\0")
    except OSError:
        return False
    options = ("-i", "--i", "-interpreter", "--interpreter")
    return any(word.startswith(tuple(option + "=" for option in options)) or word in options
               for word in words)


class ShowElements(gdb.Parameter):
    """Whether the elements of KDRData's arrays follow the text of the array, each by itself.

'auto' lets them follow where a front end shows them as a tree, and not on the command line, where
the text says them already."""

    set_doc = "Set whether the elements of KDRData's arrays are printed one by one."
    show_doc = "Show whether the elements of KDRData's arrays are printed one by one."

    def __init__(self):
        super().__init__("print kdrdata-elements", gdb.COMMAND_DATA, gdb.PARAM_ENUM,
                         ["auto", "on", "off"])
        self.value = "auto"

    def get_set_string(self):
        return ""

    def get_show_string(self, value):
        return "Whether the elements of KDRData's arrays are printed one by one is %s." % value

    def is_on(self):
        return self.value == "on" or (self.value == "auto" and speaks_to_a_program())


show_elements = ShowElements()


def writable(text):
    """The text as far as GDB can write it: without UTF-8, other characters by their numbers."""
    charset = gdb.target_charset()
    try:
        return text.encode(charset, "backslashreplace").decode(charset)
    except (LookupError, UnicodeError):
        return text.encode("ascii", "backslashreplace").decode("ascii")


def value_at(name, place):
    """A value that GDB unfolds further, where the program's debug information has the class."""
    try:
        kind = gdb.lookup_type(name)
    except gdb.error:
        return None
    if name != "bool" and not kind.fields():
        return None
    return gdb.Value(place).cast(kind.pointer()).dereference()


def elements_of(name, place):
    """The elements of an array, by what its handle points to: values or texts."""
    if name in ELEMENTS:
        element, reach = ELEMENTS[name]
        items = qt.List(place)
        for i in range(items.length):
            at = reach(items.slot(i))
            value = value_at(element, at)
            yield records.object_text(element, at, 0, False) if value is None else value
    elif name in TEXT_ELEMENTS:
        items = qt.List(place)
        for i in range(items.length):
            yield TEXT_ELEMENTS[name](items.slot(i), 0, False)
    else:
        element, form = CORE_ELEMENTS[name]
        items = core.Elements(place, element)
        for i in range(items.length):
            yield form(items.at(i), 0, False)


class Printer:
    """Shows a value of a public class."""

    def __init__(self, name, value):
        self._name = name
        self._value = value
        if show_elements.is_on() and self._array():
            self.children = self._elements
            self.display_hint = lambda: "array"

    def to_string(self):
        return writable(pieces.guarded(self._text))

    def _text(self):
        if self._name in records.NO_DATA:
            return "no data"
        if self._name in records.HANDLES:
            return records.handle_text(self._name, self._held(), 0, True)
        if self._value.address is None:
            return "<not in memory>"
        return records.object_text(self._name, int(self._value.address), 0, True)

    def _held(self):
        """What the handle's pointer points to."""
        return checked(int(self._value["d"]))

    def _array(self):
        """The class and the place of the array that this value is or, if it is a variant, holds."""
        try:
            if self._name in ARRAYS:
                return self._name, self._held()
            if self._name == "KDRVariant":
                lock = records.record("KDRVariantLock", self._held())
                name, place = records.payload(lock.target("d"))
                return (name, target(place)) if name in ARRAYS else None
        except Exception:  # pylint: disable=broad-except
            # The text says what is wrong with it.
            pass
        return None

    def _elements(self):
        array = self._array()
        if not array:
            return
        elements = elements_of(*array)
        i = 0
        while True:
            try:
                element = next(elements)
            except StopIteration:
                return
            except Exception as error:  # pylint: disable=broad-except
                yield "[%d]" % i, "<%s>" % error
                return
            yield "[%d]" % i, writable(element) if isinstance(element, str) else element
            i += 1


class Collection(gdb.printing.PrettyPrinter):
    """The printers by the names of the classes."""

    def __init__(self):
        names = set(records.HANDLES) | set(records.OBJECTS) | set(records.NO_DATA)
        super().__init__("KDRData", [gdb.printing.SubPrettyPrinter(name)
                                     for name in sorted(names - {"bool"})])
        self._by_name = {printer.name: printer for printer in self.subprinters}

    def __call__(self, value):
        if value.type.code in (gdb.TYPE_CODE_REF, getattr(gdb, "TYPE_CODE_RVALUE_REF", None)):
            value = value.referenced_value()
        name = value.type.unqualified().strip_typedefs().tag
        printer = self._by_name.get(name)
        return Printer(name, value) if printer and printer.enabled else None


def register(objfile):
    gdb.printing.register_pretty_printer(objfile, Collection(), replace=True)
