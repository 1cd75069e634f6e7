"""A picture of the desktop with the wallpaper and its clock (Xvfb, openbox, a top panel): the
scene fills the window below the panel and the clock's white text stands a fifth of the way
down. The screenshot is kept as <build>/screenshots/desktop.png for a look."""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import lib_desktop as L  # noqa: E402


def main():
    binary = L.skip_unless_built()
    out_dir = os.path.join(os.environ.get("NIVALIS_BUILD_DIR", "/tmp"), "screenshots")
    os.makedirs(out_dir, exist_ok=True)
    desktop = L.Desktop()
    try:
        L.start_panel(desktop, 32)
        desktop.start_nivalis(binary, {"clockEnabled": "true", "clockFormat": "HH:mm", "sceneTime": "day"})
        window = desktop.nivalis_desktop_window()
        L.wait_for(lambda: desktop.geometry(window)[4], what="the window mapped")
        path = os.path.join(out_dir, "desktop.png")
        # The scene drew: the window's area holds many colours, sky above and sea below differ.
        # The clock: near-white pixels in the band of its text (from 0.2 * 1050 + 8 below the
        # window's top at 30), around the middle of the screen. Its text shows from its first
        # tick, a second after the view appears; the first frame takes longer on a busy machine,
        # so the screen is looked at until both are there.
        top = 30 + int(0.2 * 1050) + 8
        seen = {}

        def drawn():
            width, height, rows = L.grab_root_png(desktop.display, path)
            assert (width, height) == (1920, 1080)
            seen["colours"] = len({L.pixel(rows, x, y) for y in range(40, 1080, 37) for x in range(0, 1920, 53)})
            seen["whites"] = sum(1 for y in range(top, top + 200, 2) for x in range(660, 1260, 2)
                                 if min(L.pixel(rows, x, y)) > 200)
            return rows if seen["colours"] > 50 and seen["whites"] > 500 else None

        try:
            rows = L.wait_for(drawn, timeout=40, interval=1.0, what="the picture and its clock")
        except AssertionError:
            raise AssertionError("the wallpaper looks flat or has no clock: %s" % seen)
        assert L.pixel(rows, 60, 120) != L.pixel(rows, 60, 1000), "sky and sea alike"
        assert desktop.nivalis.poll() is None, "nivalis ended"
        print("screenshot:", path)
    except BaseException:
        if desktop.nivalis:
            print(desktop.log_text(), file=sys.stderr)
        raise
    finally:
        desktop.close()
    print("PASS")


if __name__ == "__main__":
    main()
