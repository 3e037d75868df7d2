/* Plot windows, and positions by the mouse. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_WINDOWS_H
#define QUILLA_WINDOWS_H

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Plot windows and the mouse --------------------------------------------------------------------------------- */

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
            const char* key); /* setter: CSRPOS "STAN", "SET", "READ", "GET"; key "POS"; default "STAN" */

#ifdef __cplusplus
}
#endif

#endif
