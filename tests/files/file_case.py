"""What the cases of file tests are made of: running a script, and outside readers of what it wrote."""
import os
import subprocess

HEAD = ["%QSL"]


class Failure(Exception):
    """A check that did not hold."""


def check(condition, message):
    if not condition:
        raise Failure(message)


def command(*words, directory=None):
    """Output of an outside program, both streams; a failure if it fails."""
    done = subprocess.run([str(w) for w in words], cwd=directory, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          timeout=120, check=False)
    text = done.stdout.decode("utf-8", "replace")
    check(done.returncode == 0, "%s ended with %d: %s" % (words[0], done.returncode, text))
    return text


class Workplace:
    """A directory with the program that runs scripts in it."""

    def __init__(self, program, directory):
        self.program = program
        self.directory = directory

    def path(self, name):
        return os.path.join(self.directory, name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def plot(self, *statements):
        """Runs a script of the statements between QUIINI and QUIFIN, those before a None in front of QUIINI."""
        before, inside = [], list(statements)
        if None in inside:
            cut = inside.index(None)
            before, inside = inside[:cut], inside[cut + 1:]
        return self.script(*before, "QUIINI()", *inside, "QUIFIN()")

    def script(self, *lines):
        with open(self.path("plot.qsl"), "w", encoding="ascii") as file:
            file.write("\n".join(HEAD + list(lines)) + "\n")
        environment = dict(os.environ, SOURCE_DATE_EPOCH="1000000000")
        done = subprocess.run([self.program, "plot.qsl"], cwd=self.directory, env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120, check=False)
        text = done.stdout.decode("latin-1")
        check(done.returncode == 0, "the script ended with %d: %s" % (done.returncode, text))
        check("<<<< Warning" not in text, "the script warned: " + text)
        return text


class Picture:
    """A rendered page: colours by pixel from the upper left corner."""

    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        fields, at = [], 0
        while len(fields) < 4:
            end = at
            while data[end:end + 1].strip():
                end += 1
            if data[at:at + 1] == b"#":
                end = data.index(b"\n", at)
            elif end > at:
                fields.append(data[at:end])
            at = end + 1
        check(fields[0] == b"P6", "no colour picture: " + path)
        self.width, self.height = int(fields[1]), int(fields[2])
        self.data = data[at:]

    def color(self, x, y):
        at = 3 * (int(y) * self.width + int(x))
        return tuple(self.data[at:at + 3])

    def box(self):
        """Smallest box around all pixels that are not white: left, top, right, bottom."""
        white = b"\xff" * (3 * self.width)
        rows = [y for y in range(self.height)
                if self.data[3 * self.width * y:3 * self.width * (y + 1)] != white]
        columns = [x for x in range(self.width)
                   if any(self.data[3 * (y * self.width + x):3 * (y * self.width + x) + 3] != b"\xff\xff\xff"
                          for y in rows)]
        check(rows, "the page is empty")
        return columns[0], rows[0], columns[-1], rows[-1]

    def inked(self, left, top, right, bottom):
        return any(self.color(x, y) != (255, 255, 255) for y in range(int(top), int(bottom))
                   for x in range(int(left), int(right)))


def ghostscript(place, name, *options):
    """The pages of a document at 72 dots per inch, by Ghostscript."""
    command("gs", "-q", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=ppmraw", "-r72", "-sPAPERSIZE=a4", *options,
            "-sOutputFile=gs-%d.ppm", name, directory=place.directory)
    return collect(place, "gs-")


def poppler(place, name):
    """The pages of a PDF document at 72 dots per inch, by Poppler."""
    command("pdftoppm", "-r", "72", name, "poppler", directory=place.directory)
    return collect(place, "poppler-")


def collect(place, prefix):
    names = [n for n in os.listdir(place.directory) if n.startswith(prefix) and n.endswith(".ppm")]
    names.sort(key=lambda n: int(n[len(prefix):-4]))
    pages = [Picture(place.path(n)) for n in names]
    for n in names:
        os.remove(place.path(n))
    return pages
