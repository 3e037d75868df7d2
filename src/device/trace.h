// The hidden trace: one line of text for each primitive that reaches the sink, in plot coordinates. It is on when the
// environment variable QUILLA_TRACE names a file, to which the lines are appended; device.trace is its stream.
#pragma once

#include "core/plot_state.h"
#include "device/sink.h"

namespace quilla {

void openTrace(PlotState* s);
void closeTrace(PlotState* s);

// To be called only while device.trace is set.
void traceWord(const PlotState* s, const char* name);                                 // "newpage"
void traceNumber(const PlotState* s, const char* name, int value);                    // "cap 2"
void traceReals(const PlotState* s, const char* name, const float* values, int n);    // "move 100.00 200.00"
void traceColor(const PlotState* s, const char* name, int color);                     // "color 0x010000ff"
void traceFill(const PlotState* s, const float* x, const float* y, int n);            // "fill 3 x y x y x y"
void traceBar(const PlotState* s, float x1, float y1, float x2, float y2, int color); // "bar x y x y 0x000000ff"
void traceGlyph(const PlotState* s, const DriverGlyph& glyph);                        // "glyph 65 x y 90"
void traceFont(const PlotState* s);                                                   // "font 4 36 1.00"

} // namespace quilla
