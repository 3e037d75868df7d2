/* Lines, patterns, colours, shields and areas. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_DRAWING_H
#define QUILLA_DRAWING_H

#ifdef __cplusplus
extern "C" {
#endif

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

#ifdef __cplusplus
}
#endif

#endif
