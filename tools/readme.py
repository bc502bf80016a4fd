#!/usr/bin/env python3
"""usage: readme.py [--check]

Writes the numbers that the README tells of the tests, rounded down to two digits where a new test should
not change them. With --check, changes nothing and fails where a number is false or far behind, or where the
table of times is not that of docs/performance.md.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
# A number that is rounded may stay behind by so much.
BEHIND = 1.25


def text_of(path):
    return (ROOT / path).read_text(encoding="utf-8")


def count(pattern, texts):
    return sum(len(re.findall(pattern, text, re.MULTILINE)) for text in texts)


def test_functions():
    sources = [path for directory in ("tests", "veldata/tests", "examples")
               for path in (ROOT / directory).rglob("*")
               if path.suffix in (".h", ".cpp")]
    return count(r"^(?:TYPED_)?TEST(?:_F|_P)?\(", (text_of(path) for path in sources))


def fuzzing_targets():
    return len(list((ROOT / "fuzz" / "targets").glob("*.cpp")))


def seconds_of_fuzzing():
    return int(re.search(r"fuzz/run\.sh build/ci-clang (\d+)", text_of("dev"))[1])


def goals():
    """The shares in percent below which ./dev coverage fails."""
    lines, branches = re.search(r"--fail-under-line (\d+) --fail-under-branch (\d+)",
                                text_of("dev")).groups()
    core = re.search(r"--filter veldata/ --fail-under-line (\d+)", text_of("dev"))[1]
    return int(lines), int(branches), int(core)


def mutants():
    return sum(map(int, re.findall(r"^\| \*\*[^|]*, all\*\* \| (\d+) ", text_of("docs/mutation.md"),
                                   re.MULTILINE)))


def exported_symbols():
    return count(r"^.", [text_of("tests/library/exported_symbols.txt")])


def steps():
    return count(r"^\w+ +\d", [text_of("benchmarks/steps.txt")])


def rounded(number):
    power = 10 ** max(0, len(str(number)) - 2)
    return number // power * power


def facts():
    """The words of the README, with # for numbers, and those numbers."""
    lines, branches, core = goals()
    return [
        ("More than # test functions", [test_functions()]),
        ("# fuzzing targets, in every check for # seconds each", [fuzzing_targets(), seconds_of_fuzzing()]),
        ("At least #% of the lines and #% of the branches of `kdrdata/`", [lines, branches]),
        ("#% of the lines of `veldata/`", [core]),
        ("More than # mutants", [mutants()]),
        ("More than # exported symbols", [exported_symbols()]),
        ("# central steps", [steps()]),
    ]


def pattern_of(words):
    """The words, in which blanks may be line breaks."""
    pattern = r"\s+".join(re.escape(word) for word in words.split(" "))
    return re.compile(pattern.replace(re.escape("#"), r"(\d[\d,]*)"))


def is_true(words, said, number):
    if words.startswith("More than"):
        return said < number < max(said, 1) * BEHIND
    return said == number


def wrong_facts(readme):
    for words, numbers in facts():
        found = pattern_of(words).findall(readme)
        if len(found) != 1:
            yield f"'{words}' stands there {len(found)} times"
            continue
        told = [found[0]] if isinstance(found[0], str) else found[0]
        for said, number in zip(told, numbers):
            if not is_true(words, int(said.replace(",", "")), number):
                yield f"'{words}': {said} is told, and it is {number}"


def with_facts(readme):
    for words, numbers in facts():
        about = words.startswith("More than")
        waiting = [f"{rounded(number - 1) if about else number:,}" for number in numbers]

        def replaced(match, waiting=waiting):
            parts, end = [], match.start()
            for group, number in enumerate(waiting, 1):
                parts += [readme[end:match.start(group)], number]
                end = match.end(group)
            return "".join(parts) + readme[end:match.end()]

        readme = pattern_of(words).sub(replaced, readme)
    return readme


def cells(line):
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


def wrong_times(readme):
    """The rows of the README that docs/performance.md does not have, by name, ours, peer and ratio."""
    measured = {(row[0], row[1], row[2], row[4]) for row in
                map(cells, text_of("docs/performance.md").splitlines()) if len(row) == 9}
    table = re.search(r"^<!-- by \./dev bench --report -->\n(.*?)^<!-- to here -->$", readme,
                      re.MULTILINE | re.DOTALL)
    rows = [cells(line) for line in (table[1] if table else "").splitlines() if line.startswith("| ")][1:]
    if not rows:
        yield "there is no table of times"
    for row in rows:
        if tuple(row) not in measured:
            yield f"docs/performance.md has no such row: {' | '.join(row)}"


def main():
    words = sys.argv[1:]
    if words not in ([], ["--check"]):
        sys.exit(__doc__.strip())
    readme = text_of("README.md")
    if not words:
        readme = with_facts(readme)
        (ROOT / "README.md").write_text(readme, encoding="utf-8")
    wrong = [*wrong_facts(readme), *wrong_times(readme)]
    for each in wrong:
        print(f"README.md: {each}", file=sys.stderr)
    if wrong and words:
        print("tools/readme.py rewrites the numbers, ./dev bench --report the times", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
