#!/usr/bin/env python3
"""Runs scripts and opens the files they write with outside readers. Usage: run_files.py PROGRAM [name-part]"""
import os
import subprocess
import sys
import tempfile

import image_cases
import naming_cases
import pdf_cases
import picture_cases
import postscript_cases
import raster_cases
import text_cases
from file_case import Failure, Workplace

FAMILIES = {"naming": naming_cases, "pdf": pdf_cases, "postscript": postscript_cases, "text": text_cases,
            "picture": picture_cases, "image": image_cases, "raster": raster_cases}


def run_case(program, case):
    """The reason why a case fails, or None."""
    with tempfile.TemporaryDirectory() as directory:
        try:
            case(Workplace(program, directory))
        except Failure as failure:
            return str(failure)
        except (OSError, ValueError, LookupError, AttributeError, subprocess.TimeoutExpired) as failure:
            return "%s: %s" % (type(failure).__name__, failure)
    return None


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program = os.path.abspath(sys.argv[1])
    wanted = sys.argv[2] if len(sys.argv) > 2 else ""
    passed = failed = 0
    for family, module in FAMILIES.items():
        for case in module.CASES:
            name = family + "." + case.__name__
            if wanted not in name:
                continue
            reason = run_case(program, case)
            if reason is None:
                passed += 1
                continue
            failed += 1
            print("FAILED %s: %s" % (name, reason.strip()))
    print("%d passed, %d failed" % (passed, failed))
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
