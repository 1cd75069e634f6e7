#!/usr/bin/env python3
"""The wallpaper on headless sway with XWayland (DISPLAY set too, as in every real session):
the layer-shell output is chosen; the picture fills the output below a normal window even
with swaybg started first; it animates; the clock shows; its frames follow the output's scale; locked, no frame is drawn and no CPU
is spent; the "Show on" key moves it to the second output; a chosen monitor not plugged in
leaves it on the first until it is plugged in."""

import os
import uuid

import lib_wayland as W

W.as_unprivileged()
import lib_services as S  # noqa: E402

S.skip_unless_program()
S.in_private_session_bus()

MAGENTA = 255 + 0 + 255
DISPLAY_NAMESPACE = uuid.UUID("9aa889ca-71c2-4e67-af2d-fd82faa05c10")
SHOTS = "/tmp/nivalis-wayland-shots"


def display_id(output):
    """The monitor's Display UUID, by the program's scheme (no serial on Wayland: the connector)."""
    identity = "%s\n%s\nconnector:%s" % (output["make"], output["model"], output["name"])
    return str(uuid.uuid5(DISPLAY_NAMESPACE, identity)).upper()


def find_window(node, app_id):
    if node.get("app_id") == app_id:
        return node
    for child in node.get("nodes", []) + node.get("floating_nodes", []):
        found = find_window(child, app_id)
        if found:
            return found
    return None


def clock_pixels(rows, width, height, window):
    """Light grey pixels (the clock's colour; the night's snow is bluish) outside `window`."""
    def inside(x, y):
        return window["x"] <= x < window["x"] + window["width"] and window["y"] <= y < window["y"] + window["height"]
    count = 0
    for y in range(0, height, 2):
        for x in range(0, width, 2):
            r, g, b = rows[y][3 * x:3 * x + 3]
            if min(r, g, b) > 150 and max(r, g, b) - min(r, g, b) < 25 and not inside(x, y):
                count += 1
    return count


def shot(sway, name, output="HEADLESS-1"):
    width, height, rows = sway.screenshot(os.path.join(sway.runtime, name + ".ppm"), output)
    W.write_png(os.path.join(SHOTS, name + ".png"), width, height, rows)
    return width, height, rows


def cpu_seconds(pid):
    with open("/proc/%d/stat" % pid) as f:
        fields = f.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def main():
    import json
    os.makedirs(SHOTS, exist_ok=True)
    home, runtime = W.private_home()
    sway = W.Sway(runtime, outputs=2, xwayland=True)
    services = S.SystemServices()
    nivalis = None
    try:
        outputs = {o["name"]: o for o in json.loads(sway.swaymsg("-t", "get_outputs", "-r"))}
        assert set(outputs) == {"HEADLESS-1", "HEADLESS-2"}, outputs.keys()
        sway.start_client(["swaybg", "-o", "*", "-c", "#ff00ff", "-m", "solid_color"])
        W.wait_until(lambda: W.region_stats(shot(sway, "swaybg")[2], 600, 300, 700, 400)[0] == MAGENTA, 30,
                     "swaybg's colour")
        sway.start_client(["weston-flower"])
        W.wait_until(lambda: "flower" in sway.swaymsg("-t", "get_tree"), 30, "the flower window")

        nivalis = S.Nivalis(sway.display, home)
        nivalis.env.update(sway.env)
        nivalis.env.pop("QT_QPA_PLATFORM")
        nivalis.config("set", "sceneTime", "night")
        nivalis.config("set", "clockEnabled", "true")
        nivalis.start()
        nivalis.wait_for_line("nivalis: showing the wallpaper as a layer surface of the Wayland compositor")
        bus = services.session
        W.wait_until(lambda: bus.name_has_owner(S.SERVICE), 30, "the program on the session bus")
        diagnostics = bus.get_object(S.SERVICE, S.DIAGNOSTICS_PATH)

        def prop(name):
            return diagnostics.Get(S.DIAGNOSTICS_IFACE, name, dbus_interface="org.freedesktop.DBus.Properties")

        W.wait_until(lambda: prop("FrameCount") > 10, 60, "frames drawn")

        # Below the flower window, above swaybg, everywhere else on the output, and moving.
        flower = find_window(json.loads(sway.swaymsg("-t", "get_tree")), "org.freedesktop.weston.flower")["rect"]
        width, height, first = shot(sway, "wallpaper-1")
        # Software GL draws a few frames a second here: wait for the next ones.
        second = W.wait_until(lambda: (lambda rows: W.difference(first, rows) > 0.01 and rows)(
            shot(sway, "wallpaper-2")[2]), 30, "a second screenshot that differs: animation")
        mean, spread = W.region_stats(first, 300, 300, width, height)
        assert mean != MAGENTA and spread > 60, f"no picture over swaybg's colour (mean {mean}, spread {spread})"
        assert W.region_stats(first, 0, height - 40, width, height)[1] > 0, "the picture does not reach the bottom"
        # The flower's middle is the window's own still drawing, not the moving picture.
        cx, cy = flower["x"] + flower["width"] // 2, flower["y"] + flower["height"] // 2
        middle = [rows[y][3 * x + c] for rows in (first, second) for y in (cy - 3, cy + 3) for x in (cx - 3, cx + 3)
                  for c in range(3)]
        spread = max(max(middle[c::3]) - min(middle[c::3]) for c in range(3))
        assert spread <= 8, f"the flower window is not on top of the moving picture: {middle}"

        # The clock (light grey, 220 points) is over the picture; the night has little of its colour.
        with_clock = W.wait_until(lambda: clock_pixels(shot(sway, "clock")[2], width, height, flower) > 1000 and
                                  clock_pixels(shot(sway, "clock")[2], width, height, flower), 20, "the clock")
        nivalis.config("set", "clockEnabled", "false")
        W.wait_until(lambda: clock_pixels(shot(sway, "no-clock")[2], width, height, flower) < with_clock / 4, 20,
                     f"the clock to go ({with_clock} clock-coloured pixels with it)")

        # The output's scale changed while shown: the frames stay at the output's own pixels (the
        # logical size halves, the buffer scale doubles), and the picture still fills the output.
        def drawn():
            return [str(line).split()[1] for line in prop("PixelSizes")]
        for scale in ("2", "1"):
            sway.swaymsg("output", "HEADLESS-1", "scale", scale)
            frames = prop("FrameCount")
            W.wait_until(lambda: prop("FrameCount") > frames + 5, 30, "frames at scale " + scale)
            assert drawn() == ["%dx%d" % (width, height)], f"frames at scale {scale} drawn at {drawn()}"
            assert W.region_stats(shot(sway, "scale-" + scale)[2], 900, 500, width, height)[1] > 60, \
                "no picture in the corner at scale " + scale

        # Locked: the frame count stands still and the process sleeps.
        services.freedesktop_screensaver_active(True)
        W.wait_until(lambda: prop("Paused"), 20, "the pause on lock")
        frames, cpu = prop("FrameCount"), cpu_seconds(nivalis.process.pid)
        import time
        time.sleep(3)
        assert prop("FrameCount") == frames, "frames were drawn while locked"
        used = cpu_seconds(nivalis.process.pid) - cpu
        assert used < 0.15, f"{used:.2f} s of CPU in 3 s while locked"
        services.freedesktop_screensaver_active(False)
        W.wait_until(lambda: prop("FrameCount") > frames + 5, 30, "frames after unlock")

        # "Show on" the second output: the picture goes there, swaybg shows on the first again.
        nivalis.config("set", "display", display_id(outputs["HEADLESS-2"]))
        W.wait_until(lambda: W.region_stats(shot(sway, "moved-1")[2], 600, 300, 700, 400)[0] == MAGENTA, 30,
                     "swaybg on the first output once the wallpaper moved")
        W.wait_until(lambda: W.region_stats(shot(sway, "moved-2", "HEADLESS-2")[2], 300, 300, width, height)[1] > 60,
                     30, "the picture on the second output")

        # "Show on" a monitor not plugged in: the first output, the key kept; plugged: there.
        later = dict(outputs["HEADLESS-1"], name="HEADLESS-3")
        nivalis.config("set", "display", display_id(later))
        W.wait_until(lambda: W.region_stats(shot(sway, "absent-1")[2], 300, 300, width, height)[1] > 60, 30,
                     "the picture back on the first output while the chosen one is absent")
        sway.swaymsg("create_output")
        W.wait_until(lambda: W.region_stats(shot(sway, "plugged-1")[2], 600, 300, 700, 400)[0] == MAGENTA, 30,
                     "the picture leaving the first output when the chosen one is plugged in")
        W.wait_until(lambda: W.region_stats(shot(sway, "plugged-3", "HEADLESS-3")[2], 300, 300, width,
                                            height)[1] > 60, 30, "the picture on the output plugged in")
    finally:
        if nivalis:
            nivalis.stop()
        services.stop()
        sway.stop()
    print("screenshots in " + SHOTS)
    print("PASS")


try:
    main()
except AssertionError as error:
    print("FAIL: %s" % error, flush=True)
    raise SystemExit(1)
