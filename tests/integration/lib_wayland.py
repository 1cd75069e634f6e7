"""Helpers of the Wayland integration tests: headless sway (layer shell, optional XWayland) and
headless weston (no layer shell, with XWayland), grim screenshots, and the nivalis program on
them under a private session bus.

sway refuses to run as root, so a test started as root (as on CI) copies the program, its
resources and these scripts to a world-readable temporary folder and runs itself again there
as the user `nobody`; the build tree itself may sit in a folder that user cannot read.
"""

import os
import pwd
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))
UNPRIVILEGED_MARK = "NIVALIS_TEST_UNPRIVILEGED"


def as_unprivileged():
    """Runs the calling test again as `nobody` on a copy of the program when started as root."""
    if os.getuid() != 0:
        return
    binary = os.environ["NIVALIS_BIN"]
    build = os.environ["NIVALIS_BUILD_DIR"]
    root = tempfile.mkdtemp(prefix="nivalis-wayland-")
    os.chmod(root, 0o755)
    os.makedirs(os.path.join(root, "bin"))
    shutil.copy2(binary, os.path.join(root, "bin", "nivalis"))
    shutil.copytree(os.path.join(build, "resources"), os.path.join(root, "share", "nivalis"))
    shutil.copytree(HERE, os.path.join(root, "tests"), ignore=shutil.ignore_patterns("__pycache__"))
    # The calling script may live elsewhere (bench/); it runs from beside these helpers.
    shutil.copy2(os.path.abspath(sys.argv[0]), os.path.join(root, "tests"))
    home = os.path.join(root, "home")
    os.makedirs(home)
    nobody = pwd.getpwnam("nobody")
    os.chown(home, nobody.pw_uid, nobody.pw_gid)
    for folder, dirs, files in os.walk(root):
        for name in dirs + files:
            path = os.path.join(folder, name)
            os.chmod(path, os.stat(path).st_mode | 0o755 if os.path.isdir(path) else os.stat(path).st_mode | 0o444)
    script = os.path.join(root, "tests", os.path.basename(sys.argv[0]))
    env = dict(os.environ, NIVALIS_BIN=os.path.join(root, "bin", "nivalis"), HOME=home, USER="nobody",
               **{UNPRIVILEGED_MARK: "1"})
    env.pop("XDG_RUNTIME_DIR", None)
    env.pop("XDG_CACHE_HOME", None)
    env.pop("DBUS_SESSION_BUS_ADDRESS", None)
    command = ["setpriv", "--reuid=%d" % nobody.pw_uid, "--regid=%d" % nobody.pw_gid, "--clear-groups",
               "/usr/bin/python3", script] + sys.argv[1:]
    status = subprocess.call(command, env=env, cwd=root)
    shutil.rmtree(root, ignore_errors=True)
    sys.exit(status)


def private_home():
    """A fresh HOME with a private XDG_RUNTIME_DIR (mode 0700) for compositor and program."""
    home = tempfile.mkdtemp(prefix="nivalis-home-", dir=os.environ.get("HOME") if os.getuid() != 0 else None)
    runtime = os.path.join(home, "runtime")
    os.makedirs(runtime, mode=0o700)
    return home, runtime


def wait_until(predicate, timeout, what):
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        value = predicate()
        if value:
            return value
        time.sleep(0.05)
    raise AssertionError(f"timed out after {timeout} s waiting for {what}")


class Compositor:
    """A headless compositor on a private runtime folder; `env` is what clients need."""

    def __init__(self, runtime):
        self.runtime = runtime
        self.process = None
        self.env = None
        self.processes = []

    def _wait_for_socket(self, before):
        def socket():
            names = [n for n in os.listdir(self.runtime)
                     if n.startswith("wayland-") and not n.endswith(".lock") and n not in before]
            return names[0] if names else None
        if self.process.poll() is not None:
            raise AssertionError("the compositor ended at once: " + self.log())
        name = wait_until(socket, 30, "the compositor's socket")
        self.env = dict(os.environ, XDG_RUNTIME_DIR=self.runtime, WAYLAND_DISPLAY=name)
        self.env.pop("DISPLAY", None)

    def log(self):
        try:
            with open(os.path.join(self.runtime, "compositor.log")) as log:
                return log.read()[-3000:]
        except OSError:
            return ""

    def start_client(self, command, **kwargs):
        process = subprocess.Popen(command, env=kwargs.pop("env", self.env), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, **kwargs)
        self.processes.append(process)
        return process

    def stop(self):
        for process in reversed(self.processes + [self.process]):
            if process and process.poll() is None:
                process.terminate()
                try:
                    process.wait(10)
                except subprocess.TimeoutExpired:
                    process.kill()


class Sway(Compositor):
    """Headless sway with `outputs` outputs of 1280x720 (software rendering, no input devices)."""

    def __init__(self, runtime, outputs=1, xwayland=False):
        super().__init__(runtime)
        config = os.path.join(runtime, "sway.conf")
        with open(config, "w") as f:
            f.write("xwayland %s\n" % ("enable" if xwayland else "disable"))
            for i in range(1, outputs + 1):
                f.write("output HEADLESS-%d resolution 1280x720 position %d,0\n" % (i, (i - 1) * 1280))
            # Windows float at their own size, so that the wallpaper shows around them.
            f.write("for_window [app_id=\".*\"] floating enable, move position 40 40\n")
        env = dict(os.environ, XDG_RUNTIME_DIR=runtime, WLR_BACKENDS="headless", WLR_RENDERER="pixman",
                   WLR_LIBINPUT_NO_DEVICES="1", WLR_HEADLESS_OUTPUTS=str(outputs))
        for name in ("WAYLAND_DISPLAY", "DISPLAY", "SWAYSOCK"):
            env.pop(name, None)
        before = set(os.listdir(runtime))
        log = open(os.path.join(runtime, "compositor.log"), "w")
        self.process = subprocess.Popen(["sway", "-c", config], env=env, stdout=log, stderr=subprocess.STDOUT)
        self._wait_for_socket(before)
        self.sock = wait_until(lambda: next((os.path.join(runtime, n) for n in os.listdir(runtime)
                                             if n.startswith("sway-ipc.")), None), 30, "sway's IPC socket")
        self.env["SWAYSOCK"] = self.sock
        if xwayland:
            # sway starts XWayland lazily and sets DISPLAY for the clients it launches; ask it.
            self.display = self._xwayland_display()
            self.env["DISPLAY"] = self.display

    def _xwayland_display(self):
        probe = os.path.join(self.runtime, "display.txt")
        self.swaymsg("exec", "echo $DISPLAY > " + probe)
        return wait_until(lambda: os.path.exists(probe) and open(probe).read().strip(), 30, "XWayland's DISPLAY")

    def swaymsg(self, *args):
        return subprocess.run(["swaymsg", "-s", self.sock] + list(args), env=self.env, capture_output=True,
                              text=True, timeout=30).stdout

    def screenshot(self, path, output=None):
        """A grim screenshot of one output (all when None); returns (width, height, rows of RGB)."""
        command = ["grim", "-t", "ppm"] + (["-o", output] if output else []) + [path]
        subprocess.run(command, env=self.env, check=True, timeout=30)
        return read_ppm(path)


class Weston(Compositor):
    """Headless weston with XWayland: a compositor without the layer shell."""

    def __init__(self, runtime):
        super().__init__(runtime)
        before = set(os.listdir(runtime))
        log = open(os.path.join(runtime, "compositor.log"), "w")
        env = dict(os.environ, XDG_RUNTIME_DIR=runtime)
        for name in ("WAYLAND_DISPLAY", "DISPLAY"):
            env.pop(name, None)
        self.process = subprocess.Popen(["weston", "--backend=headless-backend.so", "--xwayland", "--idle-time=0",
                                         "--width=1280", "--height=720"], env=env, stdout=log,
                                        stderr=subprocess.STDOUT)
        self._wait_for_socket(before)
        # weston opens the X socket itself (lazily starting XWayland); its number is in the log.
        self.display = wait_until(self._display_from_log, 30, "weston's XWayland display")
        self.env["DISPLAY"] = self.display

    def _display_from_log(self):
        for line in self.log().splitlines():
            if "xserver listening on display" in line:
                return line.rsplit(" ", 1)[-1].strip()
        return None


def read_ppm(path):
    """Reads a binary PPM (P6, 8 bits) as (width, height, rows of RGB bytes)."""
    with open(path, "rb") as f:
        data = f.read()
    match = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", data)
    width, height = int(match.group(1)), int(match.group(2))
    pixels = data[match.end():match.end() + width * height * 3]
    rows = [pixels[y * width * 3:(y + 1) * width * 3] for y in range(height)]
    return width, height, rows


def write_png(path, width, height, rows):
    """Writes RGB rows as a PNG (for looking at a screenshot)."""
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body) & 0xFFFFFFFF)
    raw = b"".join(b"\x00" + bytes(row) for row in rows)
    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
                + chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b""))


def region_stats(rows, x0, y0, x1, y1, step=8):
    """Mean and spread of the pixel values in a rectangle (a flat colour has spread 0)."""
    values = []
    for y in range(y0, y1, step):
        row = rows[y]
        for x in range(x0, x1, step):
            values.append(sum(row[3 * x:3 * x + 3]))
    mean = sum(values) / len(values)
    spread = max(values) - min(values)
    return mean, spread


def difference(rows_a, rows_b, step=4):
    """The share of sampled pixels that differ between two same-sized screenshots."""
    changed = total = 0
    for y in range(0, len(rows_a), step):
        a, b = rows_a[y], rows_b[y]
        for x in range(0, len(a) // 3, step):
            total += 1
            if a[3 * x:3 * x + 3] != b[3 * x:3 * x + 3]:
                changed += 1
    return changed / max(total, 1)
