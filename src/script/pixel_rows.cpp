// Rows of the pixel routines: a block of colours needs three bytes for each pixel.
#include "core/levels.h"
#include "quilla/quilla.h"
#include "script/bound_routine.h"
#include "script/own_routines.h"
#include "script/report.h"

namespace qsl {
namespace {

// Whether the BYTE array of operand 0 holds that many pixels.
bool holds_pixels(const Call& call, std::int64_t width, std::int64_t height) {
  constexpr int kRgbBytes = 3;
  const bool rgb = quilla::plotState()->image.imageDataMode == quilla::kDataRgb;
  const std::int64_t pixels = width > 0 && height > 0 ? width * height : 0;
  if (pixels <= operand_value(0).count / (rgb ? kRgbBytes : 1)) return true;
  report_error_text("Not enough array elements in", call.name);
  return false;
}

} // namespace

void run_wpixls(const Call& call) {
  const int x = operand_value(1).value.i, y = operand_value(2).value.i;
  const int w = operand_value(3).value.i, h = operand_value(4).value.i;
  if (holds_pixels(call, w, h)) WPIXLS(elements<unsigned char>(operand_value(0)), x, y, w, h);
}

void run_wpxrow(const Call& call) {
  const int x = operand_value(1).value.i, y = operand_value(2).value.i, n = operand_value(3).value.i;
  if (holds_pixels(call, n, 1)) WPXROW(elements<unsigned char>(operand_value(0)), x, y, n);
}

} // namespace qsl
