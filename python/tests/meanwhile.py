"""Whether other threads of Python run during a call."""

import sys
import threading
import time


def lets_others_run(work, seconds=30):
    """Whether another thread takes a step while work() is called over and over, which it does only
    where work() gives up the interpreter's lock."""
    steps = []
    done = threading.Event()

    def count():
        while not done.wait(0.0001):
            steps.append(None)

    interval = sys.getswitchinterval()
    thread = threading.Thread(target=count)
    thread.start()
    try:
        while not steps:
            time.sleep(0.001)
        sys.setswitchinterval(1000)  # nobody is made to give up the lock
        before = len(steps)
        end = time.monotonic() + seconds
        while len(steps) == before and time.monotonic() < end:
            work()
        return len(steps) > before
    finally:
        sys.setswitchinterval(interval)
        done.set()
        thread.join()
