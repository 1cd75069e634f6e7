#!/usr/bin/env python3
"""CPU and frames per second of the wallpaper at 1920x1080 on software GL (Mesa llvmpipe) for
each quality: the X11 desktop window on Xvfb, with bench/output_cost.py's helpers.

Usage: bench/quality_cost.py [before-build-dir] build-dir    (default build/; as root it runs as nobody)
Environment: SECONDS_MEASURED (60), WARMUP_SECONDS (8), SIZE (1920x1080).

A build runs High and Low at 30 fps and Low at 20 fps; a build without the quality setting (the
tree before it) runs once at 30 fps, with the one picture it draws. With two build directories
both are measured in this one run, one after the other, and the ratios at 30 fps are printed.
CPU is the process's user and system time as a share of one core; frames are the diagnostics
frame count.
"""

import json
import os
import subprocess
import sys

RUNS = [("high", 30), ("low", 30), ("low", 20)]
HERE = os.environ.setdefault("NIVALIS_BENCH_DIR", os.path.dirname(os.path.abspath(__file__)))


HEADER = "%-34s %-7s %6s %8s %11s %13s" % ("build", "quality", "asked", "fps", "CPU % core", "CPU ms/frame")


def row(build, r):
    return "%-34s %-7s %6d %8.1f %11.0f %13.1f" % (build[-34:], r["quality"], r["asked"], r["fps"],
                                                   100 * r["cpu_share"], r["cpu_ms_per_frame"])


def measure_build(build):
    """Runs this script on `build` alone; its results, one per run."""
    output = subprocess.run([sys.executable, os.path.join(HERE, "quality_cost.py"), build], check=True,
                            stdout=subprocess.PIPE, text=True).stdout
    return [json.loads(line[len("RESULT "):]) for line in output.splitlines() if line.startswith("RESULT ")]


def measure_here():
    """Measures the build that NIVALIS_BIN names; prints one RESULT line per run."""
    sys.path[:0] = [HERE, os.path.join(HERE, "..", "tests", "integration")]
    os.environ.setdefault("SIZE", "1920x1080")
    os.environ.setdefault("SECONDS_MEASURED", "60")
    import output_cost as O  # runs this script again as nobody, in a private session bus

    S, W = O.S, O.W
    home, _ = W.private_home()
    try:
        S.Nivalis("", home).config("get", "quality")
        runs = RUNS
    except AssertionError:  # a build before the setting
        runs = [(None, 30)]
    services = S.SystemServices()
    try:
        for quality, fps in runs:
            home, _ = W.private_home()
            x = S.XServer(O.WIDTH, O.HEIGHT)
            try:
                settings = [("fps", str(fps))] + ([("quality", quality)] if quality else [])
                nivalis = O.run_nivalis({"XDG_RUNTIME_DIR": S.runtime_dir(home)}, home, x.display, settings)
                try:
                    result = O.measure(nivalis, services.session)
                finally:
                    nivalis.stop()
            finally:
                x.stop()
            result.update(quality=quality or "-", asked=fps, size="%dx%d" % (O.WIDTH, O.HEIGHT),
                          seconds=O.MEASURED)
            print("RESULT " + json.dumps(result), flush=True)
            print(HEADER + "\n" + row(os.environ.get("NIVALIS_BUILD_DIR", ""), result), flush=True)
    finally:
        services.stop()


def main():
    if "NIVALIS_BIN" in os.environ:
        measure_here()
        return
    builds = [os.path.abspath(d) for d in (sys.argv[1:] or ["build"])]
    if len(builds) == 1:
        os.environ.update(NIVALIS_BIN=os.path.join(builds[0], "host", "nivalis"), NIVALIS_BUILD_DIR=builds[0])
        measure_here()
        return
    results = {build: measure_build(build) for build in builds}
    print(HEADER)
    for build, rows in results.items():
        for r in rows:
            print(row(build, r))
    if rows:
        print("%s, llvmpipe, %.0f s measured per row" % (rows[0]["size"], rows[0]["seconds"]))
    before = next((r for r in results[builds[0]] if r["asked"] == 30), None)
    for r in results[builds[1]]:
        if before and r["asked"] == 30:
            print("after %s / before, at 30 fps: fps x%.2f, CPU x%.2f" % (
                r["quality"], r["fps"] / before["fps"], r["cpu_share"] / before["cpu_share"]))


main()
