#!/usr/bin/env python3
"""A commissioning session by keyboard alone, on an X server of its own with a real window manager: on line, read,
edit, write, compare, save, load, print and end. Only the window that has the keyboard hears a key here, so a window
that loses it, or a dialog that takes it along when it closes, ends the session.

keyboard_session.py PROGRAM PRACTICE_DRIVE SOURCE_FOLDER WINDOW_MANAGER
"""
import contextlib
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PATIENCE = 60  # seconds for what the machine does, however busy it is
program, practice_drive, source, manager = sys.argv[1:]
here = Path(tempfile.mkdtemp(prefix="kelvane-keyboard-"))
desk = dict(os.environ, HOME=str(here), XDG_RUNTIME_DIR=str(here), QT_QPA_PLATFORM="xcb", LC_ALL="C.UTF-8")
children = []


def start(*command, **options):
    children.append(subprocess.Popen(command, env=desk, stderr=subprocess.DEVNULL, start_new_session=True, **options))
    return children[-1]


def xdotool(*arguments):
    answer = subprocess.run(("xdotool", *arguments), env=desk, capture_output=True, text=True, check=False)
    return answer.stdout.strip()


def with_keyboard():
    """Title of the window that hears the keys. It is the input focus of the server that counts."""
    return xdotool("getwindowfocus", "getwindowname")


def wait_for(what, done):
    end = time.monotonic() + PATIENCE
    while not done():
        if time.monotonic() > end:
            subprocess.run(("import", "-window", "root", f"keyboard-session-{manager}.png"), env=desk, check=False)
            sys.exit(f"{manager}: waited {PATIENCE} s for {what}; \"{with_keyboard()}\" has the keyboard")
        time.sleep(0.05)


def window(title):
    """Waits until a window has the keyboard and keeps it."""
    def settled():
        if with_keyboard() != title:
            return False
        time.sleep(0.4)
        return with_keyboard() == title
    wait_for(f'"{title}"', settled)


def press(*keys, then=None):
    for key in keys:
        xdotool("key", key)
    if then:
        window(then)


def write(text):
    xdotool("type", "--delay", "15", text)


def accepted_by_return():
    """Enter is Test, and Accept behind a good answer."""
    press("Return")
    asked = time.monotonic() + 2
    while time.monotonic() < asked and with_keyboard() != "Cofirm":
        time.sleep(0.05)
    return with_keyboard() == "Cofirm"


def manager_answers():
    """Whether the manager does what it is asked for. One that only says who it is, is still beginning, and a window
    that is there before it is never given the keyboard."""
    return xdotool("set_num_desktops", "2", "get_num_desktops") == "2"


def session():
    table = here / "mine.xls"
    window("Orlan Kelvane")
    press("F2", then="Communication Setup")
    wait_for("a good test", accepted_by_return)
    window("Cofirm")
    press("Return", then="Orlan Kelvane")  # on line

    press("F5", then="Parameter Management")
    press("F5", then="Processing")
    window("Parameter Management")  # the table is read
    press("Down", "Down", "Down", "Down", "Down", "Down", "Return", then="Input Value")
    press("ctrl+a")
    write("2.50")
    press("Return", then="Parameter Management")
    press("F9", then="Write Check")
    press("Tab", "Return", then="Cofirm")
    press("Return", then="Parameter Management")  # written and read back

    press("ctrl+s", then="Select Parameter Source to Save")
    press("Return", then="Select File Format")
    press("Return", then="Save As")
    press("ctrl+a")
    write(str(table.with_suffix("")))
    press("Return")
    wait_for("the saved table", table.exists)
    window("Parameter Management")
    press("F7", then="Select Compare Kind")  # the keyboard lives on behind the .xls
    press("Return", then="Parameter Management")

    press("ctrl+o", then="Open")
    press("ctrl+a")
    write(str(table))
    press("Return", then="Parameter Management")
    press("ctrl+p", then="Select Parameter Source to Print")
    press("Return", then="Print Preview")
    press("ctrl+p", then="Print")
    press("Escape", then="Print Preview")
    press("Escape", then="Parameter Management")
    press("ctrl+q", then="Orlan Kelvane")
    press("ctrl+q")


def main():
    for name in (program, "Language file"):
        path = Path(program).parent / name
        (shutil.copytree if path.is_dir() else shutil.copy2)(path, here / path.name)
    project = (Path(source) / "packaging/default.prj").read_text(encoding="ascii")
    (here / "default.prj").write_text(project.replace("Com port    =20", "Com port    =1").replace("=9600", "=115200"),
                                      encoding="ascii", newline="\r\n")
    ready, number = os.pipe()
    start("Xvfb", "-displayfd", str(number), "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset",
          pass_fds=[number])
    desk["DISPLAY"] = ":" + os.read(ready, 16).decode().strip()
    drive = start(practice_drive, "--family", "larch", "--baud", "115200", stdout=subprocess.PIPE, text=True)
    (here / "serial_ports.txt").write_text(f"1={drive.stdout.readline().strip()}\n", encoding="utf-8")
    start("dbus-run-session", "--", manager, stdout=subprocess.DEVNULL)
    wait_for("the window manager", manager_answers)
    tool = start(str(here / Path(program).name), cwd=here)
    session()
    if tool.wait(PATIENCE) != 0:
        sys.exit(f"{manager}: the program ended with {tool.returncode}")
    if not any((here / "backup").glob("*")):
        sys.exit(f"{manager}: nothing was written")


try:
    main()
finally:
    for child in reversed(children):
        with contextlib.suppress(ProcessLookupError):
            os.killpg(child.pid, signal.SIGTERM)  # what it started on its part, too
        child.wait()
    shutil.rmtree(here, ignore_errors=True)
