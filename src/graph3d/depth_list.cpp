#include "graph3d/depth_list.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

#include "core/colors.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "core/stop_request.h"
#include "graph3d/facets.h"

namespace quilla {

namespace {

constexpr int kNoMemory = 53;
constexpr int kFirstCapacity = 10000, kGrowth = 10000; // polygons
constexpr int kMostPolygons = 100000000;
constexpr int kPointsOfPolygon = 4; // memory is taken for so many
constexpr int kInsertionBelow = 12;

} // namespace

// Parallel arrays with an entry for each polygon, and the pool of their points. Owned here.
struct DepthList {
  float* key = nullptr; // mean depth; greater is farther
  int* order = nullptr;
  int* start = nullptr; // in the pool
  int* points = nullptr;
  int* color = nullptr;
  int count = 0, capacity = 0;
  float* poolX = nullptr;
  float* poolY = nullptr;
  int poolCount = 0, poolCapacity = 0;
};

namespace {

template <class Item> bool grow(Item*& items, int n) {
  void* more = std::realloc(items, static_cast<std::size_t>(n) * sizeof(Item));
  if (more) items = static_cast<Item*>(more);
  return more != nullptr;
}

bool makeRoom(DepthList& list, int points) {
  if (list.count == list.capacity) {
    const int n = list.capacity == 0 ? kFirstCapacity : list.capacity + std::max(kGrowth, list.capacity / 2);
    if (n > kMostPolygons || !grow(list.key, n) || !grow(list.order, n) || !grow(list.start, n) ||
        !grow(list.points, n) || !grow(list.color, n))
      return false;
    list.capacity = n;
  }
  if (list.poolCount > list.poolCapacity - points) {
    const int n = list.capacity * kPointsOfPolygon + list.poolCapacity / 2 + points;
    if (!grow(list.poolX, n) || !grow(list.poolY, n)) return false;
    list.poolCapacity = n;
  }
  return true;
}

void freeDepthList(DepthList* list) {
  std::free(list->key);
  std::free(list->order);
  std::free(list->start);
  std::free(list->points);
  std::free(list->color);
  std::free(list->poolX);
  std::free(list->poolY);
  delete list;
}

// Farther first; of equal ones that which was given first.
bool comesBefore(const DepthList& list, int a, int b) {
  return list.key[a] != list.key[b] ? list.key[a] > list.key[b] : a < b;
}

void insertionSort(DepthList& list, int low, int high) {
  for (int i = low + 1; i <= high; i++) {
    const int item = list.order[i];
    int k = i;
    for (; k > low && comesBefore(list, item, list.order[k - 1]); k--) list.order[k] = list.order[k - 1];
    list.order[k] = item;
  }
}

// Quicksort around the middle element; the larger part waits on a stack, so that 32 places are enough.
void sortByDepth(DepthList& list) {
  struct Part {
    int low, high;
  };
  Part waiting[32];
  int depth = 0;
  Part part{0, list.count - 1};
  for (;;) {
    while (part.high - part.low >= kInsertionBelow) {
      const int middle = list.order[part.low + (part.high - part.low) / 2];
      int i = part.low, j = part.high;
      while (i <= j) {
        while (comesBefore(list, list.order[i], middle)) i++;
        while (comesBefore(list, middle, list.order[j])) j--;
        if (i <= j) std::swap(list.order[i++], list.order[j--]);
      }
      const Part left{part.low, j}, right{i, part.high};
      const bool leftLarger = left.high - left.low > right.high - right.low;
      waiting[depth++] = leftLarger ? left : right;
      part = leftLarger ? right : left;
    }
    insertionSort(list, part.low, part.high);
    if (depth == 0) return;
    part = waiting[--depth];
  }
}

// A polygon on the page, ORIGIN not included.
struct PagePolygon {
  const float *x, *y;
  int n, color;
};

void paintPolygon(PlotState* s, const PagePolygon& p, int meshColor) {
  if (p.color != s->color.currentColor) setColor(s, p.color);
  for (int i = 2; i < p.n; i++) {
    const float fanX[] = {p.x[0], p.x[i - 1], p.x[i]}, fanY[] = {p.y[0], p.y[i - 1], p.y[i]};
    fillSolid(s, fanX, fanY, 3);
  }
  if (s->depth.surfaceMesh != kMeshOn && s->depth.surfaceMesh != kMeshOnly) return;
  if (meshColor != s->color.currentColor) setColor(s, meshColor);
  penMove(s, p.x[p.n - 1], p.y[p.n - 1]);
  for (int i = 0; i < p.n; i++) penDraw(s, p.x[i], p.y[i]);
  flushPath(s);
}

// The colour of a polygon's middle.
int meanColor(const ShadedPoint* points, int n) {
  Shade sum{};
  for (int i = 0; i < n; i++) sum = {sum.r + points[i].r, sum.g + points[i].g, sum.b + points[i].b};
  const auto corners = static_cast<float>(n);
  return colorOfShade({sum.r / corners, sum.g / corners, sum.b / corners});
}

int meshColorOf(const PlotState* s, int current) { return s->depth.meshColor >= 0 ? s->depth.meshColor : current; }

} // namespace

bool beginDepthList(PlotState* s) {
  auto* list = new (std::nothrow) DepthList;
  if (!list || !makeRoom(*list, kPointsOfPolygon)) {
    if (list) freeDepthList(list);
    warnPlain(s, kNoMemory);
    return false;
  }
  s->depthState.list = list;
  s->depthState.freeList = dropDepthList;
  return true;
}

void appendToDepthList(PlotState* s, const ShadedPoint* points, int n, int color) {
  DepthList& list = *s->depthState.list;
  if (!makeRoom(list, n)) return warnPlain(s, kNoMemory);
  const auto originX = static_cast<float>(s->page.originX), originY = static_cast<float>(s->page.originY);
  const int which = list.count++, start = list.poolCount;
  float depth = 0.0F;
  for (int i = 0; i < n; i++) {
    list.poolX[list.poolCount] = points[i].x - originX;
    list.poolY[list.poolCount++] = points[i].y - originY;
    depth += points[i].depth;
  }
  list.key[which] = depth / static_cast<float>(n);
  list.order[which] = which;
  list.start[which] = start;
  list.points[which] = n;
  list.color[which] = color != kMixedColors ? color : meanColor(points, n);
}

void endDepthList(PlotState* s) {
  DepthList* list = std::exchange(s->depthState.list, nullptr);
  const int kept = s->color.currentColor;
  const bool internal = std::exchange(s->internalCoordinates, true);
  const KeptLineStyle style = keepLineStyle(s);
  setLineType(s, 0);
  if (s->depth.listCollects) sortByDepth(*list); // otherwise in the order given
  flushPath(s);
  for (int i = 0; i < list->count && !stopRequested(); i++) {
    const int which = list->order[i];
    const float *x = list->poolX + list->start[which], *y = list->poolY + list->start[which];
    paintPolygon(s, {x, y, list->points[which], list->color[which]}, meshColorOf(s, kept));
  }
  freeDepthList(list);
  restoreLineStyle(s, style);
  s->internalCoordinates = internal;
  if (s->color.currentColor != kept) setColor(s, kept);
}

void dropDepthList(PlotState* s) {
  if (s->depthState.list) freeDepthList(std::exchange(s->depthState.list, nullptr));
}

} // namespace quilla
