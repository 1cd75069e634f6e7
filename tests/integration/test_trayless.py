"""Without a tray every menu action stays reachable: a second launch opens the settings window,
which ends in Enable/Disable, About and Quit: Disable there stops the frames, Enable brings them
back, and Quit ends the program with status 0."""

import os
import subprocess
import time

import lib_services


def settings_window(display):
    out = subprocess.run(["xdotool", "search", "--name", "^Settings$"], env=dict(os.environ, DISPLAY=display),
                         capture_output=True, text=True).stdout.split()
    return out[0] if out else None


def test(h):
    nivalis = h.nivalis
    nivalis.start()
    h.wait_for_service()
    assert settings_window(h.x.display) is None, "the settings window is open before any second launch"

    status, output = nivalis.launch_again()
    assert status == 0, f"second launch ended with {status}: {output}"
    window = lib_services.wait_until(lambda: settings_window(h.x.display), 20, "the settings window")

    # The row at the foot of the window: Disable/Enable first, Quit last.
    env = dict(os.environ, DISPLAY=h.x.display)

    def click(from_left, from_right):
        geometry = subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], env=env, capture_output=True,
                                  text=True).stdout
        g = dict(line.split("=") for line in geometry.split())
        x = from_left if from_left is not None else int(g["WIDTH"]) - from_right
        subprocess.run(["xdotool", "mousemove", "--window", window, str(x), str(int(g["HEIGHT"]) - 22), "click",
                        "1"], env=env, check=True)

    # Clicked again until the window has drawn its content and takes the click.
    def disable():
        click(50, None)
        try:
            return lib_services.wait_until(lambda: h.property("ManuallyDisabled"), 2, "Disable")
        except AssertionError:
            return False

    lib_services.wait_until(disable, 30, "Disable to take")
    frames = h.property("FrameCount")
    time.sleep(1)
    assert h.property("Paused") and h.property("FrameCount") == frames, "frames drawn after Disable"
    click(50, None)
    lib_services.wait_until(lambda: h.property("FrameCount") > frames, 20, "frames again after Enable")

    def click_quit():
        click(None, 50)
        try:
            nivalis.process.wait(2)
        except subprocess.TimeoutExpired:
            return False
        return True

    lib_services.wait_until(click_quit, 30, "the program to end after Quit")
    assert nivalis.process.returncode == 0, f"Quit ended the program with status {nivalis.process.returncode}"


if __name__ == "__main__":
    lib_services.run(test)
