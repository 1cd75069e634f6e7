#!/usr/bin/env python3
"""Resident memory of the wallpaper at 1920x1080 on Xvfb with openbox, software GL, 30 frames
per second: after one minute of a first launch (empty shader caches), then, launched again over
the same caches as on every later day, after one minute and once the scene's clock has run an
hour.

Usage: bench/memory.py [before-build-dir] [build-dir]     (default build/)
Environment: CLOCK_RATE (20), SIZE (1920x1080).

The hour runs fast: NIVALIS_CLOCK_RATE=CLOCK_RATE makes the scene's clock run that many times
faster than the wall clock, so that its timers, camera cuts and animations cycle through an
hour in 60 / CLOCK_RATE minutes. Frames are still drawn at the real rate, so the hour's frame
count is CLOCK_RATE times smaller than a real hour's. A build that does not know the variable
runs its clock at the real rate; its "hour" figure is then the same wall time, and says so.
Each figure is VmRSS; the split of the warm minute (anonymous memory: heap, GL objects on the
software rasteriser; file-backed: code and fonts) comes from /proc/PID/smaps_rollup.
"""

import itertools
import os
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "integration"))
import lib_services as S  # noqa: E402

S.in_private_session_bus()
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import lib_wallpaper as L  # noqa: E402

RATE = float(os.environ.get("CLOCK_RATE", "20"))
WIDTH, HEIGHT = (int(v) for v in os.environ.get("SIZE", "1920x1080").split("x"))


def knows_clock_rate(build):
    binary = os.path.join(build, "host", "nivalis")
    return subprocess.run(["grep", "-q", "NIVALIS_CLOCK_RATE", binary]).returncode == 0


def rollup(pid):
    fields = {}
    with open("/proc/%d/smaps_rollup" % pid) as f:
        for line in f:
            parts = line.split()
            if len(parts) == 3 and parts[2] == "kB":
                fields[parts[0].rstrip(":")] = int(parts[1])
    return fields


def cold(wallpaper):
    time.sleep(60)
    return wallpaper.rss_kib()


def warm(wallpaper):
    start = time.monotonic()
    time.sleep(60)
    minute = wallpaper.rss_kib()
    split = rollup(wallpaper.pid)
    time.sleep(max(0.0, start + 3600 / RATE - time.monotonic()))
    return minute, split, wallpaper.rss_kib(), wallpaper.frames()


calls = itertools.count()


def measure(wallpaper):
    """Each build's first launch is the cold one, its second the warm one."""
    return cold(wallpaper) if next(calls) % 2 == 0 else warm(wallpaper)


results = L.run_each(measure, WIDTH, HEIGHT, {"NIVALIS_CLOCK_RATE": "%g" % RATE}, runs=2)
print("RSS at %dx%d; the hour at clock rate %g (%.0f s of wall time)" % (WIDTH, HEIGHT, RATE, 3600 / RATE))
print("%-28s %9s %9s %9s %9s %9s %9s %8s" % ("build", "cold 1min", "warm 1min", "anon", "file", "hour",
                                            "growth", "frames"))
for build, (first, (minute, split, hour, frames)) in results:
    note = "" if knows_clock_rate(build) else "  (clock at the real rate: %.0f s, not an hour)" % (3600 / RATE)
    print("%-28s %9.1f %9.1f %9.1f %9.1f %9.1f %+9.2f %8d%s" % (
        build[-28:], first / 1024, minute / 1024, split.get("Anonymous", 0) / 1024,
        (split.get("Rss", 0) - split.get("Anonymous", 0)) / 1024, hour / 1024, (hour - minute) / 1024, frames,
        note))
if len(results) == 2:
    print("after/before at 1 min: cold %.2f, warm %.2f" % (results[1][1][0] / results[0][1][0],
                                                           results[1][1][1][0] / results[0][1][1][0]))
