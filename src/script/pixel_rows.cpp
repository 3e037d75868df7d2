// Rows of the pixel routines: a block of colours needs three bytes for each pixel.
#include "core/levels.h"
#include "quilla/quilla.h"
#include "script/array_rows.h"
#include "script/own_routines.h"
#include "script/report.h"

namespace qsl {
namespace {

int bytes_of_pixel() {
  constexpr int kRgbBytes = 3;
  return quilla::plotState()->image.imageDataMode == quilla::kDataRgb ? kRgbBytes : 1;
}

// Whether the BYTE array of operand 0 holds that many pixels.
bool holds_pixels(const Call& call, std::int64_t width, std::int64_t height) {
  const std::int64_t pixels = width > 0 && height > 0 ? width * height : 0;
  if (pixels <= operand_value(0).count / bytes_of_pixel()) return true;
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

void run_rpixls(const Call& call) { run_read_pixels<RPIXLS, bytes_of_pixel>(call); }
void run_rpxrow(const Call& call) { run_read_pixel_row<RPXROW, bytes_of_pixel>(call); }

} // namespace qsl
