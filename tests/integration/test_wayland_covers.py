#!/usr/bin/env python3
"""All displays on headless sway with two outputs: each output gets its own layer surface and
its own picture; a fullscreen window on the first output pauses that output's surface only
(the compositor's list of windows tells), and leaving fullscreen resumes it. Going back to one
output drops the second surface and every GL object its renderer made."""

import json
import os
import time

import lib_wayland as W

W.as_unprivileged()
import lib_services as S  # noqa: E402

S.skip_unless_program()
S.in_private_session_bus()

SHOTS = "/tmp/nivalis-wayland-shots"
FLOWER = "[app_id=org.freedesktop.weston.flower]"


def main():
    os.makedirs(SHOTS, exist_ok=True)
    home, runtime = W.private_home()
    sway = W.Sway(runtime, outputs=2, xwayland=True)
    services = S.SystemServices()
    nivalis = None
    try:
        outputs = [o["name"] for o in json.loads(sway.swaymsg("-t", "get_outputs", "-r"))]
        nivalis = S.Nivalis(sway.display, home)
        nivalis.env.update(sway.env)
        nivalis.env.pop("QT_QPA_PLATFORM")
        nivalis.config("set", "allDisplays", "true")
        nivalis.config("set", "fps", "20")
        nivalis.start()
        bus = services.session
        W.wait_until(lambda: bus.name_has_owner(S.SERVICE), 30, "the program on the session bus")
        diagnostics = bus.get_object(S.SERVICE, S.DIAGNOSTICS_PATH)

        def monitors():
            lines = diagnostics.Get(S.DIAGNOSTICS_IFACE, "Monitors", dbus_interface="org.freedesktop.DBus.Properties")
            return [(str(line).split()[1], int(str(line).split()[2])) for line in lines]

        def expect(states, what):
            W.wait_until(lambda: [s for s, _ in monitors()] == states, 30, "%s: %s" % (what, monitors()))
            before = monitors()
            time.sleep(1.5)
            after = monitors()
            for i, state in enumerate(states):
                drawn = after[i][1] - before[i][1]
                assert (drawn > 0) == (state == "drawing"), "%s: output %d drew %d frames while %s" % (
                    what, i + 1, drawn, state)

        W.wait_until(lambda: len(monitors()) == 2 and min(f for _, f in monitors()) > 3, 60, "frames on both")
        expect(["drawing", "drawing"], "both outputs")
        shots = [sway.screenshot(os.path.join(runtime, "%s.ppm" % name), name) for name in outputs]
        for name, (width, height, rows) in zip(outputs, shots):
            W.write_png(os.path.join(SHOTS, "all-%s.png" % name), width, height, rows)
            assert W.region_stats(rows, 0, 0, width, height)[1] > 60, "no picture on " + name
        assert W.difference(shots[0][2], shots[1][2]) > 0.2, "the two outputs show the same picture"

        sway.swaymsg("focus", "output", outputs[0])
        sway.start_client(["weston-flower"])
        W.wait_until(lambda: "flower" in sway.swaymsg("-t", "get_tree"), 30, "the flower window")
        sway.swaymsg(FLOWER, "fullscreen", "enable")
        expect(["covered", "drawing"], "fullscreen window on the first output")
        sway.swaymsg(FLOWER, "fullscreen", "disable")
        expect(["drawing", "drawing"], "fullscreen left")

        # One output, two, one again (as when one is unplugged): the second shares the first one's
        # meshes, textures and programs, so it adds fewer GL objects, and gives them all back.
        counts = []
        for all_displays, count in (("false", 1), ("true", 2), ("false", 1)):
            nivalis.config("set", "allDisplays", all_displays)
            W.wait_until(lambda: len(monitors()) == count, 30, "%d outputs: %s" % (count, monitors()))
            time.sleep(1.0)
            counts.append(int(diagnostics.Get(S.DIAGNOSTICS_IFACE, "GlObjects",
                                              dbus_interface="org.freedesktop.DBus.Properties")))
        assert counts[0] < counts[1] < 2 * counts[0] and counts[2] == counts[0], "GL objects %s" % counts
    finally:
        if nivalis:
            nivalis.stop()
        services.stop()
        sway.stop()
    print("PASS")


if __name__ == "__main__":
    main()
