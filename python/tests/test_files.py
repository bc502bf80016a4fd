"""Saving, loading, and the texts and pages of values."""

import io
import os
import pickle
import xml.etree.ElementTree

import pytest

import kdrdata
from kdrdata import Error, Limits, Variant, from_bytes, load, save, to_bytes, to_html, to_json

VALUE = [1, "two", [3.5, None, b"four"]]


def test_what_is_saved_loads(tmp_path):
    for path in (tmp_path / "a.kdr", str(tmp_path / "gr\u00fcn.kdr"), os.fsencode(tmp_path / "b")):
        save(VALUE, path)
        assert load(path) == Variant(VALUE)
        with open(path, "rb") as file:
            assert file.read() == to_bytes(VALUE)
        save(2, path)
        assert load(path).value == 2
    assert len(os.listdir(tmp_path)) == 3


def test_bytes_of_any_owner_are_read():
    data = to_bytes(VALUE)
    for owner in (data, bytearray(data), memoryview(data), kdrdata.Buffer(data)):
        assert from_bytes(owner).value == VALUE
    with pytest.raises(TypeError):
        from_bytes("text")


def test_what_the_system_refuses_is_an_os_error(tmp_path):
    with pytest.raises(FileNotFoundError) as missing:
        load(tmp_path / "none")
    assert missing.value.filename == tmp_path / "none"
    for path, error in (
        (tmp_path / "no" / "where", FileNotFoundError),
        (tmp_path, IsADirectoryError),
        ("", FileNotFoundError),
    ):
        with pytest.raises(error):
            load(path)
        with pytest.raises(error):
            save(1, path)
    (tmp_path / "file").write_bytes(b"")
    with pytest.raises(NotADirectoryError):
        load(tmp_path / "file" / "below")
    with pytest.raises(OSError):
        save(1, tmp_path / "file" / "below")
    for path in (1, None):
        with pytest.raises(TypeError):
            load(path)


def test_what_is_no_value_is_an_error_that_tells_where(tmp_path):
    path = tmp_path / "broken.kdr"
    path.write_bytes(to_bytes(VALUE)[:-1])
    with pytest.raises(Error) as broken:
        load(path)
    error = broken.value
    assert isinstance(error, ValueError)
    assert error.file == str(path)
    assert error.what and error.what in str(error) and str(path) in str(error)
    assert isinstance(error.offset, int) and error.offset > 0
    assert isinstance(error.path, str)
    assert str(pickle.loads(pickle.dumps(error))) == str(error)
    with pytest.raises(Error) as nothing:
        from_bytes(b"")
    assert nothing.value.file is None


def test_limits_are_kept():
    assert from_bytes(to_bytes(VALUE), Limits()).value == VALUE
    for limits in (Limits(nesting=1), Limits(bytes=5), Limits(elements=2)):
        with pytest.raises(Error):
            from_bytes(to_bytes(VALUE), limits)
    limits = Limits(pixels=7)
    limits.bytes = 9
    assert repr(limits) == "Limits(nesting=256, bytes=9, elements=16777216, pixels=7)"
    with pytest.raises(TypeError):
        from_bytes(to_bytes(VALUE), 5)


def deep(levels):
    value = Variant(0)
    for _ in range(levels):
        value = Variant([value, value])
    return value


def test_a_value_that_cannot_be_saved_is_an_error_and_leaves_no_file(tmp_path):
    value = deep(300)
    for attempt in (
        lambda: save(value, tmp_path / "deep"),
        lambda: to_bytes(value),
        lambda: to_json(value),
        lambda: pickle.dumps(value),
    ):
        with pytest.raises(Error, match="inside of each other"):
            attempt()
    assert os.listdir(tmp_path) == []


def test_options_are_named():
    assert from_bytes(to_bytes(VALUE, pixels="smaller")).value == VALUE
    with pytest.raises(ValueError, match="smaller"):
        to_bytes(VALUE, pixels="tiny")


def test_json_is_shorter_where_it_is_asked_to_be():
    assert to_json([1, "a"], compact=True) == '[1,"a"]'
    numbers = list(range(10))
    assert to_json(numbers, longest=9) != to_json(numbers, longest=10) == to_json(numbers, longest=-1)


def test_the_page_reads_as_xml_and_holds_the_value():
    page = to_html(["a text of its own", 1], title="<title>")
    root = xml.etree.ElementTree.fromstring(page.split("\n", 1)[1] if "<!DOCTYPE" in page else page)
    text = "".join(root.itertext())
    assert "a text of its own" in text
    assert "<title>" in text
