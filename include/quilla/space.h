/* Three-dimensional axis systems, lights, surfaces and solids. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_SPACE_H
#define QUILLA_SPACE_H

#ifdef __cplusplus
extern "C" {
#endif

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

#ifdef __cplusplus
}
#endif

#endif
