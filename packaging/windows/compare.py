"""Compares the JSON of two runs: compare.py LINUX WINDOWS START MIDDLE END (seconds)."""

import json
import re
import sys

TOLERANCE = 0.001  # seconds


def name(path):
    return re.split(r"[/\\]", path)[-1]


def places(run):
    """Of each group, a dictionary from file name to position; groups by their first name."""
    groups = [{name(m["path"]): m["offset_seconds"] for m in g["members"]} for g in run["groups"]]
    return sorted(groups, key=lambda group: sorted(group))


def documents(run):
    """From the name of each document, without the time of day in it, to the file."""
    return {re.sub(r"\d\d-\d\d-\d\d", "TIME", name(path)): re.sub("^Z:", "", path)
            for path in run["outputs"]}


def content(file):
    """Numbers with a fraction, and all else with paths as they would be here."""
    text = open(file, encoding="utf-8", newline="").read().replace("\\", "/")
    text = re.sub("Z:/", "/", re.sub("/Z(:|%3A)/", "/", text))
    fraction = r"-?\d+\.\d+(?:e-?\d+)?"
    return [float(number) for number in re.findall(fraction, text)], re.split(fraction, text)


def are_same(file, other):
    (numbers, text), (others, other_text) = content(file), content(other)
    return text == other_text and all(abs(a - b) < TOLERANCE for a, b in zip(numbers, others))


def knows_less(run):
    """Without MediaInfo, documents lack what only it tells, such as the sound's own rate."""
    return any("MediaInfo" in notice for notice in run["notices"])


def differences(linux, windows):
    if [sorted(g) for g in places(linux)] != [sorted(g) for g in places(windows)]:
        yield f"groups differ: {places(linux)} and {places(windows)}"
        return
    for ours, theirs in zip(places(linux), places(windows)):
        for file, at in ours.items():
            if abs(at - theirs[file]) > TOLERANCE:
                yield f"{file} stands at {at} s and {theirs[file]} s"
    here, there = documents(linux), documents(windows)
    if sorted(here) != sorted(there):
        yield f"documents differ: {sorted(here)} and {sorted(there)}"
        return
    if knows_less(windows):
        return
    for document in here:
        if not are_same(here[document], there[document]):
            yield f"{here[document]} and {there[document]} differ in more than paths"


def main():
    linux, windows = (json.load(open(file, encoding="utf-8")) for file in sys.argv[1:3])
    found = list(differences(linux, windows))
    for difference in found:
        print(difference, file=sys.stderr)
    members = sum(map(len, places(linux)))
    if not members:
        sys.exit("nothing was synchronised, so nothing was compared")
    start, middle, end = map(float, sys.argv[3:6])
    compared = f"{len(documents(linux))} documents" + " by name" * knows_less(windows)
    print(f"{members} recordings in {len(linux['groups'])} groups, {compared}: "
          f"{len(found)} differences; {middle - start:.1f} s here, {end - middle:.1f} s under Wine")
    sys.exit(bool(found))


main()
