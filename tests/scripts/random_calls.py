#!/usr/bin/env python3
"""Calls every library routine with extreme operands, at every level, and looks that the program lives.

Usage: random_calls.py QSLRUN [scripts]
The scripts are made from the table of routines with a fixed seed: integers at the ends of their range, huge and tiny
reals, empty and long texts, arrays that are too short. A script passes if the program ends with status 0 and says its
last word; the sanitizer build turns a fault of memory or arithmetic into another status.
"""
import os
import pathlib
import random
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
TABLE = ROOT / "tests" / "unit" / "script" / "data" / "routines.txt"
CALLS = 250
TIMEOUT = 60
# They run programs of the system or end the plot so often that little else would be seen.
LEFT_OUT = {"SYMFIL", "QUIFIN", "QUIINI", "METAFL", "SETFIL", "ERRFIL", "ERRDEV", "UNIT",
            "WINDOW", "WINSIZ",  # pictures of a gigabyte take their time
            "GRIDMP"}  # so do thousands of dashed lines that are 999 units wide; random maps are a unit test

# They give out arrays of a size that the script tells: results of gigabytes take their time.
SIZED = {"BEZIER", "CONPTS", "HISTOG", "POLCLP", "TRFMAT", "INTUTF", "LEGINI", "TXTURE"}
LARGEST = "2147483647"

# Dialogs would wait for a user.
SCREENLESS = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY")}

DEVICES = ["PDF", "PS", "EPS", "PSCL", "PNG", "GIF", "TIFF", "BMP", "PPM", "IMAG", "VIRT"]
INTEGERS = ["0", "1", "2", "3", "5", "-1", "100", "255", "256", "999", "3000", "40000", LARGEST, "(-" + LARGEST + "-1)"]
REALS = ["0.0", "1.0", "-1.0", "0.5", "2.0", "10.0", "100.0", "1E-30", "1E30", "-1E30", "3.4E38", "-3.4E38", "1E300"]
TEXTS = ["''", "'X'", "'XYZ'", "'ON'", "'OFF'", "'NONE'", "'LINE'", "'LOG'", "'[12$]3$ text'", "'{}%&'", "TXT"]
KEYWORDS = ["AXIS", "PAGE", "FLOA", "EXP", "XEXP", "MYLA", "MAP", "TIME", "DATE", "SPLI", "STEP", "FBAR", "BOTT", "CENT",
            "COLO", "BOTH", "VERT", "REVE", "RAIN", "SMAL", "CROS", "ALL", "DASH", "HALF", "TICK", "RIGH", "GERM", "INST", "RGB",
            "IND", "PNG", "TIFF", "FIGU", "AUTO", "TRAN", "ABS", "USER", "ANGL", "EYE", "PARA", "ORTH", "XISO", "BARS"]


def operand(field, rng, names):
    if field == "X":
        return rng.choice(REALS + INTEGERS[:9])
    if field == "F":
        return "FLOAT(" + rng.choice(REALS[:6]) + ")"
    if field in ("I", "B"):
        return rng.choice(INTEGERS) if rng.random() < 0.6 else rng.choice(INTEGERS[:9])
    if field == "S":
        return rng.choice(TEXTS) if rng.random() < 0.4 else "'" + rng.choice(KEYWORDS) + "'"
    if field in ("FR", "AR"):
        return rng.choice(["FA", "FB", "FC"])
    if field == "IR":
        return rng.choice(["IA", "IB"])
    if field == "BR":
        return "BA"
    if field in ("U", "V", "*"):
        names[0] = names[0] % 40 + 1
        return f"OUT{names[0]}"
    return "1"


def make_script(seed, table):
    rng = random.Random(seed)
    names = [0]
    lines = ["%QSL", "FILMOD('DELETE')", "METAFL('" + rng.choice(DEVICES) + "')", "SETFIL('out.plt')",
             "IMGFMT('" + rng.choice(["IND", "RGB", "BIL"]) + "')",
             "FA = {1.0, 2.0, 3.0, 4.0}", "FB = {1.0, -2.0, 1E30}", "FC = FALLOC(40)", "IA = {1, 2, 3}", "IB = IALLOC(40)",
             "BYTE BA[12]", "TXT = '" + "long text " * 12 + "'"]
    if rng.random() < 0.3:
        lines += ["UNITS('" + rng.choice(["INCH", "POIN", "TWIP"]) + "')"]
    opened = False
    for i in range(CALLS):
        if i == 20:
            lines.append("QUIINI()")
            opened = True
        if opened and i % 25 == 0:
            lines.append("GRAF(0.0, 10.0, 0.0, 1.0, -1.0, 1.0, -1.0, 0.5)")
        if opened and i % 50 == 35:
            lines += ["ENDGRF()", "GRAF3D(0.0, 10.0, 0.0, 1.0, -1.0, 1.0, -1.0, 0.5, 0.0, 2.0, 0.0, 1.0)"]
        name, signature = rng.choice(table)
        operands = ["3000" if name in SIZED and o == LARGEST else o for o in (operand(f, rng, names) for f in signature)]
        lines.append(name + "(" + ", ".join(operands) + ")")
    return "\n".join(lines + ["QUIFIN()", "PRINTL 'the end'"]) + "\n"


def main():
    program = str(pathlib.Path(sys.argv[1]).resolve())
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 40
    missing = subprocess.run([str(ROOT / "tools" / "list_missing_routines")], capture_output=True, check=True).stdout
    left_out = LEFT_OUT | set(missing.decode().split())
    table = []
    for line in TABLE.read_text().splitlines():
        name, _, signature = line.partition(" ")
        if name and name not in left_out:
            table.append((name, [f for f in signature.strip().split(",") if f]))
    passed = failed = 0
    for seed in range(count):
        script = make_script(seed, table)
        with tempfile.TemporaryDirectory() as folder:
            (pathlib.Path(folder) / "calls.qsl").write_text(script)
            try:
                run = subprocess.run([program, "calls.qsl"], cwd=folder, capture_output=True, timeout=TIMEOUT, env=SCREENLESS)
                fine = run.returncode == 0 and run.stdout.rstrip().endswith(b"the end")
                what = f"status {run.returncode}\n" + run.stderr.decode(errors="replace")[-3000:]
            except subprocess.TimeoutExpired:
                fine, what = False, "takes too long"
        if fine:
            passed += 1
        else:
            failed += 1
            print(f"seed {seed}: {what}")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
