/* Numbers and words of the user alone. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_VALUES_H
#define QUILLA_VALUES_H

#ifdef __cplusplus
extern "C" {
#endif

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

#ifdef __cplusplus
}
#endif

#endif
