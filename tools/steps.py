#!/usr/bin/env python3
"""Counts the instructions of the library's central steps and compares them with what is committed.

Times depend on the machine and its mood, counts of instructions hardly do: they catch a step that
became dearer before anybody can feel it. They do depend on the compiler, on Qt and on the C
library, so that the committed file names those, and the comparison allows a share of difference.
"""

import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

ALLOWED_SHARE = 0.05
REPETITIONS = 100


def counts_of(program, runs):
    """Instructions inside each step function over the given number of runs, callees included."""
    with tempfile.TemporaryDirectory() as directory:
        profile = pathlib.Path(directory) / "profile"
        subprocess.run(
            [
                "valgrind", "--quiet", "--tool=callgrind", "--compress-strings=no",
                "--compress-pos=no", f"--callgrind-out-file={profile}", program, str(runs),
            ],
            check=True,
        )
        lines = profile.read_text().splitlines()
    counts = {}
    callee = None
    is_cost_of_call = False
    for line in lines:
        if line.startswith("cfn="):
            callee = line[len("cfn="):]
        elif line.startswith("calls="):
            is_cost_of_call = True
        elif is_cost_of_call:
            is_cost_of_call = False
            if callee and callee.startswith("step_"):
                counts[callee] = counts.get(callee, 0) + int(line.split()[-1])
    return counts


def measure(program):
    """Instructions of one step each. A later run is what the first one was, without what happens
    only once in a process."""
    fewer, more = counts_of(program, 3), counts_of(program, 4)
    if not fewer or fewer.keys() != more.keys():
        sys.exit(f"{program}: found no step functions; is it stripped?")
    return {
        name[len("step_"):]: (more[name] - fewer[name]) / REPETITIONS for name in fewer
    }


def read(path):
    counts = {}
    for line in path.read_text().splitlines():
        match = re.fullmatch(r"(\w+)\s+([0-9.]+)", line)
        if match:
            counts[match[1]] = float(match[2])
    return counts


def write(path, counts, environment):
    lines = [
        "# Instructions that one step takes, callees included, as Callgrind counts them in an",
        "# optimised build. Rewritten by `./dev steps --accept`, compared by `./dev steps`.",
        f"# {environment}",
    ]
    lines += [f"{name:<26} {count:10.1f}" for name, count in sorted(counts.items())]
    path.write_text("\n".join(lines) + "\n")


def compare(expected, counted):
    good = True
    for name in sorted(expected.keys() | counted.keys()):
        if name not in expected or name not in counted:
            print(f"{name:<26} is {'new' if name in counted else 'gone'}")
            good = False
            continue
        before, now = expected[name], counted[name]
        share = now / before - 1.0
        within = abs(share) <= ALLOWED_SHARE
        good = good and within
        print(f"{name:<26} {before:10.1f} {now:10.1f} {100 * share:+6.1f} %"
              + ("" if within else "  more than 5 % away"))
    return good


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program", help="the built program `steps`")
    parser.add_argument("file", type=pathlib.Path, help="the committed counts")
    parser.add_argument("--accept", metavar="ENVIRONMENT",
                        help="rewrite the file, naming compiler and libraries")
    options = parser.parse_args()
    counted = measure(options.program)
    if options.accept is not None:
        write(options.file, counted, options.accept)
        print(f"rewrote {options.file}; review the difference")
        return
    if not compare(read(options.file), counted):
        sys.exit("The counts differ from the committed ones: where that is meant, or compiler or "
                 "libraries changed, run ./dev steps --accept")


if __name__ == "__main__":
    main()
