"""Helpers of the desktop integration tests: X servers (Xvfb, or Xorg with the dummy driver
where several monitors matter), openbox, a stand-in top panel, the nivalis program under a
private session bus and settings folder, EWMH reads through xprop/xwininfo, and screenshots.

Everything a helper starts is ended by `Desktop.close()`, which the tests run in `finally`.
Run as a script, `python3 lib_desktop.py panel HEIGHT` maps a dock window reserving HEIGHT
pixels at the top of the screen until it is killed.
"""

import ctypes
import ctypes.util
import os
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import zlib

HERE = os.path.dirname(os.path.abspath(__file__))


def skip_unless_built():
    """Exits 0 with a message when the nivalis program was not built."""
    binary = os.environ.get("NIVALIS_BIN", "")
    if not binary or not os.access(binary, os.X_OK):
        print("SKIP: the nivalis program is not built (NIVALIS_BIN=%r)" % binary)
        sys.exit(0)
    return binary


def wait_for(predicate, timeout=20.0, interval=0.1, what="condition"):
    deadline = time.monotonic() + timeout
    while time.monotonic() < deadline:
        value = predicate()
        if value:
            return value
        time.sleep(interval)
    raise AssertionError("timed out waiting for " + what)


XORG_DUMMY_CONFIG = """
Section "Device"
    Identifier "dummy"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5.0-1000.0
    VertRefresh 5.0-200.0
    Modeline "3840x1080" 348.00 3840 4128 4544 5248 1080 1083 1093 1105 -hsync +vsync
EndSection
Section "Screen"
    Identifier "screen"
    Device "dummy"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes "3840x1080"
        Virtual 3840 1080
    EndSubSection
EndSection
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "DontVTSwitch" "true"
EndSection
"""


class Desktop:
    """An X server with openbox, and what the test starts on it."""

    def __init__(self, multi_monitor=False, size=(1920, 1080)):
        self.tmp = tempfile.mkdtemp(prefix="nivalis-desktop-")
        self.procs = []
        self.nivalis = None
        self.env = dict(os.environ)
        read_fd, write_fd = os.pipe()
        if multi_monitor:
            config = os.path.join(self.tmp, "xorg.conf")
            with open(config, "w") as f:
                f.write(XORG_DUMMY_CONFIG)
            cmd = ["Xorg", "-config", config, "-noreset", "-nolisten", "tcp", "-logfile",
                   os.path.join(self.tmp, "xorg.log"), "-displayfd", str(write_fd)]
        else:
            cmd = ["Xvfb", "-screen", "0", "%dx%dx24" % size, "-nolisten", "tcp", "+extension", "GLX",
                   "-displayfd", str(write_fd)]
        server = subprocess.Popen(cmd, pass_fds=(write_fd,), stdout=subprocess.DEVNULL,
                                  stderr=open(os.path.join(self.tmp, "server.log"), "w"))
        self.procs.append(server)
        os.close(write_fd)
        number = b""
        deadline = time.monotonic() + 30
        while not number.endswith(b"\n") and time.monotonic() < deadline:
            chunk = os.read(read_fd, 16)
            if not chunk:
                break
            number += chunk
        os.close(read_fd)
        if not number.strip():
            self.close()
            raise RuntimeError("the X server did not start: " + " ".join(cmd))
        self.display = ":" + number.decode().strip()
        self.env["DISPLAY"] = self.display
        self.env.pop("WAYLAND_DISPLAY", None)
        self.env["QT_QPA_PLATFORM"] = "xcb"
        self.env["XDG_CONFIG_HOME"] = os.path.join(self.tmp, "config")
        self.env["XDG_RUNTIME_DIR"] = os.path.join(self.tmp, "runtime")
        self.env["XDG_CACHE_HOME"] = os.path.join(self.tmp, "cache")
        os.makedirs(self.env["XDG_RUNTIME_DIR"], mode=0o700)
        os.makedirs(self.env["XDG_CONFIG_HOME"])
        self.start(["openbox", "--sm-disable"])
        wait_for(lambda: "_NET_SUPPORTING_WM_CHECK(WINDOW)" in self.xprop_root("_NET_SUPPORTING_WM_CHECK"),
                 what="openbox")

    # ---- processes ----------------------------------------------------------------------------

    def start(self, cmd, log=None):
        out = open(log, "w") if log else subprocess.DEVNULL
        proc = subprocess.Popen(cmd, env=self.env, stdout=out, stderr=subprocess.STDOUT, start_new_session=True)
        self.procs.append(proc)
        return proc

    def run(self, cmd):
        return subprocess.run(cmd, env=self.env, capture_output=True, text=True, timeout=30)

    def start_nivalis(self, binary, settings=None):
        """Starts the program under its own session bus; `settings` are written first."""
        if settings:
            folder = os.path.join(self.env["XDG_CONFIG_HOME"], "nivalis")
            os.makedirs(folder, exist_ok=True)
            with open(os.path.join(folder, "nivalis.conf"), "w") as f:
                f.write("[General]\n")
                for key, value in settings.items():
                    f.write("%s=%s\n" % (key, value))
        self.nivalis_log = os.path.join(self.tmp, "nivalis.log")
        # The program's pid and its bus, for the diagnostics and its memory.
        script = 'echo "$DBUS_SESSION_BUS_ADDRESS $$" > "$1.tmp" && mv "$1.tmp" "$1" && exec "$0"'
        self.bus_file = os.path.join(self.tmp, "nivalis-bus-and-pid")
        self.nivalis = self.start(["dbus-run-session", "--", "sh", "-c", script, binary, self.bus_file],
                                  log=self.nivalis_log)
        return self.nivalis

    def _bus_and_pid(self):
        wait_for(lambda: os.path.exists(self.bus_file), what="the program's session bus")
        with open(self.bus_file) as f:
            address, pid = f.read().split()
        return address, int(pid)

    def diagnostic(self, name):
        """The text of the diagnostics property `name` as dbus-send prints it ("" while unknown)."""
        address, _ = self._bus_and_pid()
        result = self.run(["dbus-send", "--bus=" + address, "--print-reply", "--dest=org.nivalis.Nivalis",
                           "/org/nivalis/Nivalis/Diagnostics", "org.freedesktop.DBus.Properties.Get",
                           "string:org.nivalis.Nivalis.Diagnostics", "string:" + name])
        return result.stdout if result.returncode == 0 else ""

    def monitors(self):
        """{Display UUID: (state, frames)} from the diagnostics, one entry per monitor shown on."""
        found = {}
        for line in re.findall(r'string "([^"]*)"', self.diagnostic("Monitors")):
            display, state, frames = line.split()
            found[display] = (state, int(frames))
        return found

    def rss_kib(self):
        """The program's resident memory in KiB."""
        _, pid = self._bus_and_pid()
        with open("/proc/%d/status" % pid) as f:
            return int(re.search(r"VmRSS:\s+(\d+)", f.read()).group(1))

    def log_text(self):
        with open(self.nivalis_log) as f:
            return f.read()

    def close(self):
        for proc in reversed(self.procs):
            if proc.poll() is None:
                try:
                    os.killpg(proc.pid, signal.SIGTERM) if proc is not self.procs[0] else proc.terminate()
                except (ProcessLookupError, PermissionError):
                    proc.terminate()
        for proc in reversed(self.procs):
            try:
                proc.wait(timeout=10)
            except subprocess.TimeoutExpired:
                proc.kill()
                proc.wait()
        shutil.rmtree(self.tmp, ignore_errors=True)

    # ---- X queries ----------------------------------------------------------------------------

    def xprop_root(self, *props):
        return self.run(["xprop", "-root"] + list(props)).stdout

    def xprop(self, window, *props):
        return self.run(["xprop", "-id", window] + list(props)).stdout

    def client_windows(self):
        out = self.xprop_root("_NET_CLIENT_LIST")
        return re.findall(r"0x[0-9a-f]+", out)

    def nivalis_desktop_window(self, timeout=30.0):
        """The id of the wallpaper's desktop window once openbox manages it."""
        def find():
            for window in self.client_windows():
                props = self.xprop(window, "WM_CLASS", "_NET_WM_WINDOW_TYPE")
                if '"nivalis"' in props and "_NET_WM_WINDOW_TYPE_DESKTOP" in props:
                    return window
            return None
        return wait_for(find, timeout=timeout, what="the wallpaper's window")

    def geometry(self, window):
        """(x, y, width, height, viewable) of a window, from xwininfo."""
        out = self.run(["xwininfo", "-id", window]).stdout
        value = lambda label: int(re.search(label + r":\s+(-?\d+)", out).group(1))
        return (value("Absolute upper-left X"), value("Absolute upper-left Y"), value("Width"), value("Height"),
                "IsViewable" in out)

    def screenshot(self, path):
        """Writes the whole screen as a PNG file."""
        grab_root_png(self.display, path)

    def xrandr(self, *args):
        result = self.run(["xrandr"] + list(args))
        if result.returncode != 0:
            raise RuntimeError("xrandr %s: %s" % (" ".join(args), result.stderr))
        return result.stdout


# ---- screenshots through libX11 -----------------------------------------------------------------

class _XImage(ctypes.Structure):
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.POINTER(ctypes.c_ubyte)),
                ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int), ("bits_per_pixel", ctypes.c_int),
                ("red_mask", ctypes.c_ulong), ("green_mask", ctypes.c_ulong), ("blue_mask", ctypes.c_ulong)]


def grab_root(display):
    """(width, height, rows of RGB bytes) of the root window of `display`."""
    x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
    x11.XGetImage.restype = ctypes.POINTER(_XImage)
    x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                              ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    x11.XDisplayWidth.argtypes = [ctypes.c_void_p, ctypes.c_int]
    x11.XDisplayHeight.argtypes = [ctypes.c_void_p, ctypes.c_int]
    x11.XDestroyImage = getattr(x11, "XDestroyImage", None)
    dpy = x11.XOpenDisplay(display.encode())
    if not dpy:
        raise RuntimeError("cannot open display " + display)
    try:
        root = x11.XDefaultRootWindow(dpy)
        width, height = x11.XDisplayWidth(dpy, 0), x11.XDisplayHeight(dpy, 0)
        image = x11.XGetImage(dpy, root, 0, 0, width, height, 0xFFFFFFFF, 2)  # ZPixmap
        if not image:
            raise RuntimeError("XGetImage failed")
        img = image.contents
        if img.bits_per_pixel != 32:
            raise RuntimeError("unexpected %d bits per pixel" % img.bits_per_pixel)
        stride = img.bytes_per_line
        raw = ctypes.string_at(img.data, stride * height)
        rows = []
        for y in range(height):
            line = raw[y * stride:y * stride + width * 4]
            rgb = bytearray(width * 3)
            rgb[0::3] = line[2::4]
            rgb[1::3] = line[1::4]
            rgb[2::3] = line[0::4]
            rows.append(bytes(rgb))
        return width, height, rows
    finally:
        x11.XCloseDisplay(dpy)


def write_png(path, width, height, rows):
    raw = b"".join(b"\x00" + row for row in rows)

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n")
        f.write(chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)))
        f.write(chunk(b"IDAT", zlib.compress(raw, 6)))
        f.write(chunk(b"IEND", b""))


def grab_root_png(display, path):
    width, height, rows = grab_root(display)
    write_png(path, width, height, rows)
    return width, height, rows


def pixel(rows, x, y):
    row = rows[y]
    return row[3 * x], row[3 * x + 1], row[3 * x + 2]


# ---- a stand-in top panel -------------------------------------------------------------------------

def run_panel(height, width):
    """Maps a dock window reserving `height` pixels at the top of the screen, then sleeps."""
    x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
    x11.XCreateSimpleWindow.restype = ctypes.c_ulong
    x11.XCreateSimpleWindow.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                        ctypes.c_uint, ctypes.c_uint, ctypes.c_ulong, ctypes.c_ulong]
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XChangeProperty.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_ulong, ctypes.c_ulong, ctypes.c_int,
                                    ctypes.c_int, ctypes.c_void_p, ctypes.c_int]
    x11.XMapWindow.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
    x11.XFlush.argtypes = [ctypes.c_void_p]
    dpy = x11.XOpenDisplay(None)
    root = x11.XDefaultRootWindow(dpy)
    window = x11.XCreateSimpleWindow(dpy, root, 0, 0, width, height, 0, 0, 0x303540)
    atom = lambda name: x11.XInternAtom(dpy, name.encode(), 0)
    XA_ATOM, XA_CARDINAL, REPLACE = 4, 6, 0
    dock = (ctypes.c_ulong * 1)(atom("_NET_WM_WINDOW_TYPE_DOCK"))
    x11.XChangeProperty(dpy, window, atom("_NET_WM_WINDOW_TYPE"), XA_ATOM, 32, REPLACE, dock, 1)
    # left, right, top, bottom, then start/end pairs of each: the top strut spans the width.
    strut = (ctypes.c_ulong * 12)(0, 0, height, 0, 0, 0, 0, 0, 0, width - 1, 0, 0)
    x11.XChangeProperty(dpy, window, atom("_NET_WM_STRUT_PARTIAL"), XA_CARDINAL, 32, REPLACE, strut, 12)
    x11.XChangeProperty(dpy, window, atom("_NET_WM_STRUT"), XA_CARDINAL, 32, REPLACE, strut, 4)
    # The position is the user's: a window manager places it as asked instead of by its policy.
    hints = (ctypes.c_long * 18)()
    hints[0] = 1 | 2 | 4 | 8  # USPosition | USSize | PPosition | PSize
    x11.XSetWMNormalHints.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_void_p]
    packed = struct.pack("l4i", hints[0], 0, 0, width, height)
    buffer = ctypes.create_string_buffer(packed + bytes(160))
    x11.XSetWMNormalHints(dpy, window, buffer)
    x11.XMapWindow(dpy, window)
    x11.XFlush(dpy)
    while True:
        time.sleep(3600)


def start_panel(desktop, height, width=1920):
    proc = desktop.start([sys.executable, os.path.join(HERE, "lib_desktop.py"), "panel", str(height), str(width)])
    wait_for(lambda: re.search(r"_NET_WORKAREA\(CARDINAL\) = 0, %d," % height, desktop.xprop_root("_NET_WORKAREA")),
             what="the panel's reserved area")
    return proc


if __name__ == "__main__":
    if len(sys.argv) >= 3 and sys.argv[1] == "panel":
        run_panel(int(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 1920)


def input_rectangles(display, window):
    """The number of rectangles of a window's input region (0: the mouse passes through)."""
    x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
    xext = ctypes.CDLL(ctypes.util.find_library("Xext"))
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    x11.XFree.argtypes = [ctypes.c_void_p]
    xext.XShapeGetRectangles.restype = ctypes.c_void_p
    xext.XShapeGetRectangles.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int,
                                         ctypes.POINTER(ctypes.c_int), ctypes.POINTER(ctypes.c_int)]
    dpy = x11.XOpenDisplay(display.encode())
    try:
        count, ordering = ctypes.c_int(-1), ctypes.c_int(0)
        SHAPE_INPUT = 2
        rects = xext.XShapeGetRectangles(dpy, int(window, 16), SHAPE_INPUT, ctypes.byref(count), ctypes.byref(ordering))
        if rects:
            x11.XFree(rects)
        return count.value
    finally:
        x11.XCloseDisplay(dpy)


def child_windows(desktop, window):
    """Ids of the direct children of a window, from xwininfo."""
    out = desktop.run(["xwininfo", "-children", "-id", window]).stdout
    return re.findall(r"^\s+(0x[0-9a-f]+)", out, re.MULTILINE)


class _ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("pad", ctypes.c_long * 12)]


def net_wm_state(display, window, add, *states):
    """Asks the window manager to add or remove (`add`) up to two _NET_WM_STATE_ atoms of a client
    window, as a pager or the window's own menu would."""
    x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XInternAtom.restype = ctypes.c_ulong
    x11.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x11.XDefaultRootWindow.restype = ctypes.c_ulong
    x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
    x11.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long,
                               ctypes.POINTER(_ClientMessage)]
    x11.XFlush.argtypes = [ctypes.c_void_p]
    x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
    dpy = x11.XOpenDisplay(display.encode())
    try:
        event = _ClientMessage(type=33, send_event=1, window=window, format=32)  # ClientMessage
        event.message_type = x11.XInternAtom(dpy, b"_NET_WM_STATE", 0)
        event.data[0] = 1 if add else 0
        for i, state in enumerate(states[:2]):
            event.data[1 + i] = x11.XInternAtom(dpy, b"_NET_WM_STATE_" + state.encode(), 0)
        event.data[3] = 2  # a request from a pager, which the window manager never second-guesses
        mask = (1 << 19) | (1 << 20)  # SubstructureNotify | SubstructureRedirect
        x11.XSendEvent(dpy, x11.XDefaultRootWindow(dpy), 0, mask, ctypes.byref(event))
        x11.XFlush(dpy)
    finally:
        x11.XCloseDisplay(dpy)


class Xterm:
    """An xterm that the test maximizes, restores or puts in fullscreen through the window
    manager, as a user would."""

    def __init__(self, desktop, x, y):
        self.desktop = desktop
        self.title = "cover-%d-%d" % (x, y)
        self.proc = desktop.start(["xterm", "-T", self.title, "-geometry", "60x20+%d+%d" % (x, y)])
        self.window = wait_for(self._find, what="the xterm " + self.title)

    def _find(self):
        for window in self.desktop.client_windows():
            if '"%s"' % self.title in self.desktop.xprop(window, "WM_NAME"):
                return window
        return None

    def do(self, operation):
        """"maximize", "fullscreen" or "restore"."""
        wid = int(self.window, 16)
        if operation == "maximize":
            net_wm_state(self.desktop.display, wid, True, "MAXIMIZED_VERT", "MAXIMIZED_HORZ")
        elif operation == "fullscreen":
            net_wm_state(self.desktop.display, wid, True, "FULLSCREEN")
        else:
            net_wm_state(self.desktop.display, wid, False, "MAXIMIZED_VERT", "MAXIMIZED_HORZ")
            net_wm_state(self.desktop.display, wid, False, "FULLSCREEN")

    def state(self):
        return self.desktop.xprop(self.window, "_NET_WM_STATE")

    def close(self):
        if self.proc.poll() is None:
            os.killpg(self.proc.pid, signal.SIGTERM)
            self.proc.wait(timeout=10)
