"""Every monitor its own wallpaper, and a covered monitor that draws nothing, on Xorg with the
dummy driver (two monitors) under openbox: both monitors show a picture and the two differ; a
maximized xterm on the left monitor stops its frames while the right one keeps counting, and
restoring it resumes them; a fullscreen xterm on the right does the same there; a maximized
window on another workspace pauses nothing; a monitor plugged in gets a surface, and unplugged
loses it and gives its memory and its GL objects back; turning All displays off leaves one. The diagnostics tell each monitor's state and frames."""

import os
import re
import sys
import time
import uuid

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import lib_desktop as L  # noqa: E402

NAMESPACE = uuid.UUID("9aa889ca-71c2-4e67-af2d-fd82faa05c10")
LEFT = str(uuid.uuid5(NAMESPACE, "\n\nconnector:LEFT")).upper()
RIGHT = str(uuid.uuid5(NAMESPACE, "\n\nconnector:RIGHT")).upper()


def frames_after(desktop, seconds):
    """Each monitor's frames drawn in `seconds`, and its state at the end."""
    before = desktop.monitors()
    time.sleep(seconds)
    after = desktop.monitors()
    return {m: (after[m][0], after[m][1] - before[m][1]) for m in after if m in before}


def expect(desktop, left, right, what):
    """Waits until the monitors are in the states given, then checks that a drawing one draws
    and a covered one does not."""
    L.wait_for(lambda: {m: s for m, (s, _) in desktop.monitors().items()} == {LEFT: left, RIGHT: right},
               what="%s: %s" % (what, desktop.monitors()))
    counted = frames_after(desktop, 1.0)
    for monitor, state in ((LEFT, left), (RIGHT, right)):
        drawn = counted[monitor][1]
        assert (drawn > 0) == (state == "drawing"), "%s: %s drew %d frames while %s" % (what, monitor, drawn, state)


def settle_rss(desktop):
    time.sleep(2.0)
    return desktop.rss_kib()


def gl_objects(desktop):
    return int(re.search(r"int64 (-?\d+)", desktop.diagnostic("GlObjects")).group(1))


def halves_differ(path, desktop):
    width, height, rows = L.grab_root(desktop.display)
    L.write_png(path, width, height, rows)
    samples = [(x, y) for y in range(60, height, 97) for x in range(40, 1920, 89)]
    left = [L.pixel(rows, x, y) for x, y in samples]
    right = [L.pixel(rows, x + 1920, y) for x, y in samples]
    assert len(set(left)) > 20 and len(set(right)) > 20, "a monitor shows no picture (%s)" % path
    differing = sum(1 for a, b in zip(left, right) if a != b)
    assert differing > len(samples) // 2, "the two monitors show the same picture (%s)" % path


def main():
    binary = L.skip_unless_built()
    shots = os.environ.get("NIVALIS_SCREENSHOT_DIR") or None
    desktop = L.Desktop(multi_monitor=True)
    covers = []
    try:
        desktop.xrandr("--fb", "3840x1080")
        desktop.xrandr("--setmonitor", "LEFT", "1920/508x1080/286+0+0", "DUMMY0")
        # High quality: each monitor's 4-sample targets make its memory stand out from the noise.
        desktop.start_nivalis(binary, {"allDisplays": "true", "fps": "20", "quality": "high"})
        L.wait_for(lambda: desktop.monitors().get(LEFT, ("", 0))[1] > 5, timeout=60, what="frames on LEFT")
        one_monitor = settle_rss(desktop)
        objects_one = gl_objects(desktop)

        desktop.xrandr("--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none")
        expect(desktop, "drawing", "drawing", "RIGHT plugged in")
        two_monitors = settle_rss(desktop)
        objects_two = gl_objects(desktop)
        # The second monitor shares meshes, textures and programs: it adds fewer than the first has.
        assert objects_one < objects_two < 2 * objects_one, "GL objects: one monitor %d, two %d" % (
            objects_one, objects_two)
        time.sleep(1.0)
        halves_differ(os.path.join(shots or desktop.tmp, "all-displays.png"), desktop)

        left = L.Xterm(desktop, 200, 200)
        covers.append(left)
        left.do("maximize")
        L.wait_for(lambda: "MAXIMIZED_HORZ" in left.state(), what="the left xterm maximized")
        expect(desktop, "covered", "drawing", "maximized xterm on LEFT")
        if shots:
            L.grab_root_png(desktop.display, os.path.join(shots, "left-covered.png"))
        left.do("restore")
        expect(desktop, "drawing", "drawing", "xterm on LEFT restored")

        right = L.Xterm(desktop, 2200, 200)
        covers.append(right)
        right.do("fullscreen")
        expect(desktop, "drawing", "covered", "fullscreen xterm on RIGHT")
        right.do("restore")
        expect(desktop, "drawing", "drawing", "xterm on RIGHT restored")

        # Maximized, but on the second workspace while the first is shown.
        desktop.run(["xdotool", "set_num_desktops", "2"])
        desktop.run(["xdotool", "set_desktop_for_window", str(int(left.window, 16)), "1"])
        left.do("maximize")
        L.wait_for(lambda: "MAXIMIZED_HORZ" in left.state(), what="the xterm maximized on workspace 2")
        time.sleep(0.5)
        expect(desktop, "drawing", "drawing", "maximized xterm on another workspace")
        desktop.run(["xdotool", "set_desktop", "1"])
        expect(desktop, "covered", "drawing", "that workspace shown")
        desktop.run(["xdotool", "set_desktop", "0"])
        for cover in covers:
            cover.close()
        covers.clear()

        desktop.xrandr("--delmonitor", "RIGHT")
        L.wait_for(lambda: list(desktop.monitors()) == [LEFT], what="RIGHT's surface gone: %s" % desktop.monitors())
        unplugged = settle_rss(desktop)
        print("RSS KiB: one monitor %d, two %d, after unplugging %d" % (one_monitor, two_monitors, unplugged))
        assert gl_objects(desktop) == objects_one, "GL objects stayed: one monitor %d, two %d, then %d" % (
            objects_one, objects_two, gl_objects(desktop))
        # What the second monitor cost comes back, all but a quarter (the allocator keeps some).
        assert unplugged - one_monitor < (two_monitors - one_monitor) / 4, "the second monitor's memory stayed"

        # Plugged in again, and then back to one display from outside.
        desktop.xrandr("--setmonitor", "RIGHT", "1920/508x1080/286+1920+0", "none")
        expect(desktop, "drawing", "drawing", "RIGHT plugged in again")
        desktop.run([binary, "config", "set", "allDisplays", "false"])
        L.wait_for(lambda: list(desktop.monitors()) == [LEFT], what="one display: %s" % desktop.monitors())
        assert desktop.nivalis.poll() is None, "nivalis ended:\n" + desktop.log_text()
    except BaseException:
        print(desktop.log_text() if desktop.nivalis else "", file=sys.stderr)
        raise
    finally:
        for cover in covers:
            cover.close()
        desktop.close()
    print("PASS")


if __name__ == "__main__":
    main()
