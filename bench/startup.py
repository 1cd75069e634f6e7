#!/usr/bin/env python3
"""Time from launch to the first picture of the wallpaper, on Xvfb (1920x1080) under openbox,
with a cold cache (a fresh XDG_CACHE_HOME each run) and a warm one (one primed XDG_CACHE_HOME
for all runs). Given two build directories it measures both in one run, alternating them run
by run so that the load of the machine falls on both alike, and prints the ratio of the
medians. The last build also runs warm without $XDG_CACHE_HOME/nivalis (Mesa's own shader cache
kept): what the program binary cache alone is worth. It ends with the start-up trace
(NIVALIS_TRACE_STARTUP=1) of one cold and one warm run of the last.

Usage: bench/startup.py [before-build-dir] build-dir     (default build/)
Environment: RUNS (7 per build and cache state), SIZE (1920x1080, the screen).

Launch is the moment before the process is spawned, on a session bus that runs all along (as in
a desktop session); the first picture is the first poll, every 10 ms, that finds the
diagnostics' FrameCount above 0. Each poll is a dbus-send of its own, so the figures carry
some milliseconds of polling on top; the trace's "first frame shown" line has none.
"""

import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "integration"))

import lib_desktop as L  # noqa: E402

RUNS = int(os.environ.get("RUNS", "7"))
WIDTH, HEIGHT = (int(v) for v in os.environ.get("SIZE", "1920x1080").split("x"))


def frame_count(desktop, address):
    result = subprocess.run(["dbus-send", "--bus=" + address, "--print-reply", "--dest=org.nivalis.Nivalis",
                             "/org/nivalis/Nivalis/Diagnostics", "org.freedesktop.DBus.Properties.Get",
                             "string:org.nivalis.Nivalis.Diagnostics", "string:FrameCount"],
                            env=desktop.env, capture_output=True, text=True)
    found = re.search(r"uint64 (\d+)", result.stdout)
    return int(found.group(1)) if found else 0


def launch(desktop, binary, cache, trace=False):
    """Seconds from launch to the first frame, and the program's standard error."""
    env = dict(desktop.env)
    env["XDG_CACHE_HOME"] = cache
    env["XDG_CONFIG_HOME"] = tempfile.mkdtemp(prefix="config-", dir=desktop.tmp)
    if trace:
        env["NIVALIS_TRACE_STARTUP"] = "1"
    log = os.path.join(desktop.tmp, "nivalis.log")
    address = env["DBUS_SESSION_BUS_ADDRESS"]
    started = time.monotonic()
    proc = subprocess.Popen([binary], env=env, stdout=subprocess.DEVNULL, stderr=open(log, "w"),
                            start_new_session=True)
    try:
        while time.monotonic() - started < 60:
            if frame_count(desktop, address) > 0:
                return time.monotonic() - started, open(log).read()
            if proc.poll() is not None:
                raise RuntimeError("the program ended early:\n" + open(log).read())
            time.sleep(0.01)
        raise RuntimeError("no frame within 60 s:\n" + open(log).read())
    finally:
        proc.terminate()
        proc.wait(timeout=10)
        shutil.rmtree(env["XDG_CONFIG_HOME"], ignore_errors=True)


def main():
    builds = [os.path.abspath(b) for b in (sys.argv[1:] or ["build"])]
    binaries = []
    for build in builds:
        for candidate in (os.path.join(build, "host", "nivalis"), os.path.join(build, "nivalis")):
            if os.access(candidate, os.X_OK):
                binaries.append(candidate)
                break
        else:
            sys.exit("no nivalis in " + build)
    desktop = L.Desktop(size=(WIDTH, HEIGHT))
    bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address=1"], env=desktop.env,
                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    desktop.env["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
    try:
        warm = [tempfile.mkdtemp(prefix="warm-", dir=desktop.tmp) for _ in binaries]
        for binary, cache in zip(binaries, warm):
            launch(desktop, binary, cache)
        cold_times = [[] for _ in binaries]
        warm_times = [[] for _ in binaries]
        mesa_times = []
        for _ in range(RUNS):
            for i, binary in enumerate(binaries):
                cold = tempfile.mkdtemp(prefix="cold-", dir=desktop.tmp)
                cold_times[i].append(launch(desktop, binary, cold)[0])
                shutil.rmtree(cold, ignore_errors=True)
                warm_times[i].append(launch(desktop, binary, warm[i])[0])
            # The last build once more with Mesa's cache warm but without the program cache.
            mesa = tempfile.mkdtemp(prefix="mesa-", dir=desktop.tmp)
            shutil.copytree(warm[-1], mesa, dirs_exist_ok=True, ignore=shutil.ignore_patterns("nivalis"))
            mesa_times.append(launch(desktop, binaries[-1], mesa)[0])
            shutil.rmtree(mesa, ignore_errors=True)
        print("launch to first frame, Xvfb %dx%d, median of %d runs (min-max):" % (WIDTH, HEIGHT, RUNS))
        for label, times in (("cold", cold_times), ("warm", warm_times)):
            medians = [statistics.median(t) for t in times]
            for build, t, median in zip(builds, times, medians):
                print("  %-4s %-40s %6.3f s  (%.3f-%.3f)" % (label, build, median, min(t), max(t)))
            if len(medians) == 2:
                print("  %-4s after/before %.2f" % (label, medians[1] / medians[0]))
        print("  warm, no program cache (Mesa's own cache only) %s %6.3f s  (%.3f-%.3f)" % (
            builds[-1], statistics.median(mesa_times), min(mesa_times), max(mesa_times)))
        cold = tempfile.mkdtemp(prefix="cold-", dir=desktop.tmp)
        for label, cache in (("cold", cold), ("warm", warm[-1])):
            seconds, log = launch(desktop, binaries[-1], cache, trace=True)
            print("trace of one %s run of %s (%.3f s by the poll):" % (label, builds[-1], seconds))
            for line in log.splitlines():
                if line.startswith("nivalis: startup"):
                    print("  " + line)
    finally:
        bus.terminate()
        bus.wait()
        desktop.close()


if __name__ == "__main__":
    main()
