"""Tools that wait or kill, for workers to import."""

from __future__ import annotations

import os
import pathlib
import time
from typing import Any

from inspection import named as plainly_named
from inspection import read as plainly_read
from kdrdata import Variant

GATE = "DISTURBED_GATE"
BEFORE_THE_GATE = 2
_done = 0


def named(*given: Any) -> Variant:
    """Gives its first results at once; holds every other back in its process until the gate is there."""
    global _done
    gate = pathlib.Path(os.environ[GATE])
    while _done >= BEFORE_THE_GATE and not gate.exists():
        time.sleep(0.01)
    _done += 1
    return plainly_named(*given)


def read(path: str) -> Variant:
    """Dies of one picture."""
    if "deadly" in path:
        os._exit(1)
    return plainly_read(path)
