#!/usr/bin/env python3
"""The --help texts and the man pages say the same things: every option of `nivalis --help` and
`nivalis-render --help` is in its man page, and every setting of `nivalis config --help` is in
nivalis(1) with the same accepted values.

Usage: help_matches_man.py NIVALIS NIVALIS_RENDER MAN_DIR
"""
import re
import subprocess
import sys


def man_text(path):
    """The words of a man page, its macros and font escapes stripped, whitespace folded."""
    words = []
    for line in open(path, encoding="utf-8"):
        line = line.rstrip("\n")
        if line.startswith(".") and not line.startswith((".B ", ".BI ", ".BR ", ".I ")):
            continue
        line = re.sub(r"^\.\w+ ", "", line).replace('"', "")
        line = line.replace("\\-", "-").replace("\\fP", "").replace("\\fI", "").replace("\\fB", "")
        words.append(line)
    return " ".join(" ".join(words).split())


def help_text(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True,
                          env={"PATH": "/usr/bin:/bin", "XDG_CONFIG_HOME": "/nonexistent"}).stdout


def options(text):
    return sorted(set(re.findall(r"(?<![\w-])--?[a-z][a-z-]*", text.split("Commands:")[0])))


def main(nivalis, render, man_dir):
    failures = []
    nivalis_man = man_text(man_dir + "/nivalis.1")
    render_man = man_text(man_dir + "/nivalis-render.1")
    for option in options(help_text(nivalis, "--help")):
        if option not in nivalis_man:
            failures.append("nivalis.1 lacks %s" % option)
    for option in options(help_text(render, "--help")):
        if option not in render_man:
            failures.append("nivalis-render.1 lacks %s" % option)
    config = help_text(nivalis, "config", "--help").split("accept:\n")[1].split("\n\n")[0]
    settings = re.findall(r"^  (\w+) +(.*(?:\n {30}.*)*)", config, re.M)
    if len(settings) < 18:
        failures.append("config --help lists %d settings" % len(settings))
    for name, values in settings:
        values = " ".join(values.split())
        if ("%s %s" % (name, values)) not in nivalis_man:
            failures.append("nivalis.1 lacks '%s %s'" % (name, values))
    for failure in failures:
        print("FAIL:", failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:4]))
