#!/usr/bin/env python3
"""The way to the screen, chosen before Qt starts: on weston (XWayland, no layer shell) the X11
desktop window with Qt forced onto xcb; with no way at all one clear line and status 1, never
Qt's abort."""

import os
import subprocess
import tempfile

import lib_services as S
import lib_wayland as W

S.skip_unless_program()
S.in_private_session_bus()

NO_WAY = "nivalis: cannot show a wallpaper here: "

# (environment changes, the end of the one line) for sessions where nothing can be shown.
NO_WAY_CASES = [
    ({}, "there is no graphical session ($WAYLAND_DISPLAY and $DISPLAY are unset)."),
    ({"DISPLAY": ":987"}, "the X server ($DISPLAY) does not answer and there is no Wayland compositor."),
    ({"WAYLAND_DISPLAY": "weston"}, "the Wayland compositor offers no layer shell and there is no X server "
                                    "($DISPLAY is unset)."),
]


def desktop_windows(display):
    """The X windows (framed or not) whose type is desktop."""
    env = dict(os.environ, DISPLAY=display)
    tree = subprocess.run(["xwininfo", "-root", "-tree"], env=env, capture_output=True, text=True).stdout
    found = []
    for line in tree.splitlines():
        words = line.split()
        if words and words[0].startswith("0x"):
            types = subprocess.run(["xprop", "-id", words[0], "_NET_WM_WINDOW_TYPE"], env=env, capture_output=True,
                                   text=True).stdout
            if "_NET_WM_WINDOW_TYPE_DESKTOP" in types:
                found.append(words[0])
    return found


def main():
    home, runtime = W.private_home()
    weston = W.Weston(runtime)
    services = S.SystemServices()
    nivalis = None
    try:
        for changes, reason in NO_WAY_CASES:
            env = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=runtime)
            for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
                env.pop(name, None)
            env.update({k: (weston.env["WAYLAND_DISPLAY"] if v == "weston" else v) for k, v in changes.items()})
            result = subprocess.run([S.program()], env=env, capture_output=True, text=True, timeout=60)
            assert result.returncode == 1, f"{changes}: status {result.returncode}: {result.stderr}"
            assert result.stderr.strip() == NO_WAY + reason, f"{changes}: said {result.stderr!r}"

        nivalis = S.Nivalis(weston.display, home)
        nivalis.env.update(weston.env)
        nivalis.env["XDG_RUNTIME_DIR"] = runtime
        nivalis.env.pop("QT_QPA_PLATFORM")
        nivalis.start()
        nivalis.wait_for_line("nivalis: showing the wallpaper as an X11 desktop window on " + weston.display)
        W.wait_until(lambda: desktop_windows(weston.display), 30, "a desktop-type X window (Qt on xcb)")
    finally:
        if nivalis:
            nivalis.stop()
        services.stop()
        weston.stop()
    print("PASS")


try:
    main()
except AssertionError as error:
    print("FAIL: %s" % error, flush=True)
    raise SystemExit(1)
