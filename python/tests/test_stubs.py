"""The stubs say what the module has, and type checkers read them."""

import ast
import os
import pathlib
import subprocess
import sys
import textwrap

import pytest

import kdrdata
from kdrdata import _kdrdata

PACKAGE = pathlib.Path(kdrdata.__file__).parent
SAMPLE = pathlib.Path(__file__).with_name("typed_sample.py")

# What every class has, or what is pickle's alone.
COMMON = {
    "__dict__", "__doc__", "__getstate__", "__hash__", "__module__", "__new__", "__reduce_ex__",
    "__repr__", "__str__", "__weakref__",
}  # fmt: skip


def names_in(body):
    names = set()
    for node in body:
        if isinstance(node, (ast.FunctionDef, ast.ClassDef)):
            names.add(node.name)
        elif isinstance(node, ast.AnnAssign):
            names.add(node.target.id)
        elif isinstance(node, ast.Assign):
            names.update(target.id for target in node.targets)
    return names


@pytest.fixture(scope="module")
def stub():
    return ast.parse((PACKAGE / "_kdrdata.pyi").read_text(encoding="utf-8")).body


def is_public(name):
    return not name.startswith("_") or (name.startswith("__") and name.endswith("__"))


def test_the_stub_has_the_names_of_the_module(stub):
    expected = {name for name in vars(_kdrdata) if not name.startswith("_")}
    assert {name for name in names_in(stub) if not name.startswith("_")} == expected


def test_the_classes_in_the_stub_have_the_names_of_the_module(stub):
    classes = {node.name: node for node in stub if isinstance(node, ast.ClassDef)}
    shared = names_in(classes["_Sequence"].body)

    def names_of(cls):
        """What a class has of its own and of the stub's classes that it is derived from."""
        names = names_in(cls.body)
        for base in cls.bases:
            if getattr(base, "id", None) in classes:
                names |= names_of(classes[base.id])
        return names

    # From Python's own class.
    given = {"__contains__", "__iadd__", "__iter__", "__reversed__"}
    given |= {"count", "index", "pop", "remove", "reverse"}
    different = {}
    for name, cls in vars(_kdrdata).items():
        if name.startswith("_") or not isinstance(cls, type) or name in ("Error", "ShapeKind"):
            continue
        found = {each for each in vars(cls) if is_public(each)} - COMMON
        bodies = [classes[name].body]
        bodies += [classes[base.id].body for base in classes[name].bases if isinstance(base, ast.Name)]
        said = {each for body in bodies for each in names_in(body) if is_public(each)} - COMMON
        if getattr(cls, "_is_sequence", False):
            found -= shared | given
        if found != said:
            different[name] = (sorted(found - said), sorted(said - found))
    assert not different, "in the module alone, and in the stub alone"


@pytest.fixture(scope="module")
def cache(tmp_path_factory):
    return tmp_path_factory.mktemp("mypy")


def mypy(cache, *arguments):
    return subprocess.run(
        [sys.executable, "-m", "mypy", "--strict", "--cache-dir", str(cache), *map(str, arguments)],
        env={**os.environ, "MYPYPATH": str(PACKAGE.parent)},
        capture_output=True,
        text=True,
        check=False,
    )


def test_type_checkers_read_the_package_and_a_program_over_it(cache):
    stubs = (PACKAGE / "_kdrdata.pyi", PACKAGE / "__init__.pyi", PACKAGE / "_kinds.py")
    result = mypy(cache, SAMPLE, *stubs)
    assert result.returncode == 0, result.stdout + result.stderr


def test_type_checkers_find_what_is_wrong(cache, tmp_path):
    wrong = tmp_path / "wrong.py"
    wrong.write_text(
        textwrap.dedent(
            """
            import kdrdata
            number: str = kdrdata.Number(1).value
            kdrdata.NumberArray(["a"])
            kdrdata.save(1, "file", pixels="tiny")
            kdrdata.Variant(1).no_such_name
            """
        ),
        encoding="utf-8",
    )
    result = mypy(cache, wrong)
    errors = [int(line.split(":")[1]) for line in result.stdout.splitlines() if ": error:" in line]
    assert errors == [3, 4, 5, 6]


def test_the_program_runs():
    result = subprocess.run(
        [sys.executable, str(SAMPLE)], capture_output=True, text=True, check=False
    )
    assert result.stdout == "done\n", result.stderr
