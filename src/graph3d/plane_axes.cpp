// Axes on planes of the box: the place of the eye picks for each axis a plane, given by three corners, and its
// direction.
#include "core/pipeline.h"
#include "graph2d/axis_drawing.h"
#include "graph3d/box_axes.h"
#include "graph3d/planes.h"
#include "text/text.h"

namespace quilla {

namespace {

// Corners of the plane; whether the axis runs against its scaling; whether its first label is left out.
struct AxisPlane {
  int corners;
  bool flipped;
  bool noFirstLabel;
};

constexpr AxisPlane kPlanes[27][kAxisCount] = {
    {{432, false, true}, {321, true, false}, {437, false, true}},
    {{126, false, true}, {415, true, false}, {437, false, true}},
    {{123, false, true}, {412, true, false}, {437, false, true}},
    {{432, false, true}, {321, true, false}, {415, false, true}},
    {{123, false, true}, {415, true, false}, {415, false, true}},
    {{123, false, true}, {412, true, false}, {415, false, true}},
    {{214, true, false}, {321, true, true}, {326, false, true}},
    {{348, true, false}, {415, true, true}, {326, false, true}},
    {{341, true, false}, {412, true, true}, {326, false, true}},
    {{432, false, false}, {143, false, true}, {126, false, true}},
    {{126, false, false}, {234, false, true}, {126, false, true}},
    {{123, false, false}, {234, false, true}, {126, false, true}},
    {{432, false, false}, {143, false, true}, {126, false, true}},
    {{123, false, false}, {234, false, true}, {126, false, true}},
    {{123, false, false}, {234, false, true}, {126, false, true}},
    {{214, true, false}, {321, true, true}, {348, false, true}},
    {{348, true, false}, {412, true, true}, {348, false, true}},
    {{341, true, false}, {412, true, true}, {348, false, true}},
    {{432, false, false}, {143, false, true}, {148, false, true}},
    {{126, false, false}, {237, false, true}, {148, false, true}},
    {{123, false, false}, {234, false, true}, {148, false, true}},
    {{214, true, true}, {143, false, false}, {237, false, true}},
    {{341, true, true}, {237, false, false}, {237, false, true}},
    {{341, true, true}, {234, false, false}, {237, false, true}},
    {{214, true, true}, {143, false, false}, {215, false, true}},
    {{348, true, true}, {237, false, false}, {215, false, true}},
    {{341, true, true}, {234, false, false}, {215, false, true}},
};

constexpr int kNoFirstLabel = 1; // AXENDS "NOFI"
constexpr int kReadUpwards = 1, kReadDownwards = 2;

int zoneOf(float eye, float limit) { return eye < -limit ? 0 : eye > limit ? 2 : 1; }

// X and Y change their zone at the faces of the box, Z at the whole length.
const AxisPlane (&planesOf(const PlotState* s))[kAxisCount] {
  const float(&eye)[3] = s->viewState.eye, (&box)[3] = s->viewState.box;
  return kPlanes[zoneOf(eye[0], box[0] / 2.0F) * 9 + zoneOf(eye[1], box[1] / 2.0F) * 3 + zoneOf(eye[2], box[2])];
}

// The axis from its end to its start; labels in falling order.
void flipAxis(PlotState* s, int axis) {
  ScalingState& c = s->scaling;
  const float n =
      static_cast<float>(static_cast<int>((c.axisEnd[axis] - c.axisFirstLabel[axis]) / c.axisStep[axis] + 0.0001F));
  c.axisFirstLabel[axis] += n * c.axisStep[axis];
  c.axisStep[axis] = -c.axisStep[axis];
  std::swap(c.axisStart[axis], c.axisEnd[axis]);
  if (s->axis.labelKind[axis] == kLabelMine) s->axis.myLabelCount[axis] = -(static_cast<int>(n) + 1);
}

// Vertical labels are read from the side on which the eye stands.
int orientation(const PlotState* s, int axis) {
  const float(&eye)[3] = s->viewState.eye;
  const bool sameSigns = (eye[0] > 0.0F) == (eye[1] > 0.0F);
  return sameSigns == (axis == kAxisX) ? kReadDownwards : kReadUpwards;
}

void drawOnPlane(PlotState* s, int axis, const AxisPlane& plane) {
  // Z is drawn as a Y axis, the others as X axes.
  const int slot = axis == kAxisZ ? kAxisY : kAxisX;
  const bool fromBelow = slot == kAxisX && s->viewState.eye[2] < -s->viewState.box[2];
  const AxisGroup keptAxis = s->axis;
  const ScalingState keptScaling = s->scaling;
  if (plane.flipped) flipAxis(s, axis);
  if (!s->view.firstLabels) s->axis.axisEndsMode[axis] = plane.noFirstLabel ? kNoFirstLabel : 0;
  if (slot == kAxisX && s->axis.labelOrientation[axis] != 0) s->axis.labelOrientation[axis] = orientation(s, axis);
  if (axis != slot) exchangeAxes(s, axis, slot);
  enterCornerPlane(s, plane.corners);
  const int side = slot == kAxisY ? kSideLeft : fromBelow ? kSideTop : kSideBottom;
  const int top = s->axis.axisPosY - s->axis.axisLength[kAxisY] + 1;
  drawAxis(s, {slot, side, s->axis.axisPosX, fromBelow ? top : s->axis.axisPosY, kPartName, false});
  leavePlane(s);
  if (axis != slot) exchangeAxes(s, axis, slot); // the labels of MYLAB go back
  s->axis = keptAxis;
  s->scaling = keptScaling;
}

} // namespace

void drawAxesOnPlanes(PlotState* s) {
  constexpr int kGrow = 3, kOf = 2; // texts on planes are larger by 1.5
  const int height = s->text.textHeight, nameHeight = s->axis.nameHeight;
  setTextHeight(s, height * kGrow / kOf);
  s->axis.nameHeight = nameHeight * kGrow / kOf;
  const AxisPlane(&planes)[kAxisCount] = planesOf(s);
  for (int axis = 0; axis < kAxisCount; axis++) drawOnPlane(s, axis, planes[axis]);
  s->axis.nameHeight = nameHeight;
  setTextHeight(s, height);
}

} // namespace quilla
