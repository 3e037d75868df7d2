/* QUILLA, the plotting library, for C and C++ programs.
 *
 * Coordinates are plot coordinates unless told: one unit is 0.1 mm on the default page, x to the right, y downwards
 * from the upper left corner. Levels: 0 no plot, 1 plot open (QUIINI), 2 axis system open (GRAF), 3 three-dimensional
 * axis system open. A routine called at a wrong level gives warning 3; a wrong parameter gives warning 2 and keeps the
 * setting. Keywords are matched on their first four characters, in either case. An axis string names axes by the
 * letters X, Y and Z in its first three characters. No routine returns an error code.
 */
#ifndef QUILLA_QUILLA_H
#define QUILLA_QUILLA_H

#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Characters, with the end mark, of every text that a routine writes into memory of its caller. */
enum { QUILLA_TEXT_SIZE = 256 };

/* ---- A plot from begin to end ---------------------------------------------------------------------------------- */

void QUIINI(void); /* 0: opens the plot and enters level 1 */
void QUIFIN(void); /* 1..3: finishes the plot, prints the protocol, back to level 0 */
void RESET(
    const char* name); /* setter: a group of settings, by the name of its routine, back to its default; "ALL" all */
int GETLEV(void);      /* any: level 0..3 */
double GETVER(void);   /* any: version of the library, 11.5 */
/* 0: forgets every setting, as before the first call of the library */
void DELGLB(void);
void INCQSL(const char* file); /* any: runs a script of the language; in QSLRUN only, hosts get message 161 */
int GETPLV(void);              /* any: its patch level, 2 */
void THRINI(int n);            /* before all else: plots in up to n threads, each with its own state */
void THRFIN(void);             /* ends the use of threads and frees their states */

/* ---- Device and plot file -------------------------------------------------------------------------------------- */

void METAFL(const char* format); /* 0: output format by its keyword: "PDF", "POST", "PS", "EPS", ...; default "PLTM" */
void SETFIL(const char* name);   /* 0: name of the plot file */
void FILMOD(const char* mode);   /* any: existing files: "COUN", "DELE", "BREA", "VERS"; default "COUN" */
void FILOPT(const char* value,
            const char* key);  /* any: key "SEPA", "NUMB", "DIGI" or "SCAL"; default "UNDE", "SHOR", 4, "OFF" */
void SCRMOD(const char* mode); /* 0: "ERAS", "NOER", "REVE", "NORE", "AUTO"; default "AUTO" */
void BUFMOD(const char* value, const char* key);  /* setter: "ON" or "OFF" for the key "SEND"; default "OFF" */
void SENDBF(void);                                /* any: sends what is buffered to the device */
void PSMODE(const char* mode);                    /* "NONE", "GREE", "ITAL", "BOTH" any level; "MULT", "SING" level 0 */
void PSMETA(const char* text, const char* key);   /* 0: comment of PostScript files, key "INFO" */
void PDFMOD(const char* value, const char* key);  /* 0: "ON" or "OFF" for "COMP" (compression) or "BUFF"; default "ON"
                                                     for "COMP", "OFF" for "BUFF" */
int PDFBUF(unsigned char* bytes, int size);       /* 0: the finished file of buffer mode; size 0: its length */
void PDFMRK(const char* text, const char* level); /* 1..3: bookmark "CHAP", "SECT", "SUBS", "PARA", "SUBP" */
void HPGMOD(const char* mode, const char* key);   /* 0: "STAN", "ARIS" for the key "PLOT"; default "STAN" */
void WMFMOD(const char* mode, const char* key);   /* 0: "STAN", "PLAC" for the key "FORM"; default "STAN" */
void CGMVER(int version);                         /* 0: 1 or 4, the version that a CGM file tells; default 1 */
void CGMPIC(const char* name);                    /* any: name of the next picture of a CGM file */
void CGMBGD(float r, float g, float b); /* any: background of CGM pictures, components 0..1; default 1, 1, 1 */
const char* GETFIL(void);               /* 1..3: name of the plot file */
const char* GETMFL(void);               /* 1..3: keyword of the output format */
const char* GETDSP(void);               /* any: kind of the display: "XWIN", "WIND" or "NONE" */

/* ---- Other files ----------------------------------------------------------------------------------------------- */

void INCFIL(const char* name);               /* 1..3: draws a PLTM, CGM or image file into the plot */
void FILBOX(int nx, int ny, int nw, int nh); /* setter: where INCFIL draws, upper left corner and size */
void FILWIN(int nx, int ny, int nw, int nh); /* setter: part of an image that INCFIL shows on a raster, pixels */
void FILCLR(const char* mode); /* setter: "ALL", "NONE" of the colours of an included file; default "ALL" */
void PLYINI(const char* mode); /* setter: "STAN", collects solids for a PLY file */
void PLYFIN(const char* name, const char* object); /* 1..3: writes the PLY file */

/* ---- Pictures of pixels ---------------------------------------------------------------------------------------- */

/* Devices TIFF, IMAG, VIRT, PNG, PPM, BMP and GIF. Pixel coordinates count from the upper left corner. */
void IMGFMT(const char* format);                       /* 0: "IND" palette, "RGB", "BIL" one bit in TIFF files */
void TIFMOD(int n, const char* unit, const char* key); /* 0: pixels an "INCH" or "CM" for the key "RESO" */
void BMPMOD(int n, const char* unit, const char* key); /* 0: pixels a "METE" or "INCH" for the key "RESO" */
void PNGMOD(const char* value, const char* key);       /* 0: "ON" or "OFF" for "TRAN": entry 0 or white is clear */
void GIFMOD(const char* value, const char* key);       /* 0: "ON" or "OFF" for "TRAN": the background is clear */
void IMGMOD(const char* mode);                         /* setter: pixels are "IND" or "RGB", rows from "TOP", "BOT" */
void IMGBOX(int nx, int ny, int nw, int nh);           /* setter: page rectangle of an image on vector devices */
void IMGCLP(int nx, int ny, int nw, int nh);           /* setter: pixels that files take, on the raster */
void IMGSIZ(int nw, int nh);                           /* setter: size of an image on vector devices */
void IMGTPR(int color);                                /* setter: colour that images leave out, -1 none */
void IMGINI(void);                                     /* 1..3: pixels may be read and written, not opened twice */
void IMGFIN(void);                                     /* 1..3: ends that */
void WPIXEL(int nx, int ny, int color);                /* 1..3: one pixel; outside the raster nothing */
void RPIXEL(int nx, int ny, int* color);               /* 1..3: index or, by IMGMOD, direct colour */
/* 1..3: blocks of pixels, nw * nh bytes of indices or, by IMGMOD, 3 * nw * nh bytes; ny is the first row of the data */
void WPIXLS(const unsigned char* pixels, int nx, int ny, int nw, int nh);
void RPIXLS(unsigned char* pixels, int nx, int ny, int nw, int nh);
void WPXROW(const unsigned char* pixels, int nx, int ny, int n); /* 1..3: one row */
void RPXROW(unsigned char* pixels, int nx, int ny, int n);
void TPRINI(void);                                 /* setter: what follows is drawn into a layer; calls nest */
void TPRFIN(void);                                 /* setter: lays it over the picture */
void TPRVAL(float value);                          /* setter: 0 clear to 1 opaque */
void TPRMOD(const char* value, const char* key);   /* setter: "NOAU", "AUTO" for "FIGU", "OPAQ", "NOOP" for "BACK" */
void EXPIMG(const char* name, const char* format); /* 1..3: "TIFF", "IMAG", "PDF", "PNG", "PPM", "BMP", "GIF", "PS" */
void RTIFF(const char* name);                      /* 1..3: the same for one format */
void RPNG(const char* name);
void RPPM(const char* name);
void RBMP(const char* name);
void RGIF(const char* name);
void RIMAGE(const char* name);
void WIMAGE(const char* name);              /* 1..3: puts a raw image of RIMAGE onto the raster */
void WTIFF(const char* name);               /* 1..3: puts the part of TIFWIN of a TIFF file onto the raster at TIFORG */
int RBFPNG(unsigned char* bytes, int size); /* 1..3: a PNG file into memory; its length, 0 if it does not fit */
void TIFORG(int nx, int ny);                /* setter: pixel at which a TIFF image is placed */
void TIFWIN(int nx, int ny, int nw, int nh); /* setter: part of a TIFF image that is read */

/* Images: PNG, GIF, BMP, TIFF and PPM. INCFIL puts them on rasters, PostScript and PDF; MAPIMG on every device. Warning
   36: the file cannot be opened, 56: it is none of these, 123: it is damaged or has a feature that is not read. */
int FILTYP(const char* name); /* any: 1 BMP, 2 GIF, 3 TIFF, 4 PNG, 5 raw image, 6 PLTM or any text, 7 CGM, 8 WMF, 9
                                 HPGL, 10 PostScript, 11 PDF, 12 placeable WMF, 13 PPM; -1 after warning 36 */
int FILSIZ(const char* name, int* width, int* height); /* any: pixels of an image; 0, or -1 if it tells no size */
/* any: pixels of an image as data; returns the count of elements, 0 after a warning. size: elements of the array, or 0
   to ask for the count. mode 0: each row as a plane of red, one of green, one of blue; 1, 2, 3: one of them alone; -1:
   bytes r, g, b, two to an element. A TIFF of five grey samples a pixel has five planes, and modes up to 5. */
int LDIMG(const char* name, short* array, int size, int mode);
/* 2..3: pixel (i, j), column and row from the upper left, is a rectangle around the user coordinates
   (a i + b j + e, c i + d j + f) */
void MAPIMG(const char* name, float a, float b, float c, float d, float e, float f);
void GRFIMG(const char* name); /* 1..3: an image on the plane of GRFINI; warning 34 without it */

/* ---- Messages -------------------------------------------------------------------------------------------------- */

void ERRDEV(const char* device); /* 0: "CONS", "FILE", "APPE"; default "CONS" */
void ERRFIL(const char* name);   /* 0: name of the error file; default "quilla.err" */
void ERRMOD(const char* key,
            const char* mode); /* setter: "WARN", "CHEC", "PROT", "ALL"; "ON", "OFF", "FILE"; default "ON" */
void NOCHEK(void);             /* setter: no reports of points out of scale */
void UNIT(FILE* stream);       /* setter: stream of all messages; null: none at all */
FILE* GETUNI(void);            /* 1..3: stream of messages; null: none */
void SYMFIL(const char* device, const char* status); /* 0, after QUIFIN: prints the file; "KEEP" or "DELE" */
/* Plot windows 1 to 8: device XWIN to XWI8, else message 56. Levels 1 to 3. */
void OPNWIN(int n);                   /* opens another window and draws into it; message 133 if it is open */
void CLSWIN(int n);                   /* messages 134 for the first window, 135 if it is not open */
void SELWIN(int n);                   /* draws into this window from now on; 135 */
void HIDWIN(int n, const char* mode); /* "YES" hides, "NO" shows it; 135 */
int WINID(void);                      /* number of the current window */
void WINTIT(const char* title);       /* title of the current window */
void WINICO(const char* file);        /* its icon, a PNG file; message 56 if it cannot be loaded */
void PAGWIN(int nw, int nh);          /* setter: size in pixels of the picture of windows that scroll */
/* key "SIZE": routine for a window that the user has resized; its number, page width and height in plot units, window
 * width and height in pixels; a null pointer ends it */
void WINCBK(void (*routine)(int window, int nxp, int nyp, int nw, int nh), const char* key);
void WINTYP(const char* type); /* 0: "STAN", "POPU": without a frame; default "STAN" */
/* setter: what QUIFIN does: "FULL" waits for the right button or the end of the window, "NOER", "NONE" leaves it open
 * for the next plot, "NOHO" closes it, "DELA" after a time, "NOMB" waits for a key only; default "FULL" */
void WINMOD(const char* mode);
void WINKEY(const char* key);            /* setter: key that goes on, "NONE", "RETU", "ESCA"; default "NONE" */
void WINOPT(int value, const char* key); /* setter: key "DELA", milliseconds of the delay; default 1000 */
void GETSCR(int* width, int* height);    /* any: size of the screen in pixels; 853, 603 without one */
int GETXID(const char* kind);            /* 1..3: number of the window in the window system, 0 without one */
void SETXID(int id, const char* kind);   /* any: windows open inside this window of another program; "NONE" ends it */
/* Positions from the mouse, in plot units or pixels; device a window, else message 161. Levels 1 to 3. Without a
 * display they return at once. */
int CSRPOS(int* x, int* y);  /* in: where the mouse is put; waits for the left button (5) or a key, gives its code */
void CSRPT1(int* x, int* y); /* one click */
/* Clicks, moves with the left button held, or corners of a polygon, until the right button; iret 1: no more room. */
void CSRPTS(int* xs, int* ys, int nmax, int* n, int* iret);
void CSRMOV(int* xs, int* ys, int nmax, int* n, int* iret);
void CSRPOL(int* xs, int* ys, int nmax, int* n, int* iret);
void CSRLIN(int* x1, int* y1, int* x2, int* y2); /* a line drawn with the mouse */
void CSRREC(int* x1, int* y1, int* x2, int* y2); /* a rectangle */
int CSRKEY(void); /* last key: 1 to 4 arrows left, up, right, down, 5, 6 buttons, 27 ESC, else its character */
void CSRUNI(const char* unit);  /* setter: "PLOT", "PIXE"; default "PLOT" */
void CSRTYP(const char* shape); /* setter: cursor of these routines: "NONE", "CROS", "ARRO", "VARR"; default "NONE" */
void SETCSR(const char* shape); /* 1..3: cursor of the window: "CROS", "ARRO", "VARR" */
void CSRMOD(const char* mode,
            const char* key);  /* setter: CSRPOS "STAN", "SET", "READ", "GET"; key "POS"; default "STAN" */
void WINAPP(const char* mode); /* 0: "CONS", "WIND": the protocol in a message box */

/* ---- Page ------------------------------------------------------------------------------------------------------ */

void SETPAG(const char* format); /* 0: "DA4L", "DA4P", "USAL", ...; default "DA4L" */
void PAGE(int nx, int ny);       /* 0: page size in units, each at least 1; default 2970, 2100 */
void UNITS(const char* unit);    /* 0: "CM", "INCH", "POIN", "TWIP"; default "CM" */
void SCLFAC(float factor);       /* 0: scale of the whole plot, above 0; default 1 */
void SCLMOD(const char* mode);   /* 0: "DOWN", "FULL", "NONE": fitting the page to the device; default "DOWN" */
void PAGMOD(const char* mode);   /* 0: "LAND", "PORT", "NONE", "COMI", "MOVI"; default "LAND" */
void HWORIG(int nx, int ny);     /* 0: origin on the sheet */
void HWPAGE(int nw, int nh);     /* 0: size of the sheet */
void HWSCAL(float factor);       /* 0: scale on the sheet, above 0; default 1 */
void PAGORG(const char* corner); /* 1..3: "TOP", "BOTT"; default "TOP" */
void ORIGIN(int nx, int ny);     /* 1: shift of the plot origin; default 0, 0 */
void PAGERA(void);               /* 1..3: border of the page */
void PAGFLL(int color);          /* 1..3: fills the page */
void NEWPAG(void);               /* 1: next page */
void ERASE(void);                /* 1..3: clears screens and rasters */
void GETPAG(int* nx, int* ny);   /* 1..3: page size in units */
void GETOR(int* nx, int* ny);    /* 1..3: origin */
void PAGHDR(const char* before, const char* after, int position, int direction); /* 1..3: header with date and time */
int NXPIXL(int nx, int ny); /* 1..3: pixel of a plot point on screens and rasters */
int NYPIXL(int nx, int ny);
int GETDFL(void);                                /* 1..3: 1 if the plot goes to a file, 0 to a window or memory */
void WINDOW(int nx, int ny, int nw, int nh);     /* any: place and size of the window in pixels */
void WINSIZ(int nw, int nh);                     /* any: size of the window, or of a raster, in pixels */
void GETWIN(int* nx, int* ny, int* nw, int* nh); /* 1..3: place and size of the window or raster in pixels */
void WINJUS(const char* corner);                 /* any: "RBOT", "RTOP", "LTOP", "LBOT", "CENT" */
void X11MOD(const char* mode);                   /* 0: "STOR", "NOST", "AUTO", "PIXM" */
void TRFSHF(int nx, int ny); /* setters: transformation of plot coordinates, each after the earlier ones */
void TRFSCL(float xscl, float yscl);
void TRFROT(float degrees, int nx, int ny);
void TRFRES(void); /* setter: ends it */

/* ---- Lines ----------------------------------------------------------------------------------------------------- */

void LINE(int nx1, int ny1, int nx2, int ny2); /* 1..3: from one point to another */
void XMOVE(float x, float y);                  /* 1..3: undashed move */
void XDRAW(float x, float y);                  /* 1..3: undashed draw */
void STRTPT(float x, float y); /* 1..3: move to a point, for lines in the current line type; seed of STREAM */
void CONNPT(float x, float y); /* 1..3: draws from there to a point */
void SOLID(void);              /* setters: line types */
void DOT(void);
void DASH(void);
void CHNDSH(void);
void CHNDOT(void);
void DASHM(void);
void DOTL(void);
void DASHL(void);
void LINTYP(int type);                  /* 1..3: 0..7, in the order of the routines above; default 0 */
void MYLINE(const int* lengths, int n); /* setter: own pattern, drawn, gap, ..., n 1..10 */
void LINCLR(const int* colors, int n);  /* setter: colours along the pattern, n 0..30 */
void HWMODE(const char* mode,
            const char* key); /* setter: "ON", "OFF"; "LINE", "SHAD": widths and fills of the device; default "ON" */
void LINWID(int width);       /* 1..3: 1..32000; default 1 */
void PENWID(float width);     /* 1..3: above 0, up to 32000; default 1 */
void LINMOD(const char* mode, const char* key);  /* 1..3: "ON", "OFF"; key "SMOO": smooth thin lines on true colours */
void LNCAP(const char* cap);                     /* 1..3: "CUT", "ROUN", "LONG"; default "LONG" */
void LNJOIN(const char* join);                   /* 1..3: "SHAR", "ROUN", "TRUN"; default "TRUN" */
void LNMLT(float limit);                         /* 1..3: miter limit, at least 1; default 2 */
void CLPWIN(int nx, int ny, int nw, int nh);     /* 1..3: clip window, upper left corner and size */
void CLPBOR(const char* border);                 /* 2, 3: "PAGE", "AXIS"; default "PAGE" */
void CLPMOD(const char* mode);                   /* setter: "AUTO", "NONE", "CIRC", "RECT"; default "AUTO" */
void NOCLIP(void);                               /* setter: curves are not clipped at the axis system */
void GETCLP(int* nx, int* ny, int* nw, int* nh); /* 1..3: clip window */
int GETLIN(void);                                /* 1..3: line width */
int GETTYP(void);                                /* 1..3: line type */

/* ---- Shading patterns ------------------------------------------------------------------------------------------ */

void SHDPAT(int pattern); /* setter: number 0..17 or a code; 0 none, 16 solid; default 0 */
void MYPAT(int angle, int type, int density, int cross); /* setter: 0..179, 0..7, 0..9, 0..1 */
void SHDFAC(float factor);                               /* setter: factor of the distances of hatch lines; default 1 */
int GETPAT(void);                                        /* 1..3: number or code */

/* ---- Colours --------------------------------------------------------------------------------------------------- */

void COLOR(const char* name);                     /* 1..3: "WHIT", "RED", ..., "FORE", "BACK", "GRAY", "HALF" */
void SETCLR(int color);                           /* 1..3: colour value, at least 0 */
void SETRGB(float r, float g, float b);           /* 1..3: components 0..1 */
int INTRGB(float r, float g, float b);            /* 1..3: direct colour value */
int INDRGB(float r, float g, float b);            /* 1..3: nearest table entry, -1 after a warning */
void SETIND(int i, float r, float g, float b);    /* 1..3: table entry 0..255 */
void GETIND(int i, float* r, float* g, float* b); /* 1..3: components of a table entry */
void GETRGB(float* r, float* g, float* b);        /* 1..3: of the current colour */
int GETCLR(void);                                 /* 1..3: current colour value */
const char* GETVLT(void);                         /* 1..3: name of the table */
void SETVLT(const char* table);                   /* 1..3: "RAIN", "SPEC", "GREY", "SMAL", ...; default "RAIN" */
void MYVLT(const float* r, const float* g, const float* b, int n);    /* any: own table, n 1..256 */
void HSVRGB(float h, float s, float v, float* r, float* g, float* b); /* any: h 0..360, s, v 0..1 */
void RGBHSV(float r, float g, float b, float* h, float* s, float* v); /* any: components 0..1 to h 0..360, s, v 0..1 */
void REVSCR(void);                               /* 1..3: swaps foreground and background of the table */
void VLTFIL(const char* file, const char* mode); /* 1..3: "SAVE", "LOAD": the table as a file of text */
void CLRMOD(const char* mode);                   /* 0: "NONE", "FULL", "CONT"; default "NONE" */
void GETRAN(int* low, int* high);                /* 1..3: range of shading colours */
void COLRAN(int low, int high);                  /* setter: range of shading colours; default 1, 254 */

/* ---- Shields: regions that lines do not enter ------------------------------------------------------------------ */

void SHIELD(const char* area,
            const char* mode);               /* 1..3: "MESS", "SYMB", "BARS", "PIE", "LEGE"; "ON", "OFF", "VIS", ... */
void SHLREC(int nx, int ny, int nw, int nh); /* 1..3: rectangle, upper left corner and size */
void SHLRCT(int nx, int ny, int nw, int nh, float angle); /* 1..3: turned by degrees about that corner */
void SHLCIR(int nx, int ny, int nr);                      /* 1..3: circle */
void SHLELL(int nx, int ny, int na, int nb, float angle); /* 1..3: ellipse with half axes na and nb */
void SHLPIE(int nx, int ny, int nr, float a, float b);    /* 1..3: sector between two angles in degrees */
void SHLPOL(const int* nx, const int* ny, int n);         /* 1..3: polygon, up to 499 points */
void SHLDEL(int id);                                      /* 1..3: deletes a region, 0 all of the script */
void SHLRES(int n);                                       /* 1..3: deletes the last n regions */
void SHLVIS(int id, const char* mode);                    /* 1..3: "ON", "OFF" for a region, 0 all */
int SHLIND(void);                                         /* setter: number of regions */

/* ---- Areas: filled with the shading pattern (SHDPAT) and outlined ---------------------------------------------- */

void AREAF(const int* nx, const int* ny, int n);    /* 1..3: polygon */
void RLAREA(const float* x, const float* y, int n); /* 2, 3: polygon in user coordinates */
void SHDCRV(const float* x1, const float* y1, int n1, const float* x2, const float* y2,
            int n2);                         /* 2, 3: between two curves */
void NOFILL(void);                           /* setter: areas without their patterns */
void CIRCSP(int spacing);                    /* setter: chords of circles in plot units; default 0: 180 chords */
void NOARLN(void);                           /* setter: areas without outlines */
void RECTAN(int nx, int ny, int nw, int nh); /* 1..3: rectangle, upper left corner and size */
void RECFLL(int nx, int ny, int nw, int nh, int color); /* 1..3: rectangle in a colour, -1 the current one */
void POINT(int nx, int ny, int nb, int nh, int color);  /* 1..3: the same around its middle */
/* 1..3: arrow; code wxyz: w 0 open, 1 outlined, 2 filled head; x half its width in tenths of its length, 0 as 3; y its
 * length in 10 plot units, 0 a quarter of the line; z 0 no head, 1 at the end, 2 at both ends */
void VECTOR(int nx1, int ny1, int nx2, int ny2, int code);
void CIRCLE(int nx, int ny, int radius);                   /* 1..3: middle and radius */
void ELLIPS(int nx, int ny, int na, int nb);               /* 1..3: half axes na and nb */
void RNDREC(int nx, int ny, int nw, int nh, int rounding); /* 1..3: RECTAN with round corners: 0 none, 9 half circles */
/* 1..3: part of a circle between two angles in degrees, anticlockwise; the second is taken behind the first */
void PIE(int nx, int ny, int nr, float from, float to);
/* 1..3: the same between two radiuses, nr1 from 0 to nr2, filled with a colour, -1 the current one; from below to */
void SECTOR(int nx, int ny, int nr1, int nr2, float from, float to, int color);
/* 1..3: arc of an ellipse with half axes na and nb, turned by an angle; lines in the current line type */
void ARCELL(int nx, int ny, int na, int nb, float from, float to, float turn);
void RLREC(float x, float y, float width, float height);               /* 2, 3: the same in user coordinates */
void RLCIRC(float x, float y, float radius);                           /* 2, 3: radius in units of the X axis */
void RLELL(float x, float y, float a, float b);                        /* 2, 3: ELLIPS in user coordinates */
void RLRND(float x, float y, float width, float height, int rounding); /* 2, 3 */
void RLPOIN(float x, float y, int nb, int nh, int color);              /* 2, 3: POINT at user coordinates */
void RLVEC(float x1, float y1, float x2, float y2, int code);          /* 2, 3: VECTOR between user coordinates */
/* 2, 3: PIE, SECTOR and ARCELL around a point in user coordinates; lengths are in units of the X axis, the second half
 * axis of an arc in units of the Y axis */
void RLPIE(float x, float y, float r, float from, float to);
void RLSEC(float x, float y, float r1, float r2, float from, float to, int color);
void RLARC(float x, float y, float a, float b, float from, float to, float turn);
/* 1..3: the wind barb of a speed in knots (half barb 5, barb 10, pennant 50), size: length of the staff, which points
 * to where the wind comes from, in degrees clockwise from the top of the page; calm below 2.5 is a circle */
void WINDBR(float knots, int nx, int ny, int size, float direction);
void RLWIND(float knots, float x, float y, int size, float direction); /* 2, 3: at user coordinates */

/* ---- Text ------------------------------------------------------------------------------------------------------ */

void QUIALF(void); /* 1..3: stroke fonts */
void SIMPLX(void);
void COMPLX(void);
void DUPLX(void);
void TRIPLX(void);
void GOTHIC(void);
void HELVE(void); /* 1..3: outline fonts: plain, narrow, bold, and with serifs */
void HELVES(void);
void HELVET(void);
void SERIF(void);
void SHDCHA(void);                                    /* setter: outline fonts are filled */
void PSFONT(const char* name);                        /* 1..3: a standard PostScript font, on devices that have them */
void HWFONT(void);                                    /* 1..3: the device's standard font, else COMPLX */
void TTFONT(const char* name);                        /* setter: a TrueType file; its outlines are filled */
void QUIENV(const char* directory);                   /* any: directory of fonts and maps, "NONE" for none */
void MESSAG(const char* text, int nx, int ny);        /* 1..3: upper left corner; (999, 999) continues */
void NUMBER(float value, int digits, int nx, int ny); /* 1..3: digits -1..100 */
int NLMESS(const char* text);                         /* 1..3: length in plot units */
int NLNUMB(float value, int digits);                  /* 1..3: the same for a number */
void HEIGHT(int height);                              /* 1..3: character height, 1..10000; default 36 */
void ANGLE(int degrees);                              /* setter: text angle in degrees, anticlockwise; default 0 */
void TXTJUS(const char* justification); /* setter: "LEFT", "CENT", "RIGH", "TOP", "MIDD", "BOTT"; default "LEFT" */
void FIXSPC(float factor);              /* setter: fixed spacing, above 0; default off */
void CHASPC(float spacing);             /* setter: added to the gap, as a fraction of the height; default 0 */
void CHAWTH(float factor);              /* setter: above 0, below 2; default 1 */
void CHAANG(float degrees);             /* setter: slant, -60..60; default 0 */
void BASALF(const char* alphabet);      /* setter: "STAN", "GREE", "MATH", "ITAL", "SCRI", "RUSS"; default "STAN" */
void SMXALF(const char* alphabet, const char* in, const char* out, int index); /* setter: alphabet shift 1..6 */
void MIXALF(void); /* setter: exponents and indices in texts */
void NEWMIX(void); /* setter: control characters "^", "_", "%" */
void SETMIX(const char* character,
            const char* key); /* setter: "EXP", "IND", "RES", "LEG", "TEX"; default "[", "]", "$", "/", "\" */
void SETEXP(float size);      /* setter: size of exponents and indices, as a factor; default 0.6 */
void SETBAS(float shift);     /* setter: shift of exponents, fraction of the height; default 0.75 */
void EUSHFT(const char* set, const char* character); /* setter: shift character of accented letters */
void CHACOD(
    const char* coding); /* setter: "STAN", "ISO1", "ISO2", "ISO3", "ISO5", "KOI8", "UTF8", "ISO7"; default "STAN" */
int UTFINT(const char* text, int* codes,
           int size); /* any: codes of a UTF-8 text; their count, below 0 after a warning */
/* any: UTF-8 text of codes, at most size bytes, an end mark if there is room; its length, below 0 after a warning */
int INTUTF(const int* codes, int count, char* text, int size);
void TEXMOD(const char* mode);                      /* setter: "OFF", "ON": texts are formulas; default "OFF" */
void TEXOPT(const char* value, const char* option); /* setter: "ON" or "OFF" for "LIMI", "ITAL"; "STAN", "VECT" for
                                                       "BRAC"; default "OFF", "OFF", "STAN" */
void TEXVAL(float x,
            const char* option); /* setter: "EXP", "H1BR", "H2BR", "VBRA", "OPER", "WBRA": factors; default 1 */
void FRMESS(int thickness);      /* setter: frame around texts; default 0 */
void TXTMOD(const char* mode); /* setter: "OUTL", "FILL": letters of outline fonts as lines or filled; default "OUTL" */
void TXTOPT(const char* mode,
            const char* key);    /* setter: "ON", "OFF"; key "MIXA", "SHDC", "FIXS": what MIXALF, ... do */
int GETBLK(void);                /* 1..3: length of a blank in plot units */
void IANGLE(int degrees);        /* setter: as ANGLE */
void TXTBGD(int color);          /* setter: background of texts, -1 none; default -1 */
void NUMFMT(const char* format); /* setter: "FLOA", "EXP", "FEXP", "LOG", "XEXP"; default "FLOA" */
void NUMODE(const char* decimal, const char* group, const char* plus,
            const char* fixed); /* 1..3: "POIN", "COMM"; "NONE", "SPAC", "POIN", "COMM"; "NONE", "SPAC", "PLUS"; "NOEQ",
                                   "EQUA"; default "POIN", "NONE", "NONE", "NOEQ" */
const char* GETMIX(const char* key); /* 1..3: control character of SETMIX */
const char* GETSHF(const char* set); /* 1..3: shift character of EUSHFT, "" for none */
/* 1..3: index 1..6 and characters of the first shift of SMXALF into an alphabet, 0 for none */
int GMXALF(const char* alphabet, char* in, char* out);
int GETHGT(void);         /* 1..3: character height */
int GETANG(void);         /* 1..3: text angle */
const char* GETALF(void); /* 1..3: base alphabet */

/* ---- Axis systems ---------------------------------------------------------------------------------------------- */

void GRAF(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp); /* 1 */
void POLAR(float xe, float xorg, float xstp, float yorg, float ystp); /* 1: radius 0..xe, angles in degrees */
void GRAFP(float xe, float xorg, float xstp, float yorg, float ystp); /* 1: the same */
void POLMOD(const char* start,
            const char* direction); /* setter: angle 0 "RIGHT", "TOP", ...; "ANTI", "CLOCK"; default "RIGH", "ANTI" */
void GRDPOL(int nx, int ny);        /* 2, 3: circles and rays per label step of a polar system */
void GRAFR(const float* re, int n, const float* im, int m); /* 1: chart of impedances with circles at re and im */
void GRIDRE(float re, float im1, float im2, int n);         /* 2, 3: part of a circle of constant real part, n chords */
void GRIDIM(float im, float re1, float re2, int n);         /* 2, 3: part of a circle of constant imaginary part */
void GETRCO(float re, float im, float* r, float* i);        /* 1..3: reflection coefficient of an impedance */
void GETICO(float r, float i, float* re, float* im);        /* 1..3: impedance of a reflection coefficient */
/* 2, 3: a text at a value of an axis, "X", "Y", "XTOP", "YRIG", or at 3 "Z": the colour bar; tick 0 none,
 * 1 minor, 2 major; messages 101, 108, 109 */
void ADDLAB(const char* text, float value, int tick, const char* axis);
void AXSERS(void);                   /* 2, 3: erases the inside of the axis system */
void ENDGRF(void);                   /* 1..3: ends the axis system, back to level 1 */
void AXSLEN(int nx, int ny);         /* 1: lengths, at least 2 */
void AX3LEN(int nx, int ny, int nz); /* 1: lengths of X and Y axis and of the third axis or colour bar, 2 or more */
void AXSPOS(int nx, int ny);         /* 1: lower left corner */
void AXSORG(int nx, int ny);         /* 1: crossing of the axes */
void AXSTYP(const char* type);       /* 1: "RECT", "CROS", "IMPE", "ADMI"; default "RECT" */
void AXSSCL(const char* scale, const char* axes);     /* setter: scaling "LIN", "LOG" of axes; default "LIN" */
void SCALE(const char* scale, const char* axes);      /* setter: the same as AXSSCL; default "LIN" */
void SETSCL(const float* x, int n, const char* axis); /* 1: automatic scaling from an array */
void SETGRF(const char* bottom, const char* left, const char* top, const char* right); /* 1: "NONE" ... "NAME" */
void NOGRAF(void);                                                                     /* setter: GRAF draws nothing */
void AX2GRF(void);         /* setter: GRAF draws the lower X and the left Y axis only */
void CENTER(void);         /* setter: centres the axis system on the page */
void GRACE(int margin);    /* setter: margin of the clip of curves around the axis system; default 0 */
void FRAME(int thickness); /* setter: thickness of frames around axis systems, legends and shields; default 1 */
void FRMCLR(int color);    /* setter: colour of that frame, -1 current; default -1 */
void NOBGD(void);          /* setter: no backgrounds of AXSBGD, LEGBGD, TXTBGD and of colour graphs */
void AXSBGD(int color);    /* setter: colour behind the axis system, -1 none; default -1 */
void GRID(int nx, int ny); /* 2, 3: grid lines per label step */
void CROSS(void);          /* 2, 3: axes through the origin */
void XCROSS(void);
void YCROSS(void);
void AXGIT(void); /* 2, 3: lines through the origin */
void XAXGIT(void);
void YAXGIT(void);
void GETGRF(float* a, float* e, float* first, float* step,
            const char* axis);          /* 2, 3: start, end, first label and step of an axis */
void GETSCL(int* nx, int* ny, int* nz); /* 1..3: 1 for logarithmic axes */
void GETSCM(int* nx, int* ny, int* nz); /* 1..3: 1 for automatically scaled axes */
void GETLEN(int* nx, int* ny, int* nz); /* 1..3: axis lengths */
void GETPOS(int* nx, int* ny);          /* 1..3: axis position */
float XPOSN(float x);                   /* 2, 3: plot coordinate of a user value */
float YPOSN(float y);
int NXPOSN(float x);
int NYPOSN(float y);
float X2DPOS(float x, float y); /* 2, 3: plot coordinates of a pair in any axis system */
float Y2DPOS(float x, float y);
float XINVRS(int nx); /* 2, 3: user value of a plot coordinate */
float YINVRS(int ny);

void BOX2D(void); /* 1..3: the border of the axis system */
void XAXIS(float a, float e, float first, float step, int length, const char* name, int it, int nx, int ny);
/* 1..3: an axis with its start at (nx, ny); it 0: labels below, 1: above */
void YAXIS(float a, float e, float first, float step, int length, const char* name, int it, int nx, int ny);
/* 1..3: it 0: labels to the right, 1: to the left */
void XAXLG(float a, float e, float first, float step, int length, const char* name, int it, int nx, int ny);
void YAXLG(float a, float e, float first, float step, int length, const char* name, int it, int nx, int ny);
/* 1..3: logarithmic axes, limits and step as exponents of ten */
void YPOLAR(float a, float e, float first, float step, const char* name, int distance);
/* 2, 3: a linear axis over the whole height of a polar system, at a distance to its left; warning 160 without one */
void GAXPAR(float a1, float a2, const char* option, const char* axes, float* a, float* b, float* first, float* step,
            int* digits); /* setter: what automatic scaling gives for the limits; "EXTEND": whole steps */

void TICKS(int n, const char* axes);                 /* setter: ticks per label step, 0..1000; default 2 */
void TICLEN(int major, int minor);                   /* setter: lengths of ticks, 1..10000; default 24, 16 */
void TICPOS(const char* position, const char* axes); /* setter: "LABE", "REVE", "CENT"; default "LABE" */
void LOGTIC(const char* mode);                       /* setter: "AUTO", "FULL"; default "AUTO" */
void LABELS(const char* kind, const char* axes);     /* setter: "NONE", "FLOA", "EXP", "LOG", ...; default "FLOA" */
void LABDIG(int digits,
            const char* axes); /* setter: digits behind the point of labels, -1 integers, -2..100; default 1 */
void DIGITS(int digits, const char* axes);           /* setter: the same; default 1 */
void INTAX(void);                                    /* 1..3: integer labels on all axes */
void LABPOS(const char* position, const char* axes); /* setter: "TICK", "CENT", "SHIF"; default "TICK" */
void LABJUS(const char* mode, const char* axes); /* setter: "AUTO", "LEFT", "RIGH", "OUTW", "INWA"; default "AUTO" */
void LABTYP(const char* type, const char* axes); /* setter: "HORI", "VERT"; default "HORI" */
void LABDIS(int distance, const char* axes);     /* setter: distance of labels from ticks; default 24 */
void AXENDS(
    const char* mode,
    const char* axes); /* setter: end labels "NONE", "NOFI", "NOLA", "NOEN", "ENDS", "FIRS", "LAST"; default "NONE" */
void AXCLRS(int color, const char* part, const char* axes); /* setter: "LINE", "TICK", "LABE", "NAME", "ALL" */
void NAME(const char* name, const char* axes);              /* setter: axis name */
void NAMDIS(int distance, const char* axes);                /* setter: distance of axis names from labels; default 30 */
void NAMJUS(const char* mode, const char* axes);            /* setter: "CENT", "LEFT", "RIGH"; default "CENT" */
void HNAME(int height);                                     /* setter: height of axis names, 1..10000; default 36 */
void RGTLAB(void);                                          /* setter: labels of MYLAB end at the axis */
void RVYNAM(void);                                          /* setter: the name of a right Y axis is turned around */
void MYLAB(const char* label, int n, const char* axis);     /* setter: own label 1..100 */
void NOLINE(const char* axes);                              /* setter: no axis line */
void TITLIN(const char* text, int n);                       /* setter: title line 1..4; negative: underlined */
void TITLE(void);                                           /* 2, 3: draws the lines of TITLIN over the axis system */
void TITJUS(const char* mode);                              /* setter: "CENT", "LEFT", "RIGH"; default "CENT" */
void LFTTIT(void);                                          /* setter: as TITJUS("LEFT") */
void TITPOS(const char* mode);                              /* setter: "ABOV", "BELO"; default "ABOV" */
void HTITLE(int height);    /* setter: height of titles, 1..10000; default that of texts */
void VKYTIT(int distance);  /* setter: shift of the title upwards, negative: down; default 0 */
void LINESP(float spacing); /* setter: spacing of lines of titles and legends; default 1.5 */
void LABMOD(const char* key, const char* value, const char* axes); /* setter: dates: "YEAR", "DAY", "MONTH", ... */
void TICMOD(const char* mode, const char* axes); /* setter: ticks of date axes: "DAYS", "MONT", ..., "HOUR" */
void TIMOPT(void);                               /* setter: time labels with a colon */
void NEGLOG(float value);                  /* setter: stands for values without a logarithm, above 0; default off */
void BASDAT(int day, int month, int year); /* any: the day from which date axes count; default none */
int INCDAT(int day, int month, int year);  /* any: days since the base date */
void TRFDAT(int n, int* day, int* month, int* year); /* any: the date n days after the base date */
int NWKDAY(int day, int month, int year);            /* any: 1 Monday to 7 Sunday */
int GETHNM(void);                                    /* 1..3: height of axis names */
void GETDIG(int* nx, int* ny, int* nz);              /* 1..3: digits of LABDIG */
void GETLAB(char* x, char* y, char* z);              /* 1..3: label kinds of the axes, as LABELS takes them */
void GETSP1(int* nx, int* ny, int* nz);              /* 1..3: distances of LABDIS */
void GETSP2(int* nx, int* ny, int* nz);              /* 1..3: distances of NAMDIS */
void GETTIC(int* nx, int* ny, int* nz);              /* 1..3: ticks per label step */
void GETTCL(int* major, int* minor);                 /* 1..3: lengths of ticks */

/* ---- Maps ------------------------------------------------------------------------------------------------------ */

/* Longitudes and latitudes are degrees, to the east and to the north. In a map axis system they are the user values of
 * all routines. */
void PROJCT(
    const char* projection); /* 1: "CYLI" (none), "MERC", "EQUA", "AITO", "HAMM", "WINK", "SANS", "CONF",
                                "ALBE", "CONI", "GNOM", "ORTH", "STER", "AZIM", "LAMB", "MYPR", ...; default "CYLI" */
/* 1: opens a map axis system between two longitudes and two latitudes, with its labels at xor + i * xstp and yor + i *
 * ystp. An azimuthal projection shows the whole sphere as a circle if the latitudes span more than 90. Limits that do
 * not suit the projection give warning 2, falling ones 52. */
void GRAFMP(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp);
void GRIDMP(int perLonStep, int perLatStep);            /* 2, 3: lines of longitudes and latitudes per label step */
void CURVMP(const float* lon, const float* lat, int n); /* 2, 3: as CURVE, with lines as MAPMOD tells; POLCRV must be
                                                           "LINE", else warning 14 */
void MAPMOD(const char* mode);         /* setter: map lines "STRA", "INTE" (a point a degree), "GREA"; default "INTE" */
void MAPPOL(float lon, float lat);     /* 1: centre of azimuthal maps of the whole sphere; default 0, 0 */
void MAPREF(float lower, float upper); /* 1: standard parallels of conics; default a quarter inside the limits */
void MAPSPH(float angle);              /* 1: reach of azimuthal maps around the centre, up to 90; default 90 */
void MAPOPT(const char* value, const char* key); /* setter: "STAN", "AUTO" for "XAXI": the X axis as long as the map;
                                                    "COAS", "BORD", "BOTH" for "WORL"; default "STAN", "COAS" */
void MAPLAB(const char* value, const char* key); /* setter: latitudes beside world maps "NONE", "LEFT", "RIGH", "BOTH"
                                                    for "LATI"; default "NONE" */
/* 2, 3: axes at the open map, of the length of its own; it 0: labels below or to the right, 1: above or to the left */
void XAXMAP(float a, float b, float first, float step, const char* name, int it, int ny);
void YAXMAP(float a, float b, float first, float step, const char* name, int it, int nx);
/* any: the routine of "MYPR", which turns degrees into distances from the lower left corner in plot units, in place;
 * null: degrees are such distances. key "MYPR" */
void SETCBK(void (*routine)(float* x, float* y), const char* key);
void POS2PT(float x, float y, float* xp, float* yp); /* 2, 3: plot coordinates of a user point of any axis system */
void PT2POS(float xp, float yp, float* x, float* y); /* 2, 3: the inverse; off a map a place on its edge */
void MAPBAS(const char* database); /* setter: "QUIL", "GSHL", "GSHI", "GSHH", "GSHF", "MAPF"; default "QUIL" */
void MAPFIL(const char* name, const char* format); /* setter: file of "MAPF", format "GSHH" or "MAPG" (text) */
void MAPLEV(const char* levels);                   /* setter: "ALL", "LAND", "LAKE", "BOTH", "RIVE"; default "ALL" */
void MAPDIR(const char* directory);                /* setter: directory of map files; default that of the library */

void WORLD(void); /* 2, 3: coasts and, as MAPOPT tells, borders; warning 118 for "MAPF" without a file */
void MAP(const char* zone, const char* lines); /* 2, 3: "ALL", "ASIA", "AUST", "EURO", "NORT", "SOUT", "AFRI", "ANTA";
                                                  "COAS", "POLI" (borders), "ALL" */
/* 2, 3: fills with the current pattern: "ALL" land, "ANTA", "AFRI", "EURA" or "EURO", "AUST", "NORT", "SOUT", "LAKE",
 * "LAND" without its lakes, "SEA"; land and sea of the shorelines: "GSHL", "GSHI", "GSHH", "LSEA", "ISEA", "HSEA" */
void SHDMAP(const char* area);
/* 2, 3: fill n countries of a continent, or states of the USA, each with a pattern and a colour; docs/map_countries.md
 * lists their numbers */
void SHDAFR(const int* numbers, const int* patterns, const int* colors, int n);
void SHDASI(const int* numbers, const int* patterns, const int* colors, int n);
void SHDAUS(const int* numbers, const int* patterns, const int* colors, int n);
void SHDEUR(const int* numbers, const int* patterns, const int* colors, int n);
void SHDNOR(const int* numbers, const int* patterns, const int* colors, int n);
void SHDSOU(const int* numbers, const int* patterns, const int* colors, int n);
void SHDUSA(const int* numbers, const int* patterns, const int* colors, int n);

/* ---- Curves ---------------------------------------------------------------------------------------------------- */

void CURVE(const float* x, const float* y, int n); /* 2, 3: connects points, or marks them (POLCRV, INCMRK) */
void POLCRV(const char* mode);                     /* setter: "LINE", "STEP", "STEM", "STAI", ...; default "LINE" */
/* 1..3: the points of the spline that CURVE would draw through x and y, in xray and yray, which hold as many as SPLMOD
 * told (201); nray: their number, 0 after a warning. (2 * degree + 1) * n is 1000 at most, else warning 31. */
void SPLINE(const float* x, const float* y, int n, float* xray, float* yray, int* nray);
void SPLMOD(int degree, int points); /* setter: degree 2..10, points 5..30000; default 3, 200 */
void THKCRV(int thickness);          /* setter: thickness of curves in lines, 1..10000; default 1 */
void MARKER(int symbol);             /* setter: symbol of curves, -1..23; default 0 */
void HSYMBL(int height);             /* setter: height of symbols, 1..10000; default 36 */
void MRKCLR(int color);              /* setter: colour of symbols, -1 current; default -1 */
void INCMRK(int step);         /* setter: 0 lines, n > 0 lines and every n-th symbol, n < 0 symbols only; default 0 */
void INCCRV(int n);            /* setter: curves that share a set of attributes, 1..32000; default 1 */
void CHNCRV(const char* mode); /* setter: "NONE", "COLO", "LINE", "BOTH"; default "NONE" */
void LINCYC(int i, int type);  /* setter: line type of a set of attributes; i 1..30, type 0..7 */
void CLRCYC(int i, int color); /* setter: colour of a set of attributes; i 1..30 */
void GAPCRV(float gap);        /* setter: distance of X values from which a curve is broken */
void GAPSIZ(float gap, const char* axes); /* setter: the same for the axes named */
void NANCRV(const char* mode);            /* 1..3: "ON", "OFF"; default "OFF" */
void SYMROT(float degrees);               /* setter: symbols are turned by degrees; default 0 */
void ERRBAR(const float* x, const float* y, const float* e1, const float* e2, int n); /* 2, 3: bars y - e1..y + e2 */
void MYSYMB(const float* x, const float* y, int n, int symbol, int fill); /* 1..3: own symbol in the square -50..50 */
void CHNATT(void);                                                        /* 1..3: next attributes of the cycle */
void RESATT(void);                                                        /* 1..3: first attributes of the cycle */
void GETSYM(int* symbol, int* height);                                    /* 1..3: of the symbols of curves */
void SYMBOL(int symbol, int nx, int ny);                                  /* 1..3: a symbol 0..23, centred */
void RLMESS(const char* text, float x, float y);                          /* 2, 3: MESSAG in user coordinates */
void RLNUMB(float value, int digits, float x, float y);                   /* 2, 3: NUMBER in user coordinates */
void RLINE(float x1, float y1, float x2, float y2);                       /* 2, 3: LINE in user coordinates */
void RLSYMB(int symbol, float x, float y);                                /* 2, 3: SYMBOL in user coordinates */
void TRFREL(float* x, float* y, int n); /* 2, 3: plot coordinates of user values, in place */
void RLSTRT(float x, float y);          /* 2, 3: move to a point in user coordinates */
void RLCONN(float x, float y);          /* 2, 3: draws from the last point to this one */

/* ---- Bars ------------------------------------------------------------------------------------------------------ */

/* 2, 3: bars from y to y1 at positions x. BARPOS writes into the arrays. Horizontal types take positions on the Y axis.
 */
void BARS(float* x, float* y, float* y1, int n);
/* 2, 3: ticks or candles */
void FBARS(const float* x, const float* open, const float* high, const float* low, const float* close, int n);
void BARTYP(const char* type); /* setter: "VERT", "HORI", "3DVE", "3DHO"; of FBARS "TICK", "CAND"; default "VERT", of
                                  FBARS "CAND" */
void BARMOD(const char* mode, const char* key); /* setter: "FIXE", "VARI" for "WIDT"; default "FIXE" */
void BARGRP(int n, float gap); /* setter: n 1..30 calls side by side; gap: fraction, else plot units; default 1, 0 */
void BARWTH(float width);      /* setter: fraction of the distance of two bars, negative: plot units; default 0.75 */
void BARPOS(const char* mode); /* setter: "NONE", "TICK", "AXIS", "BOTH"; default "NONE" */
void CHNBAR(const char* mode); /* setter: "NONE", "COLO", "PATT", "BOTH"; default "NONE" */
void BARCLR(int front, int side,
            int top);   /* setter: -1 current; FBARS: line, falling or left, rising or right; default -1, -1, -1 */
void BARBOR(int color); /* setter: -1 current; default -1 */
void BAROPT(float depth,
            float angle); /* setter: 3-D bars; depth in plot units, negative: the width of a bar; default -1, 45 */
/* Labels of bars: LABELS "NONE", "SECO", "FIRS", "MAXI", "MINI", "DELT", "POSI"; LABPOS "AUTO", "INSI", "OUTS", "LEFT",
 * "ABOV", "RIGH", "BELO", "CENT"; LABDIG; LABCLR; each with "BARS" in place of the axis string. */
void LABCLR(int color, const char* chart); /* setter: "BARS", "PIE", "CONTOUR" */
void PATCYC(int i, int pattern);           /* setter: pattern of a set of attributes; i 1..30 */

/* ---- Pies ------------------------------------------------------------------------------------------------------ */

/* 1: opens an axis system without axes and draws the pie. lines: of a legend's buffer for each segment. A negative
 * value moves its segment out. Labels: LABELS "NONE", "PERC", "DATA", "BOTH"; LABPOS "INTE", "EXTE", "ALIG"; LABTYP
 * "CENT", "LEFT", "RIGH", "OUTW", "INWA"; LABCLR; each with "PIE" in place of the axis string; LABDIG with "DAT",
 * "PER". */
void PIEGRF(const char* buffer, int lines, const float* x, int n);
void CHNPIE(const char* mode); /* setter: "NONE", "COLO", "PATT", "BOTH"; default "NONE" */
void PIETYP(const char* type); /* setter: "2D", "3D"; default "2D" */
void PIEEXP(void);             /* setter: all segments are moved out */
void PIEOPT(
    float angle,
    float depth); /* setter, 3-D: view in degrees over the plane; thickness in radiuses, 0..10; default 45, 0.2 */
void PIEROT(float angle);                /* setter: degrees, anticlockwise; default 0 */
void PIEVEC(int kind, const char* mode); /* setter: kind 0..9999; "BROK", "STRA", "NONE"; default 2301, "BROK" */
void PIEVAL(
    float value,
    const char* key); /* setter: "GAP" between labels, "DIST" from the pie; in character heights; default 1, 1 */
void PIECLR(const int* colors, const int* sideColors, int n); /* setter: n 0..30, -1 current */
void PIEBOR(int color);                                       /* setter: -1 current; default -1 */
void PIELAB(const char* text, const char* key); /* setter: up to 20 characters, "LEFT" or "RIGH" of data */
/* 1..3: called for each segment (from 1) with value and percentage. It may change pattern, colour, how far the segment
 * is moved out (1 the usual distance), mode, place, justification (each counted from 0 in the lists above) and colour
 * of the label. Null: none. */
void PIECBK(void (*routine)(int segment, float value, float percent, int* pattern, int* color, float* exploded,
                            int* labelMode, int* labelPlace, int* labelJustify, int* labelColor));

/* ---- Colour graphs --------------------------------------------------------------------------------------------- */

/* 1: as GRAF, with a scale of colours from za to ze over the range of COLRAN and a bar that shows it; enters level 3.
 * The bar is as long as the side that it stands at, or as AX3LEN told. */
void GRAF3(float xa, float xe, float xor_, float xstp, float ya, float ye, float yor, float ystp, float za, float ze,
           float zor, float zstp);
/* 3: paints n points in the colours of their values: rectangles of the size of SETRES, symbols or pixels (SHDMOD).
 * Values below the scale have the colour of the background, those above it that of the foreground. Points outside the
 * axes are left out. */
void CURVE3(const float* x, const float* y, const float* z, int n);
void CURVX3(const float* x, float y, const float* z, int n); /* 3: the same for points of one y */
void CURVY3(float x, const float* y, const float* z, int n); /* 3: the same for points of one x */
/* 3: paints the cells of a grid of n * m values, the Y index fastest, over the axis system or the limits of SURSZE.
 * Each cell is cut into ixpts * iypts parts, which have the colour of their middle. n, m at least 2. */
void CRVMAT(const float* z, int n, int m, int ixpts, int iypts);
/* 3: fills quadrilaterals, every four points, each in the colour of its mean */
void CRVQDR(const float* x, const float* y, const float* z, int n);
/* 3: fills triangles, whose corners are told by their numbers from 1, with colours that run from corner to corner */
void CRVTRI(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri);
void TRIFLL(const float* x, const float* y);     /* 1..3: fills a triangle of the page in the current colour */
void COLRAY(const float* z, int* colors, int n); /* 3: the colours of values */
int NZPOSN(float z);                             /* 3: the colour of a value */
/* 1..3: a bar of colours with its lower left corner at (nx, ny); it 0: labels to the right or below, 1: to the left or
 * above; direction 0: upright, 1: level */
void ZAXIS(float a, float e, float first, float step, int length, const char* name, int it, int direction, int nx,
           int ny);
/* 1..3: the same for a logarithmic scale, limits and step as exponents of ten */
void ZAXLG(float a, float e, float first, float step, int length, const char* name, int it, int direction, int nx,
           int ny);
void EXPZLB(
    const char* ends);  /* setter: "<" at the first, ">" at the last label of the bar: "NONE", "FIRS", "LAST", "BOTH" */
void NOBAR(void);       /* setter: no bar of colours */
void WIDBAR(int width); /* setter: width of the bar, 0..10000; default 85 */
void SPCBAR(int distance);                    /* setter: distance of the bar from the axis system; default 85 */
void GETVK(int* title, int* barX, int* barY); /* 1..3: shifts of VKYTIT, VKXBAR and VKYBAR */
int GETWID(void);                             /* 1..3: width of the colour bar */
void VKXBAR(int shift);                       /* setter: shift of the bar to the right; default 0 */
void VKYBAR(int shift);                       /* setter: shift of the bar downwards; default 0 */
void POSBAR(const char* side);                /* setter: "RIGH", "LEFT", "TOP", "BOTT"; default "RIGH" */
void JUSBAR(const char* mode);                /* setter: place along the side: "STAR", "CENT", "END"; default "STAR" */
void FRMBAR(int lines);               /* setter: lines of the frame of the bar, outward if negative; default 1 */
void SETRES(int width, int height);   /* setter: size of the rectangles of CURVE3; default 1, 1 */
void GETRES(int* width, int* height); /* 1..3: their size */
/* 1..3: rectangles that fill the axis system with nx * ny points, 2..10000; negative: with cells side by side; 0, 0: as
 * many as the matrix of CRVMAT has */
void AUTRES(int nx, int ny);
/* setter: for "SURF" "FLAT", "SMOO"; "CONT" "CELL", "POLY"; "CURV" "RECT", "SYMB", "PIXE", "2D", "3D"; "CELL" "BOTH",
 * "UPPE", "LOWE", "NONE"; "COLO" "LOWE", "MIDD", "UPPE"; "CULL" "OFF", "ON", "FRON"; "SYMB" "2D", "3D"; "ZSCA" "ON",
 * "OFF"; default the first of each */
void SHDMOD(const char* value, const char* key);

/* ---- Contour lines --------------------------------------------------------------------------------------------- */

/* 2, 3: the lines on which a function has the value of a level. z holds n * m values, the Y index fastest: that at
 * x[i], y[j] is z[i * m + j]. In a cell that leaves a choice the mean of its corners decides. Positive coordinates on
 * logarithmic axes, else message 27. Each call counts as a curve for legends; THKCRV and the line type hold. */
void CONTUR(const float* x, int n, const float* y, int m, const float* z, float level);
/* 2, 3: the same on a curvilinear grid: x and y are matrices as z; messages tell of "contur" */
void CONTUR2(const float* x, const float* y, const float* z, int n, int m, float level);
/* 2, 3: the same on a grid in equal steps over the axis system or the limits of SURSZE; n, m at least 2 */
void CONMAT(const float* z, int n, int m, float level);
/* 2, 3: a line that is known, drawn and labelled as a contour line; text runs at angle 0 afterwards */
void CONCRV(const float* x, const float* y, int n, float level);
/* any: the points of contour lines in user coordinates, line after line; nray: points of each line, ncurvs: lines.
 * Messages 116 and 117 if there are more than maxpts points or maxcrv lines. */
void CONPTS(const float* x, int n, const float* y, int m, const float* z, float level, float* xpts, float* ypts,
            int maxpts, int* nray, int maxcrv, int* ncurvs);
/* 2, 3: fills the bands between nlev levels of a grid as CONTUR takes it. The scale of GRAF3 or else, from the least
 * level to the greatest, that of COLRAN gives the colours; a value at a level belongs to the band below. Each level has
 * a line in legends. SHDMOD: "CELL" for "CONT": each cell is cut along the levels; "POLY": the closed lines of the
 * levels are filled in the given order, others left out; key "CELL": which of the bands below and above all levels are
 * filled; key "COLO": a band has the colour of its lower level, the lowest band that of the background, of the middle,
 * or of its upper level. */
void CONSHD(const float* x, int n, const float* y, int m, const float* z, const float* levels, int nlev);
/* 2, 3: the same on a curvilinear grid: x and y are matrices as z */
void CONSHD2(const float* x, const float* y, const float* z, int n, int m, const float* levels, int nlev);
/* 2, 3: the same on triangles whose corners are told by their numbers from 1, always cut along the levels */
void CONFLL(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri, const float* levels, int nlev);
/* setter: colours of the levels, in the order in which they are given, in place of those of the scale; n 0..256, 0: the
 * scale again. Message 162 when there are fewer colours than levels. */
void CONCLR(const int* colors, int n);
/* any: triangles of n points such that no circle through the corners of one holds a point; their corners by numbers
 * from
 * 1. Returns how many. x and y have room for three more elements, the triangle around all points; nmax: room for
 * triangles, at least 2 n + 1. The second of two points in one place has no triangle. Messages 102 if all points lie on
 * a line, 121. (A. Bowyer, D. Watson, 1981) */
int TRIANG(float* x, float* y, int n, int* i1, int* i2, int* i3, int nmax);
/* 2, 3: as CONTUR, on triangles whose corners are told by their numbers from 1 */
void CONTRI(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri, float level);
/* any: as CONPTS, on triangles */
void TRIPTS(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri, float level, float* xpts, float* ypts, int maxpts, int* nray, int maxcrv, int* ncurvs);
/* 2, 3: values on a grid of nx * ny points, at least 2 each, over the axis system or the limits of SURSZE, from n
 * points: means weighted by the distance in user coordinates. zval stands where no point is near. imat: points that a
 * value is made of, -1 where it is that of a point in its place; wmat: sums of weights. */
void GETMAT(const float* x, const float* y, const float* z, int n, float* zmat, int nx, int ny, float zval, int* imat,
            float* wmat);
/* setter: grid steps that a point reaches in GETMAT, and the power of the distance by which weights fall; default 2, 2,
 * 2.0 */
void MDFMAT(int nx, int ny, float weight);
/* Labels of contour lines: LABELS "NONE", "FLOAT", "CONLAB"; LABDIS plot units of line between two labels, 1..10000;
 * LABDIG, -2: as many as the level needs; LABTYP "HORI" along the line, "VERT" across it; LABCLR; each with "CONTOUR"
 * in place of the axis string. */
void CONLAB(const char* text); /* setter: text of labels, up to 20 characters */
void CONGAP(float factor);     /* setter: free space on each side of a label, in character heights; default 0.5 */
void CONMOD(float stretch,
            float curvature); /* setter: line kept straight on each side of a label, in label widths, at least 0; and
                                 greatest ratio of arc to chord of the line under it, above 1; default 0.5, 1.5 */
void CONANG(float degrees);   /* setter: greatest turn of the line before a label, 0..360; default 5 */
void SURSZE(float xa, float xe, float ya, float ye); /* setter: limits of grids told by their values alone; default
                                                        those of the axis system; message 10 if a pair is equal */

/* ---- Three-dimensional axis systems ---------------------------------------------------------------------------- */

/* User coordinates count as the axes do. Box coordinates: the box of AXIS3D around the origin. Settings of the view
 * take effect with the next GRAF3D; the lengths of AXSLEN give the frame in which the picture stands. */
void GRAF3D(float xa, float xe, float xor_, float xstep, float ya, float ye, float yor, float ystep, float za, float ze,
            float zor, float zstep);    /* 1, moves to level 3 */
void AXIS3D(float x, float y, float z); /* setter: lengths of the box, above 0; default 2, 2, 2 */
/* setter: eye in box coordinates "ABS", user coordinates "USER", or horizontal angle, vertical angle (degrees) and
 * distance "ANGL"; outside the box. Default 2, -2.5 and 2 box lengths */
void VIEW3D(float x, float y, float z, const char* mode);
void VFOC3D(float x, float y, float z,
            const char* mode);                /* setter: focus "ABS", "USER"; default the middle of the box */
void VANG3D(float angle);                     /* setter: angle of view in degrees, between 0 and 180; default 28.07 */
void VUP3D(float angle);                      /* setter: turns the picture, degrees; default 0 */
void VCLP3D(float nearPlane, float farPlane); /* setter: distances from the eye; far at most 0: none; default 1, -1 */
void VSCL3D(float scale);                     /* 1..3: scale of the orthographic projection, above 0; default 1 */
void PROJ3D(const char* projection);          /* 1: "PERS", "ORTH"; default "PERS" */
void CLIP3D(const char* mode);                /* setter: lines are cut at the box "WORL", the view "EYE", or "NONE" */
void LABL3D(const char* style);               /* setter: axes on planes "STAN", on edges "HORI", "PARA", "OTHE" */
void FLAB3D(void);                            /* setter: AXENDS holds for the axes of the box, too */
void BOX3D(void);                             /* 3: the twelve edges of the box */
/* 3: grid lines per label step, across and upwards, on the planes "ALL", "BACK" (the two walls away from the eye),
 * "BOTT" */
void GRID3D(int nx, int ny, const char* planes);
/* 3: the plane through three points in box coordinates, on which two-dimensional axis systems are drawn until GRFFIN:
 * X runs from the first point to the second, Y from the second to the third. Level 1 afterwards. */
void GRFINI(float x1, float y1, float z1, float x2, float y2, float z2, float x3, float y3, float z3);
void GRFFIN(void);                                                       /* 1..3: level 3 afterwards */
void ABS3PT(float x, float y, float z, float* xp, float* yp);            /* 1..3: plot of box coordinates */
void POS3PT(float x, float y, float z, float* xp, float* yp, float* zp); /* 3: box of user coordinates */
void REL3PT(float x, float y, float z, float* xp, float* yp);            /* 3: plot of user coordinates */
float X3DABS(float x, float y, float z);                                 /* 3: the same one by one */
float Y3DABS(float x, float y, float z);
float X3DPOS(float x, float y, float z);
float Y3DPOS(float x, float y, float z);
float Z3DPOS(float x, float y, float z);
float X3DREL(float x, float y, float z);
float Y3DREL(float x, float y, float z);
/* 3: a transformation of all that is drawn in box coordinates; each acts after the earlier ones. Angles in degrees. */
void TR3ROT(float a, float b, float c); /* about the X, then the Y, then the Z axis */
void TR3SCL(float x, float y, float z);
void TR3SHF(float x, float y, float z);                             /* in user units */
void TR3AXS(float x, float y, float z, float angle);                /* about an axis through the origin */
void TR3RES(void);                                                  /* none again */
void CURV3D(const float* x, const float* y, const float* z, int n); /* 3: a line, or symbols by INCMRK */
void STRT3D(float x, float y, float z);                             /* 3: a move in user coordinates */
void CONN3D(float x, float y, float z);                             /* 3: a line to there */

/* ---- Lights ------------------------------------------------------------------------------------------------------ */

/* Colours of lit surfaces by the model of Phong, with eight lights from 1. Intensities are 0 or more, 1 is full;
 * message 1 otherwise. */
void LIGHT(const char* mode);          /* 1..3: lighting "ON", "OFF"; default "OFF" */
void LITMOD(int id, const char* mode); /* setter: one light "ON", "OFF"; default "OFF" */
/* 1..3: place in box coordinates "ABS", user coordinates "USER", or by angles "ANGL"; default (4, -5, 4) "ABS" */
void LITPOS(int id, float x, float y, float z, const char* mode);
/* 1..3: "AMBI", "DIFF", "SPEC"; attenuation "CONS", "LINE", "QUAD"; default 0, 1, 1; 1, 0, 0 */
void LITOPT(int id, float x, const char* option);
void LITOP3(int id, float r, float g, float b, const char* option); /* 1..3: "AMBI", "DIFF", "SPEC" as colours */
/* 1..3: material of the faces of SETFCE, "AMBI", "DIFF", "SPEC", "EXPO"; default 0.2, 0.8, 0, 0 */
void MATOPT(float x, const char* option);
void MATOP3(float r, float g, float b, const char* option); /* 1..3: "AMBI", "DIFF", "SPEC" as colours */
void SETFCE(const char* face);                              /* setter: "TOP", "BOTT", "BOTH"; default "BOTH" */
/* 1..3: colour index of a point in user coordinates with a normal, on the upper face */
int GETLIT(float x, float y, float z, float xn, float yn, float zn);

/* ---- Surfaces with hidden lines --------------------------------------------------------------------------------- */

/* Grid arrays have the index of y fastest: the value at (i, j) is z[i * m + j]. Lines are drawn from the front to the
 * back, and hidden by those before them. */
void SURFCE(const float* x, int n, const float* y, int m, const float* z); /* 3: mesh, or bars after POLCRV("BARS") */
/* 3: mesh of a matrix over the axis limits or those of SURSZE. nx, ny: points of an interval along lines of that
 * direction; 0 no such lines; -p each p-th line */
void SURMAT(const float* z, int n, int m, int nx, int ny);
/* 3: mesh of a function, with lines at steps from the limits before the eye, and nx, ny points of a step along them */
void SURFUN(float (*function)(float x, float y), int nx, float xstep, int ny, float ystep);
void SURVIS(const char* side);    /* setter: "AUTO", "TOP", "BOTT", "BOTH"; default "AUTO" */
void SUROPT(const char* lines);   /* setter: lines of SURFCE "BOTH", along X "XISO", along Y "YISO" */
void SURCLR(int top, int bottom); /* setter: colours of the two sides, -1 the current one; default -1, -1 */
void NOHIDE(void);                /* setter: surfaces are drawn without hiding */
void SHLSUR(void);                /* setter: surfaces hide what is drawn after them, until HIDLIN("OFF") */
void HIDLIN(const char* mode);    /* 1..3: "ON": lines hide those drawn after them; "OFF" */

/* ---- Fields of vectors ----------------------------------------------------------------------------------------- */

/* Codes of arrows are those of VECTOR; VECOPT tells the shape of heads where their digits are 0. */
/* 2, 3: arrows from n points, as long as the vectors in proportion */
void VECFLD(const float* xv, const float* yv, const float* xp, const float* yp, int n, int code);
/* 2, 3: the same from the points x[i], y[j] of a grid; matrices of n * m vectors, the Y index fastest */
void VECMAT(const float* xmat, const float* ymat, int n, int m, const float* x, const float* y, int code);
/* 2, 3: arrows from points to points */
void FIELD(const float* x1, const float* y1, const float* x2, const float* y2, int n, int code);
/* setter: "ANGL" degrees between shaft and head, below 90, default 20; "SIZE" length of heads as part of the arrow,
 * default 0.25; "LENG" plot units of the longest arrow of VECFLD and VECMAT, default by the number of arrows; "SCAL"
 * factor of that length, default 1 */
void VECOPT(float x, const char* key);
void VECCLR(int color); /* setter: of arrows; -1 the current colour, -2 by length on the colour scale; default -1 */
/* 2, 3: streamlines of a field on the grid x[i], y[j], through nseeds seeds, or for 0 at even distances, the first one
 * through the point of STRTPT if it lies inside. n, m at least 2, message 124 if coordinates neither rise nor fall,
 * 180 for seeds outside. (B. Jobard, W. Lefer, 1997) */
void STREAM(const float* xmat, const float* ymat, int n, int m, const float* x, const float* y, const float* xseeds,
            const float* yseeds, int nseeds);
/* 2, 3: the same for vectors at n points with triangles between them, corners by numbers from 1 */
void STMTRI(const float* xvec, const float* yvec, const float* x, const float* y, int n, const int* i1, const int* i2,
            const int* i3, int ntri, const float* xseeds, const float* yseeds, int nseeds);
/* 1..3: the points of the streamline through (x0, y0) from its begin to its end; message 112 if there are more than
 * nmax */
void STMPTS(const float* xmat, const float* ymat, int n, int m, const float* x, const float* y, float x0, float y0,
            float* xpts, float* ypts, int nmax, int* npts);
/* setter: "INTE": "EULER", "RK2", "RK4", default the last; "CLOS": lines that come back to their seed are closed,
 * "ARRO": heads along lines: "OFF", "ON", default "OFF" */
void STMMOD(const char* value, const char* key);
/* setter: "POIN" points of a line in each direction, default 1000; "CLOS" points from one test for a closed line to the
 * next, 10; "ARRO" code of heads, 1201; "STRE" lines placed without seeds, 10000; for LICPTS "HITS" lines over a grid
 * point after which none begins there, 1; "LICM" points on each side at which a line gives means, 50; "LICL" points on
 * each side of a mean, 20 */
void STMOPT(int n, const char* key);
/* setter, parts of the longer side of the field on the page: "STEP" 0.005; "DIST" between lines, 0.03; "TEST" at which
 * a line ends beside another one, 0.015; "CLOS" from the seed of a closed line, 0.01; "ARRO" between heads, 0.2. "LICS"
 * step of LICPTS in grid steps, 0.5 */
void STMVAL(float x, const char* key);
/* 1..3: means of a texture of n * m values along the lines of a field on the same grid, the Y index fastest, as
 * integers and as they are. (B. Cabral, L. Leedom, 1993) */
void LICPTS(const float* xmat, const float* ymat, int n, int m, const int* texture, int* values, float* means);
/* setter: "FAST": a line gives means to all grid points on it, default "ON"; "SCAL": means are spread over the range of
 * the texture, default "OFF" */
void LICMOD(const char* value, const char* key);

/* ---- Shaded surfaces and solids ---------------------------------------------------------------------------------- */

/* The z-buffer keeps a depth for each pixel of a window or a raster; in PostScript and PDF a raster is opened for it
 * and put on the page as an image. The depth list collects polygons and paints the farthest first; vectors stay
 * vectors. Warnings 115 and 120 if one of them is not open, or open already. */
int ZBFINI(void);              /* 1..3: opens the z-buffer; 0 if it is ready. Message 40 for other devices */
void ZBFFIN(void);             /* 1..3: closes it */
void ZBFRES(void);             /* 1..3: all depths are far again */
void ZBFERS(void);             /* 1..3: the raster is empty again */
void ZBFMOD(const char* mode); /* setter: "ON" or, without depths in the order given, "OFF"; default "ON" */
void ZBFSCL(float factor);     /* setter: resolution of the raster in documents, 1 to 10 times 72 an inch; default 1 */
/* 3: triangle of three points in user coordinates, their colours run over it */
void ZBFTRI(const float* x, const float* y, const float* z, const int* colors);
void ZBFLIN(float x1, float y1, float z1, float x2, float y2, float z2); /* 3: line in user coordinates */
int DBFINI(void);              /* 1..3: opens the depth list; 0 if it is ready */
void DBFFIN(void);             /* 1..3: paints what it holds */
void DBFMOD(const char* mode); /* setter: "ON" or, in the order given, "OFF"; default "ON" */

/* 3: function on a grid, coloured by the scale of Z, by SURCLR after SHDMOD("OFF", "ZSCA"), or by the lights. Without
 * z-buffer and depth list facets are painted from the farthest on */
void SURSHD(const float* x, int n, const float* y, int m, const float* z);
/* 3: the same, coloured by the values w of the grid */
void SURSHC(const float* x, int n, const float* y, int m, const float* z, const float* w);
/* 3: parametric surface; coordinate 1, 2, 3 for x, y, z. Message 2 if a step is not positive or a range is empty */
void SURFCP(float (*function)(float a, float b, int coordinate), float a1, float a2, float astep, float b1, float b2,
            float bstep);
/* 3: triangulation; numbers of points from 1 */
void SURTRI(const float* x, const float* y, const float* z, int n, const int* i1, const int* i2, const int* i3,
            int ntri);
/* 3: surface on which w has one value, in the current colour or those of SURCLR; w(i, j, k) is w[(i * m + j) * l + k]
 */
void SURISO(const float* x, int n, const float* y, int m, const float* z, int l, const float* w, float level);
void SURMSH(const char* mode);       /* setter: mesh "OFF", "ON", "ONLY", lines "LINE", points "POIN"; default "OFF" */
void MSHCLR(int color);              /* setter: of the mesh; -1 the current one */
void ZSCALE(float start, float end); /* setter: values of the first and last colour instead of the limits of Z */

/* 3: solids, in the current colour or those of SURCLR. They need a z-buffer or a depth list, else message 115, or 40
 * where there is no raster. Radii are in units of the X axis, heights in those of Z. segments are counted around,
 * stripes along. A radius of 0 draws nothing. */
void SPHE3D(float x, float y, float z, float radius, int segments, int stripes);
void CYLI3D(float x, float y, float z, float radius, float height, int segments, int stripes); /* (x, y, z): foot */
/* cut: height where the cone or the pyramid ends, its whole height for a tip */
void CONE3D(float x, float y, float z, float radius, float height, float cut, int segments, int stripes);
void PYRA3D(float x, float y, float z, float radius, float height, float cut, int sides);
void DISK3D(float x, float y, float z, float inner, float outer, int segments, int rings);
/* From the inner to the outer radius, of a height, between two angles in degrees */
void TORUS3D(float x, float y, float z, float inner, float outer, float height, float from, float to, int segments,
             int parts);
void TUBE3D(float x1, float y1, float z1, float x2, float y2, float z2, float radius, int segments, int stripes);
void PIKE3D(float x1, float y1, float z1, float x2, float y2, float z2, float radius, int segments,
            int stripes);                                             /* the tip is the second point */
void QUAD3D(float x, float y, float z, float lx, float ly, float lz); /* middle and lengths */
/* "CUBE", "TETR", "OCTA", "DODE", "ICOS", with edges of a size */
void PLAT3D(float x, float y, float z, float size, const char* kind);
/* Bars from z1 to z2 with widths and colours, -1 the current one */
void BARS3D(const float* x, const float* y, const float* z1, const float* z2, const float* wx, const float* wy,
            const int* colors, int n);

/* 3: vertices as triangles "TRIA", their strip "TSTR", "POLY", quadrangles "QUAD", their strip "QSTR"; or, without
 * z-buffer too, as points "POIN", pairs "LINE", a curve "CURV", a closed one "PLIN" */
void VTX3D(const float* x, const float* y, const float* z, int n, const char* mode);
void VTXC3D(const float* x, const float* y, const float* z, const int* colors, int n, const char* mode);
void VTXN3D(const float* x, const float* y, const float* z, const float* nx, const float* ny, const float* nz, int n,
            const char* mode);
/* 3: 0 cube, 1 tetrahedron, 2 octahedron, 3 dodecahedron, 4 icosahedron, 5 ball, as high as HSYM3D tells */
void SYMB3D(int symbol, float x, float y, float z);
void HSYM3D(float height);             /* setter: height of symbols, user units of X; default a twentieth of the box */
void ROT3D(float a, float b, float c); /* setter: degrees by which solids stand turned about X, Y and Z; default 0 */
/* 3: tubes from point to point, with a radius (user units of X) and a colour at each, -1 the current one */
void CRVT3D(const float* x, const float* y, const float* z, const float* radius, const int* colors, int n);
void MSHCRV(int segments); /* setter: sides of tubes, 3..1000; default 16 */
void THKC3D(float radius); /* setter: CURV3D draws tubes of this radius, user units of X; default 0: lines */
/* 3: blocks at n points in the colours of the values w, scaled over them or by ZSCALE */
void CURV4D(const float* x, const float* y, const float* z, const float* w, int n);
void SETRES3D(float x, float y, float z); /* setter: size of these blocks, user units; default a twentieth of the box */
void AUTRES3D(int nx, int ny, int nz);    /* 1..3: as large as nx * ny * nz of them fill the box */
/* 3: arrows as of VECTOR: from points to points; vectors at points or on a grid x[i], y[j], z[k], matrices with the Z
 * index fastest, the longest vector a tenth of the box long */
void FIELD3D(const float* x1, const float* y1, const float* z1, const float* x2, const float* y2, const float* z2,
             int n, int code);
void VECF3D(const float* xv, const float* yv, const float* zv, const float* xp, const float* yp, const float* zp, int n,
            int code);
void VECMAT3D(const float* xmat, const float* ymat, const float* zmat, int n, int m, int l, const float* x,
              const float* y, const float* z, int code);
void TRIA3D(const float* x, const float* y, const float* z); /* 3: triangle of three points */

/* ---- Quick plots: a whole graph in one call; the plot is opened if there is none, and stays open ---------------- */

void QPLOT(const float* x, const float* y, int n);  /* any: a curve */
void QPLSCA(const float* x, const float* y, int n); /* any: symbols */
void QPLCRV(const float* x, const float* y, int n,
            const char* place);     /* any: curves in one graph: "FIRS", "NEXT", "LAST" */
void QPLBAR(const float* y, int n); /* any: bars at 1 to n */
void QPLPIE(const float* x, int n); /* any: a pie */
/* any: contour lines of n * m values, the Y index fastest, at 0, 1, ...; levels in equal steps from the least value to
 * the greatest; n, m at least 2 */
void QPLCON(const float* z, int n, int m, int levels);
void QPLCLR(const float* z, int n, int m);      /* any: the cells of such a matrix in colours; n, m at least 2 */
void QPLSUR(const float* matrix, int n, int m); /* any: a surface over 0 to n - 1 and 0 to m - 1, index of y fastest */
/* any: scaling of "X" or "Y" in later calls; "RESE": by the data again; default by the data */
void QPLSCL(float a, float e, float first, float step, const char* axis);

/* ---- Legends --------------------------------------------------------------------------------------------------- */

/* The text buffer belongs to the caller: lines * length characters. All but LEGTYP and MIXLEG need LEGINI first. */
void LEGINI(char* buffer, int lines, int length);      /* 1..3: lines 1..80, length 1..256; all settings anew */
void LEGLIN(char* buffer, const char* text, int line); /* 1..3: text of a line from 1 */
void LEGEND(const char* buffer, int corner);           /* 2, 3: corner 1..10, ignored after LEGPOS */
int NXLEGN(const char* buffer);                        /* 1..3: width of the box with its frame */
int NYLEGN(const char* buffer);                        /* 1..3: height */
void LEGTYP(const char* type);                       /* setter, before LEGINI: "VERT", "HORI", "TABL"; default "VERT" */
void LEGTBL(int n, const char* direction);           /* setter: "VERT" n rows, "HORI" n columns; default 3 "VERT" */
void LEGPOS(int nx, int ny);                         /* setter: upper left corner */
void LEGTIT(const char* title);                      /* setter: "" for no title; default "Legende" */
void LEGVAL(float value, const char* key);           /* setter: "PATT", "MARG", "LINE", "SYMB", "HSPA", "DIST" */
void LEGOPT(float pattern, float margin, float gap); /* setter: in character heights; default 4, 0.5, 1 */
void LEGSEL(const int* lines, int n);                /* setter: n 0..30 lines to draw, -1 all; default -1 */
void LEGCLR(void);                                   /* setter: texts in the colours of the curves */
void LEGBGD(int color);                              /* setter: background, -1 none; default -1 */
/* setter: line type or -1, thickness, symbol or -1, colour or -1, pattern or -1 of a line */
void LEGPAT(int type, int thickness, int symbol, int color, int pattern, int line);
void MIXLEG(void); /* setter: lines break at the control character of SETMIX */

/* ---- Lists of texts: the items of a list are one string, separated by '|' ---------------------------------------- */

void SWGMIX(const char* character, const char* key);  /* any: another separator, key "SEP"; default "|" */
int ITMCNT(const char* list);                         /* any: number of items, 0 of an empty list */
const char* ITMSTR(const char* list, int n);          /* any: item n from 1, its first 255 characters */
void ITMCAT(char* list, const char* item);            /* any: appends an item; the list has room for it */
void ITMNCAT(char* list, int size, const char* item); /* any: the same if the list's size, end mark included, allows */

/* ---- Widgets: a dialog is made by WGINI, one routine a widget, and WGFIN, which waits for the user -----------------
 */

/* Makers give the number of the new widget, or -1 after a message; the parent is a number of WGINI or WGBAS. Faults are
 * told in a box with the routine's name as title, without a display on the standard output. */
int WGINI(const char* layout);             /* any: root of a dialog: "VERT", "HORI", "FORM" */
int WGBAS(int parent, const char* layout); /* any: column, row or form inside of a parent */
void WGFIN(void);  /* any: shows the dialog and returns when it is closed; at once without a display */
void REAWGT(void); /* any: shows the dialog before WGFIN */
void DOEVNT(void); /* any: handles what the user has done, without waiting */
void SENDOK(void); /* any: as if OK had been pressed */
void SENDMB(void); /* any: as if the button that ends the waiting of a plot window had been pressed */
int GWGGUI(void);  /* any: 1 if the last dialog ended by OK, else 0 */
int WGLAB(int parent, const char* label); /* any: label */
/* any: label with a picture in a file; parent 0: the one made last */
int WGICON(int parent, const char* label, int nw, int nh, const char* file);
/* any: label with a picture of nw * nh colour numbers; parent 0: the one made last */
int WGIMG(int parent, const char* label, const unsigned char* picture, int nw, int nh);
int WGSEP(int parent);                               /* any: separator */
int WGBUT(int parent, const char* label, int state); /* any: check button, state 0 or 1 */
int WGPBUT(int parent, const char* label);           /* any: push button */
/* any: push button with a picture in a file; parent 0: the one made last */
int WGPICON(int parent, const char* label, int nw, int nh, const char* file);
/* any: push button with a picture of nw * nh colour numbers; parent 0: the one made last */
int WGPIMG(int parent, const char* label, const unsigned char* picture, int nw, int nh);
int WGOK(int parent);                                          /* any: button that ends the dialog */
int WGQUIT(int parent);                                        /* any: button that ends the program */
int WGCMD(int parent, const char* label, const char* command); /* any: button that runs a command of the system */
int WGLIS(int parent, const char* list, int selected);         /* any: list; selected item from 1, 0 none */
int WGDLIS(int parent, const char* list, int selected);        /* any: drop-down list */
int WGBOX(int parent, const char* list, int selected);         /* any: buttons of which one is pressed */
int WGTXT(int parent, const char* text);                       /* any: line of text, up to 255 characters */
int WGLTXT(int parent, const char* label, const char* text,
           int n);                          /* any: the same with a label; n percent for the text */
int WGSTXT(int parent, int rows, int kept); /* any: lines of text: shown, and kept */
/* any: scale from low to high in steps of SWGSTP, at a value, with so many decimals */
int WGSCL(int parent, const char* label, float low, float high, float value, int decimals);
int WGPBAR(int parent, float low, float high, float step);                    /* any: progress bar */
int WGFIL(int parent, const char* label, const char* file, const char* mask); /* any: button that chooses a file */
int WGDRAW(int parent);                                                       /* any: area for drawing */
int WGTBL(int parent, int rows, int columns);                                 /* any: table */
int WGPOP(int parent, const char* label);                                     /* any: menu of the dialog */
int WGPOPB(int parent, const unsigned char* picture, int nw, int nh);         /* any: the same with a picture */
int WGAPP(int menu, const char* label);                                       /* any: item of a menu */
int WGAPPB(int menu, const unsigned char* picture, int nw, int nh);           /* any: the same with a picture */

/* any: routines that are called with the widget's number when the user changes it */
void SWGCBK(int id, void (*routine)(int));
void SWGCB(int id, void (*routine)(int, int*), int* array); /* any: called with an array of the program, too */
void SWGCB2(int id, void (*routine)(int, int, int));        /* any: row and column of a table; size of a root */
void SWGCB3(int id, void (*routine)(int, int));             /* any: mouse button on a draw widget */

void SWGPOS(int x, int y);                        /* any: place of the next root or child of a form, pixels */
void SWGSIZ(int width, int height);               /* any: its size */
void SWGWIN(int x, int y, int width, int height); /* any: both */
void SWGOFF(int n, int side);   /* any: pixels at side 0 left, 1 top, 2 right, 3 bottom of widgets; default 0 */
void SWGWTH(int n);             /* any: width in rows: characters, or -1..-100 percent of the screen; default 20 */
void SWGSPC(float x, float y);  /* any: gaps in characters, or percent of the screen below 0; default 4, 0.5 */
void SWGSTP(float step);        /* any: step of scales; default 1 */
void SWGDRW(float ratio);       /* any: height of draw widgets by their width; default 0.707 */
void SWGTIT(const char* title); /* any: title of dialogs, up to 132 characters */
void SWGHLP(const char* text);  /* any: text of the menu Help, its lines separated as items of lists */
void SWGPOP(
    const char* option); /* any: "NOOK", "NOQUIT", "NOHELP", "OK", "QUIT", "HELP": items of the menu; default all */
void SWGMOD(const char* option); /* any: "AUTO", "XWIN", "ASCII"; without effect */
/* any: keys "POSI", "FILE", "BACK", "MASK", "DWGF", "DIAL", "CALL", "SCRO", "CLOS", "EDIT", "FRAM", "HEAD", "BORD",
 * "PBAR", "VERI", "SEPA", "SLID", "CODI", "FULL" */
void SWGOPT(const char* value, const char* key);
/* any: keys "LIST", "BOX", "SCALE", "DRAW", "PBAR", "TABLE", "MAIN", "FILE", "SEPA", "POPUP", "TEXT" */
void SWGTYP(const char* value, const char* key);
void SWGIOP(int n, const char* option); /* any: rows of "LIST", "TABL", "DLIS"; pixels of "VMAR", "HMAR", "ICON" */
void SWGJUS(const char* value, const char* key); /* any: "LEFT", "CENT", "RIGHT" for "LABEL", "BUTTON", "TABLE" */
void SWGMRG(int n, const char* option);          /* any: margins of draw widgets: "LEFT", "TOP", "RIGHT", "BOTT" */
/* any: colours 0..1 of "BACK", "FORE", "SCROLL", "LTEXT", "PBAR"; "RESET": those of the system */
void SWGCLR(float r, float g, float b, const char* option);
void SWGFNT(const char* font, int points); /* any: font, "Bold" and "Italic" as its last words; "STANDARD" */
/* any: widths of the columns of tables, key "TABLE": characters, or percent of the table below 0 */
void SWGRAY(const float* widths, int n, const char* option);
void SWGATT(int id, const char* value, const char* key); /* any: "STAT" "ACTI", "INAC", "INVI" and others */
int GWGATT(int id, const char* key);                     /* any: number of the keyword from 0 */
void SWGBGD(int id, float r, float g, float b);          /* any: background of a widget */
void SWGFGD(int id, float r, float g, float b);          /* any: foreground of a widget */
void SWGFOC(int id);                                     /* any: gives the focus */
void GWGSIZ(int id, int* width, int* height);            /* any: size in pixels */
int GWGXID(int id);                                      /* any: number in the window system */

void SWGBUT(int id, int state);                 /* any: state of a check button */
int GWGBUT(int id);                             /* any: the same */
void SWGLIS(int id, int item);                  /* any: selection of a list from 1, 0 none */
int GWGLIS(int id);                             /* any: the same */
void SWGBOX(int id, int item);                  /* any: selection of a box from 1, 0 none */
int GWGBOX(int id);                             /* any: the same */
void SWGSCL(int id, float value);               /* any: value of a scale */
float GWGSCL(int id);                           /* any: the same */
void SWGVAL(int id, float value);               /* any: value of a progress bar */
void SWGINT(int id, int value);                 /* any: integer into a text */
int GWGINT(int id);                             /* any: text as an integer; 0 after a message */
void SWGFLT(int id, float value, int decimals); /* any: number into a text */
float GWGFLT(int id);                           /* any: text as a number; 0 after a message */
void SWGTXT(int id, const char* text);          /* any: text of a line or label; another line below those of WGSTXT */
const char* GWGTXT(int id);                     /* any: text of a line */
void SWGFIL(int id, const char* file);          /* any: name of a file */
const char* GWGFIL(int id);                     /* any: the same */
/* any: "VALUE", "EDIT" on or off, "ALIGN", "VERI" of a cell; row or column 0: all, -1: of the head */
void SWGTBS(int id, const char* value, int row, int column, const char* option);
void SWGTBF(int id, float value, int decimals, int row, int column, const char* option); /* any: number into cells */
void SWGTBI(int id, int value, int row, int column, const char* option);                 /* any: integer into cells */
/* any: numbers into a "ROW" or "COLUMN" */
void SWGTBL(int id, const float* values, int n, int decimals, int index, const char* option);
void GWGTBL(int id, float* values, int n, int index, const char* option); /* any: a whole row or column */
const char* GWGTBS(int id, int row, int column);                          /* any: text of a cell */
int GWGTBI(int id, int row, int column);                                  /* any: the same as an integer */
float GWGTBF(int id, int row, int column);                                /* any: the same as a number */

/* Dialogs of their own; without a display they give what the user had not changed. */
void MSGBOX(const char* text);                           /* any: message in a box; lines separated as items of lists */
void DWGMSG(const char* text);                           /* any: the same with the title of SWGTIT */
int DWGBUT(const char* question, int yes);               /* any: 1 if the user says yes; yes 1: as the button at hand */
const char* DWGTXT(const char* label, const char* text); /* any: a line of text */
int DWGLIS(const char* label, const char* list, int selected);             /* any: selected item from 1, 0 none */
const char* DWGFIL(const char* label, const char* file, const char* mask); /* any: name of a file */
int DWGERR(void); /* any: the last dialog ended with 0 OK, 1 Cancel; -1 before the first one */

/* ---- Numeric helpers: arrays of the user alone ----------------------------------------------------------------- */

/* any, 2..3 when it draws: y = a * x + b and correlation r, n at least 2; "NONE", "ALL" draws symbols and line, "LINE"
 */
void LINFIT(const float* x, const float* y, int n, float* a, float* b, float* r, const char* option);
float MOMENT(const float* x, int n, const char* kind);     /* any: "MEAN", "AVER", "VARI", "STAN", "THIR", "FOUR" */
void SORTR1(float* x, int n, const char* order);           /* any: 'A' ascending, 'D' descending */
void SORTR2(float* x, float* y, int n, const char* order); /* any: y keeps step with x */
void TRFCO1(float* x, int n, const char* from, const char* to); /* any: "DEGR", "RADI" */
/* any: "RECT" x, y; "POLA" radius, angle; "SPHE" longitude, latitude, radius; "CYLI" radius, angle, z; in degrees */
void TRFCO2(float* x, float* y, int n, const char* from, const char* to);
void TRFCO3(float* x, float* y, float* z, int n, const char* from, const char* to);
/* any: np points, at least 2, of the Bezier curve with n control points 2..100, in equal steps of its parameter */
void BEZIER(const float* x, const float* y, int n, float* xp, float* yp, int np);
/* any: counts of the finite values in classes of equal width from the least to the greatest: 1 + log2 n classes (H. A.
 * Sturges, 1926), rounded up, one for equal values; middles and counts have room for n elements */
void HISTOG(const float* x, int n, float* middles, float* counts, int* classes);
/* any: middle and radius of the circle through three points; message 102 and no change if they lie on a line */
void CIRC3P(float x1, float y1, float x2, float y2, float x3, float y3, float* xm, float* ym, float* r);
/* any: the part of a polygon on one side of an edge: not below a value ("XMIN", "YMIN") or not above ("XMAX", "YMAX");
 * room for size points, message 112 if there are more (I. Sutherland, G. Hodgman, 1974) */
void POLCLP(const float* x, const float* y, int n, float* xp, float* yp, int size, int* np, float value,
            const char* edge);
/* any: bilinear resampling of a matrix with y fast, all sizes at least 2 */
void TRFMAT(const float* z, int nx, int ny, float* z2, int nx2, int ny2);

/* ---- Words, numbers as texts, and files of bytes --------------------------------------------------------------- */

void SWAPI2(short* values, int n); /* any: swaps the bytes of each value */
void SWAPI4(int* values, int n);
/* any: the target with n bits of the source copied into it; places from 0, the lowest bit; bits outside the words are
 * left out */
short BITSI2(int n, short source, int from, short target, int to);
int BITSI4(int n, int source, int from, int target, int to);
/* any: nx * ny values 0 or 255 without order, always the same, as ground of line integral convolution */
void TXTURE(int* values, int nx, int ny);
void FREEPTR(void);                /* any: nothing; memory belongs to its arrays */
void UPSTR(char* text);            /* any: letters a to z become capitals */
int INTLEN(int value);             /* any: characters of an integer */
int FLEN(float value, int digits); /* any: of a number with so many decimals, -1 for an integer, up to 100 */
int INTCHA(int value, char* text); /* any: the integer as a text; its length */
int FCHA(float value, int digits, char* text); /* any: the number as a text; its length */
/* any: opens a file for bytes under a number 1..99; mode 0 reads, 1 writes anew, 2 appends; 0, or -1 after a warning */
int OPENFL(const char* name, int number, int mode);
int CLOSFL(int number);                           /* any: 0, or -1 after a warning */
int READFL(int number, void* bytes, int n);       /* any: bytes read, less than n at the end; -1 after a warning */
int WRITFL(int number, const void* bytes, int n); /* any: bytes written */
int SKIPFL(int number, int n);                    /* any: moves by n bytes; 0, or -1 */
int TELLFL(int number);                           /* any: position, from 0; -1 after a warning */
int POSIFL(int number, int position);             /* any: moves to a position; 0, or -1 */

/* ---- FITS files: any level, one file at a time; failures are told and give negative results -------------------- */

int FITSOPN(const char* name); /* opens and reads the first header: 0; messages 195 to 198 */
void FITSCLS(void);            /* closes; message 199 */
/* makes header and data unit n, from 1, current: 0 primary, 1 image, 2 table, 3 binary table; 196 to 199, 201 */
int FITSHDU(int n);
int FITSVAL(const char* key);    /* value of an integer keyword, 1 or 0 of a logical one; -1: 199, 200, 201 */
double FITSFLT(const char* key); /* value of an integer or real keyword; -1 */
/* 0 integer, 1 real, 2 empty string, 3 string, 4 true, 5 false, 6 and 7 complex integer and real, 8 nothing, 9 no value
 */
int FITSTYP(const char* key);
void FITSSTR(const char* key, char* text, int size); /* a string, doubled quotes as one; 204 if it is cut */
/* copies the data as they stand, big-endian, and gives their bytes; size 0 only asks; 199, 201, 202 */
int FITSIMG(unsigned char* data, int size);

#ifdef __cplusplus
}
#endif

#endif
