#!/usr/bin/env python3
"""Prints what the views of bodies cost: steps of the animation a second without and with pictures beside a plain program
that draws the same scene, the hull in space, and the memory of a long video.

Usage: bench/views.py BUILD_DIR [--steps N] [--work DIR]
BUILD_DIR is a bench build. Needs ffmpeg for the video, which is left out without it. Nothing fails if a goal is missed.
"""
import argparse
import os
import shutil
import subprocess
import tempfile
import time

SETTLED = 0.1  # of the steps: then all that grows once has grown


def resident_kb(pid):
    with open(f"/proc/{pid}/statm", encoding="ascii") as statm:
        return int(statm.read().split()[1]) * os.sysconf("SC_PAGE_SIZE") // 1024


def video(program, writer, steps, work):
    """Resident memory of the program, sampled from SETTLED of its time on: least and most, kB; seconds in all."""
    subprocess.run([writer, "--steps", str(steps), "run.out"], cwd=work, check=True)
    with open(os.path.join(work, "video.script"), "w", encoding="ascii") as script:
        script.write("ANIMATE_MOTIONS run.mp4\n")
    environment = dict(os.environ, GLWINDOWSIZE="320x240")
    begin = time.perf_counter()
    samples = []
    with subprocess.Popen([program, "run.out", "-script", "video.script"], cwd=work, env=environment,
                          stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL) as process:
        while process.poll() is None:
            try:
                samples.append((time.perf_counter() - begin, resident_kb(process.pid)))
            except (FileNotFoundError, IndexError, ValueError):
                break
            time.sleep(0.1)
        if process.wait() != 0:
            raise SystemExit(f"the video ended with status {process.returncode}")
    seconds = time.perf_counter() - begin
    settled = [kb for at, kb in samples[:-2] if at > SETTLED * seconds]
    return min(settled), max(settled), seconds


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--steps", type=int, default=10_000)
    parser.add_argument("--work")
    args = parser.parse_args()
    build = os.path.abspath(args.build)
    for bench in ("animation_bench", "geometry_bench"):
        print(f"{bench}:", flush=True)
        subprocess.run([os.path.join(build, "bench", bench), "--benchmark_counters_tabular=true"], check=True,
                       stderr=subprocess.DEVNULL)
    if shutil.which("ffmpeg") is None:
        print("no ffmpeg: no video")
        return
    program, writer = os.path.join(build, "zaview"), os.path.join(build, "tools", "run_writer")
    with tempfile.TemporaryDirectory(prefix="zaview_views_", dir=args.work) as work:
        low, high, seconds = video(program, writer, args.steps, work)
    print(f"video of {args.steps} steps, 320x240: {args.steps / seconds:.0f} steps/s, memory {low} to {high} kB "
          f"({100 * (high - low) / low:.2f} %)")


if __name__ == "__main__":
    main()
