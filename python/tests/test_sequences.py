"""Lists of the library behave as Python's list does."""

import collections.abc
import random

import pytest

import kdrdata

TEXTS = ["", "a", None, "bc", "d\U0001f600", "\ud800", "e", "f"]


def test_a_list_is_a_mutable_sequence():
    assert isinstance(kdrdata.StringArray(), collections.abc.MutableSequence)


def test_elements_come_back():
    assert list(kdrdata.StringArray(TEXTS)) == TEXTS
