#!/usr/bin/env python3
"""A dialog in a real window: on a screen in memory (Xvfb), with a hand of its own on mouse and keys (xdotool).

Usage: run_widgets.py QSLRUN
Passes without doing anything where the module of windows was not built. The places of the mouse come from the script:
its form sets those of all widgets.
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

from run_windows import Hand, pixel, start_screen

MENU = 28  # height of the bar above a dialog
SCRIPT = """%QSL
SWGTIT('Dialog of a test')
SWGWIN(20, 20, 400, 300)
IP = WGINI('FORM')
SWGWIN(10, 10, 100, 30)
IB = WGPBUT(IP, 'Push')
SWGWIN(10, 50, 200, 30)
IT = WGTXT(IP, 'old')
SWGWIN(10, 90, 120, 100)
IL = WGLIS(IP, 'one|two|three|four', 1)
SWGOPT('NOVALUE', 'SLIDER')
SWGWIN(150, 90, 201, 50)
IS = WGSCL(IP, 'Scale', 0.0, 10.0, 0.0, 1)
SWGWIN(150, 150, 120, 25)
IC = WGBUT(IP, 'Check', 0)
SWGWIN(10, 220, 90, 60)
ID = WGLAB(IP, '')
SWGBGD(ID, 1.0, 0.0, 0.0)
SWGWIN(250, 240, 100, 30)
IO = WGOK(IP)
SWGCBK(IB, 'PUSHED')
SWGCBK(IT, 'TYPED')
SWGCBK(IL, 'PICKED')
SWGCBK(IS, 'MOVED')
WGFIN()
N = GWGLIS(IL)
X = GWGSCL(IS)
K = GWGBUT(IC)
G = GWGGUI()
PRINTL 'end', N, X, K, G
T = GWGTXT(IT)
PRINTL T
IP = WGINI('VERT')
IQ = WGQUIT(IP)
WGFIN()
PRINTL 'never'
"""
ROUTINES = {
    "pushed": "PRINTL 'pushed', ID",
    "typed": "T = GWGTXT(ID)\nPRINTL 'typed', T",
    "picked": "N = GWGLIS(ID)\nPRINTL 'picked', N",
    "moved": "X = GWGSCL(ID)\nPRINTL 'moved', X",
}


def play(hand, program, folder):
    (folder / "a.qsl").write_text(SCRIPT)
    for name, body in ROUTINES.items():
        (folder / f"{name}.qsl").write_text(f"%QSL\nSUBROUTINE {name.upper()}(ID)\n{body}\nEND\n")
    run = subprocess.Popen([program, "a.qsl"], cwd=folder, env=hand.env, stdout=subprocess.PIPE, text=True)
    window = hand.window("Dialog of a test")
    faults = []

    def step(x, y, *words):
        time.sleep(0.3)
        hand.move(window, x, y + MENU)
        hand.do(*words)

    time.sleep(0.5)
    if pixel(hand, window, 50, 250 + MENU) != "FF0000":
        faults.append(f"the red label is {pixel(hand, window, 50, 250 + MENU)}")
    step(60, 25, "click", 1)
    step(100, 65, "click", 1)
    hand.do("key", "Home")
    hand.do("key", "shift+End")
    hand.do("type", "new")
    time.sleep(0.2)
    hand.do("key", "Return")
    step(60, 90 + 3 + 17 * 2 + 8, "click", 1)
    step(155, 124, "mousedown", 1)
    step(340, 124)
    step(349, 124, "mouseup", 1)
    step(160, 162, "click", 1)
    step(300, 255, "click", 1)
    time.sleep(0.5)
    window = hand.window("Dialog of a test")  # the second one, made of a Quit button
    hand.move(window, 60, MENU + 20)
    hand.do("click", 1)
    try:
        out, _ = run.communicate(timeout=20)
    except subprocess.TimeoutExpired:
        run.kill()
        return faults + ["the dialog does not end: " + run.communicate()[0]]
    if run.returncode != 0:
        faults.append(f"status {run.returncode}")
    told = [" ".join(line.split()) for line in out.splitlines() if line.strip()]
    wanted = ["pushed 2", "typed new", "picked 3", "moved 10.000000", "end 3 10.000000 1 1", "new"]
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
