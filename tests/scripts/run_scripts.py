#!/usr/bin/env python3
"""Runs scripts and compares what they print with what they must print.

    run_scripts.py QSLRUN_PATH [NAME ...]

A test is a file NAME.out with the exact standard output. QSLRUN is run in a temporary copy of this folder, so that
tests can write files. Beside NAME.out may stand
    NAME.qsl     the script, given as the only argument unless NAME.args says otherwise
    NAME.args    the arguments, quoted as in a shell; an empty file stands for none (the prompt)
    NAME.in      the standard input, else it is empty
    NAME.env     lines NAME=VALUE for the environment
    NAME.status  the exit status, else 0; a negative number is a signal
Files without a .out of their name are material of the tests.
"""
import difflib
import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile

TIME_LIMIT = 60


def text_of(path, default=""):
    return path.read_text(encoding="latin-1") if path.exists() else default


def run(program, folder, name):
    """Output and status of one test."""
    arguments = [name + ".qsl"]
    if (folder / (name + ".args")).exists():
        arguments = shlex.split(text_of(folder / (name + ".args")))
    environment = {k: v for k, v in os.environ.items() if not k.startswith(("QSL_", "QUILLA", "DISPLAY", "WAYLAND"))}
    environment["SOURCE_DATE_EPOCH"] = "0"
    environment.setdefault("ASAN_OPTIONS", "handle_sigfpe=0")  # the arithmetic signal ends a sanitized program too
    for line in text_of(folder / (name + ".env")).splitlines():
        key, value = line.split("=", 1)
        environment[key] = value
    with tempfile.TemporaryDirectory() as work:
        place = pathlib.Path(work) / "scripts"
        shutil.copytree(folder, place)
        done = subprocess.run([program] + arguments, cwd=place, env=environment, timeout=TIME_LIMIT,
                              input=text_of(folder / (name + ".in")).encode("latin-1"), stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False)
    return done.stdout.decode("latin-1"), done.returncode


def main():
    program = os.path.abspath(sys.argv[1])
    folder = pathlib.Path(__file__).resolve().parent
    names = sys.argv[2:] or sorted(path.stem for path in folder.glob("*.out"))
    failed = 0
    for name in names:
        wanted = text_of(folder / (name + ".out"))
        status = int(text_of(folder / (name + ".status"), "0"))
        try:
            printed, returned = run(program, folder, name)
        except subprocess.TimeoutExpired:
            printed, returned = "(no end within %d seconds)\n" % TIME_LIMIT, status
        if printed == wanted and returned == status:
            continue
        failed += 1
        print("FAILED " + name)
        sys.stdout.writelines(difflib.unified_diff(wanted.splitlines(True), printed.splitlines(True), name + ".out",
                                                   "printed"))
        if returned != status:
            print("status %d, not %d" % (returned, status))
    print("%d passed, %d failed" % (len(names) - failed, failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
