/* Colour graphs, contour lines and fields of vectors. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_FIELDS_H
#define QUILLA_FIELDS_H

#ifdef __cplusplus
extern "C" {
#endif

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

#ifdef __cplusplus
}
#endif

#endif
