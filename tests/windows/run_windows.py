#!/usr/bin/env python3
"""Plots in real windows: on a screen in memory (Xvfb), with a hand of its own on mouse and keys (xdotool).

Usage: run_windows.py QSLRUN
Passes without doing anything where the module of windows was not built.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

SCRIPT = """%QSL
METAFL('XWIN')
SCRMOD('REVERSE')
WINSIZ(600, 425)
QUIINI()
ERRMOD('PROT', 'OFF')
CSRUNI('PIXEL')
COLOR('RED')
RECFLL(0, 0, 1000, 1000, 1)
SHDPAT(16)
IX = {1500, 2500, 2500, 1500}
IY = {500, 500, 1500, 1500}
AREAF(IX, IY, 4)
CSRPT1(NX, NY)
PRINTL NX, NY
CSRREC(N1, N2, N3, N4)
PRINTL N1, N2, N3, N4
NK = CSRPOS(NX, NY)
PRINTL NK
OPNWIN(2)
NW = WINID()
PRINTL NW
CLSWIN(2)
WINKEY('RETURN')
QUIFIN()
PRINTL 'end'
"""


class Hand:
    def __init__(self, env):
        self.env = env

    def do(self, *words):
        run = subprocess.run(["xdotool", *map(str, words)], env=self.env, capture_output=True, text=True)
        return run.stdout.strip()

    def window(self, title, seconds=10):
        """Number of the window with this title, waited for."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = self.do("search", "--name", title).split()
            if found:
                return found[-1]
            time.sleep(0.05)
        raise SystemExit(f"no window with the title {title}")

    def move(self, window, x, y):
        self.do("mousemove", "--sync", "--window", window, x, y)


def answers(display):
    env = {**os.environ, "DISPLAY": display}
    return subprocess.run(["xdotool", "getdisplaygeometry"], env=env, capture_output=True).returncode == 0


def start_screen():
    """Xvfb on a free number, and its display, once it answers."""
    for number in range(100 + os.getpid() % 400, 600):
        if pathlib.Path(f"/tmp/.X{number}-lock").exists():
            continue
        server = subprocess.Popen(["Xvfb", f":{number}", "-screen", "0", "1024x768x24", "-nolisten", "tcp", "-noreset"],
                                  stderr=subprocess.DEVNULL)
        for _ in range(100):
            if server.poll() is not None:
                break
            if answers(f":{number}"):
                return server, f":{number}"
            time.sleep(0.05)
        server.kill()
    raise SystemExit("no screen")


def pixel(hand, window, x, y):
    dump = subprocess.run(["import", "-silent", "-window", window, "-crop", f"1x1+{x}+{y}", "-depth", "8",
                           "txt:-"], env=hand.env,
                          capture_output=True, text=True, check=True).stdout
    return dump.split("#")[1 + dump.count("# ImageMagick")].split()[0][:6].upper()


def play(hand, program, folder):
    (folder / "a.qsl").write_text(SCRIPT)
    plot = subprocess.Popen([program, "a.qsl"], cwd=folder, env=hand.env, stdout=subprocess.PIPE, text=True)
    window = hand.window("QUILLA / Working")
    faults = []

    def step(what, *words):
        time.sleep(0.4)
        if what:
            hand.move(window, *what)
        if words:
            hand.do(*words)

    step((300, 200), "click", 1)
    step((100, 110), "mousedown", 1)
    step((250, 190))
    step(None, "mouseup", 1)
    step((20, 400), "key", "q")
    window = hand.window("QUILLA 1 / Click MB2 or RETURN to continue")
    # The square of 1000 units is 202 pixels wide; the other one begins at 303. The page is white.
    for (x, y), wanted in {(50, 50): False, (400, 200): False, (250, 300): True, (590, 415): True}.items():
        if (pixel(hand, window, x, y) == "FFFFFF") != wanted:
            faults.append(f"pixel {x},{y} is {pixel(hand, window, x, y)}")
    step((300, 300), "key", "Return")
    out, _ = plot.communicate(timeout=20)
    if plot.returncode != 0:
        faults.append(f"status {plot.returncode}")
    wanted = ["300 200", "100 110 250 190", "113", "2", "end"]
    told = [line.strip() for line in out.splitlines() if line.strip()]
    if told != wanted:
        faults.append(f"told {told}")
    return faults


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    if not (program.parent / "quilla_windows.so").exists():
        print("there is no module of windows")
        return 0
    server, display = start_screen()
    try:
        env = {**os.environ, "DISPLAY": display}
        with tempfile.TemporaryDirectory() as folder:
            faults = play(Hand(env), str(program), pathlib.Path(folder))
    finally:
        server.terminate()
        server.wait()
    print("\n".join(faults) or "passed")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
