// Settings of the box and of the view. They take effect with the next GRAF3D.
#include <cmath>

#include "core/levels.h"
#include "core/messages.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// Stores a point in one of the modes of a keyword list.
void storePoint(PlotState* s, const char* list, int count, const char* mode, const float (&point)[3], int& kept,
                float (&place)[3]) {
  const int found = matchKeyword(s, list, count, mode);
  if (!found) return;
  for (const float v : point)
    if (!std::isfinite(v)) return warnPlain(s, 2);
  kept = found;
  for (int i = 0; i < 3; i++) place[i] = point[i];
}

} // namespace

void AXIS3D(float x, float y, float z) {
  PlotState* s = setterCheck("axis3d");
  if (!s) return;
  const float lengths[3] = {x, y, z};
  for (const float length : lengths)
    if (!(length > 0.0F) || !std::isfinite(length)) return warnPlain(s, 2);
  for (int i = 0; i < 3; i++) s->view.boxLength[i] = lengths[i];
}

void VIEW3D(float x, float y, float z, const char* mode) {
  if (PlotState* s = setterCheck("view3d"))
    storePoint(s, "ABS +USER+ANGL", 3, mode, {x, y, z}, s->view.eyeMode, s->view.eye);
}

void VFOC3D(float x, float y, float z, const char* mode) {
  if (PlotState* s = setterCheck("vfoc3d"))
    storePoint(s, "ABS +USER", 2, mode, {x, y, z}, s->view.focusMode, s->view.focus);
}

void VANG3D(float angle) {
  PlotState* s = setterCheck("vang3d");
  if (!s) return;
  if (!(angle > 0.0F && angle < 180.0F)) return warnPlain(s, 2);
  s->view.halfAngle = angle * kPi / 360.0F;
}

void VUP3D(float angle) {
  PlotState* s = setterCheck("vup3d");
  if (!s) return;
  if (!std::isfinite(angle)) return warnPlain(s, 2);
  s->view.upAngle = angle * kPi / 180.0F;
}

void VCLP3D(float nearPlane, float farPlane) {
  PlotState* s = setterCheck("vclp3d");
  if (!s) return;
  if (!(nearPlane > 0.0F) || !std::isfinite(nearPlane)) return warnPlain(s, 2);
  s->view.nearPlane = nearPlane;
  if (std::isnan(farPlane) || (farPlane > 0.0F && farPlane < nearPlane)) return warnPlain(s, 2);
  s->view.farPlane = farPlane > 0.0F ? farPlane : -1.0F;
}

void VSCL3D(float scale) {
  PlotState* s = strictCheck(1, 3, "vscl3d");
  if (!s) return;
  if (!(scale > 0.0F) || !std::isfinite(scale)) return warnPlain(s, 2);
  s->view.viewScale = scale;
}

void PROJ3D(const char* projection) {
  PlotState* s = strictCheck(1, 1, "proj3d");
  if (!s) return;
  if (int found = matchKeyword(s, "PERS+ORTH", 2, projection)) s->view.orthographic = found == 2;
}

void CLIP3D(const char* mode) {
  PlotState* s = setterCheck("clip3d");
  if (!s) return;
  if (int found = matchKeyword(s, "WORL+EYE +NONE", 3, mode)) s->view.boxClip = found - 1;
}

void LABL3D(const char* style) {
  PlotState* s = setterCheck("labl3d");
  if (!s) return;
  if (int found = matchKeyword(s, "STAN+HORI+PARA+OTHE", 4, style)) s->view.axisStyle = found - 1;
}

void FLAB3D(void) {
  if (PlotState* s = setterCheck("flab3d")) s->view.firstLabels = true;
}
