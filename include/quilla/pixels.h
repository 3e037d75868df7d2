/* Pictures of pixels, and FITS files. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_PIXELS_H
#define QUILLA_PIXELS_H

#ifdef __cplusplus
extern "C" {
#endif

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
