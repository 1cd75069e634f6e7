"""The desktop still answers with the wallpaper on it (Xvfb, openbox):
- a right click on the picture opens openbox's own desktop menu (a popup-menu window that
  openbox maps, read from the X server);
- with xfdesktop drawing the desktop's icons, started before or after the wallpaper, its window
  stays above the picture and an icon shows on screen (the screenshots are kept as
  <build>/screenshots/xfdesktop-<order>.png for a look)."""

import os
import re
import shutil
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import lib_desktop as L  # noqa: E402

SIZE = (1280, 720)


def popup_menu(desktop):
    """The id of a mapped top-level window of type popup menu, or None."""
    tree = desktop.run(["xwininfo", "-root", "-children"]).stdout
    for window in re.findall(r"^\s+(0x[0-9a-f]+)", tree, re.M):
        if "_NET_WM_WINDOW_TYPE_POPUP_MENU" in desktop.xprop(window, "_NET_WM_WINDOW_TYPE") and \
                "IsViewable" in desktop.run(["xwininfo", "-id", window]).stdout:
            return window
    return None


def right_click_opens_the_window_managers_menu(binary):
    desktop = L.Desktop(size=SIZE)
    try:
        desktop.start_nivalis(binary)
        window = desktop.nivalis_desktop_window()
        L.wait_for(lambda: desktop.geometry(window)[4], what="the window mapped")
        time.sleep(1)
        x, y, width, height, _ = desktop.geometry(window)
        assert x <= 640 < x + width and y <= 400 < y + height, "the picture does not cover the click"
        assert popup_menu(desktop) is None
        desktop.run(["xdotool", "mousemove", "640", "400"])
        desktop.run(["xdotool", "click", "3"])
        L.wait_for(lambda: popup_menu(desktop), timeout=15, what="openbox's desktop menu")
        assert desktop.nivalis.poll() is None, "nivalis ended"
    except BaseException:
        if desktop.nivalis:
            print(desktop.log_text(), file=sys.stderr)
        raise
    finally:
        desktop.close()


def xfdesktop_icons_stay_above(binary, order, out_dir):
    desktop = L.Desktop(size=SIZE)
    try:
        # xfdesktop reads its settings over a session bus of its own; HOME holds its Desktop.
        desktop.env["HOME"] = os.path.join(desktop.tmp, "home")
        os.makedirs(os.path.join(desktop.env["HOME"], "Desktop"))
        bus = os.path.join(desktop.tmp, "bus")
        desktop.start(["dbus-daemon", "--session", "--nofork", "--address=unix:path=" + bus])
        L.wait_for(lambda: os.path.exists(bus), what="the session bus")
        desktop.env["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + bus

        def xfdesktop_window():
            for window in desktop.client_windows():
                if '"xfdesktop"' in desktop.xprop(window, "WM_CLASS"):
                    return window
            return None

        if order == "first":
            desktop.start(["xfdesktop"])
            L.wait_for(xfdesktop_window, what="xfdesktop's window")
        desktop.start_nivalis(binary)
        window = desktop.nivalis_desktop_window()
        if order == "after":
            L.wait_for(lambda: desktop.geometry(window)[4], what="the window mapped")
            desktop.start(["xfdesktop"])
        manager = L.wait_for(xfdesktop_window, what="xfdesktop's window")
        path = os.path.join(out_dir, "xfdesktop-%s.png" % order)
        seen = {}

        def settled():
            # The picture below xfdesktop's window, and the Home icon of its first column on
            # screen: a folder of the theme's blue (65, 140, 230) near (70, 165). Both take a
            # moment after xfdesktop maps, longer on a busy machine.
            stacking = re.findall(r"0x[0-9a-f]+", desktop.xprop_root("_NET_CLIENT_LIST_STACKING"))
            seen["stacking"] = stacking
            if window not in stacking or manager not in stacking or stacking.index(window) > stacking.index(manager):
                return False
            _, _, rows = L.grab_root_png(desktop.display, path)
            seen["folder"] = sum(1 for yy in range(140, 190) for xx in range(45, 95)
                                 if max(abs(a - b) for a, b in zip(L.pixel(rows, xx, yy)[:3], (65, 140, 230))) <= 12)
            return seen["folder"] > 40

        try:
            L.wait_for(settled, timeout=40, interval=1.0, what="xfdesktop's icons above the picture")
        except AssertionError:
            raise AssertionError("picture above xfdesktop, or no icon on screen: %s (see %s)" % (seen, path))
        assert desktop.nivalis.poll() is None, "nivalis ended"
    except BaseException:
        if desktop.nivalis:
            print(desktop.log_text(), file=sys.stderr)
        raise
    finally:
        desktop.close()


def main():
    binary = L.skip_unless_built()
    out_dir = os.path.join(os.environ.get("NIVALIS_BUILD_DIR", "/tmp"), "screenshots")
    os.makedirs(out_dir, exist_ok=True)
    right_click_opens_the_window_managers_menu(binary)
    if shutil.which("xfdesktop") is None:
        print("SKIP: xfdesktop is not installed")
    else:
        for order in ("first", "after"):
            xfdesktop_icons_stay_above(binary, order, out_dir)
    print("PASS")


if __name__ == "__main__":
    main()
