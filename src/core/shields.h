// Shields: adding, hiding and deleting regions, and cutting lines at them.
#pragma once

#include <span>

#include "core/clipper.h"
#include "core/plot_state.h"

namespace quilla {

inline constexpr int kShieldPieces = 300; // pieces of one line

// Adds a region; data as ShieldKind tells. Returns its id, or 0 after message 47. The path is flushed.
int addShield(PlotState* s, int kind, int shieldClass, std::span<const int> data);

// Deletes regions: all of a class, or the one with an id (any class). Records behind them move down.
void deleteShieldClass(PlotState* s, int shieldClass);
void deleteShieldId(PlotState* s, int id);
// Hides or shows regions of a class, or the one with an id.
void hideShieldClass(PlotState* s, int shieldClass, bool hidden);
void hideShieldId(PlotState* s, int id, bool hidden);
// Deletes the regions that were added last.
void deleteLastShields(PlotState* s, int count);

// The parts of a segment outside all visible regions, in order. Message 26 if there are too many.
int piecesOutsideShields(PlotState* s, const Segment& segment, Segment pieces[kShieldPieces]);

} // namespace quilla
