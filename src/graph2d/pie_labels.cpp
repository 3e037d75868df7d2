// Labels of pies: texts, places and vectors.
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/colors.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/shields.h"
#include "graph2d/area.h"
#include "graph2d/legend.h"
#include "graph2d/pie.h"
#include "graph2d/vectors.h"
#include "text/text.h"

namespace quilla {

namespace {

constexpr int kNumberSize = 160; // digits, a percent sign and the texts of PIELAB
constexpr int kInside = 0, kRightSide = 1, kLeftSide = -1, kWithout = 2;
constexpr float kStub = 0.75F;    // horizontal end of a broken vector, in character heights
constexpr float kTextGap = 0.4F;  // between a vector and its text
constexpr float kLeastGap = 0.3F; // between two labels

int rowStep(const PlotState* s) {
  int h = s->text.textHeight;
  return std::clamp(roundHalfUp(s->axis.lineSpacing * static_cast<float>(h)), h, 5 * kHighestHeight);
}

float characters(const PlotState* s, float n) { return n * static_cast<float>(s->text.textHeight); }

// Hands each row of a label to the action.
template <class Action>
void eachRow(PlotState* s, const PieTexts& texts, const PieSegment& segment, int index, Action action) {
  char text[std::max(kLegendLineLength + 1, 2 * kPieLabelPart + kNumberSize)];
  for (int i = 0; i < texts.linesPerSegment; i++) {
    long long line = static_cast<long long>(index) * texts.linesPerSegment + i + 1;
    if (line > s->legend.legendLines) break;
    legendLineText(s, texts.buffer, static_cast<int>(line), text);
    action(text);
  }
  const PieGroup& g = s->pie;
  if (segment.labelMode == kPieLabelData || segment.labelMode == kPieLabelBoth) {
    copyText(text, g.pieLabelLeft, kPieLabelPart);
    int length = static_cast<int>(std::char_traits<char>::length(text));
    length += numberText(s, static_cast<double>(segment.value), g.pieDataDigits, text + length, kNumberSize, 0);
    copyText(text + length, g.pieLabelRight, kPieLabelPart);
    action(text);
  }
  if (segment.labelMode == kPieLabelPercent || segment.labelMode == kPieLabelBoth) {
    int length = numberText(s, static_cast<double>(segment.percent), g.piePercentDigits, text, kNumberSize, 0);
    copyText(text + length, "%", 1);
    action(text);
  }
}

float middleOf(const PieSegment& segment) { return (segment.start + segment.end) / 2.0F; }

// The box around a point lies wholly inside the segment.
bool boxFits(const PieShape& pie, const PieSegment& segment, PiePoint center, const PieLabelSize& size) {
  constexpr float kClear = 1.1F; // the corners stay off the edges
  PiePoint tip = piePoint(pie, segment, 0.0F, 0.0F);
  float span = segment.end - segment.start;
  for (int corner = 0; corner < 4; corner++) {
    float sx = corner & 1 ? 0.5F : -0.5F, sy = corner & 2 ? 0.5F : -0.5F;
    float dx = (center.x + sx * kClear * static_cast<float>(size.width) - tip.x) / pie.radiusX;
    float dy = (tip.y - center.y - sy * kClear * static_cast<float>(size.height)) / pie.radiusY;
    if (dx * dx + dy * dy > 1.0F) return false;
    if (isWholePie(segment)) continue;
    float angle = std::atan2(dy, dx) / kDegToRad - segment.start;
    angle -= 360.0F * std::floor(angle / 360.0F);
    if (angle > span) return false;
  }
  return true;
}

// Middle of an internal label, and whether there is room for it.
bool placeInside(const PieShape& pie, const PieSegment& segment, PieLabel& label) {
  constexpr float kFractions[] = {0.65F, 0.7F, 0.6F, 0.75F, 0.55F, 0.8F, 0.5F, 0.4F};
  for (float fraction : kFractions) {
    PiePoint p = piePoint(pie, segment, middleOf(segment), isWholePie(segment) ? 0.0F : fraction);
    if (!boxFits(pie, segment, p, label.size)) continue;
    label.side = kInside;
    label.x = p.x - static_cast<float>(label.size.width) / 2.0F;
    label.y = p.y - static_cast<float>(label.size.height) / 2.0F;
    return true;
  }
  return false;
}

bool standsInside(const PieShape& pie, int i, PieLabel label) {
  return pie.segments[i].labelPlace == kPieInternal && placeInside(pie, pie.segments[i], label);
}

// Distance of external labels from the pie.
float labelDistance(const PlotState* s) { return std::fmax(characters(s, s->pie.pieDistance), 0.0F); }

// Half width of the region kept free around the pie, over a range of y. Below the top of a solid pie hangs its rim.
float keptHalfWidth(const PieShape& pie, float reach, float top, float bottom) {
  float above = pie.y - bottom, below = top - pie.y - pie.thickness;
  float part = std::fmax(std::fmax(above, below), 0.0F) / (pie.radiusY + reach);
  return part >= 1.0F ? 0.0F : (pie.radiusX + reach) * std::sqrt(1.0F - part * part);
}

struct Column {
  int* order; // labels of one side, from top to bottom
  int count;
};

float roomOf(const PieLabel labels[], const Column& c, float gap) {
  float room = 0.0F;
  for (int i = 0; i < c.count; i++) room += static_cast<float>(labels[c.order[i]].size.height) + (i > 0 ? gap : 0.0F);
  return room;
}

// Labels of the smallest segments give way until the others have room.
void dropLabels(const PieShape& pie, PieLabel labels[], Column& c, float available, float gap) {
  float room = roomOf(labels, c, gap);
  if (room <= available) return;
  std::sort(c.order, c.order + c.count, [&](int a, int b) {
    float pa = pie.segments[a].percent, pb = pie.segments[b].percent;
    return pa != pb ? pa > pb : a < b;
  });
  while (c.count > 1 && room > available) {
    int last = c.order[--c.count];
    labels[last].side = kWithout;
    room -= static_cast<float>(labels[last].size.height) + gap;
  }
}

// Labels that touch each other, and the place they would like best together.
struct Cluster {
  int first, count;
  double wanted; // sum of the tops that its labels want, less their offsets in the cluster
  float height;

  float top() const { return static_cast<float>(wanted / count); }
};

// Pushes the labels of a column apart, each as little as its neighbours allow.
void clusterColumn(PieLabel labels[], const Column& c, Cluster clusters[], float gap) {
  int n = 0;
  for (int i = 0; i < c.count; i++) {
    const PieLabel& label = labels[c.order[i]];
    Cluster present = {i, 1, static_cast<double>(label.y), static_cast<float>(label.size.height)};
    while (n > 0 && clusters[n - 1].top() + clusters[n - 1].height + gap > present.top()) {
      const Cluster& above = clusters[--n];
      double offset = static_cast<double>(above.height + gap);
      present = {above.first, above.count + present.count, above.wanted + present.wanted - present.count * offset,
                 above.height + gap + present.height};
    }
    clusters[n++] = present;
  }
  for (int k = 0; k < n; k++) {
    float y = clusters[k].top();
    for (int i = clusters[k].first; i < clusters[k].first + clusters[k].count; i++) {
      PieLabel& label = labels[c.order[i]];
      label.y = y;
      y += static_cast<float>(label.size.height) + gap;
    }
  }
}

// Keeps a column between the ends of its room: labels go down as far as the one above asks, then up again.
void limitColumn(PieLabel labels[], const Column& c, float top, float bottom, float gap) {
  float y = top;
  for (int i = 0; i < c.count; i++) {
    PieLabel& label = labels[c.order[i]];
    label.y = std::fmax(label.y, y);
    y = label.y + static_cast<float>(label.size.height) + gap;
  }
  y = bottom;
  for (int i = c.count - 1; i >= 0; i--) {
    PieLabel& label = labels[c.order[i]];
    float height = static_cast<float>(label.size.height);
    label.y = std::fmin(label.y, y - height);
    y = label.y - gap;
  }
}

// The gap that is wanted, or what there is room for.
float gapOf(const PlotState* s, const PieLabel labels[], const Column& c, float available) {
  float wanted = std::fmax(characters(s, s->pie.pieGap), 0.0F), least = std::fmin(wanted, characters(s, kLeastGap));
  if (c.count < 2) return wanted;
  return std::clamp((available - roomOf(labels, c, 0.0F)) / static_cast<float>(c.count - 1), least, wanted);
}

void placeColumn(PlotState* s, const PieShape& pie, PieLabel labels[], Column c, Cluster clusters[], int side) {
  float top = static_cast<float>(s->scaling.axisTopY), bottom = static_cast<float>(s->axis.axisPosY);
  float gap = gapOf(s, labels, c, bottom - top), distance = labelDistance(s);
  dropLabels(pie, labels, c, bottom - top, gap);
  std::sort(c.order, c.order + c.count,
            [&](int a, int b) { return labels[a].y != labels[b].y ? labels[a].y < labels[b].y : a < b; });
  clusterColumn(labels, c, clusters, gap);
  limitColumn(labels, c, top, bottom, gap);
  float stub = s->pie.pieVectorMode == kPieVectorNone ? 0.0F : characters(s, kStub);
  for (int i = 0; i < c.count; i++) {
    PieLabel& label = labels[c.order[i]];
    const PieSegment& segment = pie.segments[c.order[i]];
    float reach = distance + std::fabs(segment.moved * pie.explosion);
    float half = pie.radiusX + reach;
    if (segment.labelPlace != kPieAligned) {
      half = keptHalfWidth(pie, reach, label.y, label.y + static_cast<float>(label.size.height));
      half = std::fmax(half, std::fabs(label.x - pie.x)); // where its vector leaves the pie
    }
    float x = half + stub + (stub > 0.0F ? characters(s, kTextGap) : 0.0F);
    label.x = side > 0 ? pie.x + x : pie.x - x - static_cast<float>(label.size.width);
  }
}

// The code of PIEVEC with heads of one size, half the height of the letters, where it leaves them to the line's length.
int vectorKind(const PlotState* s) {
  constexpr int kHeadUnit = 10; // plot units of one step of the third digit
  int kind = s->pie.pieVectorKind;
  if (kind / 10 % 10 != 0) return kind;
  return kind + std::clamp(s->text.textHeight / 2 / kHeadUnit, 1, 9) * 10;
}

// From the edge of the segment to its label; the head that PIEVEC chooses points to the segment.
void drawLabelVector(PlotState* s, const PieShape& pie, const PieSegment& segment, const PieLabel& label) {
  if (s->pie.pieVectorMode == kPieVectorNone) return;
  float angle = middleOf(segment);
  PiePoint edge = piePoint(pie, segment, angle, 1.0F);
  // The front of a solid pie hides the edge of its top.
  if (std::sin(angle * kDegToRad) < 0.0F) edge.y += pie.thickness / 2.0F;
  float gap = characters(s, kTextGap), width = static_cast<float>(label.size.width);
  float x = label.side > 0 ? label.x - gap : label.x + width + gap;
  float y = label.y + static_cast<float>(label.size.height) / 2.0F;
  float bend = s->pie.pieVectorMode == kPieVectorBroken ? x - static_cast<float>(label.side) * characters(s, kStub) : x;
  drawVector(s, bend, y, edge.x, edge.y, vectorKind(s));
  if (bend == x) return;
  penMove(s, bend, y);
  penDraw(s, x, y);
}

int justified(int justify, int side, int room) {
  bool right = justify == kPieRight || (justify == kPieOutwards && side == kRightSide) ||
               (justify == kPieInwards && side == kLeftSide);
  bool left = justify == kPieLeft || (justify == kPieOutwards && side == kLeftSide) ||
              (justify == kPieInwards && side == kRightSide);
  return left ? 0 : right ? room : room / 2;
}

void drawTexts(PlotState* s, const PieTexts& texts, const PieSegment& segment, int index, const PieLabel& label) {
  int x = roundHalfUp(label.x), y = roundHalfUp(label.y), step = rowStep(s);
  eachRow(s, texts, segment, index, [&](const char* text) {
    int room = label.size.width - textLength(s, text);
    if (text[0]) textAtWith(s, text, x + justified(segment.labelJustify, label.side, room), y, 0, s->text.textHeight);
    y += step;
  });
}

} // namespace

void measurePieLabels(PlotState* s, const PieShape& pie, const PieTexts& texts, PieLabel labels[]) {
  int step = rowStep(s), h = s->text.textHeight;
  for (int i = 0; i < pie.n; i++) {
    PieLabel& label = labels[i];
    label = {{0, 0, 0}, kWithout, 0.0F, 0.0F};
    eachRow(s, texts, pie.segments[i], i, [&](const char* text) {
      label.size.rows++;
      label.size.width = std::max(label.size.width, textLength(s, text));
    });
    if (label.size.rows > 0) label.size.height = (label.size.rows - 1) * step + h;
  }
}

PiePoint pieLabelRoom(const PlotState* s, const PieShape& pie, const PieLabel labels[]) {
  bool any = false;
  float width = 0.0F, height = 0.0F;
  for (int i = 0; i < pie.n; i++) {
    if (labels[i].size.width == 0) continue;
    width = std::fmax(width, static_cast<float>(labels[i].size.width));
    height = std::fmax(height, static_cast<float>(labels[i].size.height));
    any = any || !standsInside(pie, i, labels[i]);
  }
  if (!any) return {0.0F, 0.0F};
  float distance = labelDistance(s);
  float vector = s->pie.pieVectorMode == kPieVectorNone ? 0.0F : characters(s, kStub + kTextGap);
  return {distance + vector + width, distance + height};
}

void placePieLabels(PlotState* s, const PieShape& pie, PieLabel labels[]) {
  std::unique_ptr<int[]> order(new (std::nothrow) int[2 * static_cast<std::size_t>(pie.n)]);
  std::unique_ptr<Cluster[]> clusters(new (std::nothrow) Cluster[static_cast<std::size_t>(pie.n)]);
  if (!order || !clusters) {
    for (int i = 0; i < pie.n; i++) labels[i].side = kWithout;
    return warnPlain(s, 53);
  }
  Column right = {order.get(), 0}, left = {order.get() + pie.n, 0};
  float distance = labelDistance(s);
  for (int i = 0; i < pie.n; i++) {
    PieLabel& label = labels[i];
    const PieSegment& segment = pie.segments[i];
    if (label.size.width == 0) continue;
    if (segment.labelPlace == kPieInternal && placeInside(pie, segment, label)) continue;
    float angle = middleOf(segment), sine = std::sin(angle * kDegToRad);
    float out = pie.radiusX > 0.0F ? 1.0F + distance / pie.radiusX : 1.0F;
    PiePoint p = piePoint(pie, segment, angle, out);
    label.x = p.x;
    label.side = std::cos(angle * kDegToRad) >= 0.0F ? kRightSide : kLeftSide;
    label.y = p.y - static_cast<float>(label.size.height) / 2.0F + (sine < 0.0F ? pie.thickness / 2.0F : 0.0F);
    Column& column = label.side == kRightSide ? right : left;
    column.order[column.count++] = i;
  }
  placeColumn(s, pie, labels, right, clusters.get(), kRightSide);
  placeColumn(s, pie, labels, left, clusters.get(), kLeftSide);
}

void shieldPieLabels(PlotState* s, const PieShape& pie, const PieLabel labels[]) {
  int margin = s->text.textHeight / 4;
  for (int i = 0; i < pie.n; i++) {
    const PieLabel& label = labels[i];
    if (label.side == kWithout) continue;
    int region[] = {roundHalfUp(label.x) + s->page.originX - margin, roundHalfUp(label.y) + s->page.originY - margin,
                    label.size.width + 2 * margin, label.size.height + 2 * margin};
    if (!addShield(s, kShieldRectangle, kShieldPies, region)) return;
  }
}

void drawPieLabels(PlotState* s, const PieShape& pie, const PieTexts& texts, const PieLabel labels[]) {
  flushPath(s);
  bool suspended = s->shieldingSuspended;
  s->shieldingSuspended = s->shield.shieldAreaOn[kShieldPies - 1] || suspended;
  for (int i = 0; i < pie.n; i++) {
    const PieSegment& segment = pie.segments[i];
    if (labels[i].side == kWithout) continue;
    s->shading = segment.shading;
    bool inside = labels[i].side == kInside;
    int color = segment.labelColor >= 0 ? segment.labelColor : pie.color;
    if (inside) color = visibleColor(s, segment.labelColor, pie.color, segment.color);
    if (s->color.currentColor != color) setColor(s, color);
    if (!inside) drawLabelVector(s, pie, segment, labels[i]);
    drawTexts(s, texts, segment, i, labels[i]);
  }
  flushPath(s);
  s->shieldingSuspended = suspended;
}

} // namespace quilla
