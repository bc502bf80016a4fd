#!/usr/bin/env python3
"""Breaks one rule of the libraries at a time and shows which of them the tests catch.

Works in a copy of the tree, build/mutation/tree, and never touches the tree itself. See --help.
"""

import argparse
import collections
import contextlib
import hashlib
import json
import os
import pathlib
import pickle
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from mutation import equivalents, report  # noqa: E402
from mutation.instrument import HEADER, MOST, instrumented  # noqa: E402
from mutation.mutants import Finder, use_library  # noqa: E402

TOP = pathlib.Path(__file__).resolve().parent.parent
WORK = TOP / "build" / "mutation"
TREE = WORK / "tree"
# As the tree's own, so that a compiler cache knows what is not broken.
BUILD = TREE / "build" / "dev"
LIBRARIES = ("kdrdata", "veldata")


def say(text):
    print(f"mutate: {text}", flush=True)


def run(*command, **options):
    return subprocess.run([str(part) for part in command], check=True, **options)


# --- preparing ------------------------------------------------------------------------------------


def names_in_tree():
    """What git knows or would know; where the tree is none of git's, all but what was built."""
    try:
        listed = run(
            "git", "-C", TOP, "ls-files", "-z", "--cached", "--others", "--exclude-standard",
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL
        ).stdout.decode().split("\0")
    except (subprocess.CalledProcessError, FileNotFoundError):
        names = (path.relative_to(TOP) for path in TOP.rglob("*"))
        listed = [str(name) for name in names if name.parts[0] != "build"]
    return {name for name in listed if name and (TOP / name).is_file()}


def copy_tree():
    """Copies the tree with its changes, and nothing that was built."""
    TREE.mkdir(parents=True, exist_ok=True)
    wanted = names_in_tree()
    for name in wanted:
        copy = TREE / name
        content = (TOP / name).read_bytes()
        if not copy.exists() or copy.read_bytes() != content:
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(content)
            shutil.copymode(TOP / name, copy)
    for stale in TREE.rglob("*"):
        name = str(stale.relative_to(TREE))
        if stale.is_file() and not name.startswith("build/") and name not in wanted:
            stale.unlink()


def configure():
    os.environ["CCACHE_BASEDIR"] = str(TREE)
    os.environ["CCACHE_NOHASHDIR"] = "1"
    (WORK / "kdrmutation.h").write_text(HEADER)
    run(
        "cmake", "--preset", "dev", "-DKDRDATA_BUILD_BENCHMARKS=OFF", "-DKDRDATA_BUILD_EXAMPLES=OFF",
        cwd=TREE, stdout=subprocess.DEVNULL,
    )  # fmt: skip


def is_mutated(path, only):
    """Sources and internal headers of the libraries; public headers hold hardly any code."""
    return (
        path.startswith(only)
        and path.split("/")[0] in LIBRARIES
        and "/tests/" not in path
        and path.endswith((".cpp", "_p.h"))
        and (TREE / path).is_file()
    )


def find_mutants(only):
    libraries = sorted(pathlib.Path("/usr/lib").glob("llvm-*/lib/libclang.so.1"))
    if libraries:
        use_library(str(libraries[-1]))
    finder = Finder(str(TREE), lambda path: is_mutated(path, only))
    commands = json.loads((BUILD / "compile_commands.json").read_text())
    for command in commands:
        source = pathlib.Path(command["file"])
        if TREE not in source.parents or not is_mutated(str(source.relative_to(TREE)), only):
            continue
        words = command["command"].split()
        keep = [w for w in words if w.startswith(("-I", "-D", "-std"))]
        for flag in ("-isystem",):
            keep += [w for i, word in enumerate(words) if word == flag for w in (flag, words[i + 1])]
        finder.search(str(source), keep)
    return finder.mutants()


def write_instrumented(originals, mutants):
    by_path = collections.defaultdict(list)
    for mutant in mutants:
        by_path[mutant.path].append(mutant)
    for path, text in originals.items():
        content = instrumented(text, by_path[path], str(WORK / "kdrmutation.h"), str(TREE / path))
        if (TREE / path).read_bytes() != content:
            (TREE / path).write_bytes(content)


def rejected(output, by_number):
    """The mutants that the compiler does not take, by what it says."""
    numbers = set()
    lines = {}
    for path, line, column in re.findall(r"^([^\s:]+):(\d+):(\d+): (?:fatal )?error:", output, re.M):
        path = os.path.normpath(os.path.join(BUILD, path))
        if not path.startswith(str(TREE) + "/"):
            continue
        if path not in lines:
            lines[path] = pathlib.Path(path).read_text().split("\n")
        # The first two lines are not the source's own.
        text = lines[path][int(line) + 1]
        # The switch next to what the compiler stumbles over; it may stand on a line before.
        here = [(abs(m.start() - int(column)), int(m[1])) for m in re.finditer(r"kdrMutant\((\d+)\)", text)]
        if not here:
            name = path[len(str(TREE)) + 1 :]
            here = [
                (0, n)
                for n, m in by_number.items()
                if m.path == name and m.line <= int(line) <= m.line + 3
            ]
            numbers.update(n for _, n in here)
        else:
            numbers.add(min(here)[1])
    return numbers & by_number.keys()


def test_programs():
    """The names of the GoogleTest programs."""
    targets = run("ninja", "-C", BUILD, "-t", "targets", "all", stdout=subprocess.PIPE).stdout.decode()
    linked = re.findall(r"^(\S+): CXX_EXECUTABLE_LINKER", targets, re.M)
    names = [pathlib.Path(path).name for path in linked]
    return [name for name in names if name.endswith("_test") or name.startswith("veldata_")]


def build_instrumented(mutants, jobs):
    """Builds with every mutant that compiles, and answers those."""
    originals = {path: (TREE / path).read_bytes() for path in {m.path for m in mutants}}
    remaining = {m.number: m for m in mutants}
    for _ in range(60):
        write_instrumented(originals, remaining.values())
        result = subprocess.run(
            ["cmake", "--build", str(BUILD), "--target", "KDRData", "VelData", "-j", str(jobs), "--", "-k", "0"],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
        )  # fmt: skip
        if result.returncode == 0:
            break
        numbers = rejected(result.stdout, remaining)
        if not numbers:
            print(result.stdout[-4000:])
            sys.exit("mutate: the build fails for another reason")
        say(f"{len(numbers)} mutants do not compile")
        for number in numbers:
            del remaining[number]
    run("cmake", "--build", BUILD, "-j", str(jobs), "--target", *test_programs(), stdout=subprocess.DEVNULL)
    return list(remaining.values())


# --- running --------------------------------------------------------------------------------------


def list_suites():
    """Every suite of every GoogleTest program, (program, filter), with the filters of its tests."""
    shown = run("ctest", "--test-dir", BUILD, "--show-only=json-v1", stdout=subprocess.PIPE).stdout
    suites = collections.defaultdict(list)
    for test in json.loads(shown)["tests"]:
        command = test.get("command", [])
        filters = [word[len("--gtest_filter=") :] for word in command if word.startswith("--gtest_filter=")]
        if filters and pathlib.Path(command[0]).exists():
            suites[(command[0], filters[0].rsplit(".", 1)[0] + ".*")].append(filters[0])
    return suites


def hold_down():
    """Keeps a broken program from taking the machine with it."""
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))


def execute(program, suites, mutant=None, reached=None, timeout=60.0):
    """The exit code of some suites of a program, or None after the time-out."""
    environment = dict(os.environ, GTEST_FAIL_FAST="1")
    if mutant is not None:
        environment["KDR_MUTANT"] = str(mutant)
    if reached is not None:
        environment["KDR_MUTANTS_REACHED"] = reached
    with tempfile.TemporaryDirectory(dir=WORK) as directory:
        process = subprocess.Popen(
            [program, "--gtest_filter=" + ":".join(suites), "--gtest_brief=1"],
            cwd=directory, env=environment, preexec_fn=hold_down, start_new_session=True,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
        )  # fmt: skip
        try:
            return process.wait(timeout)
        except subprocess.TimeoutExpired:
            return None
        finally:
            # Whatever the program has started ends with it.
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)
            process.wait()


def trace(program, tests):
    """Runs a suite or a test unbroken: (seconds, the numbers of the mutants that it reaches), or None."""
    with tempfile.NamedTemporaryFile(dir=WORK) as file:
        file.truncate(MOST)
        start = time.monotonic()
        if execute(program, [tests], reached=file.name, timeout=300) != 0:
            return None
        content = pathlib.Path(file.name).read_bytes()
    return time.monotonic() - start, {number for number, byte in enumerate(content) if byte}


def trace_suite(suite, tests):
    """The filters to run for a suite, each with what trace() says of it.

    That is the suite in whole, or those of its tests that pass: a switch before a return keeps the
    compiler from making the result where it is wanted, which a test that counts copies notices.
    """
    program, every = suite
    traced = trace(program, every)
    if traced is not None:
        return {every: traced}
    passing = {}
    for test in tests:
        traced = trace(program, test)
        if traced is None:
            say(f"{test} fails unbroken and is left out")
        else:
            passing[test] = traced
    return passing


def runs(programs):
    """In which portions to run what reaches a mutant, (seconds, program, filters), the quickest first:
    most mutants are caught by some suite or other that takes no time."""
    portions = []
    for program, suites in programs.items():
        quick = [suite for suite, seconds in suites.items() if seconds < 0.5]
        if quick:
            portions.append((sum(suites[suite] for suite in quick), program, quick))
        portions += [(seconds, program, [suite]) for suite, seconds in suites.items() if seconds >= 0.5]
    return sorted(portions)


def try_mutant(mutant, programs, longest=None):
    """'caught', 'timeout', 'survived' or 'unreached'. Leaves out portions that take more than longest
    seconds."""
    if not programs:
        return "unreached"
    for seconds, program, suites in runs(programs):
        if longest is not None and seconds > longest:
            break
        code = execute(program, suites, mutant=mutant.number, timeout=20 + 5 * seconds)
        if code is None:
            return "timeout"
        if code != 0:
            return "caught"
    return "survived"


def prepare(jobs, only):
    """Mutants and what reaches them, from the last run if nothing has changed since."""
    copy_tree()
    configure()
    say("looking for rules to break")
    mutants = find_mutants(only)
    equivalents.name_all(mutants, {m.path: (TREE / m.path).read_text() for m in mutants})
    say(f"{len(mutants)} found; building")
    mutants = build_instrumented(mutants, jobs)
    say(f"{len(mutants)} compile; seeing which tests reach them")
    suites = list_suites()
    reaching = collections.defaultdict(lambda: collections.defaultdict(dict))
    with ThreadPoolExecutor(jobs) as pool:
        for (program, _), filters in zip(suites, pool.map(trace_suite, suites, suites.values())):
            for tests, (seconds, numbers) in filters.items():
                for number in numbers:
                    reaching[number][program][tests] = seconds
    plain = {number: {p: dict(s) for p, s in programs.items()} for number, programs in reaching.items()}
    (WORK / "prepared").write_bytes(pickle.dumps((mutants, plain)))
    return mutants, plain


def drawn(mutants, count, seed):
    """So many of the mutants, by lot. Each has its own lot, so that a change of the libraries exchanges
    those alone that it makes and takes away."""

    def lot(mutant):
        return hashlib.sha256(f"{seed} {mutant.name}".encode()).digest()

    return sorted(sorted(mutants, key=lot)[:count], key=lambda m: m.number)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--sample", type=int, metavar="N", help="try N mutants, chosen at random")
    parser.add_argument("--seed", type=int, default=1, help="chooses the sample")
    parser.add_argument("--jobs", type=int, default=1, metavar="N", help="how many to try at a time")
    parser.add_argument("--only", default="", metavar="PREFIX", help="mutants of these files alone")
    parser.add_argument("--prepared", action="store_true", help="do not build again")
    parser.add_argument("--list", action="store_true", help="say what would be tried, and stop")
    parser.add_argument("--report", metavar="FILE", help="write the table of results there")
    options = parser.parse_args()

    WORK.mkdir(parents=True, exist_ok=True)
    if options.prepared:
        mutants, reaching = pickle.loads((WORK / "prepared").read_bytes())
    else:
        mutants, reaching = prepare(options.jobs, options.only)
    chosen = [m for m in mutants if m.path.startswith(options.only)]
    if options.sample is not None and options.sample < len(chosen):
        chosen = drawn(chosen, options.sample, options.seed)
    if options.list:
        for mutant in chosen:
            print(f"{mutant.path}:{mutant.line}: {mutant.function}: {mutant.change}")
        return 0

    equivalent = equivalents.read(TOP / "tools" / "mutation" / "equivalent.txt")
    results = {}
    start = time.monotonic()
    with ThreadPoolExecutor(options.jobs) as pool:
        # One that stands in the list of equivalent ones is tried to see that the list is right, which
        # is not worth the minutes that the longest suites take.
        outcomes = pool.map(
            lambda m: try_mutant(m, reaching.get(m.number, {}), 10.0 if m.name in equivalent else None),
            chosen,
        )
        for done, (mutant, outcome) in enumerate(zip(chosen, outcomes), start=1):
            if outcome in ("survived", "unreached") and mutant.name in equivalent:
                outcome = "equivalent"
            results[mutant.number] = outcome
            if outcome in ("survived", "unreached"):
                print(f"{outcome}: {mutant.path}:{mutant.line}: {mutant.name}", flush=True)
            if done % 100 == 0:
                say(f"{done} of {len(chosen)} after {time.monotonic() - start:.0f} s")
    text = report.table(chosen, results, time.monotonic() - start)
    print(text)
    if options.report:
        pathlib.Path(options.report).write_text(text)
    return 1 if {"survived", "unreached"} & set(results.values()) else 0


if __name__ == "__main__":
    sys.exit(main())
