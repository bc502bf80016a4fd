"""Whether other threads of Python run during a call."""

import sys
import threading
import time

# Long beyond any that a test takes: what waits for so long, waits for ever.
FOR_EVER = 120


def lets_others_run(work, calls=sys.maxsize):
    """Whether another thread takes a step while work() is called over and over, so many times at
    most, which it does only where work() gives up the interpreter's lock."""
    has_run = []
    may_run = threading.Lock()

    def other():
        with may_run:
            has_run.append(None)

    interval = sys.getswitchinterval()
    thread = threading.Thread(target=other)
    may_run.acquire()
    try:
        sys.setswitchinterval(1e6)  # nobody is made to give up the lock
        thread.start()
        may_run.release()
        ends = time.monotonic() + FOR_EVER
        for _ in range(calls):
            work()
            if has_run or time.monotonic() > ends:
                break
        return bool(has_run)
    finally:
        sys.setswitchinterval(interval)
        thread.join()
