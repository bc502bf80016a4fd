"""What the documentation shows is what happens."""

import collections.abc
import doctest
import os
import pathlib
import re

import pytest

import kdrdata

PAGE = pathlib.Path(__file__).parents[2] / "docs" / "pages" / "python.md"


def run(text, names, title):
    test = doctest.DocTestParser().get_doctest(text, names, title, None, 0)
    assert test.examples
    runner = doctest.DocTestRunner(verbose=False)
    said = []
    result = runner.run(test, out=said.append, clear_globs=False)
    assert result.failed == 0, "".join(said)
    return test.globs


@pytest.fixture
def elsewhere(tmp_path):
    before = os.getcwd()
    os.chdir(tmp_path)
    yield
    os.chdir(before)


def test_the_page_of_the_package(elsewhere):
    blocks = re.findall(r"```python\n(.*?)```", PAGE.read_text(encoding="utf-8"), re.DOTALL)
    assert len(blocks) > 3
    names = {}
    for number, block in enumerate(blocks):
        names = run(block, names, f"block {number}")


def test_the_package_itself(elsewhere):
    run(kdrdata.__doc__, {}, "kdrdata")


def test_everything_is_documented():
    undocumented = []
    for name in kdrdata.__all__:
        thing = getattr(kdrdata, name)
        if not thing.__doc__:
            undocumented.append(name)
        if isinstance(thing, type):
            for each, member in vars(thing).items():
                is_ours = getattr(collections.abc.MutableSequence, each, None) is not member
                if is_ours and not each.startswith("_") and not isinstance(member, int):
                    # Functions begin with their signatures.
                    text = re.sub(rf"\A{each}\(.*\n?", "", member.__doc__ or "")
                    if not text.strip():
                        undocumented.append(f"{name}.{each}")
    assert not undocumented
