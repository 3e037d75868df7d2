#include "map/map_copies.h"

#include "core/pipeline.h"

namespace quilla {

MapCopies mapCopies(const PlotState* s) {
  constexpr float kSlack = 0.1F, kHalfWidth = 180.0F, kHalfHeight = 90.0F;
  if (openMapCode(s) >= kProjConformal) return {{{0.0F, 1.0F, 0.0F}}, 1};
  const ScalingState& c = s->scaling;
  const float xa = c.axisStart[kAxisX], xe = c.axisEnd[kAxisX], ya = c.axisStart[kAxisY], ye = c.axisEnd[kAxisY];
  float shifts[3], factors[3], offsets[3];
  int across = 0, upwards = 0;
  auto addShift = [&](float shift) { shifts[across++] = shift; };
  auto addFactor = [&](float factor, float offset) {
    factors[upwards] = factor;
    offsets[upwards++] = offset;
  };
  if (xa < -kHalfWidth - kSlack) addShift(-2.0F * kHalfWidth);
  if (xe > kHalfWidth + kSlack) addShift(2.0F * kHalfWidth);
  if (xa < kHalfWidth - kSlack && xe > -kHalfWidth + kSlack) addShift(0.0F);
  if (ya < -kHalfHeight - kSlack) addFactor(-1.0F, -2.0F * kHalfHeight);
  if (ye > kHalfHeight + kSlack) addFactor(-1.0F, 2.0F * kHalfHeight);
  if (ya < kHalfHeight - kSlack && ye > -kHalfHeight + kSlack) addFactor(1.0F, 0.0F);
  MapCopies copies{{}, 0};
  for (int i = 0; i < across; i++) {
    for (int k = 0; k < upwards; k++) copies.items[copies.count++] = {shifts[i], factors[k], offsets[k]};
  }
  return copies;
}

} // namespace quilla
