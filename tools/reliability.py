#!/usr/bin/env python3
"""Tries what can go wrong on the way in, on the way out and in memory, and puts the figures into docs/RELIABILITY.md.

    tools/reliability.py BUILD [--asan BUILD] [--fuzz BUILD --seconds S] [--every N] [--write]

BUILD holds the program and run_writer. --asan: input is tried with that build's program as well. --fuzz: each target of a
fuzz build runs so long. --every N: every N-th place where something may go wrong (1: all of them). Needs a C compiler.
Nothing may crash, hang or leave a file that is neither the old one nor the new one; status 1 tells that something did.
"""
import argparse
import concurrent.futures
import errno
import os
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DOCUMENT = os.path.join(ROOT, "docs", "RELIABILITY.md")
BEGIN, END = "<!-- table: tools/reliability.py -->\n", "<!-- end of the table -->\n"
SECONDS = 20  # a run that takes longer hangs

ROWS, FAULTS = [], []


def run(program, args, folder, **env):
    """Status (None: it hangs), what was said."""
    try:
        done = subprocess.run([program, *args], cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=SECONDS,
                              env={**os.environ, "ASAN_OPTIONS": "detect_leaks=1", **env})
    except subprocess.TimeoutExpired:
        return None, b""
    return done.returncode, done.stdout


def wrong(status, said):
    """What is wrong with the end of a run; blank: nothing."""
    if status is None:
        return "hangs"
    if status < 0 or status >= 128:
        return f"ends by signal {-status if status < 0 else status - 128}"
    return "sanitizer" if b"Sanitizer" in said or b"runtime error" in said else ""


def row(kind, tries):
    """tries: pairs of what was tried and what is wrong with it."""
    bad = [(what, why) for what, why in tries if why]
    crashed = sum(1 for _, why in bad if why.startswith("ends") or why == "sanitizer")
    hung = sum(1 for _, why in bad if why == "hangs")
    ROWS.append((kind, len(tries), crashed, hung, len(bad) - crashed - hung))
    FAULTS.extend(f"{kind}: {what}: {why}" for what, why in bad)
    print(f"{kind:58} {len(tries):7} tried, {crashed} crashed, {hung} hung, {len(bad) - crashed - hung} files lost",
          flush=True)


def side_by_side(work, items):
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(work, items))


# ---- Output and memory: one session that writes a file of each kind

OUTPUTS = {"h.txt": "WRITE_HISTORY MOT h.txt", "h.bin": "WRITE_HISTORY MOT h.bin:UNFORM",
           "t.txt": 'WRITE_STAT TABLE MOT 3 "" t.txt', "c.txt": "WRITE_CI MOT 3 c.txt", "s.txt": "WRITE_SPECTRUM MOT 3 s.txt",
           "r.txt": "WRITE_RAINFLOW MOT 3 r.txt", "control.txt": "WRITE_CONTROL control.txt",
           "v.pvd": "WRITE_VTK v", "p.png": "PLOT_HISTORY MOT 3 p.png", "p.gif": "PLOT_HISTORY MOT 3 p.gif",
           "p.svg": "PLOT_HISTORY MOT 3 p.svg", "p.pdf": "PLOT_HISTORY MOT 3 p.pdf", "mesh.txt": 'MOVING_MESH "" mesh.txt',
           "gz.txt": 'GZ_CURVES 1 1 1 1 0 40 4 "" gz.txt', "n.nc": "WRITE_NETCDF n.nc"}
# NetCDF files are left out of it where memory is: their library ends the program when memory is out while it starts.
SESSION = ["SET_STEPS 1 60", "SKIP_STEPS 4"] + list(OUTPUTS.values())


def set_up(folder):
    shutil.rmtree(folder, ignore_errors=True)
    os.mkdir(folder)
    for name in ("quartering.out", "ship.geo"):
        shutil.copy(os.path.join(ROOT, "samples", name), folder)
    with open(os.path.join(folder, "s"), "w") as script:
        script.write("\n".join(SESSION) + "\n")
    for name in OUTPUTS:
        with open(os.path.join(folder, name), "w") as old:
            old.write("the old one\n")


def contents(folder):
    return {name: open(os.path.join(folder, name), "rb").read() for name in OUTPUTS
            if os.path.exists(os.path.join(folder, name))}


def try_session(program, shim, work, good, call, number, what, may_leave):
    """The session with one fault."""
    folder = tempfile.mkdtemp(dir=work)
    set_up(folder)
    status, said = run(program, ["quartering.out", "-script", "s"], folder, LD_PRELOAD=shim, FAULT_CALL=call,
                       FAULT_AT=str(number), FAULT_DO=str(what))
    why = "" if what == -9 and status == -9 else wrong(status, said)
    if not why:
        for name, bytes_now in contents(folder).items():
            # Where memory was short a picture may have more points, and what was left out of a table has been told.
            if bytes_now not in (b"the old one\n", good[name]) and (call != "alloc" or len(bytes_now) < len(good[name]) / 9):
                why = f"{name} is neither the old one nor the new one"
        if len(contents(folder)) != len(OUTPUTS):
            why = "an old file is gone"
        left = [name for name in os.listdir(folder) if name.startswith(".zaview") and name.endswith(".part")]
        if left and not may_leave:
            why = "a temporary file is left"
        if status == 0 and contents(folder) != good and call not in ("close", "alloc"):
            why = "status 0, but not all is written"
    shutil.rmtree(folder)
    return f"{call} {number} ({'killed' if what == -9 else os.strerror(what)})", why


def output_and_memory(program, work, every):
    shim = os.path.join(work, "shim.so")
    subprocess.run(["cc", "-O1", "-shared", "-fPIC", "-o", shim, os.path.join(ROOT, "tools", "fault_shim.c"), "-ldl"],
                   check=True)
    folder = os.path.join(work, "good")
    set_up(folder)
    status, said = run(program, ["quartering.out", "-script", "s"], folder)
    if status != 0:
        sys.exit(f"the session without a fault ended with status {status}\n{said.decode(errors='replace')[-2000:]}")
    good = contents(folder)

    def count(call):
        set_up(folder)
        run(program, ["quartering.out", "-script", "s"], folder, LD_PRELOAD=shim, FAULT_CALL=call, FAULT_AT="0",
            FAULT_COUNT=os.path.join(work, "count"))
        return int(open(os.path.join(work, "count")).read())

    def tried(kind, call, what, step):
        if call == "alloc":
            SESSION.pop(), OUTPUTS.pop("n.nc"), good.pop("n.nc")
        numbers = range(1, count(call) + 1, step)
        row(kind, side_by_side(lambda n: try_session(program, shim, work, good, call, n, what, what == -9), numbers))

    tried("disk full at a write", "write", errno.ENOSPC, 1 + every // 8)
    tried("write error at a close", "close", errno.EIO, 1 + every // 8)
    tried("folder takes no file (an open fails)", "open", errno.EACCES, 1)
    tried("a name too long (an open fails)", "open", errno.ENAMETOOLONG, 1)
    tried("a rename fails", "rename", errno.EXDEV, 1)
    tried("killed ahead of a write", "write", -9, 1 + every // 8)
    tried("killed ahead of a rename", "rename", -9, 1)
    tried("an allocation fails", "alloc", errno.ENOMEM, every)
    limits = range(40_000, 400_000, 4_000 * every)  # kilobytes of address space

    def limited(kilobytes):
        here = tempfile.mkdtemp(dir=work)
        set_up(here)
        status, said = run("/bin/bash", ["-c", f"ulimit -v {kilobytes}; exec {program} quartering.out -script s"], here)
        shutil.rmtree(here)
        # 127: not even the loader had room
        return f"{kilobytes} kB", "" if status == 127 else wrong(status, said)

    row("a session in little memory", side_by_side(limited, limits))


# ---- Input

SCRIPT = """! Some of everything
SKIP_STEPS 4
COMMA
out = "means.csv"
WRITE_LABEL "steps,quantity,mean" {out}
FOR last IN 40 60 DO
  SET_STEPS 1 {last}
  FOR name|curve IN heave|3 pitch|5 DO
    WRITE_STAT MEAN MOT {curve} "{last},{name}" {out}:APPEND
  DONE
DONE
$INCLUDE:more.inc
WRITE_HISTORY POINT_ALL 40 0 12 point.txt
WRITE_STAT TABLE_CI MOT 3 "" ""
WINDOW_SIZE 320 240
PLOT_HISTORY MOT 3 heave.svg
"""


def inputs(program, writer, work):
    """Files of each kind, the script that reads them, and how long their header is."""
    here = os.path.join(work, "inputs")
    os.mkdir(here)
    subprocess.run([writer, "--steps", "4", os.path.join(here, "run.out")], check=True)
    for name in ("ship.geo", "turning_circle.mot", "roll_test.csv", "crane.txt", "impulse_responses.out",
                 "transient_added_mass.out", "quartering.out"):
        shutil.copy(os.path.join(ROOT, "samples", name), here)
    header = open(os.path.join(here, "run.out"), "rb").read().find(b"END_OF_HEADER")
    subprocess.run([program, "quartering.out", "-command", "WRITE_KINO waves"], cwd=here, check=True,
                   stdout=subprocess.DEVNULL)
    with open(os.path.join(ROOT, "fuzz", "corpus", "companion", "regular_head_mode1"), "rb") as both:
        run_text, companion = both.read().split(b"\n%%%%\n")
    for name, part in ("binary.out", run_text + b"\n"), ("binary.outu", companion):
        with open(os.path.join(here, name), "wb") as out:
            out.write(part)
    for name, text in ("some.script", SCRIPT), ("more.inc", "STEP_INC 2 ! less of it\nWRITE_LABEL more more.txt\n"):
        with open(os.path.join(here, name), "w") as out:
            out.write(text)
    kino = ["READ_KINO turning_circle.mot \"\" ZAVO:ship.geo 9.81 1025 0 0 7 0 0 7", "WRITE_HISTORY MOT x.txt"]
    return here, {
        "run.out": ("a run file", ["READ run.out", "WRITE_HISTORY MOT x.txt", 'WRITE_STAT TABLE MOT 3 "" y.txt'], header),
        "binary.outu": ("a run in binary", ["READ binary.out", "WRITE_HISTORY MOT x.txt"], 1500),
        "impulse_responses.out": ("impulse responses", ["READ impulse_responses.out", "WRITE_COEFFICIENTS x"], 6000),
        "transient_added_mass.out": ("a transient added mass", ["READ transient_added_mass.out"], 6000),
        "turning_circle.mot": ("KINO motions", kino, 3000),
        "waves.sea": ("a KINO seaway", ["READ_KINO turning_circle.mot waves.sea ZAVO:ship.geo 9.81 1025 0 0 7 0 0 7",
                                        "WRITE_HISTORY SEA x.txt"], 1000),
        "ship.geo": ("a geometry", kino + ["PLOT_GEOMETRY g.png"], 4000),
        "roll_test.csv": ("a table of measured data", ["READ roll_test.csv", "WRITE_HISTORY MEASURED x.txt"], 1000),
        "crane.txt": ("a crane", ["READ quartering.out", "SET_STEPS 1 20", "CRANE crane.txt x"], 1500),
        "some.script": ("a script", [], len(SCRIPT)),
    }


def try_bytes(program, here, name, lines, damaged):
    folder = tempfile.mkdtemp(dir=os.path.dirname(here))
    for other in os.listdir(here):
        if other != name:
            os.symlink(os.path.join(here, other), os.path.join(folder, other))
    with open(os.path.join(folder, name), "wb") as out:
        out.write(damaged)
    with open(os.path.join(folder, "try.script"), "w") as script:
        script.write("\n".join(lines or ["INCLUDE " + name]) + "\n")
    args = ["quartering.out", "-script", name] if not lines else ["-script", "try.script"]
    status, said = run(program, args, folder)
    shutil.rmtree(folder)
    return status, said


def damaged_input(program, writer, work, every, with_what):
    here, kinds = inputs(program, writer, work)
    for name, (kind, lines, header) in kinds.items():
        whole = open(os.path.join(here, name), "rb").read()
        status, said = try_bytes(program, here, name, lines, whole)
        if status != 0:  # nothing would be tried
            sys.exit(f"{kind}, undamaged, ended with status {status}\n{said.decode(errors='replace')[-2000:]}")
        cuts = range(0, len(whole), every)
        row(f"{kind}, cut off at a byte{with_what}",
            side_by_side(lambda n: (f"{name} at {n}", wrong(*try_bytes(program, here, name, lines, whole[:n]))), cuts))

        def flipped(n):
            changed = bytearray(whole)
            changed[n] ^= 1 << (n % 8)
            return f"{name} at {n}", wrong(*try_bytes(program, here, name, lines, bytes(changed)))

        row(f"{kind}, a bit of its header changed{with_what}",
            side_by_side(flipped, range(0, min(header, len(whole)), every)))
    shutil.rmtree(here)


def fuzzed(build, seconds):
    folder = os.path.join(build, "fuzz")

    def one(name):
        corpus = os.path.join(ROOT, "fuzz", "corpus", name[len("fuzz_"):])
        with tempfile.TemporaryDirectory() as found:
            done = subprocess.run([os.path.join(folder, name), f"-max_total_time={seconds}", "-print_final_stats=1",
                                   f"-artifact_prefix={found}/", found] + ([corpus] if os.path.isdir(corpus) else []),
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, cwd=found)
        executed = re.search(rb"number_of_executed_units: (\d+)", done.stdout)
        return name, int(executed.group(1)) if executed else 0, done

    names = [name for name in sorted(os.listdir(folder))
             if name.startswith("fuzz_") and os.access(os.path.join(folder, name), os.X_OK) and "." not in name]
    for name, tries, done in side_by_side(one, names):
        ROWS.append((f"{name}: {seconds} s of fuzzing, inputs", tries, int(done.returncode != 0), 0, 0))
        if done.returncode != 0:
            FAULTS.append(f"{name}: {done.stdout[-800:].decode(errors='replace')}")
        print(f"{name}: {tries} inputs, status {done.returncode}", flush=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--asan")
    parser.add_argument("--fuzz")
    parser.add_argument("--seconds", type=int, default=60)
    parser.add_argument("--every", type=int, default=8)
    parser.add_argument("--write", action="store_true")
    options = parser.parse_args()
    build = os.path.abspath(options.build)
    program, writer = os.path.join(build, "zaview"), os.path.join(build, "tools", "run_writer")
    work = tempfile.mkdtemp(prefix="zaview_reliability_")
    try:
        output_and_memory(program, work, options.every)
        damaged_input(program, writer, work, options.every, "")
        if options.asan:
            asan = os.path.join(os.path.abspath(options.asan), "zaview")
            damaged_input(asan, writer, work, 16 * options.every, ", sanitized")
        if options.fuzz:
            fuzzed(os.path.abspath(options.fuzz), options.seconds)
    finally:
        shutil.rmtree(work, ignore_errors=True)
    for fault in FAULTS[:60]:
        print("FAULT", fault)
    if options.write:
        with open(DOCUMENT) as source:
            before, rest = source.read().split(BEGIN)
        lines = ["| what goes wrong | tried | crashes | hangs | files lost |", "|---|---:|---:|---:|---:|"]
        lines += ["| " + " | ".join(str(cell) for cell in one) + " |" for one in ROWS]
        with open(DOCUMENT, "w") as out:
            out.write(before + BEGIN + "\n".join(lines) + "\n" + END + rest.split(END)[1])
    sys.exit(bool(FAULTS))


if __name__ == "__main__":
    main()
