"""The wallpaper on a chosen monitor of two, on Xorg with the dummy driver and openbox: it
covers the chosen monitor, moves to the primary monitor when the chosen one is removed (the
stored choice is kept), goes back when that monitor returns, and follows a new choice at once.
(The top panel's part is tested on one monitor: with several, the X server's work area is one
rectangle for the whole desktop, which Qt does not split between monitors.)"""

import os
import sys
import uuid

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import lib_desktop as L  # noqa: E402

# The program's namespace of monitor ids; a monitor without EDID data is known by its name.
NAMESPACE = uuid.UUID("9aa889ca-71c2-4e67-af2d-fd82faa05c10")


def display_id(connector):
    return str(uuid.uuid5(NAMESPACE, "\n\nconnector:" + connector)).upper()


def main():
    binary = L.skip_unless_built()
    desktop = L.Desktop(multi_monitor=True)
    try:
        desktop.xrandr("--fb", "3840x1080")
        desktop.xrandr("--setmonitor", "LEFT", "1920/508x1080/286+0+0", "DUMMY0")
        desktop.xrandr("--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none")

        desktop.start_nivalis(binary, {"display": display_id("RIGHT")})
        window = desktop.nivalis_desktop_window()

        # No panel counts as a hidden menu bar: the whole monitor and one pixel above it.
        on_right = (1920, -1, 1920, 1081, True)
        on_left = (0, -1, 1920, 1081, True)
        L.wait_for(lambda: desktop.geometry(window) == on_right, what="the window on RIGHT: %s" % (on_right,))

        desktop.xrandr("--delmonitor", "RIGHT")
        L.wait_for(lambda: desktop.geometry(window) == on_left,
                   what="the window on the primary after RIGHT left: %s" % (desktop.geometry(window),))
        conf = os.path.join(desktop.env["XDG_CONFIG_HOME"], "nivalis", "nivalis.conf")
        with open(conf) as f:
            assert "display=" + display_id("RIGHT") in f.read(), "the stored display was changed"

        desktop.xrandr("--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none")
        L.wait_for(lambda: desktop.geometry(window) == on_right,
                   what="the window back on RIGHT: %s" % (desktop.geometry(window),))

        # Choosing the primary from outside moves the window at once.
        desktop.run([binary, "config", "set", "display", display_id("LEFT")])
        L.wait_for(lambda: desktop.geometry(window) == on_left, what="the window on LEFT after the key changed")
        assert desktop.nivalis.poll() is None, "nivalis ended:\n" + desktop.log_text()
    except BaseException:
        print(desktop.log_text() if desktop.nivalis else "", file=sys.stderr)
        raise
    finally:
        desktop.close()
    print("PASS")


if __name__ == "__main__":
    main()
