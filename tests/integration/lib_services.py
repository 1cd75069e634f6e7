"""Shared set-up of the host's integration tests: a private X display with a window manager,
private D-Bus buses with mocks of the system services, a private configuration folder, and
the nivalis program under test with its standard output collected line by line.

Each test script calls `skip_unless_program()` first: without the built program it says so
and exits 0. Everything else that is missing (Xvfb, openbox, dbus-daemon, python3-dbusmock)
is a failure, since scripts/setup installs all of them.
"""

import os
import queue
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import time

SESSION_MARK = "NIVALIS_TEST_IN_DBUS_SESSION"
SERVICE = "org.nivalis.Nivalis"
DIAGNOSTICS_PATH = "/org/nivalis/Nivalis/Diagnostics"
DIAGNOSTICS_IFACE = "org.nivalis.Nivalis.Diagnostics"
SESSION_ID = "c1"


def program():
    return os.environ.get("NIVALIS_BIN", "")


def skip_unless_program():
    """Exits 0 with a message when the program under test was not built."""
    path = program()
    if not path or not os.access(path, os.X_OK):
        print(f"SKIP: the nivalis program is not built (NIVALIS_BIN={path!r})")
        sys.exit(0)


def in_private_session_bus():
    """Runs this script again under dbus-run-session, so that the session bus is our own."""
    if os.environ.get(SESSION_MARK) == "1":
        return
    env = dict(os.environ, **{SESSION_MARK: "1"})
    os.execvpe("dbus-run-session", ["dbus-run-session", "--", sys.executable] + sys.argv, env)


def wait_until(predicate, timeout, what):
    """Polls `predicate` every 50 ms until it is true; fails with `what` after `timeout` seconds."""
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        value = predicate()
        if value:
            return value
        time.sleep(0.05)
    raise AssertionError(f"timed out after {timeout} s waiting for {what}")


class XServer:
    """Xvfb on a free display number (chosen by the server) with openbox managing it."""

    def __init__(self, width=1280, height=800):
        read_end, write_end = os.pipe()
        self.xvfb = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp"],
            pass_fds=(write_end,), stderr=subprocess.DEVNULL)
        os.close(write_end)
        number = b""
        with os.fdopen(read_end, "rb") as pipe:
            while not number.endswith(b"\n"):
                chunk = pipe.read(1)
                if not chunk:
                    raise AssertionError("Xvfb did not report a display number")
                number += chunk
        self.display = ":" + number.decode().strip()
        self.openbox = subprocess.Popen(["openbox", "--sm-disable"], env=dict(os.environ, DISPLAY=self.display),
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # The window manager owns the screen's WM_S0 selection once it runs.
        wait_until(lambda: self._has_window_manager(), 10, "openbox to start")

    def _has_window_manager(self):
        result = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True, text=True,
                                env=dict(os.environ, DISPLAY=self.display))
        return "window id" in result.stdout

    def stop(self):
        for process in (self.openbox, self.xvfb):
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()


class SystemServices:
    """Mocks of UPower, logind and power-profiles-daemon on a private system bus, and of the
    two screen savers on the session bus."""

    def __init__(self, on_battery=False, profile="balanced"):
        import dbus
        import dbusmock

        self.dbus = dbus
        self.case = dbusmock.DBusTestCase
        self.case.start_system_bus()
        self.system = self.case.get_dbus(system_bus=True)
        self.session = self.case.get_dbus(system_bus=False)
        self.processes = []

        self.upower_process, self.upower = self.case.spawn_server_template("upower", {"OnBattery": on_battery},
                                                                           stdout=subprocess.DEVNULL)
        self.processes.append(self.upower_process)
        process, self.logind = self.case.spawn_server_template("logind", {}, stdout=subprocess.DEVNULL)
        self.processes.append(process)
        self.logind_mock = dbus.Interface(self.logind, dbusmock.MOCK_IFACE)
        session_path = self.logind_mock.AddSession(SESSION_ID, "seat0", dbus.UInt32(os.getuid()), "tester", True)
        self.login_session = self.system.get_object("org.freedesktop.login1", session_path)
        process, self.profiles = self.case.spawn_server_template("power_profiles_daemon", {"ActiveProfile": profile},
                                                                 stdout=subprocess.DEVNULL)
        self.processes.append(process)
        process, self.gnome_screensaver = self.case.spawn_server_template("gnome_screensaver", {},
                                                                          stdout=subprocess.DEVNULL)
        self.processes.append(process)
        # The desktop-neutral screen saver: nothing but its ActiveChanged signal.
        process = self.case.spawn_server("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver",
                                         "org.freedesktop.ScreenSaver", system_bus=False, stdout=subprocess.DEVNULL)
        self.processes.append(process)
        self.screensaver = dbus.Interface(self.session.get_object("org.freedesktop.ScreenSaver",
                                                                  "/org/freedesktop/ScreenSaver"), dbusmock.MOCK_IFACE)

    def set_on_battery(self, on_battery):
        self.upower.Set("org.freedesktop.UPower", "OnBattery", self.dbus.Boolean(on_battery),
                        dbus_interface=self.dbus.PROPERTIES_IFACE)

    def set_power_device_type(self, device_type):
        """The type of UPower's display device: 2 a battery, 3 a UPS."""
        import dbusmock
        mock = self.dbus.Interface(self.upower, dbusmock.MOCK_IFACE)
        mock.SetupDisplayDevice(self.dbus.UInt32(device_type), self.dbus.UInt32(2), 50.0, 50.0, 100.0, 10.0,
                                self.dbus.Int64(1800), self.dbus.Int64(0), True, "battery", self.dbus.UInt32(1))

    def set_profile(self, profile):
        self.profiles.Set("net.hadess.PowerProfiles", "ActiveProfile", profile,
                          dbus_interface=self.dbus.PROPERTIES_IFACE)

    def start_upower_profiles(self, profile):
        """power-profiles-daemon's newer name, appearing while the program runs; returns a
        function that sets its active profile."""
        import dbusmock
        name = "org.freedesktop.UPower.PowerProfiles"
        path = "/org/freedesktop/UPower/PowerProfiles"
        self.processes.append(self.case.spawn_server(name, path, name, system_bus=True, stdout=subprocess.DEVNULL))
        obj = self.system.get_object(name, path)
        self.dbus.Interface(obj, dbusmock.MOCK_IFACE).AddProperty(name, "ActiveProfile", profile)
        return lambda value: obj.Set(name, "ActiveProfile", value, dbus_interface=self.dbus.PROPERTIES_IFACE)

    def start_tray_host(self):
        """A StatusNotifierWatcher with a host registered on the session bus: a tray, as far as
        the program can tell (without one, a second launch opens the settings instead)."""
        import dbusmock
        name = "org.kde.StatusNotifierWatcher"
        path = "/StatusNotifierWatcher"
        self.processes.append(self.case.spawn_server(name, path, name, system_bus=False, stdout=subprocess.DEVNULL))
        mock = self.dbus.Interface(self.session.get_object(name, path), dbusmock.MOCK_IFACE)
        mock.AddProperties(name, {"IsStatusNotifierHostRegistered": True, "ProtocolVersion": self.dbus.Int32(0),
                                  "RegisteredStatusNotifierItems": self.dbus.Array([], signature="s")})
        mock.AddMethod(name, "RegisterStatusNotifierItem", "s", "", "")
        mock.AddMethod(name, "RegisterStatusNotifierHost", "s", "", "")

    def freedesktop_screensaver_active(self, active):
        self.screensaver.EmitSignal("org.freedesktop.ScreenSaver", "ActiveChanged", "b", [self.dbus.Boolean(active)])

    def gnome_screensaver_active(self, active):
        self.gnome_screensaver.SetActive(self.dbus.Boolean(active), dbus_interface="org.gnome.ScreenSaver")

    def logind_lock(self):
        self.login_session.Lock(dbus_interface="org.freedesktop.login1.Session")

    def logind_unlock(self):
        self.login_session.Unlock(dbus_interface="org.freedesktop.login1.Session")

    def wake(self):
        self.logind_mock.EmitSignal("org.freedesktop.login1.Manager", "PrepareForSleep", "b",
                                    [self.dbus.Boolean(True)])
        self.logind_mock.EmitSignal("org.freedesktop.login1.Manager", "PrepareForSleep", "b",
                                    [self.dbus.Boolean(False)])

    def stop(self):
        for process in self.processes:
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
        self.case.tearDownClass()


def runtime_dir(home):
    """A private XDG_RUNTIME_DIR inside `home`, made with the mode 0700 that Qt insists on."""
    path = os.path.join(home, "runtime")
    os.makedirs(path, mode=0o700, exist_ok=True)
    return path


class Nivalis:
    """The program under test, with a private HOME and XDG_CONFIG_HOME, its output lines kept."""

    def __init__(self, display, home):
        self.env = dict(os.environ, DISPLAY=display, HOME=home, XDG_CONFIG_HOME=os.path.join(home, "config"),
                        XDG_CACHE_HOME=os.path.join(home, "cache"),
                        XDG_SESSION_ID=SESSION_ID, XDG_RUNTIME_DIR=runtime_dir(home), QT_QPA_PLATFORM="xcb", LIBGL_ALWAYS_SOFTWARE="1")
        self.env.pop("WAYLAND_DISPLAY", None)
        self.lines = []
        self.new_lines = queue.Queue()
        self.process = None

    def config(self, *words):
        """Runs `nivalis config ...` as another process; returns its standard output."""
        result = subprocess.run([program(), "config", *words], env=self.env, capture_output=True, text=True,
                                timeout=30)
        if result.returncode != 0:
            raise AssertionError(f"nivalis config {' '.join(words)} failed: {result.stderr}")
        return result.stdout

    def start(self):
        self.process = subprocess.Popen([program()], env=self.env, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                        text=True, bufsize=1)
        threading.Thread(target=self._read, daemon=True).start()
        return self

    def launch_again(self, timeout=20):
        """Starts a second instance and waits for it to end; returns (status, output)."""
        result = subprocess.run([program()], env=self.env, capture_output=True, text=True, timeout=timeout)
        return result.returncode, result.stdout + result.stderr

    def _read(self):
        for line in self.process.stdout:
            line = line.rstrip("\n")
            self.lines.append(line)
            self.new_lines.put(line)
            print("nivalis:", line, flush=True)

    def mark(self):
        """The position in the output from which `wait_for_line` searches."""
        return len(self.lines)

    def wait_for_line(self, pattern, since=0, timeout=20):
        """Waits for a line fully matching `pattern` at or after position `since`; returns it."""
        regex = re.compile(pattern)
        deadline = time.monotonic() + timeout
        while True:
            for line in self.lines[since:]:
                if regex.fullmatch(line):
                    return line
            if self.process.poll() is not None and self.new_lines.empty():
                raise AssertionError(f"nivalis ended (status {self.process.returncode}) before printing {pattern!r}")
            if time.monotonic() > deadline:
                raise AssertionError(f"no line {pattern!r} after {timeout} s; output since mark: {self.lines[since:]}")
            try:
                self.new_lines.get(timeout=0.1)
            except queue.Empty:
                pass

    def diagnostics(self, session_bus):
        return session_bus.get_object(SERVICE, DIAGNOSTICS_PATH)

    def stop(self):
        if self.process and self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.kill()


class Harness:
    """Everything a test needs, started in order and stopped in reverse."""

    def __init__(self, on_battery=False, profile="balanced"):
        self.home = tempfile.mkdtemp(prefix="nivalis-test-")
        self.x = None
        self.services = None
        self.nivalis = None
        try:
            self.x = XServer()
            self.services = SystemServices(on_battery=on_battery, profile=profile)
            self.nivalis = Nivalis(self.x.display, self.home)
        except BaseException:
            self.close()
            raise

    def property(self, name):
        obj = self.nivalis.diagnostics(self.services.session)
        return obj.Get(DIAGNOSTICS_IFACE, name, dbus_interface="org.freedesktop.DBus.Properties")

    def wait_for_service(self, timeout=30):
        wait_until(lambda: self.services.session.name_has_owner(SERVICE), timeout, f"{SERVICE} on the session bus")
        wait_until(lambda: self._diagnostics_ready(), timeout, "the diagnostics object")

    def _diagnostics_ready(self):
        try:
            self.property("Enabled")
            return True
        except Exception:  # not yet published
            return False

    def close(self):
        if self.nivalis:
            self.nivalis.stop()
        if self.services:
            self.services.stop()
        if self.x:
            self.x.stop()
        shutil.rmtree(self.home, ignore_errors=True)


def run(test):
    """Runs `test(harness)` in a private session bus with a fresh harness; exit status 1 on failure."""
    skip_unless_program()
    in_private_session_bus()
    harness = Harness(**getattr(test, "harness_options", {}))
    try:
        test(harness)
    except AssertionError as error:
        print(f"FAIL: {error}", flush=True)
        sys.exit(1)
    finally:
        harness.close()
    print("PASS", flush=True)
