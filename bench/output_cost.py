#!/usr/bin/env python3
"""CPU time per frame and wake-ups per second of the wallpaper at 30 frames per second: the
Wayland layer-shell output on headless sway against the X11 desktop window on Xvfb with
openbox, measured the same way in one run, software GL on both.

Usage: bench/output_cost.py [build-dir]      (default build/; run as root it runs as nobody)
Environment: SECONDS_MEASURED (20), WARMUP_SECONDS (8), SIZE (640x360).

CPU is the process's user and system time (/proc/PID/stat); frames are the diagnostics frame
count; wake-ups are the context switches of all its threads (voluntary and forced), as
bench/host_usage.sh counts them.
"""

import os
import sys
import time

if "NIVALIS_BIN" not in os.environ:
    build = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build")
    os.environ.update(NIVALIS_BIN=os.path.join(build, "host", "nivalis"), NIVALIS_BUILD_DIR=build)
    sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "integration"))
else:
    sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

import lib_wayland as W  # noqa: E402

W.as_unprivileged()
import lib_services as S  # noqa: E402

S.in_private_session_bus()

MEASURED = float(os.environ.get("SECONDS_MEASURED", "20"))
WARMUP = float(os.environ.get("WARMUP_SECONDS", "8"))
WIDTH, HEIGHT = (int(v) for v in os.environ.get("SIZE", "640x360").split("x"))


def counters(pid):
    with open("/proc/%d/stat" % pid) as f:
        fields = f.read().rsplit(")", 1)[1].split()
    cpu = (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
    switches = 0
    for task in os.listdir("/proc/%d/task" % pid):
        with open("/proc/%d/task/%s/status" % (pid, task)) as f:
            for line in f:
                if line.startswith(("voluntary_ctxt_switches", "nonvoluntary_ctxt_switches")):
                    switches += int(line.split()[1])
    return cpu, switches


def measure(nivalis, bus):
    def frames():
        try:
            diagnostics = bus.get_object(S.SERVICE, S.DIAGNOSTICS_PATH)
            return int(diagnostics.Get(S.DIAGNOSTICS_IFACE, "FrameCount",
                                       dbus_interface="org.freedesktop.DBus.Properties"))
        except Exception:  # not on the bus yet
            return -1

    W.wait_until(lambda: frames() > 0, 60, "the first frame")
    time.sleep(WARMUP)
    f0, (c0, s0), t0 = frames(), counters(nivalis.process.pid), time.monotonic()
    time.sleep(MEASURED)
    f1, (c1, s1), t1 = frames(), counters(nivalis.process.pid), time.monotonic()
    seconds = t1 - t0
    return {"fps": (f1 - f0) / seconds, "cpu_ms_per_frame": 1000 * (c1 - c0) / max(f1 - f0, 1),
            "cpu_share": (c1 - c0) / seconds, "wakeups_per_s": (s1 - s0) / seconds,
            "wakeups_per_frame": (s1 - s0) / max(f1 - f0, 1)}


def run_nivalis(env_changes, home, display, settings=()):
    """Starts the wallpaper on software GL at 30 fps in the day, then `settings` (key, value) on top."""
    nivalis = S.Nivalis(display, home)
    nivalis.env.update(env_changes)
    if "WAYLAND_DISPLAY" in env_changes:
        nivalis.env.pop("QT_QPA_PLATFORM", None)
    nivalis.env["LIBGL_ALWAYS_SOFTWARE"] = "1"
    nivalis.config("set", "fps", "30")
    nivalis.config("set", "sceneTime", "day")
    for key, value in settings:
        nivalis.config("set", key, value)
    return nivalis.start()


def main():
    services = S.SystemServices()
    results = {}
    try:
        home, runtime = W.private_home()
        sway = W.Sway(runtime, outputs=1)
        sway.swaymsg("output", "HEADLESS-1", "resolution", "%dx%d" % (WIDTH, HEIGHT))
        try:
            env = dict(sway.env)
            env.pop("QT_QPA_PLATFORM", None)
            nivalis = run_nivalis(env, home, "")
            try:
                results["wayland"] = measure(nivalis, services.session)
            finally:
                nivalis.stop()
        finally:
            sway.stop()

        x = S.XServer(WIDTH, HEIGHT)
        try:
            nivalis = run_nivalis({"XDG_RUNTIME_DIR": S.runtime_dir(home)}, home, x.display)
            try:
                results["x11"] = measure(nivalis, services.session)
            finally:
                nivalis.stop()
        finally:
            x.stop()
    finally:
        services.stop()

    print("%-8s %8s %16s %10s %14s %17s" % ("output", "fps", "CPU ms/frame", "CPU share", "wake-ups/s",
                                            "wake-ups/frame"))
    for name, r in results.items():
        print("%-8s %8.1f %16.1f %10.2f %14.1f %17.1f" % (name, r["fps"], r["cpu_ms_per_frame"], r["cpu_share"],
                                                          r["wakeups_per_s"], r["wakeups_per_frame"]))
    w, x = results["wayland"], results["x11"]
    print("wayland/x11: CPU per frame %.2f, wake-ups per second %.2f, wake-ups per frame %.2f" % (
        w["cpu_ms_per_frame"] / x["cpu_ms_per_frame"], w["wakeups_per_s"] / x["wakeups_per_s"],
        w["wakeups_per_frame"] / x["wakeups_per_frame"]))


if __name__ == "__main__":
    main()
