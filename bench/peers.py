"""The same pictures drawn by other programs, where they are installed.

A workload has a name: small, large, svg, png, symbols, pages, or table: the columns of table.dat, to PNG. commands(workload, folder) gives the peers that can draw it
as (name, command); what must be compiled is compiled before anything is measured. A picture has the axes, the texts
and the data of ours: a sine of 100 points, or a Lissajous curve that never meets itself.
"""
import shutil
import subprocess

POINTS = {"large": 1000000, "svg": 1000000, "png": 1000000, "symbols": 100000}
PAGES = 1000

GNUPLOT_PNG = ("png size 1200,850", "png")
GNUPLOT_TERMINAL = {"svg": ("svg", "svg"), "png": GNUPLOT_PNG, "table": GNUPLOT_PNG, "symbols": ("postscript color", "ps")}
GNUPLOT_CURVE = "[0:1300][0:10][-1:1] cos(t)*4.5+5,sin(1.2345*t)*0.9"


def gnuplot_text(workload):
    terminal, ending = GNUPLOT_TERMINAL.get(workload, ("pdfcairo", "pdf"))
    head = (f"set terminal {terminal}\nset output 'gnuplot.{ending}'\nset title 'Sine'\nset xlabel 'X'\n"
            f"set ylabel 'Y'\nset samples {POINTS.get(workload, 100)}\n")
    if workload == "small":
        return head + "plot [0:10] sin(x) with lines notitle\n"
    if workload == "table":
        return head + "plot [0:1e6][0:100] 'table.dat' with lines notitle\n"
    if workload == "pages":
        return head + f"do for [i=1:{PAGES}] {{plot [0:10] sin(x) with lines notitle}}\n"
    style = "points pointtype 1" if workload == "symbols" else "lines"
    return head + f"set parametric\nplot {GNUPLOT_CURVE} with {style} notitle\n"


def matplotlib_text(workload):
    ending = {"svg": "svg", "png": "png", "table": "png", "symbols": "ps"}.get(workload, "pdf")
    backend = "agg" if ending == "png" else ending
    head = f"import matplotlib\nmatplotlib.use('{backend}')\nimport matplotlib.pyplot as p\nimport numpy as np\n"
    sine = "x = np.arange(100) * 0.1\ny = np.sin(x)\n"
    graph = "p.figure(figsize=(12, 8.5), dpi=100, num=1)\np.plot(x, y{style})\np.xlim(0, 10)\np.ylim(-1, 1)\np.title('Sine')\np.xlabel('X')\np.ylabel('Y')\n"
    if workload == "pages":
        return (head + "from matplotlib.backends.backend_pdf import PdfPages\n" + sine +
                f"with PdfPages('matplotlib.pdf') as pages:\n  for i in range({PAGES}):\n    p.clf()\n    " +
                graph.format(style="").strip().replace("\n", "\n    ") + "\n    pages.savefig()\n")
    if workload == "table":
        sine = "x, y = np.loadtxt('table.dat', unpack=True)\n"
        graph = graph.replace("p.xlim(0, 10)\np.ylim(-1, 1)", "p.xlim(0, 1e6)\np.ylim(0, 100)")
    elif workload != "small":
        n = POINTS[workload]
        sine = f"t = np.arange({n}) * {1300 / n}\nx = np.cos(t) * 4.5 + 5\ny = np.sin(t * 1.2345) * 0.9\n"
    style = ", '+', markersize=3" if workload == "symbols" else ""
    return head + sine + graph.format(style=style) + f"p.savefig('matplotlib.{ending}')\n"


R_PNG = "png('r.png', width=1200, height=850)"


def r_text(workload):
    device = {"svg": "svg('r.svg')", "png": R_PNG, "symbols": "postscript('r.ps')"}.get(workload, "pdf('r.pdf')")
    graph = "plot(x, y, type='{kind}', pch=3, cex=0.3, xlim=c(0, 10), ylim=c(-1, 1), main='Sine', xlab='X', ylab='Y')\n"
    if workload in POINTS:
        n = POINTS[workload]
        data = f"t <- (0:{n - 1}) * {1300 / n}\nx <- cos(t) * 4.5 + 5\ny <- sin(t * 1.2345) * 0.9\n"
    else:
        data = "x <- (0:99) * 0.1\ny <- sin(x)\n"
    graph = graph.format(kind="p" if workload == "symbols" else "l")
    if workload == "pages":
        graph = f"for (i in 1:{PAGES}) {{\n{graph}}}\n"
    return f"{device}\n{data}{graph}invisible(dev.off())\n"


PLPLOT = """#include <math.h>
#include <plplot.h>
#include <stdlib.h>
int main(void) {
  int n = %(n)d, pages = %(pages)d;
  double *x = malloc(8L * n), *y = malloc(8L * n);
  for (int i = 0; i < n; i++) {
    double t = i * (1300.0 / n);
    x[i] = n > 100 ? cos(t) * 4.5 + 5 : i * 0.1;
    y[i] = n > 100 ? sin(t * 1.2345) * 0.9 : sin(x[i]);
  }
  plsdev("%(device)s");
  plsfnam("plplot.%(device)s");
  plinit();
  if (%(symbols)d) plssym(0, 0.3);
  for (int p = 0; p < pages; p++) {
    plenv(0, 10, -1, 1, 0, 0);
    pllab("X", "Y", "Sine");
    if (%(symbols)d) plpoin(n, x, y, 2);
    else plline(n, x, y);
  }
  plend();
}
"""
# Devices of the library itself or of its cairo plugin.
PLPLOT_DEVICES = {"svg": ("svg", "svgcairo"), "png": ("pngcairo",), "symbols": ("psc", "pscairo"), "small": ("pdfcairo", "psc"),
                  "large": ("pdfcairo", ), "pages": ("pdfcairo", )}


def plplot_command(workload, folder):
    """Compiles the workload for the first device that works; None without one."""
    flags = subprocess.run(["pkg-config", "--cflags", "--libs", "plplot"], capture_output=True, text=True, check=False)
    if flags.returncode != 0:
        return None
    for device in PLPLOT_DEVICES[workload]:
        values = {"n": POINTS.get(workload, 100), "pages": PAGES if workload == "pages" else 1, "device": device,
                  "symbols": workload == "symbols"}
        program = folder / f"plplot_{workload}"
        program.with_suffix(".c").write_text(PLPLOT % values)
        built = subprocess.run(["cc", "-O2", f"{program}.c", "-o", str(program), *flags.stdout.split(), "-lm"], check=False)
        # Without its device the program asks for another one.
        tried = built.returncode == 0 and subprocess.run(
            [str(program)], cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, check=False)
        if tried and tried.returncode == 0 and (folder / f"plplot.{device}").exists():
            return [str(program)]
    return None


def python_with(module):
    """A Python that has a module: the first one in the path, or the system's."""
    for python in ("python3", "/usr/bin/python3"):
        found = shutil.which(python)
        if found and subprocess.run([found, "-c", f"import {module}"], capture_output=True, check=False).returncode == 0:
            return found
    return None


def commands(workload, folder):
    """The peers that are installed: (name, command, runs); runs is how often a slow one is measured, None as usual."""
    found = []
    if shutil.which("gnuplot"):
        (folder / f"{workload}.gp").write_text(gnuplot_text(workload))
        found.append(("gnuplot", ["gnuplot", f"{workload}.gp"], None))
    plplot = workload in PLPLOT_DEVICES and shutil.which("cc") and shutil.which("pkg-config") and plplot_command(workload, folder)
    if plplot:
        found.append(("PLplot", plplot, None))
    if shutil.which("Rscript") and workload != "table":  # takes minutes to stroke a line over every pixel many times
        (folder / f"{workload}.R").write_text(r_text(workload))
        found.append(("R", ["Rscript", "--vanilla", f"{workload}.R"], 3))
    python = python_with("matplotlib")
    if python:
        (folder / f"{workload}.py").write_text(matplotlib_text(workload))
        found.append(("Matplotlib", [python, f"{workload}.py"], 1 if workload == "pages" else 3))
    return found

