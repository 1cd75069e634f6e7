#!/usr/bin/env python3
"""Wake-ups of the wallpaper's main thread at 30 (FPS) frames per second and while paused (the tray
menu's Disable), on Xvfb with openbox at 1920x1080 by default, software GL.

Usage: bench/wakeups.py [before-build-dir] [build-dir]     (default build/)
Environment: SECONDS_MEASURED (20), WARMUP_SECONDS (10), SIZE (1920x1080), FPS (30).

A wake-up of the main thread is a voluntary context switch (/proc/PID/task/PID/status): it
slept and something woke it, a timer, a socket of the event loop, or the GL driver's threads it
waited for. Forced switches (another process took the core) are left out there, so that a busy
machine does not inflate the figure; the whole process's figure counts both kinds. Waits on the
GL driver's threads inside a frame are wake-ups too; the event loop's own, one per timer or
event it handles, are counted apart: the main thread's blocking poll() calls (strace on that
thread alone, over the same seconds; a loop that never sleeps because frames overrun their slot
shows few). FPS (20, 30 or 60) and SIZE low enough for the machine to hold count the timers. With two
build directories both are measured in one run and the ratios printed.
"""

import os
import re
import signal
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "integration"))
import lib_services as S  # noqa: E402

S.in_private_session_bus()
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import lib_wallpaper as L  # noqa: E402

MEASURED = float(os.environ.get("SECONDS_MEASURED", "20"))
WARMUP = float(os.environ.get("WARMUP_SECONDS", "10"))
FPS = os.environ.get("FPS", "30")
WIDTH, HEIGHT = (int(v) for v in os.environ.get("SIZE", "1920x1080").split("x"))


def loop_waits(trace):
    """The event loop's blocking waits in an strace log of poll calls: those with a timeout other
    than 0, leaving out the X connection's flushes (a wait to write, not for events)."""
    waits = 0
    for line in trace.splitlines():
        if "poll(" in line and "POLLOUT" not in line and not re.search(r"\], \d+, 0\)", line) \
                and not re.search(r"\], \d+, \{tv_sec=0, tv_nsec=0\}", line):
            waits += 1
    return waits


def rates(wallpaper, count_frames=True):
    log = os.path.join(wallpaper.home, "poll.trace")
    traced = time.monotonic()
    strace = subprocess.Popen(["strace", "-e", "trace=poll,ppoll", "-o", log, "-p", str(wallpaper.pid)],
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    time.sleep(1)  # attached
    # Asking for the frame count over D-Bus wakes the program too: not while it is paused.
    frames = wallpaper.frames if count_frames else (lambda: 0)
    f0, (m0, a0), t0 = frames(), wallpaper.switches(), time.monotonic()
    time.sleep(MEASURED)
    f1, (m1, a1), t1 = frames(), wallpaper.switches(), time.monotonic()
    strace.send_signal(signal.SIGINT)
    traced = time.monotonic() - traced
    strace.wait(30)
    with open(log) as f:
        loop = loop_waits(f.read())
    seconds = t1 - t0
    return (f1 - f0) / seconds, (m1 - m0) / seconds, (a1 - a0) / seconds, loop / traced


def measure(wallpaper):
    time.sleep(WARMUP)
    running = rates(wallpaper)
    wallpaper.toggle_enabled()
    S.wait_until(wallpaper.paused, 10, "the pause")
    time.sleep(3)
    paused = rates(wallpaper, count_frames=False)
    return running, paused


results = L.run_each(measure, WIDTH, HEIGHT, fps=FPS)
print("wake-ups per second at %dx%d and %s fps, %g s each: main thread (voluntary switches), its event loop"
      " (blocking polls), all threads" % (WIDTH, HEIGHT, FPS, MEASURED))
print("%-28s %6s | %8s %8s %8s | %8s %8s %8s" % ("build", "fps", "main", "loop", "all", "paused", "loop", "all"))
for build, (running, paused) in results:
    print("%-28s %6.1f | %8.1f %8.1f %8.1f | %8.2f %8.2f %8.2f" % (
        build[-28:], running[0], running[1], running[3], running[2], paused[1], paused[3], paused[2]))
if len(results) == 2:
    (_, (rb, pb)), (_, (ra, pa)) = results
    # A build whose frames overrun their slot never sleeps in its event loop: no ratio there.
    loop = "%.2f" % (ra[3] / rb[3]) if rb[3] > 0 else "- (before never slept)"
    print("after/before running: main thread %.2f, event loop %s, all threads %.2f" % (
        ra[1] / rb[1], loop, ra[2] / rb[2]))
