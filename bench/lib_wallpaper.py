"""The built wallpaper running on Xvfb with openbox, private D-Bus buses and mocked system
services, and the figures of its process read from /proc: what bench/memory.py and
bench/wakeups.py measure. Import it after `in_private_session_bus()` has run.
"""

import os
import shutil
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "integration"))

import lib_services as S  # noqa: E402


def build_dirs():
    """The build directories named on the command line (before first), else build/."""
    return [os.path.abspath(arg) for arg in sys.argv[1:]] or [os.path.abspath("build")]


class Wallpaper:
    """nivalis of `build` at `width` x `height` and `fps` frames per second, until `close`. Its
    home (settings and caches) is `home` where given, kept at `close`; else a new one, removed."""

    def __init__(self, build, width, height, services, env=None, fps="30", home=None):
        os.environ["NIVALIS_BIN"] = os.path.join(build, "host", "nivalis")
        self.services = services
        self.own_home = home is None
        self.home = home or tempfile.mkdtemp(prefix="nivalis-bench-")
        self.x = S.XServer(width, height)
        self.nivalis = S.Nivalis(self.x.display, self.home)
        try:
            self.nivalis.env.update(env or {})
            self.nivalis.config("set", "fps", str(fps))
            self.nivalis.start()
            self.pid = self.nivalis.process.pid
            S.wait_until(lambda: self.frames() > 0, 120, "the first frame")
        except BaseException:
            self.close()
            raise

    def _diagnostics(self):
        return self.nivalis.diagnostics(self.services.session)

    def frames(self):
        try:
            return int(self._diagnostics().Get(S.DIAGNOSTICS_IFACE, "FrameCount",
                                               dbus_interface="org.freedesktop.DBus.Properties"))
        except Exception:  # not on the bus yet
            return -1

    def paused(self):
        return bool(self._diagnostics().Get(S.DIAGNOSTICS_IFACE, "Paused",
                                            dbus_interface="org.freedesktop.DBus.Properties"))

    def toggle_enabled(self):
        self._diagnostics().ToggleEnabled(dbus_interface=S.DIAGNOSTICS_IFACE)

    def rss_kib(self):
        """Resident set of the process in KiB."""
        with open("/proc/%d/status" % self.pid) as f:
            for line in f:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1])
        return 0

    def switches(self):
        """Context switches of the main thread (voluntary: it slept and was woken) and of all
        threads (voluntary and forced)."""
        main = every = 0
        for task in os.listdir("/proc/%d/task" % self.pid):
            counts = {}
            try:
                with open("/proc/%d/task/%s/status" % (self.pid, task)) as f:
                    for line in f:
                        if line.startswith(("voluntary_ctxt_switches", "nonvoluntary_ctxt_switches")):
                            counts[line.split(":")[0]] = int(line.split()[1])
            except OSError:  # the thread ended meanwhile
                continue
            every += sum(counts.values())
            if task == str(self.pid):
                main = counts.get("voluntary_ctxt_switches", 0)
        return main, every

    def close(self):
        self.nivalis.stop()
        self.x.stop()
        if self.own_home:
            shutil.rmtree(self.home, ignore_errors=True)


def run_each(measure, width, height, env=None, fps="30", runs=1):
    """`measure(wallpaper)` for each build directory in turn, `runs` times over one home, so that
    later runs find the caches the first one filled; their results in that order, each build's
    as a list when `runs` is above one."""
    services = S.SystemServices()
    results = []
    try:
        for build in build_dirs():
            home = tempfile.mkdtemp(prefix="nivalis-bench-")
            each = []
            try:
                for _ in range(runs):
                    wallpaper = Wallpaper(build, width, height, services, env, fps, home)
                    try:
                        each.append(measure(wallpaper))
                    finally:
                        wallpaper.close()
            finally:
                shutil.rmtree(home, ignore_errors=True)
            results.append((build, each if runs > 1 else each[0]))
    finally:
        services.stop()
    return results


def settle(seconds):
    time.sleep(seconds)
