"""A UPower that hangs while the program starts holds nothing up: the first frame comes while
it does not answer, and once it answers the rate follows the battery."""

import os
import signal

import lib_services


def test(h):
    upower = h.services.upower_process.pid
    os.kill(upower, signal.SIGSTOP)
    try:
        h.nivalis.start()
        h.wait_for_service()
        lib_services.wait_until(lambda: h.property("FrameCount") > 0, 30, "the first frame while UPower hangs")
    finally:
        os.kill(upower, signal.SIGCONT)
    h.nivalis.wait_for_line(r"updateFps 30 true false")


test.harness_options = {"on_battery": True}

if __name__ == "__main__":
    lib_services.run(test)
