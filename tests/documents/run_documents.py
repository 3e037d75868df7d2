#!/usr/bin/env python3
"""Runs the examples of a document and compares what they print with what the document says.

    run_documents.py QSLRUN_PATH DOCUMENT ...

A block ```qsl is a script, which runs as example.qsl; the header is added if it is missing. The block ```output behind
it is what it prints. A block with file=NAME is written as a file for the examples that follow.
"""
import difflib
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```(\w+)(?: file=(\S+))?\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def main():
    program = os.path.abspath(sys.argv[1])
    failed = count = 0
    environment = {k: v for k, v in os.environ.items() if not k.startswith(("QSL_", "QUILLA"))}
    for document in sys.argv[2:]:
        with tempfile.TemporaryDirectory() as name:
            folder, script, printed = pathlib.Path(name), None, ""
            for kind, file, text in BLOCK.findall(pathlib.Path(document).read_text()):
                if file:
                    (folder / file).write_text(text)
                elif kind == "qsl":
                    script = text if text.startswith("%QSL") else "%QSL\n" + text
                    (folder / "example.qsl").write_text(script)
                    done = subprocess.run([program, "example.qsl"], cwd=folder, env=environment, stdout=subprocess.PIPE,
                                          stderr=subprocess.STDOUT, timeout=60, check=False)
                    printed = done.stdout.decode("utf-8", "replace")
                elif kind == "output":
                    count += 1
                    if printed != text:
                        failed += 1
                        print("FAILED in %s:\n%s" % (document, script))
                        sys.stdout.writelines(difflib.unified_diff(text.splitlines(True), printed.splitlines(True)))
    print("%d examples, %d failed" % (count, failed))
    return 1 if failed or not count else 0


if __name__ == "__main__":
    sys.exit(main())
