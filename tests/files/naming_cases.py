"""Names and versions of plot files, and what happens to one that cannot be written."""
import os

from file_case import check


def versions(place):
    for _ in range(3):
        place.plot("METAFL('PDF')", None)
    names = sorted(n for n in os.listdir(place.directory) if n.endswith(".pdf"))
    check(names == ["quilla.pdf", "quilla_1.pdf", "quilla_2.pdf"], str(names))


def replacing(place):
    for _ in range(2):
        text = place.plot("METAFL('PS')", "FILMOD('DELE')", "SETFIL('my.ps')", None)
    check("Metafile: my.ps" in text, text)
    check([n for n in os.listdir(place.directory) if n.endswith(".ps")] == ["my.ps"], "one file")


def one_script_two_plots(place):
    place.script("METAFL('PDF')", "SETFIL('a.pdf')", "QUIINI()", "QUIFIN()", "METAFL('PS')", "SETFIL('b.ps')",
                 "QUIINI()", "QUIFIN()")
    check(place.read("a.pdf")[:8] == b"%PDF-1.3" and place.read("b.ps")[:4] == b"%!PS", "two files")


CASES = (versions, replacing, one_script_two_plots)
