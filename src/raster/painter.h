// Drawing on the canvas with its pen: lines, polygons, rectangles, symbols. Everything is cut at the clip rectangle.
#pragma once

#include "raster/canvas.h"

namespace quilla {

enum CanvasPen : int { kCanvasDraw = 2, kCanvasMove = 3 };
enum CanvasCap : int { kCanvasCapCut = 0, kCanvasCapRound = 1, kCanvasCapLong = 2 };
enum CanvasJoin : int { kCanvasJoinSharp = 0, kCanvasJoinRound = 1, kCanvasJoinTruncated = 2 };

// Colour of the pen. The pending polyline is drawn first, in the old one.
void setCanvasColour(RasterCanvas& canvas, int index, Rgb colour);
void setCanvasAlpha(RasterCanvas& canvas, int alpha);
void setCanvasPen(RasterCanvas& canvas, int width, int cap, int join);

// Pen move or draw. Points are collected and drawn by flushCanvas, by a move, or when kCanvasPathLimit of them wait. A
// move alone draws nothing; a move and a draw to the same point make a dot.
void canvasLine(RasterCanvas& canvas, int x, int y, int code);
void flushCanvas(RasterCanvas& canvas);

// Filled polygon, even-odd. A row y is crossed by an edge when one end lies above it and the other on it or below, so
// that a vertex counts once; columns are filled from crossing to crossing, both included, crossings rounded. Of more
// than 99 crossings in a row those behind are left out.
FillResult canvasFill(RasterCanvas& canvas, const float* xs, const float* ys, int n);

// Filled rectangle between two corners, both included, in a colour of its own.
void canvasRectangle(RasterCanvas& canvas, int x1, int y1, int x2, int y2, int index, Rgb colour);

// Symbol 0 to 23 of a size in pixels; any other number draws nothing.
void canvasSymbol(RasterCanvas& canvas, int number, int x, int y, int size);

// The transparency layer: drawing goes into a picture of its own, which is blended over the canvas at the end. False
// without memory for it.
bool openLayer(RasterCanvas& canvas);
// Blends what was drawn into the layer over the picture and clears it; the layer stays open. Over pixels of the
// background the colour is copied as it is, unless blendBackground.
void mergeLayer(RasterCanvas& canvas, bool blendBackground);
void closeLayer(RasterCanvas& canvas, bool blendBackground);

} // namespace quilla
