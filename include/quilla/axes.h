/* Axis systems, axes and titles. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_AXES_H
#define QUILLA_AXES_H

#ifdef __cplusplus
extern "C" {
#endif

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

#ifdef __cplusplus
}
#endif

#endif
