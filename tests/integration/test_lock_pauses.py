"""Locking the screen pauses the wallpaper (no frames at all) and hides it; unlocking resumes.
Each lock source counts: the desktop-neutral and GNOME screen savers on the session bus and
the login session on the system bus. A wake from sleep is logged."""

import time

import lib_services


def frames(h):
    return int(h.property("FrameCount"))


def assert_drawing(h, what):
    start = frames(h)
    lib_services.wait_until(lambda: frames(h) > start + 2, 30, f"frames to be drawn {what}")
    assert h.property("Enabled") and not h.property("Paused"), what


def assert_paused(h, what):
    lib_services.wait_until(lambda: h.property("Paused"), 10, f"the wallpaper to pause {what}")
    assert not h.property("Enabled"), what
    time.sleep(0.3)  # a frame under way when the pause came may still finish
    before = frames(h)
    time.sleep(1.5)
    after = frames(h)
    assert after == before, f"{after - before} frames drawn while paused {what}"


def test(h):
    nivalis = h.nivalis
    nivalis.start()
    h.wait_for_service()
    assert_drawing(h, "after start")

    for name, lock, unlock in [
        ("by the screen saver", lambda: h.services.freedesktop_screensaver_active(True),
         lambda: h.services.freedesktop_screensaver_active(False)),
        ("by GNOME's screen saver", lambda: h.services.gnome_screensaver_active(True),
         lambda: h.services.gnome_screensaver_active(False)),
        ("by the login session", h.services.logind_lock, h.services.logind_unlock),
    ]:
        lock()
        assert_paused(h, name)
        assert h.property("ScreenLocked")
        unlock()
        lib_services.wait_until(lambda: not h.property("Paused"), 10, f"the wallpaper to resume {name}")
        assert_drawing(h, f"after the unlock {name}")

    # Disabled from the menu while locked: the unlock does not bring it back.
    h.services.logind_lock()
    assert_paused(h, "locked before disabling")
    h.nivalis.diagnostics(h.services.session).ToggleEnabled(dbus_interface=lib_services.DIAGNOSTICS_IFACE)
    assert h.property("ManuallyDisabled")
    h.services.logind_unlock()
    lib_services.wait_until(lambda: not h.property("ScreenLocked"), 10, "the unlock")
    assert_paused(h, "after unlocking a disabled wallpaper")
    h.nivalis.diagnostics(h.services.session).ToggleEnabled(dbus_interface=lib_services.DIAGNOSTICS_IFACE)
    assert_drawing(h, "after enabling again")

    mark = nivalis.mark()
    h.services.wake()
    nivalis.wait_for_line(r"deviceDidWake", since=mark)
    assert h.property("Enabled")


if __name__ == "__main__":
    lib_services.run(test)
