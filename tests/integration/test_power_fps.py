"""The frame rate follows the power source and the power-saver profile: 60 on mains, 30 on
battery, 60 again on a UPS, 20 in power-saver mode, each announced on standard output."""

import lib_services


def test(h):
    nivalis = h.nivalis
    # Written by another process before the start, as a user would from a terminal.
    nivalis.config("set", "fps", "60")
    assert nivalis.config("get", "fps") == "60\n"
    nivalis.start()
    nivalis.wait_for_line(r"updateFps 60 false false", timeout=30)
    h.wait_for_service()
    assert h.property("FramesPerSecond") == 60

    mark = nivalis.mark()
    h.services.set_on_battery(True)
    nivalis.wait_for_line(r"powerSourceDidChange", since=mark)
    nivalis.wait_for_line(r"updateFps 30 true false", since=mark)
    lib_services.wait_until(lambda: h.property("FramesPerSecond") == 30, 5, "30 fps on battery")

    mark = nivalis.mark()
    h.services.set_on_battery(False)
    nivalis.wait_for_line(r"updateFps 60 false false", since=mark)

    mark = nivalis.mark()
    h.services.set_profile("power-saver")
    nivalis.wait_for_line(r"powerStateDidChange", since=mark)
    nivalis.wait_for_line(r"updateFps 20 false true", since=mark)
    assert h.property("FramesPerSecond") == 20

    # Switching the limit off from outside reaches the running program through its file watcher.
    mark = nivalis.mark()
    nivalis.config("set", "lowPowerMode", "false")
    nivalis.wait_for_line(r"updateFps 60 false false", since=mark)

    mark = nivalis.mark()
    nivalis.config("unset", "lowPowerMode")
    h.services.set_on_battery(True)
    nivalis.wait_for_line(r"updateFps 20 true true", since=mark)

    mark = nivalis.mark()
    h.services.set_profile("balanced")
    nivalis.wait_for_line(r"updateFps 30 true false", since=mark)

    # A UPS counts as external power: no limit.
    h.services.set_power_device_type(3)
    h.services.set_on_battery(False)
    mark = nivalis.mark()
    h.services.set_on_battery(True)
    nivalis.wait_for_line(r"powerSourceDidChange", since=mark)
    nivalis.wait_for_line(r"updateFps 60 false false", since=mark)
    h.services.set_power_device_type(2)
    h.services.set_on_battery(False)
    mark = nivalis.mark()
    h.services.set_on_battery(True)
    nivalis.wait_for_line(r"updateFps 30 true false", since=mark)

    # The profiles daemon under its newer name counts as well, also when it appears late.
    h.services.set_on_battery(False)
    set_profile = h.services.start_upower_profiles("balanced")
    mark = nivalis.mark()
    set_profile("power-saver")
    nivalis.wait_for_line(r"powerStateDidChange", since=mark)
    nivalis.wait_for_line(r"updateFps 20 false true", since=mark)
    mark = nivalis.mark()
    set_profile("performance")
    nivalis.wait_for_line(r"updateFps 60 false false", since=mark)

    # Only what was written is in the file; the power state is not persisted.
    listing = nivalis.config("list")
    assert "\nfps=60\n" in listing, listing
    assert "\nlowPowerMode=true (default)\n" in listing, listing


if __name__ == "__main__":
    lib_services.run(test)
