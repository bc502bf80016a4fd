"""The table of what became of the mutants."""

import collections

COLUMNS = ("caught", "timeout", "equivalent", "survived", "unreached")


def table(mutants, results, seconds):
    """Markdown: a row for each directory, one for each library, and the names of survivors."""
    rows = collections.defaultdict(collections.Counter)
    for mutant in mutants:
        parts = mutant.path.split("/")
        directory = "/".join(parts[:2]) if len(parts) > 2 else parts[0]
        for row in {directory, f"**{parts[0]}, all**"}:
            rows[row][results[mutant.number]] += 1
            rows[row]["tried"] += 1
    lines = [
        "| where | tried | caught | by time-out | equivalent | survived | not reached |",
        "|---|---:|---:|---:|---:|---:|---:|",
    ]
    for row in sorted(rows, key=lambda name: name.strip("*").replace(", all", "/~")):
        counts = rows[row]
        lines.append(f"| {row} | {counts['tried']} | " + " | ".join(str(counts[c]) for c in COLUMNS) + " |")
    left = [m for m in mutants if results[m.number] in ("survived", "unreached")]
    if left:
        lines += ["", "Left:", ""]
        lines += [f"- {results[m.number]}: `{m.path}:{m.line}`, `{m.function}`: {m.change}" for m in left]
    lines += ["", f"{len(mutants)} mutants in {seconds:.0f} seconds.", ""]
    return "\n".join(lines)
