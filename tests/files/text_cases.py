"""Texts: measured lengths before the widths that outside readers find, and filled letters of all kinds of font."""
import re

from file_case import check, command, ghostscript, poppler
from pdf_cases import POINTS

FONTS = ("Times-Roman", "Times-BoldItalic", "Helvetica", "Helvetica-BoldOblique", "Courier", "Palatino-Italic",
         "NewCenturySchlbk-Roman", "Bookman-Demi", "AvantGarde-Book", "Helvetica-Narrow")
STANDARD = FONTS[:5]  # readers of PDF have these; they replace others by fonts of other widths
TEXT = "Hamburgefonsiv 0123"
HEIGHT = 80
SANS = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
SERIF = "/usr/share/fonts/truetype/liberation/LiberationSerif-Italic.ttf"


def measured(output):
    return [int(word) for word in output.split()]


def pdf_words_are_as_wide_as_measured(place):
    lines = []
    for i, font in enumerate(STANDARD):
        lines += ["PSFONT('%s')" % font, "HEIGHT(%d)" % HEIGHT, "N = NLMESS('Hamburgefonsiv')", "PRINT N",
                  "MESSAG('Hamburgefonsiv',300,%d)" % (100 + 180 * i)]
    lengths = measured(place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, "ERRMOD('PROT','OFF')", *lines))
    boxes = re.findall(r'xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">(\w+)<',
                       command("pdftotext", "-bbox", "a.pdf", "-", directory=place.directory))
    rows = {}
    for left, top, right, bottom, word in boxes:  # a reader may take the gaps of a line for blanks
        middle = (float(top) + float(bottom)) / 2 / POINTS
        rows.setdefault(round((middle - 140) / 180), []).append((float(left), float(right), word))
    check(len(rows) == len(STANDARD), "%d lines" % len(rows))
    for font, length, (_, parts) in zip(STANDARD, lengths, sorted(rows.items())):
        parts.sort()
        check("".join(word for _, _, word in parts) == "Hamburgefonsiv", str(parts))
        width = (max(right for _, right, _ in parts) - parts[0][0]) / POINTS
        check(abs(width - length) <= 0.003 * length, "%s: %.1f on the page, %d measured" % (font, width, length))
        check(abs(parts[0][0] / POINTS - 300) <= 1, "left side at %s" % parts[0][0])


def postscript_widths_are_those_of_the_fonts(place):
    """The length of a text is Ghostscript's stringwidth at the size that makes an H as wide as measured, and the gaps."""
    height, lines = 2000, []
    for font in FONTS:
        lines += ["PSFONT('%s')" % font, "HEIGHT(%d)" % height]
        for text in (TEXT, "H"):
            lines += ["N = NLMESS('%s')" % text, "PRINT N"]
    lengths = measured(place.plot("METAFL('PS')", "SETFIL('a.ps')", None, "ERRMOD('PROT','OFF')", *lines))
    with open(place.path("width.ps"), "w", encoding="ascii") as file:
        file.write("/width { exch findfont 1000 scalefont setfont stringwidth pop = } def\n")
        for font in FONTS:
            file.write("/%s (%s) width /%s (H) width\n" % (font, TEXT, font))
    widths = [float(w) for w in
              command("gs", "-q", "-dNODISPLAY", "-dBATCH", "width.ps", directory=place.directory).split()]
    check(len(widths) == 2 * len(FONTS), "%d widths" % len(widths))
    for i, font in enumerate(FONTS):
        expected = widths[2 * i] * lengths[2 * i + 1] / widths[2 * i + 1] + 0.1 * height * (len(TEXT) - 1)
        # Stored widths are whole numbers of about a hundred.
        check(abs(expected - lengths[2 * i]) <= 0.008 * expected,
              "%s: %.1f by Ghostscript, %d measured" % (font, expected, lengths[2 * i]))


def placed_width(places, last, scale):
    """Length of a text of which the places of characters and the length of the last one are known."""
    return (places[-1] - places[0]) / scale + last


def svg_and_ipe_letters_stand_as_measured(place):
    # An IPE file has the four faces of Times only.
    times = ("Times-Roman", "Times-Bold", "Times-Italic", "Times-BoldItalic")
    for form, pattern, fonts in (("SVG", r'<text x="([-\d.]+)"', FONTS), ("IPE", r'<text pos="([-\d.]+) ', times)):
        for font in fonts:
            output = place.plot("METAFL('%s')" % form, "SETFIL('a.out')", "FILMOD('DELETE')", None,
                                "ERRMOD('PROT','OFF')", "PSFONT('%s')" % font, "HEIGHT(%d)" % HEIGHT,
                                "N = NLMESS('Hamburgefonsiv')", "PRINT N", "N = NLMESS('v')", "PRINT N",
                                "MESSAG('Hamburgefonsiv',1000,500)")
            length, last = measured(output)
            text = place.read("a.out").decode("latin-1")
            places = [float(x) for x in re.findall(pattern, text)]
            check(len(places) == len("Hamburgefonsiv"), "%s: %d letters" % (form, len(places)))
            width = placed_width(places, last, places[0] / 1000.0)
            check(abs(width - length) <= 2, "%s %s: %.1f placed, %d measured" % (form, font, width, length))


def stroke_texts_are_as_wide_as_measured(place):
    for font in ("QUIALF", "SIMPLX", "COMPLX", "DUPLX", "TRIPLX", "GOTHIC", "HELVE", "SERIF"):
        output = place.plot("METAFL('PDF')", "SETFIL('a.pdf')", "FILMOD('DELETE')", None, "ERRMOD('PROT','OFF')",
                            "%s()" % font, "HEIGHT(200)", "N = NLMESS('Hxm')", "PRINT N", "MESSAG('Hxm',500,500)")
        left, _, right, _ = poppler(place, "a.pdf")[0].box()
        width = (right - left + 1) / POINTS
        # QUIALF letters have room of a third of their cell behind them.
        room = 199.0 / 3.0 if font == "QUIALF" else 0.0
        check(abs(width + room - measured(output)[0]) <= 9, "%s: %.1f on the page" % (font, width))


def filled_letters(place):
    """Ink in the stem, none in the counter, in all formats."""
    for form, render in (("PDF", poppler), ("PS", ghostscript)):
        for setting in ("HELVE()|SHDCHA()", "SERIF()|SHDCHA()", "TTFONT('%s')" % SANS, "TTFONT('%s')" % SERIF):
            place.plot("METAFL('%s')" % form, "SETFIL('a.out')", "FILMOD('DELETE')", "SETPAG('DA4P')", None,
                       *setting.split("|"), "HEIGHT(600)", "MESSAG('O',500,500)")
            page = render(place, "a.out")[0]
            left, top, right, bottom = page.box()
            middle = (left + right) // 2, (top + bottom) // 2
            check(page.color(*middle) == (255, 255, 255), "%s %s: the counter is open" % (form, setting))
            row = [page.color(x, middle[1]) == (255, 255, 255) for x in range(left, right + 1)]
            stems = sum(a and not b for a, b in zip([True] + row, row))
            check(stems == 2, "%s %s: %d stems" % (form, setting, stems))


def filled_letters_in_svg(place):
    for setting in ("HELVE()|SHDCHA()", "TTFONT('%s')" % SANS):
        place.plot("METAFL('SVG')", "SETFIL('a.svg')", "FILMOD('DELETE')", None, *setting.split("|"), "HEIGHT(600)",
                   "MESSAG('O',500,500)")
        command("rsvg-convert", "-f", "pdf", "-b", "white", "-o", "svg.pdf", "a.svg", directory=place.directory)
        page = poppler(place, "svg.pdf")[0]
        left, top, right, bottom = page.box()
        check(page.color((left + right) // 2, (top + bottom) // 2) == (255, 255, 255), "the counter is open")
        check(page.color(left + (right - left) // 20, (top + bottom) // 2) != (255, 255, 255), "the stem is filled")


def formulas_in_driver_fonts(place):
    text = place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, "ERRMOD('PROT','OFF')", "PSFONT('Times-Roman')",
                      "TEXMOD('ON')", "HEIGHT(100)", "N = NLMESS('$\\frac{a+b}{cd} = x^2$')", "PRINT N",
                      "MESSAG('$\\frac{a+b}{cd} = x^2$',500,500)")
    left, _, right, _ = poppler(place, "a.pdf")[0].box()
    width = (right - left + 1) / POINTS
    check(abs(width - measured(text)[0]) <= 12, "%.1f on the page, %s measured" % (width, text.strip()))
    words = command("pdftotext", "a.pdf", "-", directory=place.directory)
    check("x" in words and "2" in words and "=" in words, words)


CASES = (pdf_words_are_as_wide_as_measured, postscript_widths_are_those_of_the_fonts,
         svg_and_ipe_letters_stand_as_measured, stroke_texts_are_as_wide_as_measured, filled_letters,
         filled_letters_in_svg, formulas_in_driver_fonts)
