#!/usr/bin/env python3
"""Types at the prompt through a pseudo-terminal and looks at what appears; interrupts prompts and scripts.

    run_terminal.py QSLRUN_PATH
"""
import os
import pathlib
import pty
import re
import select
import signal
import subprocess
import sys
import tempfile
import time

PROGRAM = os.path.abspath(sys.argv[1])
TIME_LIMIT = 20
failed = []

# A test that is started in the background inherits ignored interrupts; the programs that it starts must not.
signal.signal(signal.SIGINT, signal.default_int_handler)


def check(name, good, seen=""):
    print(("ok   " if good else "FAILED ") + name)
    if not good:
        failed.append(name)
        print(repr(seen))


class Prompt:
    """A prompt at a terminal of its own."""

    def __init__(self, folder, **environment):
        self.text = ""
        settings = {k: v for k, v in os.environ.items() if not k.startswith(("QSL_", "QUILLA", "XDG_", "NO_COLOR"))}
        settings.update({"HOME": str(folder), "TERM": "xterm", "LC_ALL": "C.UTF-8"}, **environment)
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            os.execve(PROGRAM, ["QSLRUN"], settings)
        self.expect("QSL>")

    def read(self, seconds):
        ready, _, _ = select.select([self.terminal], [], [], seconds)
        if not ready:
            return False
        try:
            data = os.read(self.terminal, 4096)
        except OSError:
            return False
        self.text += data.decode("utf-8", "replace")
        return bool(data)

    def expect(self, wanted, seconds=TIME_LIMIT):
        """Waits for a text; gives what came before it, or None."""
        end = time.time() + seconds
        while wanted not in self.text:
            if time.time() > end or not self.read(0.1) and self.ended():
                return None
        before, self.text = self.text.split(wanted, 1)
        return before

    def ended(self):
        return os.waitpid(self.process, os.WNOHANG)[0] != 0

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def close(self):
        self.type("\x15EXIT\n")
        for _ in range(100):
            if not self.read(0.1):
                break
        os.close(self.terminal)
        try:
            os.waitpid(self.process, 0)
        except ChildProcessError:
            pass


def plain(text):
    """Without escapes of the terminal."""
    return re.sub(r"\x1b\[[0-9;?]*[A-Za-z]|\x1b[=>]", "", text or "")


def test_editing(folder):
    prompt = Prompt(folder)
    prompt.type("PRINTL 1X\x7f0 + 5\n")  # the X is rubbed out
    check("a line is edited", prompt.expect("\n15 ") is not None, prompt.text)
    prompt.expect("QSL>")
    prompt.type("\x1b[A\n")
    check("the line before comes again", prompt.expect("\n15 ") is not None, prompt.text)
    prompt.expect("QSL>")
    prompt.type("PRINTL 'gr\u00fc\u00dfe'\n")
    check("letters of more than one byte", prompt.expect("\ngr\u00fc\u00dfe ") is not None, prompt.text)
    prompt.expect("QSL>")
    prompt.type("FOO\n")
    check("messages are red", prompt.expect("\x1b[31m >>>> Undefined command FOO\x1b[0m") is not None, prompt.text)
    prompt.close()


def test_history(folder):
    place = folder / ".qslrun_history"
    check("the history stays", place.exists() and "PRINTL" in place.read_text())
    prompt = Prompt(folder, NO_COLOR="1")
    prompt.type("\x10\x10\x10\n")  # EXIT, FOO, the greeting
    check("lines of an earlier run", prompt.expect("\ngr\u00fc\u00dfe ") is not None, prompt.text)
    prompt.expect("QSL>")
    prompt.type("FOO\n")
    check("no colour if the user wants none", prompt.expect("\n >>>> Undefined command FOO\r\n") is not None, prompt.text)
    prompt.close()
    state = folder / "state"
    state.mkdir()
    prompt = Prompt(folder, XDG_STATE_HOME=str(state))
    prompt.type("STATE = 1\n")
    prompt.expect("QSL>")
    prompt.close()
    check("the history's place follows the environment", (state / "qslrun" / "history").exists())


def test_completion(folder):
    prompt = Prompt(folder)
    prompt.type("MY_VALUE = 7\n")
    prompt.expect("QSL>")
    prompt.type("PRIN\tL MY_\t\n")
    check("keywords and variables are completed", prompt.expect("\n7 ") is not None, prompt.text)
    prompt.expect("QSL>")
    prompt.type("CURVE(\t")
    check("parameters are shown", prompt.expect("CURVE(FLOAT array, FLOAT array, INT)") is not None, prompt.text)
    prompt.type("\x15end\t\t")
    shown = prompt.expect("ENDIF")
    check("several names are listed", shown is not None and prompt.expect("QSL>") is not None, prompt.text)
    prompt.type("\x15substr\t")
    check("a function's parameters", prompt.expect("SUBSTR(text, INT, INT)") is not None, prompt.text)
    prompt.close()


def test_interrupts(folder):
    prompt = Prompt(folder)
    prompt.type("PRINTL 'dropped'")
    prompt.expect("dropped'")
    prompt.type("\x03")
    seen = prompt.expect("QSL>")
    check("an interrupt drops the line", seen is not None and "^C" in seen, seen)
    prompt.type("WHILE (1)\n")
    prompt.expect("QSL>")
    prompt.type("END WHILE\n")
    time.sleep(0.3)
    prompt.type("\x03")
    seen = prompt.expect("QSL>")
    check("an interrupt stops a loop", seen is not None and ">>>> Interrupted" in seen, seen)
    prompt.type("PRINTL 3 * 3\n")
    check("the prompt goes on", prompt.expect("\n9 ") is not None, prompt.text)
    prompt.close()


def test_long_statements(folder):
    """The statement has no result when it is stopped on its way."""
    prompt = Prompt(folder, NO_COLOR="1")
    prompt.type("A = FALLOC(40000000) + 1.\n")
    prompt.expect("QSL>")
    for long_one in ("A ** 0.37", "SIN(COS(TAN(SIN(COS(TAN(A))))))", "DOUBLE(SIN(A)) ** 1.1"):
        prompt.type("B = %s\n" % long_one)
        prompt.expect("\n")
        time.sleep(0.1)
        prompt.type("\x03")
        seen = prompt.expect("QSL>")
        check("an interrupt stops " + long_one, seen is not None and seen.count(">>>>") == 1 and "Interrupted" in seen, seen)
        prompt.type("PRINTL B\n")
        check("without a result", prompt.expect("Undefined identifier B") is not None, prompt.text)
        prompt.expect("QSL>")
    prompt.type("PRINTL A\n")
    prompt.expect("5.000000")
    prompt.type("\x03")
    check("an interrupt stops a long print", prompt.expect(">>>> Interrupted") is not None, prompt.text[-200:])
    prompt.expect("QSL>")
    prompt.close()


def test_script(folder):
    (folder / "endless.qsl").write_text(
        "%QSL\nN = FOPEN('kept.txt', 'w')\nFPUTS('kept', N)\nPRINTL 'runs'\nFFLUSH(0)\nO = FOPEN('con:','w')\nFFLUSH(O)\n"
        "WHILE (1)\nEND WHILE\n")
    process = subprocess.Popen([PROGRAM, "endless.qsl"], cwd=folder, stdout=subprocess.PIPE)
    process.stdout.readline()
    time.sleep(0.2)
    process.send_signal(signal.SIGINT)
    status = process.wait(TIME_LIMIT)
    check("an interrupted script ends with 130", status == 130, status)
    check("its files are closed", (folder / "kept.txt").read_text() == "kept")
    (folder / "waits.qsl").write_text("%QSL\nCHAR C[9]\nO = FOPEN('con:','w')\nPRINTL 'w'\nFFLUSH(O)\nX = GETS(C)\nPRINTL 'never'\n")
    process = subprocess.Popen([PROGRAM, "waits.qsl"], cwd=folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    process.stdout.readline()
    time.sleep(0.2)
    process.send_signal(signal.SIGINT)
    status = process.wait(TIME_LIMIT)
    rest = process.stdout.read()
    process.stdin.close()
    check("a script that waits for input is interrupted", status == 130 and rest == b"", (status, rest))


def test_pipe(folder):
    done = subprocess.run([PROGRAM], input=b"PRINTL 1\nFOO\n", stdout=subprocess.PIPE, cwd=folder, check=False,
                          env={**os.environ, "TERM": "xterm"})
    wanted = b"QSLRUN 11.5.2, the interpreter of the plotting language QSL\nQSL> 1 \nQSL>  >>>> Undefined command FOO\nQSL> "
    check("a pipe gets the plain prompt", done.stdout == wanted, done.stdout)


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for test in (test_editing, test_history, test_completion, test_interrupts, test_long_statements,
                     test_script, test_pipe):
            test(folder)
    print("%d failed" % len(failed))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
