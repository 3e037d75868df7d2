/* Lists of texts, widgets and dialogs. What levels and units mean is told in quilla.h. */
#ifndef QUILLA_WIDGETS_H
#define QUILLA_WIDGETS_H

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Lists of texts: the items of a list are one string, separated by '|' ---------------------------------------- */

void SWGMIX(const char* character, const char* key);  /* any: another separator, key "SEP"; default "|" */
int ITMCNT(const char* list);                         /* any: number of items, 0 of an empty list */
const char* ITMSTR(const char* list, int n);          /* any: item n from 1, its first 255 characters */
void ITMCAT(char* list, const char* item);            /* any: appends an item; the list has room for it */
void ITMNCAT(char* list, int size, const char* item); /* any: the same if the list's size, end mark included, allows */

/* ---- Widgets: a dialog is made by WGINI, one routine a widget, and WGFIN, which waits for the user -----------------
 */

/* Makers give the number of the new widget, or -1 after a message; the parent is a number of WGINI or WGBAS. Faults are
 * told in a box with the routine's name as title, without a display on the standard output. */
int WGINI(const char* layout);             /* any: root of a dialog: "VERT", "HORI", "FORM" */
int WGBAS(int parent, const char* layout); /* any: column, row or form inside of a parent */
void WGFIN(void);  /* any: shows the dialog and returns when it is closed; at once without a display */
void REAWGT(void); /* any: shows the dialog before WGFIN */
void DOEVNT(void); /* any: handles what the user has done, without waiting */
void SENDOK(void); /* any: as if OK had been pressed */
void SENDMB(void); /* any: as if the button that ends the waiting of a plot window had been pressed */
int GWGGUI(void);  /* any: 1 if the last dialog ended by OK, else 0 */
int WGLAB(int parent, const char* label); /* any: label */
/* any: label with a picture in a file; parent 0: the one made last */
int WGICON(int parent, const char* label, int nw, int nh, const char* file);
/* any: label with a picture of nw * nh colour numbers; parent 0: the one made last */
int WGIMG(int parent, const char* label, const unsigned char* picture, int nw, int nh);
int WGSEP(int parent);                               /* any: separator */
int WGBUT(int parent, const char* label, int state); /* any: check button, state 0 or 1 */
int WGPBUT(int parent, const char* label);           /* any: push button */
/* any: push button with a picture in a file; parent 0: the one made last */
int WGPICON(int parent, const char* label, int nw, int nh, const char* file);
/* any: push button with a picture of nw * nh colour numbers; parent 0: the one made last */
int WGPIMG(int parent, const char* label, const unsigned char* picture, int nw, int nh);
int WGOK(int parent);                                          /* any: button that ends the dialog */
int WGQUIT(int parent);                                        /* any: button that ends the program */
int WGCMD(int parent, const char* label, const char* command); /* any: button that runs a command of the system */
int WGLIS(int parent, const char* list, int selected);         /* any: list; selected item from 1, 0 none */
int WGDLIS(int parent, const char* list, int selected);        /* any: drop-down list */
int WGBOX(int parent, const char* list, int selected);         /* any: buttons of which one is pressed */
int WGTXT(int parent, const char* text);                       /* any: line of text, up to 255 characters */
int WGLTXT(int parent, const char* label, const char* text,
           int n);                          /* any: the same with a label; n percent for the text */
int WGSTXT(int parent, int rows, int kept); /* any: lines of text: shown, and kept */
/* any: scale from low to high in steps of SWGSTP, at a value, with so many decimals */
int WGSCL(int parent, const char* label, float low, float high, float value, int decimals);
int WGPBAR(int parent, float low, float high, float step);                    /* any: progress bar */
int WGFIL(int parent, const char* label, const char* file, const char* mask); /* any: button that chooses a file */
int WGDRAW(int parent);                                                       /* any: area for drawing */
int WGTBL(int parent, int rows, int columns);                                 /* any: table */
int WGPOP(int parent, const char* label);                                     /* any: menu of the dialog */
int WGPOPB(int parent, const unsigned char* picture, int nw, int nh);         /* any: the same with a picture */
int WGAPP(int menu, const char* label);                                       /* any: item of a menu */
int WGAPPB(int menu, const unsigned char* picture, int nw, int nh);           /* any: the same with a picture */

/* any: routines that are called with the widget's number when the user changes it */
void SWGCBK(int id, void (*routine)(int));
void SWGCB(int id, void (*routine)(int, int*), int* array); /* any: called with an array of the program, too */
void SWGCB2(int id, void (*routine)(int, int, int));        /* any: row and column of a table; size of a root */
void SWGCB3(int id, void (*routine)(int, int));             /* any: mouse button on a draw widget */

void SWGPOS(int x, int y);                        /* any: place of the next root or child of a form, pixels */
void SWGSIZ(int width, int height);               /* any: its size */
void SWGWIN(int x, int y, int width, int height); /* any: both */
void SWGOFF(int n, int side);   /* any: pixels at side 0 left, 1 top, 2 right, 3 bottom of widgets; default 0 */
void SWGWTH(int n);             /* any: width in rows: characters, or -1..-100 percent of the screen; default 20 */
void SWGSPC(float x, float y);  /* any: gaps in characters, or percent of the screen below 0; default 4, 0.5 */
void SWGSTP(float step);        /* any: step of scales; default 1 */
void SWGDRW(float ratio);       /* any: height of draw widgets by their width; default 0.707 */
void SWGTIT(const char* title); /* any: title of dialogs, up to 132 characters */
void SWGHLP(const char* text);  /* any: text of the menu Help, its lines separated as items of lists */
void SWGPOP(
    const char* option); /* any: "NOOK", "NOQUIT", "NOHELP", "OK", "QUIT", "HELP": items of the menu; default all */
void SWGMOD(const char* option); /* any: "AUTO", "XWIN", "ASCII"; without effect */
/* any: keys "POSI", "FILE", "BACK", "MASK", "DWGF", "DIAL", "CALL", "SCRO", "CLOS", "EDIT", "FRAM", "HEAD", "BORD",
 * "PBAR", "VERI", "SEPA", "SLID", "CODI", "FULL" */
void SWGOPT(const char* value, const char* key);
/* any: keys "LIST", "BOX", "SCALE", "DRAW", "PBAR", "TABLE", "MAIN", "FILE", "SEPA", "POPUP", "TEXT" */
void SWGTYP(const char* value, const char* key);
void SWGIOP(int n, const char* option); /* any: rows of "LIST", "TABL", "DLIS"; pixels of "VMAR", "HMAR", "ICON" */
void SWGJUS(const char* value, const char* key); /* any: "LEFT", "CENT", "RIGHT" for "LABEL", "BUTTON", "TABLE" */
void SWGMRG(int n, const char* option);          /* any: margins of draw widgets: "LEFT", "TOP", "RIGHT", "BOTT" */
/* any: colours 0..1 of "BACK", "FORE", "SCROLL", "LTEXT", "PBAR"; "RESET": those of the system */
void SWGCLR(float r, float g, float b, const char* option);
void SWGFNT(const char* font, int points); /* any: font, "Bold" and "Italic" as its last words; "STANDARD" */
/* any: widths of the columns of tables, key "TABLE": characters, or percent of the table below 0 */
void SWGRAY(const float* widths, int n, const char* option);
void SWGATT(int id, const char* value, const char* key); /* any: "STAT" "ACTI", "INAC", "INVI" and others */
int GWGATT(int id, const char* key);                     /* any: number of the keyword from 0 */
void SWGBGD(int id, float r, float g, float b);          /* any: background of a widget */
void SWGFGD(int id, float r, float g, float b);          /* any: foreground of a widget */
void SWGFOC(int id);                                     /* any: gives the focus */
void GWGSIZ(int id, int* width, int* height);            /* any: size in pixels */
int GWGXID(int id);                                      /* any: number in the window system */

void SWGBUT(int id, int state);                 /* any: state of a check button */
int GWGBUT(int id);                             /* any: the same */
void SWGLIS(int id, int item);                  /* any: selection of a list from 1, 0 none */
int GWGLIS(int id);                             /* any: the same */
void SWGBOX(int id, int item);                  /* any: selection of a box from 1, 0 none */
int GWGBOX(int id);                             /* any: the same */
void SWGSCL(int id, float value);               /* any: value of a scale */
float GWGSCL(int id);                           /* any: the same */
void SWGVAL(int id, float value);               /* any: value of a progress bar */
void SWGINT(int id, int value);                 /* any: integer into a text */
int GWGINT(int id);                             /* any: text as an integer; 0 after a message */
void SWGFLT(int id, float value, int decimals); /* any: number into a text */
float GWGFLT(int id);                           /* any: text as a number; 0 after a message */
void SWGTXT(int id, const char* text);          /* any: text of a line or label; another line below those of WGSTXT */
const char* GWGTXT(int id);                     /* any: text of a line */
void SWGFIL(int id, const char* file);          /* any: name of a file */
const char* GWGFIL(int id);                     /* any: the same */
/* any: "VALUE", "EDIT" on or off, "ALIGN", "VERI" of a cell; row or column 0: all, -1: of the head */
void SWGTBS(int id, const char* value, int row, int column, const char* option);
void SWGTBF(int id, float value, int decimals, int row, int column, const char* option); /* any: number into cells */
void SWGTBI(int id, int value, int row, int column, const char* option);                 /* any: integer into cells */
/* any: numbers into a "ROW" or "COLUMN" */
void SWGTBL(int id, const float* values, int n, int decimals, int index, const char* option);
void GWGTBL(int id, float* values, int n, int index, const char* option); /* any: a whole row or column */
const char* GWGTBS(int id, int row, int column);                          /* any: text of a cell */
int GWGTBI(int id, int row, int column);                                  /* any: the same as an integer */
float GWGTBF(int id, int row, int column);                                /* any: the same as a number */

/* Dialogs of their own; without a display they give what the user had not changed. */
void MSGBOX(const char* text);                           /* any: message in a box; lines separated as items of lists */
void DWGMSG(const char* text);                           /* any: the same with the title of SWGTIT */
int DWGBUT(const char* question, int yes);               /* any: 1 if the user says yes; yes 1: as the button at hand */
const char* DWGTXT(const char* label, const char* text); /* any: a line of text */
int DWGLIS(const char* label, const char* list, int selected);             /* any: selected item from 1, 0 none */
const char* DWGFIL(const char* label, const char* file, const char* mask); /* any: name of a file */
int DWGERR(void); /* any: the last dialog ended with 0 OK, 1 Cancel; -1 before the first one */

#ifdef __cplusplus
}
#endif

#endif
