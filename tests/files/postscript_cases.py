"""PostScript and EPS files before Ghostscript."""
import re

from file_case import check, command, ghostscript, poppler

POINTS = 3900.0 / 2099.0 * 0.1417322835  # of a plot unit on the default page
LEFT, LOW = 150 * 0.1417322835, 200 * 0.1417322835
SHEET = 842  # height of the sheet in points
RED, BLUE, WHITE = (255, 0, 0), (0, 0, 255), (255, 255, 255)

FIGURE = ("COLOR('RED')", "LINWID(40)", "LINE(200,200,1200,200)", "COLOR('BLUE')", "LINE(2700,1000,2700,1900)")


def across(x, y):
    """Pixel of a plot point on a page that lies across the sheet."""
    return LEFT + y * POINTS, SHEET - (LOW + x * POINTS)


def lines_stand_where_they_should(place):
    for device in ("PS", "PSCL"):
        place.plot("METAFL('%s')" % device, "FILMOD('DELE')", "SCRMOD('REVE')", "SETFIL('a.ps')", None, *FIGURE)
        pages = ghostscript(place, "a.ps")
        check(len(pages) == 1, "one page")
        check(pages[0].color(*across(700, 200)) == RED, "red line")
        check(pages[0].color(*across(2700, 1500)) == BLUE, "blue line")
        check(pages[0].color(*across(700, 400)) == WHITE, "nothing beside the red line")


def upright_page(place):
    place.plot("METAFL('PS')", "SETPAG('DA4P')", "SETFIL('a.ps')", None, *FIGURE[:3])
    page = ghostscript(place, "a.ps")[0]
    check(page.color(LEFT + 700 * POINTS, SHEET - (LOW + (2969 - 200) * POINTS)) == RED, "red line at the top")


def bounding_box_holds_the_page(place):
    for page, size in (("DA4L", "landscape"), ("DA4P", "portrait")):
        place.plot("METAFL('EPS')", "FILMOD('DELE')", "SETPAG('%s')" % page, "SETFIL('a.eps')", None, "PAGERA()")
        head = place.read("a.eps").decode("ascii")
        told = [int(v) for v in re.search(r"%%BoundingBox: (.*)", head).group(1).split()]
        text = command("gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=bbox", "a.eps",
                       directory=place.directory)
        seen = [int(v) for v in re.search(r"%%BoundingBox: (.*)", text).group(1).split()]
        check(all(abs(a - b) <= 1 for a, b in zip(told, seen)), "%s: told %s, seen %s" % (size, told, seen))


def eps_and_pdf_show_one_picture(place):
    drawing = FIGURE + ("PSFONT('Times-Roman')", "HEIGHT(150)", "MESSAG('Text',700,800)")
    place.plot("METAFL('EPS')", "SETFIL('a.eps')", None, *drawing)
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, *drawing)
    eps, pdf = ghostscript(place, "a.eps")[0], poppler(place, "a.pdf")[0]
    different = 0
    for y in range(0, 2099, 8):
        for x in range(0, 2969, 8):
            here, there = eps.color(*across(x, y)), pdf.color(x * POINTS, y * POINTS)
            if max(abs(a - b) for a, b in zip(here, there)) > 128:
                different += 1
    # Of 97000 places, those at the edge of ink may fall to either side.
    check(different < 300, "%d places differ" % different)
    check(eps.color(*across(700, 200)) == RED == pdf.color(700 * POINTS, 200 * POINTS), "both show the red line")


def several_pages(place):
    place.plot("METAFL('PS')", "SETFIL('a.ps')", None, "PAGERA()", "NEWPAG()", *FIGURE)
    pages = ghostscript(place, "a.ps")
    check(len(pages) == 2, "%d pages" % len(pages))
    check(pages[1].color(*across(700, 200)) == RED, "second page")
    check(pages[1].color(*across(1484, 2)) == WHITE, "the border of the first page is gone")


def fonts_are_recoded(place):
    place.plot("METAFL('PS')", "SETFIL('a.ps')", None, "PSFONT('Helvetica')", "HEIGHT(100)", "EUSHFT('GERM','!')",
               "MESSAG('!A',1000,1000)", "MESSAG('A',1000,1500)")
    page = ghostscript(place, "a.ps")[0]

    def ink(x0, y0, x1, y1):
        (left, low), (right, high) = across(x0, y0), across(x1, y1)
        return page.inked(left, high, right, low)

    check(ink(1000, 1000, 1080, 1100), "letter with dots")
    check(ink(1000, 955, 1080, 990), "its dots")
    check(ink(1000, 1500, 1080, 1600) and not ink(1000, 1455, 1080, 1490), "letter without dots")


def black_page(place):
    place.plot("METAFL('PS')", "SCRMOD('ERAS')", "SETFIL('a.ps')", None, *FIGURE, "NEWPAG()")
    pages = ghostscript(place, "a.ps")
    check(len(pages) == 2, "two pages")
    for page in pages:
        check(page.color(*across(1500, 1000)) == (0, 0, 0), "black page")
        check(page.color(5, 5) == WHITE, "white sheet around it")


def every_line_fits(place):
    place.plot("METAFL('PS')", "SETFIL('a.ps')", None, "PAGERA()", "COMPLX()", "MESSAG('Many strokes are here',100,100)")
    longest = max(len(line) for line in place.read("a.ps").split(b"\n"))
    check(longest <= 80, "a line of %d characters" % longest)


CASES = (lines_stand_where_they_should, upright_page, bounding_box_holds_the_page, eps_and_pdf_show_one_picture,
         several_pages, fonts_are_recoded, black_page, every_line_fits)
