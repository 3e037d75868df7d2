/* Curves, bars, pies, legends, and graphs in one call. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_GRAPHS_H
#define QUILLA_GRAPHS_H

#ifdef __cplusplus
extern "C" {
#endif

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

#ifdef __cplusplus
}
#endif

#endif
