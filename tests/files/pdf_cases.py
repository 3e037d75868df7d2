"""PDF documents before qpdf, Poppler and Ghostscript."""
import json

from file_case import check, command, ghostscript, poppler

POINTS = 3900.0 / 2099.0 * 0.5 * 72.0 / 254.0  # of a plot unit on the default page
RED, BLUE, WHITE, BLACK = (255, 0, 0), (0, 0, 255), (255, 255, 255), (0, 0, 0)

FIGURE = ("COLOR('RED')", "LINWID(40)", "LINE(200,200,1200,200)", "COLOR('BLUE')", "LINE(2700,1000,2700,1900)")


def sound(place, name):
    """qpdf finds nothing to say against the document."""
    text = command("qpdf", "--check", name, directory=place.directory)
    check("No syntax or stream encoding errors" in text and "WARNING" not in text, text)


def information(place, name):
    text = command("pdfinfo", name, directory=place.directory)
    return dict(line.split(":", 1) for line in text.splitlines() if ":" in line)


def empty_document(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None)
    sound(place, "a.pdf")
    facts = information(place, "a.pdf")
    check(facts["Pages"].strip() == "1", "one page")
    check(facts["Page size"].strip().startswith("553 x 794"), facts["Page size"])
    check(facts["Page rot"].strip() == "90", "a landscape page is turned")
    check(facts["Producer"].strip() == "QUILLA 10.5", facts["Producer"])
    check(facts["PDF version"].strip() == "1.3", facts["PDF version"])


def lines_stand_where_they_should(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, *FIGURE)
    sound(place, "a.pdf")
    for pages in (poppler(place, "a.pdf"), ghostscript(place, "a.pdf")):
        check(len(pages) == 1, "one page")
        page = pages[0]
        check((page.width, page.height) == (794, 553), "%d by %d" % (page.width, page.height))
        check(page.color(700 * POINTS, 200 * POINTS) == RED, "red line at the upper left")
        check(page.color(2700 * POINTS, 1500 * POINTS) == BLUE, "blue line at the right")
        check(page.color(700 * POINTS, 400 * POINTS) == WHITE, "nothing below the red line")
        left, top, right, bottom = page.box()
        # Long caps stick out by half a width of 40.
        check(abs(left - 180 * POINTS) <= 2 and abs(top - 180 * POINTS) <= 2, "upper left corner %d %d" % (left, top))
        check(abs(right - 2720 * POINTS) <= 2 and abs(bottom - 1920 * POINTS) <= 2, "corner %d %d" % (right, bottom))


def upright_page(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", "SETPAG('DA4P')", None, "COLOR('RED')", "LINWID(40)",
               "LINE(200,200,1200,200)")
    sound(place, "a.pdf")
    check(information(place, "a.pdf")["Page rot"].strip() == "0", "an upright page is not turned")
    page = poppler(place, "a.pdf")[0]
    check((page.width, page.height) == (553, 794), "%d by %d" % (page.width, page.height))
    check(page.color(700 * POINTS, 794 - (2969 - 200) * POINTS) == RED, "red line at the top")


def compression_changes_no_picture(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, *FIGURE, "PSFONT('Helvetica')", "MESSAG('Text',100,900)")
    place.plot("METAFL('PDF')", "SETFIL('b.pdf')", "PDFMOD('OFF','COMP')", None, *FIGURE, "PSFONT('Helvetica')",
               "MESSAG('Text',100,900)")
    sound(place, "b.pdf")
    check(b"FlateDecode" in place.read("a.pdf") and b"FlateDecode" not in place.read("b.pdf"), "filters")
    check(poppler(place, "a.pdf")[0].data == poppler(place, "b.pdf")[0].data, "the same picture")


def text_can_be_read(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, "PSFONT('Helvetica-Bold')", "HEIGHT(60)",
               "MESSAG('Some (text) here',300,300)", "PSFONT('Times-Roman')", "ANGLE(90)", "MESSAG('Upwards',2500,1500)",
               "PSFONT('Symbol')", "ANGLE(0)", "MESSAG('a',1000,1000)")
    sound(place, "a.pdf")
    text = command("pdftotext", "a.pdf", "-", directory=place.directory)
    check("Some (text) here" in text and "Upwards" in text, text)
    fonts = command("pdffonts", "a.pdf", directory=place.directory)
    rows = {line.split()[0]: line for line in fonts.splitlines()[2:]}
    check(set(rows) == {"Helvetica-Bold", "Times-Roman", "Symbol"}, fonts)
    check("WinAnsi" in rows["Times-Roman"] and "WinAnsi" not in rows["Symbol"], fonts)
    page = poppler(place, "a.pdf")[0]
    # (300, 300) is the upper left corner of text 60 units high; upward text ends above its start.
    check(page.inked(300 * POINTS, 300 * POINTS, 900 * POINTS, 362 * POINTS), "text where it was put")
    check(not page.inked(300 * POINTS, 200 * POINTS, 900 * POINTS, 290 * POINTS), "nothing above it")
    check(page.inked(2490 * POINTS, 1250 * POINTS, 2570 * POINTS, 1500 * POINTS), "upward text above its start")
    check(not page.inked(2400 * POINTS, 1510 * POINTS, 2700 * POINTS, 1900 * POINTS), "nothing below its start")


def accented_letters(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, "PSFONT('Times-Roman')", "EUSHFT('GERM','!')",
               "MESSAG('x!A!o!sx',300,300)")
    text = command("pdftotext", "a.pdf", "-", directory=place.directory)
    check("x\u00c4\u00f6\u00dfx" in text, text)


def several_pages(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, "PAGERA()", "NEWPAG()", "PSFONT('Courier')",
               "COLOR('RED')", "LINWID(40)", "MESSAG('Second',300,300)", "NEWPAG()", "LINE(200,200,1200,200)")
    sound(place, "a.pdf")
    pages = poppler(place, "a.pdf")
    check(len(pages) == 3, "three pages")
    check(pages[2].color(700 * POINTS, 200 * POINTS) == RED, "colour and width go on over pages")
    text = command("pdftotext", "-f", "2", "-l", "2", "a.pdf", "-", directory=place.directory)
    check("Second" in text, text)


def black_page(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", "SCRMOD('ERAS')", None, *FIGURE, "NEWPAG()")
    sound(place, "a.pdf")
    for page in poppler(place, "a.pdf"):
        check(page.color(300, 300) == BLACK, "black paper")


def bookmarks(place):
    place.plot("METAFL('PDF')", "SETFIL('a.pdf')", None, "PDFMRK('One','CHAP')", "PDFMRK('Part','SECT')", "NEWPAG()",
               "PDFMRK('Two','CHAP')")
    sound(place, "a.pdf")
    facts = json.loads(command("qpdf", "--json", "--json-key=outlines", "--json-key=pages", "a.pdf",
                               directory=place.directory))
    first, second = facts["outlines"]
    check(first["title"] == "One" and second["title"] == "Two", str(facts["outlines"]))
    check([kid["title"] for kid in first["kids"]] == ["Part"], str(first))
    check(first["destpageposfrom1"] == 1 and second["destpageposfrom1"] == 2, str(facts["outlines"]))


def same_script_same_bytes(place):
    for name in ("a.pdf", "b.pdf"):
        place.plot("METAFL('PDF')", "SETFIL('%s')" % name, None, *FIGURE)
    check(place.read("a.pdf") == place.read("b.pdf"), "the same bytes")


CASES = (empty_document, lines_stand_where_they_should, upright_page, compression_changes_no_picture, text_can_be_read,
         accented_letters, several_pages, black_page, bookmarks, same_script_same_bytes)
