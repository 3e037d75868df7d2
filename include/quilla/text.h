/* Text, its fonts and formulas. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_TEXT_H
#define QUILLA_TEXT_H

#ifdef __cplusplus
extern "C" {
#endif

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

#ifdef __cplusplus
}
#endif

#endif
