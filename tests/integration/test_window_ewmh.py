"""The wallpaper's window as a real window manager sees it (Xvfb, openbox, a 32-pixel top
panel): type desktop, kept below, skipped by taskbar and pager, on all workspaces, the mouse
passing through it, placed below the panel; and the keys that change its frame and its
workspaces, written from outside while it runs."""

import os
import re
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import lib_desktop as L  # noqa: E402

ALL_WORKSPACES = 0xFFFFFFFF


def workspace(desktop, window):
    match = re.search(r"_NET_WM_DESKTOP\(CARDINAL\) = (\d+)", desktop.xprop(window, "_NET_WM_DESKTOP"))
    return int(match.group(1)) if match else None


def main():
    binary = L.skip_unless_built()
    desktop = L.Desktop()
    try:
        L.start_panel(desktop, 32)
        desktop.start_nivalis(binary)
        window = desktop.nivalis_desktop_window()

        props = desktop.xprop(window, "_NET_WM_WINDOW_TYPE", "_NET_WM_STATE")
        assert "_NET_WM_WINDOW_TYPE(ATOM) = _NET_WM_WINDOW_TYPE_DESKTOP\n" in props, props
        for state in ("_NET_WM_STATE_BELOW", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"):
            assert state in props, props
        assert workspace(desktop, window) == ALL_WORKSPACES, desktop.xprop(window, "_NET_WM_DESKTOP")

        # Below the 32-pixel panel with a two-pixel overlap, down to the screen's bottom edge.
        L.wait_for(lambda: desktop.geometry(window) == (0, 30, 1920, 1050, True),
                   what="the frame below the panel, got %s" % (desktop.geometry(window),))

        # At the bottom of the stacking order, under the panel.
        stacking = re.findall(r"0x[0-9a-f]+", desktop.xprop_root("_NET_CLIENT_LIST_STACKING"))
        assert stacking[0] == window, stacking

        # The mouse passes through the window and through the drawing view inside it.
        assert L.input_rectangles(desktop.display, window) == 0
        children = L.child_windows(desktop, window)
        assert children, "the drawing view is missing"
        for child in children:
            assert L.input_rectangles(desktop.display, child) == 0, child

        # The keys, written from outside, take effect while the window is shown.
        desktop.run([binary, "config", "set", "extendVeilBelowMenuBar", "true"])
        L.wait_for(lambda: desktop.geometry(window) == (0, 0, 1920, 1080, True), what="the whole screen")
        desktop.run([binary, "config", "set", "extendVeilBelowMenuBar", "false"])
        L.wait_for(lambda: desktop.geometry(window) == (0, 30, 1920, 1050, True), what="the frame below the panel")

        # Openbox keeps a desktop window on every workspace whatever the window asks for; the
        # request to leave the other workspaces must not disturb the window.
        desktop.run([binary, "config", "set", "showOnAllSpaces", "false"])
        desktop.run([binary, "config", "set", "showOnAllSpaces", "true"])
        L.wait_for(lambda: "showOnAllSpaces" in open(os.path.join(desktop.env["XDG_CONFIG_HOME"], "nivalis",
                                                                   "nivalis.conf")).read(), what="the key")
        assert workspace(desktop, window) == ALL_WORKSPACES
        assert desktop.geometry(window) == (0, 30, 1920, 1050, True)

        assert desktop.nivalis.poll() is None, "nivalis ended"
    except BaseException:
        if desktop.nivalis:
            print(desktop.log_text(), file=sys.stderr)
        raise
    finally:
        desktop.close()
    print("PASS")


if __name__ == "__main__":
    main()
