"""Names for mutants that outlive changes elsewhere in a file, and the list of equivalent ones."""

import collections


def name_all(mutants, originals):
    """Gives every mutant a name: file, function, the line that it changes, the change, and, where
    that is not enough, which one of several alike."""
    alike = collections.Counter()
    for mutant in mutants:
        line = " ".join(originals[mutant.path].split("\n")[mutant.line - 1].split())
        name = " | ".join((mutant.path, mutant.function, line, mutant.change))
        alike[name] += 1
        mutant.name = name if alike[name] == 1 else f"{name} | {alike[name]}"


def read(path):
    """The names in a list in which each stands on a line under the reason, which begins with '#'."""
    if not path.exists():
        return {}
    reasons = {}
    reason = []
    named = False
    for line in path.read_text().split("\n"):
        if line.startswith("#"):
            if named:
                reason, named = [], False
            reason.append(line[1:].strip())
        elif line.strip():
            reasons[line.strip()] = " ".join(reason)
            named = True
    return reasons
