"""A second launch starts no second wallpaper: it asks the running one to reveal its hidden
tray icon for 5 seconds and ends."""

import time

import lib_services


def test(h):
    nivalis = h.nivalis
    h.services.start_tray_host()
    nivalis.config("set", "hideMenuBarIcon", "true")
    nivalis.start()
    h.wait_for_service()
    # Every launch shows the icon for 5 seconds, then it hides.
    lib_services.wait_until(lambda: not h.property("StatusIconVisible"), 15, "the icon to hide after launch")

    started = time.monotonic()
    status, output = nivalis.launch_again()
    assert status == 0, f"second launch ended with {status}: {output}"
    assert "updateFps" not in output, f"the second launch ran a wallpaper: {output}"
    assert nivalis.process.poll() is None, "the first instance ended"
    assert h.property("StatusIconVisible"), "the second launch did not reveal the icon"

    lib_services.wait_until(lambda: not h.property("StatusIconVisible"), 15, "the icon to hide again")
    elapsed = time.monotonic() - started
    assert 4.0 <= elapsed <= 12.0, f"the icon was visible for about {elapsed:.1f} s, not 5"

    # With the option off, the icon stays after a reveal.
    nivalis.config("set", "hideMenuBarIcon", "false")
    status, _ = nivalis.launch_again()
    assert status == 0
    time.sleep(6)
    assert h.property("StatusIconVisible")


if __name__ == "__main__":
    lib_services.run(test)
