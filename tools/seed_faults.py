#!/usr/bin/env python3
"""Puts one-line faults into src/, one at a time, and tells which of them no test notices.

    tools/seed_faults.py BUILD [--count N] [--seed S] [--rooms REGEX] [--save FILE] [--from FILE]

BUILD is a configured build folder of this checkout, which must be clean: each fault is taken back. --save keeps the
faults as lines of text; --from tries those of such a file again, also where the line has moved to another file or
number since, so that two states of the tests can be compared. A fault that doesn't compile is left out.
"""
import argparse
import json
import pathlib
import random
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FAULTS = [  # what is looked for, what takes its place
    (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "), (r" == ", " != "), (r" != ", " == "),
    (r" && ", " || "), (r" \|\| ", " && "), (r" \+ ", " - "), (r" - ", " + "), (r" \* ", " / "),
    (r"std::min\b", "std::max"), (r"std::max\b", "std::min"), (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"\b1\b", "2"), (r"\b2\.0F", "2.1F"), (r"if \(!", "if ("), (r" \+= ", " -= "), (r"\b0\.5F", "0.6F"),
]
NO_CODE = re.compile(r"^\s*(//|#|\*|template|using|namespace|constexpr std::string_view|struct|static_assert|\}|$)")


def lines_of(path):
    """Line ends alone part lines: other bytes that Python takes for one may stand in a text."""
    return path.read_text(encoding="latin1").split("\n")


def candidates(rooms):
    found = []
    for path in sorted((ROOT / "src").rglob("*.cpp")):
        name = str(path.relative_to(ROOT))
        if not re.search(rooms, name):
            continue
        for number, line in enumerate(lines_of(path)):
            code = line.split("//")[0]
            if NO_CODE.match(line) or '"' in code:
                continue
            for what, instead in FAULTS:
                for hit in re.finditer(what, code):
                    changed = line[:hit.start()] + instead + line[hit.end():]
                    found.append({"file": name, "number": number, "line": line, "changed": changed})
    return found


def place(fault):
    """The file and line at which the text of a fault stands today: where it was, or its only other place."""
    text = fault["line"].strip()
    places = []
    for path in sorted((ROOT / "src").rglob("*.cpp")):
        for number, line in enumerate(lines_of(path)):
            if line.strip() == text:
                places.append((path, number, line))
    stem = pathlib.Path(fault["file"]).name
    same = [p for p in places if p[0].name == stem]
    near = min(same, key=lambda p: abs(p[1] - fault["number"]), default=None)
    return near or (places[0] if len(places) == 1 else None)


def run(command, seconds):
    try:
        return subprocess.run(command, cwd=ROOT, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              stdin=subprocess.DEVNULL, timeout=seconds).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def try_fault(build, fault):
    """'noticed', 'not noticed', 'gone' (its line is no more) or 'not built'."""
    spot = place(fault)
    if spot is None:
        return "gone", ""
    path, number, line = spot
    lines = lines_of(path)
    before = "\n".join(lines)
    lines[number] = line.replace(fault["line"].strip(), fault["changed"].strip())
    path.write_text("\n".join(lines), encoding="latin1")
    try:
        if not run(["cmake", "--build", build, "-j2"], 900):
            return "not built", f"{path.relative_to(ROOT)}:{number + 1}"
        passed = run(["ctest", "--test-dir", build, "-j2", "--stop-on-failure", "--timeout", "60"], 600)
        return ("not noticed" if passed else "noticed"), f"{path.relative_to(ROOT)}:{number + 1}"
    finally:
        path.write_text(before, encoding="latin1")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build")
    parser.add_argument("--count", type=int, default=50)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--rooms", default="", help="only files whose name fits")
    parser.add_argument("--save")
    parser.add_argument("--from", dest="saved")
    asked = parser.parse_args()
    if asked.saved:
        faults = [json.loads(text) for text in open(asked.saved, encoding="utf-8")]
    else:
        found = candidates(asked.rooms)
        faults = random.Random(asked.seed).sample(found, min(asked.count, len(found)))
    if asked.save:
        with open(asked.save, "w", encoding="utf-8") as out:
            out.writelines(json.dumps(fault) + "\n" for fault in faults)
    build = str(pathlib.Path(asked.build).resolve())
    counts = {}
    for fault in faults:
        result, where = try_fault(build, fault)
        counts[result] = counts.get(result, 0) + 1
        print(f"{result:12} {where or fault['file']}  {fault['line'].strip()}  ->  {fault['changed'].strip()}", flush=True)
    run(["cmake", "--build", build, "-j2"], 900)
    print(counts)
    return 0


if __name__ == "__main__":
    sys.exit(main())
