/* A plot: its begin and end, its device and files, its messages and its page. What levels and units mean is told in
 * quilla.h. */
#ifndef QUILLA_PLOT_H
#define QUILLA_PLOT_H

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

/* ---- Messages -------------------------------------------------------------------------------------------------- */

void ERRDEV(const char* device); /* 0: "CONS", "FILE", "APPE"; default "CONS" */
void ERRFIL(const char* name);   /* 0: name of the error file; default "quilla.err" */
void ERRMOD(const char* key,
            const char* mode); /* setter: "WARN", "CHEC", "PROT", "ALL"; "ON", "OFF", "FILE"; default "ON" */
void NOCHEK(void);             /* setter: no reports of points out of scale */
void UNIT(FILE* stream);       /* setter: stream of all messages; null: none at all */
FILE* GETUNI(void);            /* 1..3: stream of messages; null: none */
void SYMFIL(const char* device, const char* status); /* 0, after QUIFIN: prints the file; "KEEP" or "DELE" */
void WINAPP(const char* mode);                       /* 0: "CONS", "WIND": the protocol in a message box */

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

#ifdef __cplusplus
}
#endif

#endif
