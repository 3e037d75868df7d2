// Public routines that convert user coordinates, box coordinates and plot coordinates.
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/projection.h"
#include "graph3d/box.h"
#include "quilla/quilla.h"

using namespace quilla;

namespace {

// The page point as the user counts it.
PagePoint userPage(const PlotState* s, const BoxPoint& p) {
  const PagePoint page = pageOfBox(s, p.x, p.y, p.z);
  return {page.x, userY(s, page.y)};
}

BoxPoint boxOf(const PlotState* s, float x, float y, float z) { return transformedBox(s, boxOfUser(s, x, y, z)); }

} // namespace

void ABS3PT(float x, float y, float z, float* xp, float* yp) {
  PlotState* s = strictCheck(1, 3, "abs3pt");
  if (!s) return;
  if (!s->viewState.ready) return warnPlain(s, 35);
  const PagePoint page = userPage(s, {x, y, z});
  *xp = page.x;
  *yp = page.y;
}

void POS3PT(float x, float y, float z, float* xp, float* yp, float* zp) {
  const PlotState* s = boxCheck("pos3pt");
  if (!s) return;
  const BoxPoint p = boxOf(s, x, y, z);
  *xp = p.x;
  *yp = p.y;
  *zp = p.z;
}

void REL3PT(float x, float y, float z, float* xp, float* yp) {
  const PlotState* s = boxCheck("rel3pt");
  if (!s) return;
  const PagePoint page = userPage(s, boxOf(s, x, y, z));
  *xp = page.x;
  *yp = page.y;
}

float X3DABS(float x, float y, float z) {
  const PlotState* s = boxCheck("x3dabs");
  return s ? userPage(s, {x, y, z}).x : 0.0F;
}

float Y3DABS(float x, float y, float z) {
  const PlotState* s = boxCheck("y3dabs");
  return s ? userPage(s, {x, y, z}).y : 0.0F;
}

float X3DPOS(float x, float y, float z) {
  const PlotState* s = boxCheck("x3dpos");
  return s ? boxOf(s, x, y, z).x : 0.0F;
}

float Y3DPOS(float x, float y, float z) {
  const PlotState* s = boxCheck("y3dpos");
  return s ? boxOf(s, x, y, z).y : 0.0F;
}

float Z3DPOS(float x, float y, float z) {
  const PlotState* s = boxCheck("z3dpos");
  return s ? boxOf(s, x, y, z).z : 0.0F;
}

float X3DREL(float x, float y, float z) {
  const PlotState* s = boxCheck("x3drel");
  return s ? userPage(s, boxOf(s, x, y, z)).x : 0.0F;
}

float Y3DREL(float x, float y, float z) {
  const PlotState* s = boxCheck("y3drel");
  return s ? userPage(s, boxOf(s, x, y, z)).y : 0.0F;
}
