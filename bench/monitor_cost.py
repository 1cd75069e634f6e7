#!/usr/bin/env python3
"""CPU per second and resident memory of the wallpaper with All displays on: one monitor, two
monitors, and two monitors with one of them covered by a maximized window, measured in one run
on Xorg with the dummy driver (software GL) under openbox, at 30 frames per second.

Usage: bench/monitor_cost.py [build-dir [other-build-dir]]     (default build/)
With two build directories (before and after a change) both are measured, one after the
other, and the ratios of their figures printed.
Environment: SECONDS_MEASURED (15), WARMUP_SECONDS (5), SIZE (960x540, each monitor; small
enough that software GL keeps up with the rate, so that the figures are the work asked for;
1920x1080 for the memory of a full-size monitor).

CPU is the process's user and system time (/proc/PID/stat) over the measured seconds; RSS is
VmRSS at the end of each phase; frames per monitor come from the diagnostics, and so does the
count of live GL objects, where the build reports it.
"""

import os
import re
import sys
import time

builds = [os.path.abspath(b) for b in (sys.argv[1:3] or ["build"])]
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "integration"))

import lib_desktop as L  # noqa: E402

MEASURED = float(os.environ.get("SECONDS_MEASURED", "15"))
WARMUP = float(os.environ.get("WARMUP_SECONDS", "5"))
WIDTH, HEIGHT = (int(v) for v in os.environ.get("SIZE", "960x540").split("x"))


def cpu_seconds(desktop):
    _, pid = desktop._bus_and_pid()
    with open("/proc/%d/stat" % pid) as f:
        fields = f.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def gl_objects(desktop):
    found = re.search(r"int64 (-?\d+)", desktop.diagnostic("GlObjects"))
    return int(found.group(1)) if found else None


def phase(desktop, name):
    time.sleep(WARMUP)
    cpu0, frames0, t0 = cpu_seconds(desktop), desktop.monitors(), time.monotonic()
    time.sleep(MEASURED)
    cpu1, frames1, t1 = cpu_seconds(desktop), desktop.monitors(), time.monotonic()
    per_monitor = {m[:8]: (frames1[m][1] - frames0.get(m, ("", 0))[1]) / (t1 - t0) for m in frames1}
    result = {"cpu": (cpu1 - cpu0) / (t1 - t0), "rss": desktop.rss_kib() / 1024.0, "fps": per_monitor,
              "gl": gl_objects(desktop)}
    frames = sum(per_monitor.values())
    print("%-28s CPU %.3f s/s  %.1f ms/frame  RSS %6.1f MiB  GL objects %s  frames/s %s" % (
        name, result["cpu"], 1000 * result["cpu"] / frames if frames else 0, result["rss"],
        "-" if result["gl"] is None else result["gl"],
        " ".join("%s:%.1f" % kv for kv in sorted(per_monitor.items()))), flush=True)
    return result


def measure(build):
    os.environ["NIVALIS_BIN"] = os.path.join(build, "host", "nivalis")
    binary = L.skip_unless_built()
    print("%s at %dx%d per monitor" % (binary, WIDTH, HEIGHT), flush=True)
    desktop = L.Desktop(multi_monitor=True)
    cover = None
    try:
        desktop.xrandr("--fb", "%dx%d" % (max(2 * WIDTH, 3840), max(HEIGHT, 1080)))
        desktop.xrandr("--setmonitor", "LEFT", "%d/508x%d/286+0+0" % (WIDTH, HEIGHT), "DUMMY0")
        desktop.start_nivalis(binary, {"allDisplays": "true", "fps": "30"})
        L.wait_for(lambda: len(desktop.monitors()) == 1, timeout=60, what="the first monitor")
        one = phase(desktop, "one monitor")
        desktop.xrandr("--setmonitor", "RIGHT", "%d/508x%d/286+%d+0" % (WIDTH, HEIGHT, WIDTH), "none")
        L.wait_for(lambda: len(desktop.monitors()) == 2, timeout=60, what="the second monitor")
        two = phase(desktop, "two monitors")
        cover = L.Xterm(desktop, 100, 100)
        cover.do("maximize")
        L.wait_for(lambda: "covered" in [s for s, _ in desktop.monitors().values()], what="the left covered")
        covered = phase(desktop, "two monitors, one covered")
        extra = two["rss"] - one["rss"]
        print("CPU two/one %.2f, covered/one %.2f; memory per extra monitor %.1f MiB" % (
            two["cpu"] / one["cpu"], covered["cpu"] / one["cpu"], extra), flush=True)
        return {"extra": extra, "one": one, "two": two}
    finally:
        if cover:
            cover.close()
        desktop.close()


def main():
    figures = [measure(build) for build in builds]
    if len(figures) == 2:
        before, after = figures
        print("memory per extra monitor: %.1f -> %.1f MiB (%.2fx); RSS with two monitors %.1f -> %.1f MiB (%.2fx)" % (
            before["extra"], after["extra"], after["extra"] / before["extra"], before["two"]["rss"],
            after["two"]["rss"], after["two"]["rss"] / before["two"]["rss"]))


if __name__ == "__main__":
    main()
