// SURFUN: a surface from a function that is called for each point.
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "core/messages.h"
#include "graph3d/mesh.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

constexpr float kMostLines = 10000.0F;    // in one direction; a step that asks for more is taken as a mistake
constexpr long long kMostPoints = 100000; // of one line
constexpr float kStepSlack = 0.0001F;

// One direction, from the limit before the eye on.
struct FunctionSide {
  float front, step; // user values
  int cells, parts;

  float value(int k) const { return front + step * (static_cast<float>(k) / static_cast<float>(parts)); }
};

// False if the step is out of proportion.
bool makeSide(PlotState* s, int axis, int count, float step, FunctionSide& side) {
  const ViewState& v = s->viewState;
  float low = v.start[axis], high = v.end[axis];
  if (v.logarithmic[axis]) {
    low = std::pow(10.0F, low);
    high = std::pow(10.0F, high);
  }
  if (s->matrix.matrixLimitsGiven) {
    low = s->matrix.matrixStart[axis];
    high = s->matrix.matrixEnd[axis];
  }
  const bool highIsFront = (boxOfUser(s, axis, high) >= boxOfUser(s, axis, low)) == eyeIsHigh(s, axis);
  side.front = highIsFront ? high : low;
  const float span = highIsFront ? low - high : high - low, cells = std::fabs(span) / step + kStepSlack;
  if (!(cells < kMostLines + 1.0F)) {
    warnPlain(s, 2);
    return false;
  }
  side.step = span < 0.0F ? -step : step;
  side.cells = static_cast<int>(cells);
  side.parts = static_cast<int>(std::clamp<long long>(count, 1, kMostPoints / (side.cells + 1)));
  return true;
}

// Values at the nodes of the last two lines along X: each is asked for several times in a row.
struct NodeCache {
  std::unique_ptr<float[]> values;
  std::unique_ptr<bool[]> known;
  int width = 0;
  int line[2] = {-1, -1};

  bool reserve(int nodes) {
    const std::size_t size = 2 * static_cast<std::size_t>(nodes);
    values.reset(new (std::nothrow) float[size]);
    known.reset(new (std::nothrow) bool[size]);
    width = nodes;
    return values && known;
  }
  template <class Function> float at(int i, int j, Function function) {
    const int slot = j % 2, place = slot * width + i;
    if (line[slot] != j) {
      line[slot] = j;
      std::fill_n(known.get() + slot * width, width, false);
    }
    if (!known[static_cast<std::size_t>(place)]) {
      values[static_cast<std::size_t>(place)] = function();
      known[static_cast<std::size_t>(place)] = true;
    }
    return values[static_cast<std::size_t>(place)];
  }
};

} // namespace

void SURFUN(float (*function)(float x, float y), int nx, float xstep, int ny, float ystep) {
  PlotState* s = boxCheck("surfun");
  if (!s || checkRange(s, nx, 0, -1) || checkRange(s, ny, 0, -1)) return;
  if (!(xstep > 0.0F) || !(ystep > 0.0F) || !function) return warnPlain(s, 2);
  if (nx == 0 && ny == 0) return;
  FunctionSide x{}, y{};
  if (!makeSide(s, kAxisX, nx, xstep, x) || !makeSide(s, kAxisY, ny, ystep, y)) return;
  NodeCache nodes;
  if (!nodes.reserve(x.cells + 1)) return warnPlain(s, 53);
  beginHidden(s);
  drawMesh(s, {x.cells, y.cells, x.parts, y.parts}, nx != 0, ny != 0, [&](int a, int b) {
    const float ux = x.value(a), uy = y.value(b);
    auto value = [&] { return function(ux, uy); };
    const bool isNode = a % x.parts == 0 && b % y.parts == 0;
    return boxOfUser(s, ux, uy, isNode ? nodes.at(a / x.parts, b / y.parts, value) : value());
  });
  endHidden(s);
}
