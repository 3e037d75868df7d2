// Defaults of everything that a run may change.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// All settings of the run lifetime, colour table, default font and pen width. The device is open.
void applyDefaultSettings(PlotState* s);

// Settings of axis systems with default distances in plot units and the default place on the page.
AxisGroup defaultAxisGroup(const PlotState* s);
TextGroup defaultTextGroup(const PlotState* s);
CurveGroup defaultCurveGroup(const PlotState* s);
ContourGroup defaultContourGroup(const PlotState* s);
ColorBarGroup defaultColorBarGroup(const PlotState* s);
ResolutionGroup defaultResolutionGroup(const PlotState* s);

} // namespace quilla
