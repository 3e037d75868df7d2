// Axis systems of three dimensions: the box, the view, the plane that two-dimensional routines draw on.
#pragma once

#include "graph2d/axis_group.h"

namespace quilla {

enum ViewMode : int { kViewUnset = 0, kViewAbsolute = 1, kViewUser = 2, kViewAngles = 3 };
enum BoxClip : int { kClipWorld = 0, kClipEye = 1, kClipNothing = 2 };                         // CLIP3D
enum AxisStyle : int { kAxesOnPlanes = 0, kAxesLevel = 1, kAxesParallel = 2, kAxesOther = 3 }; // LABL3D

// Run lifetime. Box coordinates: the box is centred on the origin.
struct ViewGroup {
  float boxLength[3] = {2.0F, 2.0F, 2.0F};
  int eyeMode = kViewUnset;
  float eye[3] = {};
  int focusMode = kViewUnset;
  float focus[3] = {};
  float halfAngle = 0.2449787F; // of view, radians
  float upAngle = 0.0F;         // radians
  float nearPlane = 1.0F;
  float farPlane = -1.0F; // -1: none
  float viewScale = 1.0F; // of the orthographic projection
  bool orthographic = false;
  int boxClip = kClipWorld;
  int axisStyle = kAxesOnPlanes;
  bool firstLabels = false; // FLAB3D: AXENDS holds for the axes of the box
};

// Run lifetime: the transformation of TR3ROT and its kin, rows X, Y and Z of box coordinates. Off, it counts as absent.
struct BoxTransform {
  bool on = false;
  float matrix[3][4] = {{1.0F, 0.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F, 0.0F}};
};

// Working state: the view that the last GRAF3D set up.
struct ViewState {
  bool ready = false;
  float box[3] = {2.0F, 2.0F, 2.0F};
  float start[3] = {}, end[3] = {}; // limits of the axes; exponents on a logarithmic axis
  bool logarithmic[3] = {};
  float userMin[3] = {}, userMax[3] = {}; // the same in user values, min not above max
  float eye[3] = {}, focus[3] = {};       // box coordinates
  float matrix[4][4] = {};                // rows X, Y, Z, W of clip space
  float scale = 1.0F;                     // plot units of 1 in X/W and Y/W
  float centerX = 0.0F, centerY = 0.0F;   // plot coordinates of the middle, ORIGIN not included
  ScalingState boxScaling;                // of the box, while another one holds on a plane
};

// Working state of the pen in three dimensions: where it stands, in box coordinates or, clipped at the view volume, in
// clip space.
struct BoxPen {
  float x = 0.0F, y = 0.0F, z = 0.0F, w = 1.0F;
  bool outside = true;
  bool down = false;                                  // the pen of the page stands at this point
  float pageX = 0.0F, pageY = 0.0F, pageDepth = 0.0F; // where it stands, for lines of the z-buffer
};

// Working state between GRFINI and GRFFIN: u and v run from 0 to 1 along the 2-D axis system, p + u e1 + v e2 is the
// point in the box.
struct PlaneState {
  bool on = false;
  float p[3] = {}, e1[3] = {}, e2[3] = {};
  float penX = 0.0F, penY = 0.0F; // last point on the plane, plot coordinates with ORIGIN
  bool cutAtAxes = false;         // the clip of curves at the axis system holds on the plane
};

} // namespace quilla
