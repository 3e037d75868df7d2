#include "widget/widget_layout.h"

#include <algorithm>

namespace quilla {

namespace {

constexpr int kPercent = 100;

// The newest child of a parent, or null.
const WidgetRecord* newestChild(const WidgetContext* c, int parent, int before) {
  for (int id = before - 1; id >= 1; --id) {
    const WidgetRecord& w = c->records[static_cast<std::size_t>(id) - 1];
    if (w.parent == parent) return &w;
  }
  return nullptr;
}

// A column tells its height with the gap behind its last child, a row its width; across there is none.
int gapAcross(const WidgetRecord& parent, const WidgetRecord& sibling, int gap) {
  return sibling.layout == parent.layout ? 0 : gap;
}

// Steps over a parent that stands before a new child: it grew after its place was taken.
void stepOver(const WidgetContext* c, WidgetRecord& parent, const WidgetRecord& sibling) {
  if (parent.layout == kLayoutColumn) {
    parent.penY += sibling.place.height + gapAcross(parent, sibling, c->settings.spacingY);
  } else {
    parent.penX += sibling.place.width + gapAcross(parent, sibling, c->settings.spacingX);
  }
}

WidgetBox formPlace(const WidgetContext* c, const WidgetRecord& parent) {
  const WidgetSettings& s = c->settings;
  WidgetBox box = {s.x, s.y, s.width, s.height};
  if (parent.kind == kWidgetBase) {
    box.x += parent.place.x;
    box.y += parent.place.y;
  }
  return box;
}

void growColumn(WidgetContext* c, WidgetRecord& parent, int h) { parent.place.height += c->settings.spacingY + h; }

void growForm(const WidgetContext* c, WidgetRecord& parent) {
  const WidgetSettings& s = c->settings;
  if (parent.fixed) return;
  parent.place.height = std::max(parent.place.height, s.spacingY + s.height + s.y);
  parent.place.width = std::max(parent.place.width, s.spacingX + s.width + s.x);
}

// The parents around a child hold it: a row is as high as its highest child, a column reaches a gap below.
void growAround(WidgetContext* c, int parent, int right, int bottom) {
  const WidgetSettings& s = c->settings;
  for (WidgetRecord* w = widgetRecord(c, parent); w; w = widgetRecord(c, w->parent)) {
    if (w->fixed) return;
    const bool direct = w == widgetRecord(c, parent), root = w->kind == kWidgetRoot;
    if (w->layout == kLayoutRow && !root) w->place.height = std::max(w->place.height, bottom - w->place.y);
    if (direct) continue;
    const int x = root ? 0 : w->place.x, y = root ? 0 : w->place.y;
    if (w->layout == kLayoutRow) w->place.width = std::max(w->place.width, right + s.spacingX - x);
    if (w->layout == kLayoutColumn) w->place.height = std::max(w->place.height, bottom + s.spacingY - y);
  }
}

void reach(WidgetContext* c, int parent, const WidgetBox& box) {
  DialogLevel& level = c->levels[c->depth];
  const int right = box.x + c->settings.offsets[kAtRight] + box.width;
  const int bottom = box.y + c->settings.offsets[kAtBottom] + box.height;
  level.totalWidth = std::max(level.totalWidth, right);
  level.totalHeight = std::max(level.totalHeight, bottom);
  growAround(c, parent, right, bottom);
}

} // namespace

int widthWanted(const WidgetContext* c) {
  const int n = c->settings.widthWanted;
  return n > 0 ? n * c->metrics.characterWidth : -n * c->metrics.screenWidth / kPercent;
}

void placeRoot(WidgetContext* c, int id, int outer) {
  WidgetRecord& w = *widgetRecord(c, id);
  WidgetSettings& s = c->settings;
  const WidgetMetrics& m = c->metrics;
  if (const WidgetRecord* before = widgetRecord(c, outer)) {
    w.place.x = before->place.x + before->place.width * 3 / 4;
    w.place.y = before->place.y + before->place.height * 2 / 3;
  }
  if (s.positionSet) {
    w.place.x = s.x;
    w.place.y = s.y;
  }
  w.fixed = s.sizeSet;
  w.place.width = w.fixed ? s.width : widthWanted(c);
  w.place.height = w.fixed ? s.height : m.characterHeight;
  if (s.options.centered) {
    // The width stands in both terms.
    w.place.x = (m.screenWidth - w.place.width) / 2;
    w.place.y = (m.screenHeight - w.place.width) / 2;
  }
  w.penX = w.layout == kLayoutForm ? 0 : s.spacingX;
  w.penY = w.layout == kLayoutForm ? 0 : s.spacingY;
  s.positionSet = s.sizeSet = false;
}

void placeBase(WidgetContext* c, int id) {
  WidgetRecord& w = *widgetRecord(c, id);
  WidgetRecord& parent = *widgetRecord(c, w.parent);
  if (parent.layout == kLayoutForm) {
    w.place = formPlace(c, parent);
    c->settings.positionSet = c->settings.sizeSet = false;
  } else {
    if (const WidgetRecord* sibling = newestChild(c, w.parent, id); sibling && isParentKind(sibling->kind)) {
      if (parent.layout == kLayoutColumn) {
        parent.penY += sibling->place.height + c->settings.spacingY;
      } else {
        parent.penX += sibling->place.width + c->settings.spacingX;
      }
    }
    w.place = {parent.penX, parent.penY, widthWanted(c), 0};
  }
  w.penX = w.place.x;
  w.penY = w.place.y;
}

WidgetBox placeChild(WidgetContext* c, int parentId, int h) {
  WidgetRecord& parent = *widgetRecord(c, parentId);
  const WidgetSettings& s = c->settings;
  WidgetBox box = {0, 0, 0, h};
  if (parent.layout == kLayoutForm) {
    box = formPlace(c, parent);
    growForm(c, parent);
    reach(c, parentId, box);
    c->settings.positionSet = c->settings.sizeSet = false;
    return box;
  }
  const WidgetRecord* sibling = newestChild(c, parentId, static_cast<int>(c->records.size()) + 1);
  if (sibling && isParentKind(sibling->kind)) stepOver(c, parent, *sibling);
  box.x = parent.penX + s.offsets[kAtLeft];
  box.y = parent.penY + s.offsets[kAtTop];
  if (parent.layout == kLayoutColumn) {
    box.width = parent.place.width;
    parent.penY += s.spacingY + s.offsets[kAtTop] + s.offsets[kAtBottom] + h;
    if (!parent.fixed) growColumn(c, parent, h);
  } else {
    box.width = widthWanted(c);
    parent.penX += s.spacingX + s.offsets[kAtLeft] + s.offsets[kAtRight] + box.width;
    if (!parent.fixed) parent.place.width += s.spacingX + box.width;
  }
  reach(c, parentId, box);
  return box;
}

void finishRoot(WidgetContext* c, int id) {
  WidgetRecord& w = *widgetRecord(c, id);
  const DialogLevel& level = c->levels[c->depth];
  const WidgetMetrics& m = c->metrics;
  w.place.width = level.totalWidth + c->settings.spacingX + 2 * m.frameWidth;
  w.place.height = level.totalHeight + c->settings.spacingY + 2 * m.frameHeight;
  if (!c->settings.options.centered) return;
  w.place.x = (m.screenWidth - w.place.width) / 2;
  w.place.y = (m.screenHeight - w.place.height) / 2;
}

} // namespace quilla
