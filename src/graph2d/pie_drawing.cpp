// The segments of flat and solid pies.
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/messages.h"
#include "graph2d/area.h"
#include "graph2d/pie.h"

namespace quilla {

namespace {

constexpr float kWhole = 360.0F;
constexpr float kCoarsest = 8.0F, kFinest = 1.0F; // degrees of a chord
constexpr int kArcPoints = 364;                   // of a whole circle in the finest chords, and its centre

struct Outline {
  float x[2 * kArcPoints], y[2 * kArcPoints];
  int n = 0;

  void add(PiePoint p) {
    x[n] = p.x;
    y[n++] = p.y;
  }
};

// Chords that stay within a tenth of a unit of the arc.
int chordsOf(const PieShape& pie, float span) {
  constexpr float kError = 0.1F;
  float radius = std::fmax(std::fmax(pie.radiusX, pie.radiusY), 1.0F);
  float chord = 2.0F * std::acos(1.0F - std::fmin(kError / radius, 1.0F)) / kDegToRad;
  return std::max(static_cast<int>(std::ceil(span / std::clamp(chord, kFinest, kCoarsest))), 1);
}

// Points from one angle to another, in either direction, on the top or the bottom of the pie.
void addArc(Outline& outline, const PieShape& pie, const PieSegment& segment, float from, float to, float down) {
  int chords = chordsOf(pie, std::fabs(to - from));
  for (int i = 0; i <= chords; i++) {
    float angle = from + (to - from) * static_cast<float>(i) / static_cast<float>(chords);
    PiePoint p = piePoint(pie, segment, angle, 1.0F);
    outline.add({p.x, p.y + down});
  }
}

void drawTop(PlotState* s, const PieShape& pie, const PieSegment& segment) {
  Outline outline;
  addArc(outline, pie, segment, segment.start, segment.end, 0.0F);
  if (isWholePie(segment)) {
    outline.n--;
  } else {
    outline.add(piePoint(pie, segment, segment.start, 0.0F));
  }
  drawArea(s, outline.x, outline.y, outline.n, segment.color, pie.borderColor);
}

// The part of a segment whose walls are drawn together; two for a segment that reaches from the back to the front.
struct Piece {
  int segment;
  float start, end;
  bool cutStart, cutEnd; // walls of the segment's own edges
  bool last;             // of both to be drawn: the top comes with it
  float key;             // higher: farther away
};

bool holdsAngle(const Piece& p, float angle) {
  float from = std::fmod(angle - p.start, kWhole);
  if (from < 0.0F) from += kWhole;
  return from > 0.0F && from < p.end - p.start;
}

// A segment's edge hides behind, or hides, its neighbour; which of both follows from the side of the pie. So the piece
// at the back comes first, the one at the front last, and on both sides the one that lies farther back before.
float keyOf(const Piece& p) {
  if (holdsAngle(p, 90.0F)) return 2.0F;
  if (holdsAngle(p, 270.0F)) return -2.0F;
  return std::fmax(std::sin(p.start * kDegToRad), std::sin(p.end * kDegToRad));
}

int makePieces(const PieShape& pie, Piece pieces[]) {
  int count = 0;
  for (int i = 0; i < pie.n; i++) {
    const PieSegment& segment = pie.segments[i];
    if (segment.end <= segment.start) continue;
    bool cut = !isWholePie(segment);
    Piece whole = {i, segment.start, segment.end, cut, cut, true, 0.0F};
    if (!holdsAngle(whole, 90.0F) || !holdsAngle(whole, 270.0F)) {
      whole.key = keyOf(whole);
      pieces[count++] = whole;
      continue;
    }
    float side = holdsAngle(whole, 180.0F) ? 180.0F : 0.0F;
    float at = whole.start + std::fmod(side - whole.start + 2.0F * kWhole, kWhole);
    Piece first = {i, whole.start, at, cut, false, false, 0.0F}, second = {i, at, whole.end, false, cut, true, 0.0F};
    first.key = keyOf(first);
    second.key = keyOf(second);
    first.last = first.key < second.key;
    second.last = !first.last;
    pieces[count++] = first;
    pieces[count++] = second;
  }
  return count;
}

void drawCut(PlotState* s, const PieShape& pie, const PieSegment& segment, float angle) {
  PiePoint inner = piePoint(pie, segment, angle, 0.0F), outer = piePoint(pie, segment, angle, 1.0F);
  float x[4] = {inner.x, outer.x, outer.x, inner.x};
  float y[4] = {inner.y, outer.y, outer.y + pie.thickness, inner.y + pie.thickness};
  drawArea(s, x, y, 4, segment.sideColor, pie.borderColor);
}

// What of the rim between two angles looks forward: 180 to 360 degrees and the same a turn later.
void drawRim(PlotState* s, const PieShape& pie, const PieSegment& segment, const Piece& piece) {
  for (float turn = 0.0F; turn <= kWhole; turn += kWhole) {
    float from = std::fmax(piece.start, turn + 180.0F), to = std::fmin(piece.end, turn + kWhole);
    if (to <= from) continue;
    Outline outline;
    addArc(outline, pie, segment, from, to, 0.0F);
    addArc(outline, pie, segment, to, from, pie.thickness);
    drawArea(s, outline.x, outline.y, outline.n, segment.sideColor, pie.borderColor);
  }
}

void drawPiece(PlotState* s, const PieShape& pie, const Piece& piece) {
  const PieSegment& segment = pie.segments[piece.segment];
  const PieSegment& before = pie.segments[(piece.segment + pie.n - 1) % pie.n];
  const PieSegment& after = pie.segments[(piece.segment + 1) % pie.n];
  s->shading = segment.shading;
  // Edges of neighbours that stand together are hidden.
  bool openStart = segment.moved != before.moved || segment.moved != 0.0F;
  bool openEnd = segment.moved != after.moved || segment.moved != 0.0F;
  if (piece.cutStart && openStart && std::cos(piece.start * kDegToRad) > 0.0F) drawCut(s, pie, segment, piece.start);
  if (piece.cutEnd && openEnd && std::cos(piece.end * kDegToRad) < 0.0F) drawCut(s, pie, segment, piece.end);
  drawRim(s, pie, segment, piece);
  if (piece.last) drawTop(s, pie, segment);
}

} // namespace

PiePoint piePoint(const PieShape& pie, const PieSegment& segment, float angle, float fraction) {
  float middle = (segment.start + segment.end) / 2.0F * kDegToRad, a = angle * kDegToRad;
  float out = isWholePie(segment) ? 0.0F : segment.moved * pie.explosion;
  float flat = pie.radiusX > 0.0F ? pie.radiusY / pie.radiusX : 1.0F;
  return {pie.x + fraction * pie.radiusX * std::cos(a) + out * std::cos(middle),
          pie.y - fraction * pie.radiusY * std::sin(a) - out * flat * std::sin(middle)};
}

bool isWholePie(const PieSegment& segment) {
  constexpr float kNearlyWhole = 359.999F;
  return segment.end - segment.start > kNearlyWhole;
}

void drawFlatPie(PlotState* s, const PieShape& pie) {
  for (int i = 0; i < pie.n; i++) {
    if (pie.segments[i].end <= pie.segments[i].start) continue;
    s->shading = pie.segments[i].shading;
    drawTop(s, pie, pie.segments[i]);
  }
}

void drawSolidPie(PlotState* s, const PieShape& pie) {
  std::unique_ptr<Piece[]> pieces(new (std::nothrow) Piece[2 * static_cast<std::size_t>(pie.n)]);
  if (!pieces) return warnPlain(s, 53);
  int count = makePieces(pie, pieces.get());
  std::stable_sort(pieces.get(), pieces.get() + count, [](const Piece& a, const Piece& b) { return a.key > b.key; });
  for (int i = 0; i < count; i++) drawPiece(s, pie, pieces[i]);
}

} // namespace quilla
