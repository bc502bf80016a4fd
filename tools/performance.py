#!/usr/bin/env python3
"""Makes docs/performance.md, its plots and the README's table from what the benchmark programs measured.

The text comes from a template; its lines of the form `@rows FAMILY@`, `@growth@`, `@memory@`,
`@steps@`, `@environment@` are replaced by tables and plots. Needs the standard library only.
"""

import argparse
import json
import math
import os
import pathlib
import platform
import re
import subprocess
import sys
from xml.sax.saxutils import escape

COLOURS = ["#1b6ca8", "#c8553d", "#4a7c59", "#8e5ea2", "#b8860b", "#5c6b73", "#d1495b"]
DASHES = ["none", "6 4", "2 3"]
# What the README shows: of each thing that is often done one row, good or bad.
README_ROWS = [
    ("variant", "construct + destroy, int"),
    ("variant", "construct + destroy, image"),
    ("variant", "copy + destroy, shared store"),
    ("variant", "read int"),
    ("variant", "read image"),
    ("hand-over", "recipe of 24 parameters through 4 tools"),
    ("array", "append 10^4 numbers"),
    ("description", "attribute() of a number"),
    ("text", "split into 1000 fields"),
    ("region", "union of 10^3 regions of 10^3 runs"),
    ("image", "clone of 16 megapixels"),
    ("read", "PNG colour"),
    ("save", "PNG photograph"),
]
README_MARKS = ("<!-- by ./dev bench --report -->", "<!-- to here -->")
FONT = 'font-family="sans-serif" font-size="12"'


# --- numbers and tables ---------------------------------------------------------------------------


def duration(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def ratio(value):
    if value is None:
        return ""
    return f"{value:.0f} x" if value >= 100 else f"{value:.2g} x" if value < 0.1 else f"{value:.2f} x"


def table(head, rows, numeric_from=1):
    lines = ["| " + " | ".join(head) + " |"]
    lines.append("|" + "|".join("---" if i < numeric_from else "--:" for i in range(len(head))) + "|")
    lines += ["| " + " | ".join(str(cell) for cell in row) + " |" for row in rows]
    return "\n".join(lines)


def goal_text(goal):
    bound = "≤" if goal["bound"] == "<=" else "≥"
    of = {"peer": "x peer", "floor": "x floor", "time": "ns"}[goal["against"]]
    return f"{bound} {goal['value']:g} {of}"


def name_of(row):
    return row["name"] + (f", per {row['unit']}" if row["unit"] != "operation" else "")


def peer_of(row):
    return f"{row.get('peerName', '')} {duration(row['peer'])}" if "peer" in row else ""


def rows_table(rows, before):
    lines = []
    for row in rows:
        earlier = before.get(row["name"], {})
        lines.append([
            name_of(row),
            duration(row["ours"]),
            peer_of(row),
            ratio(earlier.get("toPeer")),
            ratio(row.get("toPeer")),
            duration(row["floor"]) if "floor" in row else "",
            ratio(row.get("toFloor")),
            ", ".join(goal_text(goal) for goal in row["goals"]),
            ", ".join("yes" if goal["reached"] else "no" for goal in row["goals"]),
        ])
    return table(["row", "ours", "peer", "before", "to peer", "floor", "to floor", "to reach",
                  "reached"], lines)


# --- plots ----------------------------------------------------------------------------------------


class Svg:
    """Lines of an SVG picture on a white ground, which is readable on a dark page too."""

    def __init__(self, width, height):
        self.parts = [
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
            f'viewBox="0 0 {width} {height}" {FONT}>',
            f'<rect width="{width}" height="{height}" fill="#ffffff"/>',
        ]

    def line(self, x1, y1, x2, y2, colour="#d0d0d0", width=1.0):
        self.parts.append(f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" '
                          f'stroke="{colour}" stroke-width="{width}"/>')

    def rect(self, x, y, width, height, colour):
        self.parts.append(f'<rect x="{x:.1f}" y="{y:.1f}" width="{max(width, 0.5):.1f}" '
                          f'height="{height:.1f}" fill="{colour}"/>')

    def text(self, x, y, text, anchor="start", colour="#202020"):
        self.parts.append(f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{colour}">'
                          f"{escape(text)}</text>")

    def path(self, points, colour, dash="none"):
        way = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self.parts.append(f'<polyline points="{way}" fill="none" stroke="{colour}" '
                          f'stroke-width="2" stroke-dasharray="{dash}"/>')

    def save(self, path):
        path.write_text("\n".join(self.parts + ["</svg>"]) + "\n")


def plot_ratios(rows, before, path, title):
    """A bar a row from 1 x to its ratio, on a logarithmic axis: left is faster than the peer. The
    thin bar is what it was before, the black mark what is to be reached. The ratio stands behind the
    axis' end, where no bar and no mark can lie."""
    rows = [row for row in rows if "toPeer" in row]
    left, right, height, top = 330, 880, 24, 50
    values = [row["toPeer"] for row in rows] + [before[row["name"]]["toPeer"] for row in rows
                                                if "toPeer" in before.get(row["name"], {})]
    low = min(-1, math.floor(math.log10(min(values))))
    high = max(1, math.ceil(math.log10(max(values))))
    picture = Svg(right + 70, top + height * len(rows) + 30)

    def at(value):
        return left + (right - left) * (math.log10(value) - low) / (high - low)

    picture.text(10, 20, title)
    bottom = top + height * len(rows)
    for exponent in range(low, high + 1):
        x = at(10.0 ** exponent)
        picture.line(x, top - 5, x, bottom, "#909090" if exponent == 0 else "#d8d8d8")
        picture.text(x, bottom + 18, f"{10.0 ** exponent:g} x", "middle")
    for i, row in enumerate(rows):
        y = top + height * i
        picture.text(left - 8, y + 14, row["name"], "end")
        earlier = before.get(row["name"], {}).get("toPeer")
        for value, colour, offset, thick in ((earlier, "#c9ced6", 13, 5),
                                             (row["toPeer"], COLOURS[0], 3, 9)):
            if value:
                x1, x2 = sorted((at(1.0), at(value)))
                picture.rect(x1, y + offset, x2 - x1, thick, colour)
        for goal in row["goals"]:
            if goal["against"] == "peer":
                picture.line(at(goal["value"]), y, at(goal["value"]), y + 20, "#000000", 2)
        picture.text(right + 60, y + 14, ratio(row["toPeer"]), "end")
    picture.save(path)


def plot_growth(curves, path, title):
    """Time over size, both logarithmic."""
    left, right, top, bottom = 70, 520, 40, 380
    picture = Svg(940, 430)
    times = [time for curve in curves for _, time in curve["points"]]
    sizes = [size for curve in curves for size, _ in curve["points"]]
    low_x, high_x = (math.floor(math.log10(min(sizes))), math.ceil(math.log10(max(sizes))))
    low_y, high_y = (math.floor(math.log10(min(times))), math.ceil(math.log10(max(times))))

    def at(size, time):
        return (left + (right - left) * (math.log10(size) - low_x) / (high_x - low_x),
                bottom - (bottom - top) * (math.log10(time) - low_y) / (high_y - low_y))

    picture.text(10, 20, title)
    for exponent in range(low_x, high_x + 1):
        x, _ = at(10.0 ** exponent, 10.0 ** low_y)
        picture.line(x, top, x, bottom)
        picture.text(x, bottom + 18, f"10^{exponent}", "middle")
    for exponent in range(low_y, high_y + 1):
        _, y = at(10.0 ** low_x, 10.0 ** exponent)
        picture.line(left, y, right, y)
        picture.text(left - 6, y + 4, duration(10.0 ** exponent), "end")
    if len(curves) > len(COLOURS) * len(DASHES):
        sys.exit(f"{title}: more curves than colours and dashes tell apart")
    for i, curve in enumerate(curves):
        # The curves that come to a colour again are dashed.
        colour, dash = COLOURS[i % len(COLOURS)], DASHES[i // len(COLOURS)]
        points = [at(*point) for point in curve["points"]]
        picture.path(points, colour, dash)
        for x, y in points:
            picture.rect(x - 3, y - 3, 6, 6, colour)
        y = top + 10 + 22 * i
        picture.path([(right + 15, y), (right + 50, y)], colour, dash)
        picture.text(right + 58, y + 4, f"{curve['name']}: exponent {curve['exponent']:.2f}")
    picture.save(path)


def plot_memory(rows, path):
    left, pitch, top, scale = 290, 15, 45, 0.9
    keys = ("ours", "peer", "floor")
    height = pitch * len(keys) + 10
    widest = max(row[key] for row in rows for key in keys)
    picture = Svg(left + int(widest * scale) + 90, top + height * len(rows))
    picture.text(10, 20, "Bytes a value: ours, peer, floor")
    for i, row in enumerate(rows):
        y = top + height * i
        picture.text(left - 8, y + 9, row["name"], "end")
        for k, key in enumerate(keys):
            if row[key] > 0:
                picture.rect(left, y + pitch * k, row[key] * scale, 10, COLOURS[k])
                picture.text(left + row[key] * scale + 5, y + pitch * k + 9,
                             f"{row[key]:.0f} {key}")
    picture.save(path)


# --- the document ---------------------------------------------------------------------------------


def command(*arguments):
    return subprocess.run(arguments, check=True, capture_output=True, text=True).stdout.strip()


def machine():
    processor = platform.processor()
    cpuinfo = pathlib.Path("/proc/cpuinfo")
    if cpuinfo.exists():
        match = re.search(r"^model name\s*:\s*(.*)$", cpuinfo.read_text(), re.MULTILINE)
        processor = match[1] if match else processor
    return f"{processor}, {len(os.sched_getaffinity(0))} cores"


def environment(compiler, flags):
    """What the figures depend on. The machine's name is not among it."""
    system = platform.freedesktop_os_release().get("PRETTY_NAME", platform.system())
    kernel = ".".join(platform.release().split(".")[:2])
    facts = [
        ("processor", machine()),
        ("system", f"{system}, Linux {kernel}, {platform.libc_ver()[0]} "
                   f"{platform.libc_ver()[1]}"),
        ("compiler", command(compiler, "--version").splitlines()[0]),
        ("flags", flags),
        ("Qt Core", command("pkg-config", "--modversion", "Qt5Core")),
        ("OpenCV", opencv_version()),
        ("load", f"{os.getloadavg()[2]:.1f} programs at once, on average while measuring"),
    ]
    return table(["", ""], facts, 2)


def opencv_version():
    header = pathlib.Path("/usr/include/opencv4/opencv2/core/version.hpp")
    if not header.exists():
        return "unknown"
    text = header.read_text()
    return ".".join(re.search(rf"#define CV_VERSION_{part}\s+(\d+)", text)[1]
                    for part in ("MAJOR", "MINOR", "REVISION"))


def growth_section(curves, images, link):
    lines = [table(
        ["family", "operation", "a unit is a", "10^2", "10^3", "10^4", "10^5", "10^6", "exponent",
         "expected"],
        [[c["family"], c["name"], c["unit"]] + [duration(time) for _, time in c["points"]]
         + [f"{c['exponent']:.2f}", f"{c['expected']:.0f}"] for c in curves], 3)]
    for family in dict.fromkeys(curve["family"] for curve in curves):
        name = f"growth-{family}.svg"
        plot_growth([c for c in curves if c["family"] == family], images / name,
                    f"Growth: {family}")
        lines.append(f"![Growth of the {family} operations]({link}/{name})")
    return "\n\n".join(lines)


def memory_section(rows, images, link):
    plot_memory(rows, images / "memory.svg")
    return table(
        ["bytes of a", "ours", "peer", "", "floor"],
        [[r["name"], f"{r['ours']:.0f}", r["peerName"], f"{r['peer']:.0f}" if r["peer"] else "",
          f"{r['floor']:.0f}" if r["floor"] else ""] for r in rows]
    ) + f"\n\n![Bytes a value]({link}/memory.svg)"


def steps_section(path):
    steps = re.findall(r"^(\w+)\s+([0-9.]+)$", path.read_text(), re.MULTILINE)
    return table(["step", "instructions"], [[name.replace("_", " "), count]
                                            for name, count in steps])


def readme_section(rows, compiler):
    by_name = {(row["family"], row["name"]): row for row in rows}
    missing = [name for name in README_ROWS if name not in by_name]
    if missing:
        sys.exit(f"not measured, and shown in the README: {missing}")
    version = command(compiler, "-dumpfullversion", "-dumpversion")
    chosen = [by_name[name] for name in README_ROWS]
    return (table(["", "ours", "peer", "ours to the peer's"],
                  [[name_of(row), duration(row["ours"]), peer_of(row), ratio(row["toPeer"])]
                   for row in chosen])
            + f"\n\n{machine()}; compiler {version}, Qt "
            + command("pkg-config", "--modversion", "Qt5Core") + f", OpenCV {opencv_version()}.")


def write_readme(path, section):
    """Puts the section between the marks."""
    before, start, rest = path.read_text().partition(README_MARKS[0])
    _, end, after = rest.partition(README_MARKS[1])
    if not start or not end:
        sys.exit(f"{path} lacks the marks {README_MARKS}")
    path.write_text(f"{before}{start}\n{section}\n{end}{after}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rows", type=pathlib.Path, required=True, nargs="+")
    for name in ("growth", "memory", "before", "steps", "template", "output"):
        parser.add_argument(f"--{name}", type=pathlib.Path, required=True)
    parser.add_argument("--readme", type=pathlib.Path)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--flags", default="")
    options = parser.parse_args()

    template = options.template.read_text()
    shown = re.findall(r"@rows ([a-z -]+)@", template)
    rows = [row for path in options.rows for row in json.loads(path.read_text())
            if row["family"] in shown]
    before = {row["name"]: row for row in json.loads(options.before.read_text())}
    images = options.output.parent / "images" / "performance"
    images.mkdir(parents=True, exist_ok=True)
    link = "images/performance"

    def section(match):
        words = match[1].split()
        if words[0] == "rows":
            family = words[1]
            of_family = [row for row in rows if row["family"] == family]
            if not of_family:
                sys.exit(f"no rows of the family {family} were measured")
            text = rows_table(of_family, before)
            if len(of_family) > 2:
                plot_ratios(of_family, before, images / f"{family}.svg",
                            f"{family}: our time to the peer's, by row (thin: before; black: to "
                            "reach)")
                text += f"\n\n![Ratios of the {family} rows]({link}/{family}.svg)"
            return text
        if words[0] == "growth":
            return growth_section(json.loads(options.growth.read_text()), images, link)
        if words[0] == "memory":
            return memory_section(json.loads(options.memory.read_text()), images, link)
        if words[0] == "steps":
            return steps_section(options.steps)
        if words[0] == "environment":
            return environment(options.compiler, options.flags)
        if words[0] == "reached":
            goals = [goal for row in rows for goal in row["goals"]]
            return f"{sum(goal['reached'] for goal in goals)} of {len(goals)}"
        sys.exit(f"unknown placeholder {match[0]}")

    text = re.sub(r"@([a-z][a-z -]*)@", section, template)
    options.output.write_text(text)
    print(f"wrote {options.output}")
    if options.readme:
        write_readme(options.readme, readme_section(rows, options.compiler))
        print(f"wrote the table in {options.readme}")


if __name__ == "__main__":
    main()
