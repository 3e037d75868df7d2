#include "device/page_image.h"

#include <utility>

#include "core/messages.h"
#include "device/pdf_driver.h"
#include "device/raster_driver.h"
#include "device/sink.h"
#include "raster/canvas.h"

namespace quilla {
namespace {

constexpr int kNoMemory = 53;

void readCanvasRow(void* picture, int y, unsigned char* rgb) {
  const auto* canvas = static_cast<const RasterCanvas*>(picture);
  readRgbRow(*canvas, 0, y, rgb, canvas->width);
}

// The size of IMGSIZ and that of the raster change places.
void swapImageSize(PlotState* s) {
  std::swap(s->device.pixelWidth, s->image.imageSize.w);
  std::swap(s->device.pixelHeight, s->image.imageSize.h);
}

} // namespace

bool holdsPageImages(PlotState* s) { return s->device.postScript || pdfDocument(s); }

bool sinkPageImage(PlotState* s, const PageImage& image) {
  bool fine = true;
  if (s->device.postScript) {
    psImage(s, image);
  } else if (PdfWriter* pdf = pdfDocument(s)) {
    fine = pdfImage(s, *pdf, image);
  }
  if (!fine) warnPlain(s, kNoMemory);
  qqcolor(s, s->color.currentColor);
  return fine;
}

bool sinkOpenImage(PlotState* s) {
  const bool sized = s->image.imageSize.set;
  if (sized) swapImageSize(s);
  const bool made = makeRaster(s, s->rasterSetup.imageFormat == kImageRgb) != nullptr;
  if (!made && sized) swapImageSize(s);
  return made;
}

void sinkCloseImage(PlotState* s) {
  RasterCanvas* canvas = s->raster.canvas;
  if (!canvas) return;
  const ImageBox& box = s->image.imageBox;
  const auto width = static_cast<float>(s->geometry.pageWidth), height = static_cast<float>(s->geometry.pageHeight);
  PageImage image = {
      readCanvasRow, canvas, canvas->width, canvas->height, 0.0F, 0.0F, width, height, s->image.imageTransparent >= 0};
  if (box.set) {
    image.x = static_cast<float>(box.x);
    image.y = static_cast<float>(box.y);
    image.boxW = static_cast<float>(box.w);
    image.boxH = static_cast<float>(box.h);
  }
  sinkPageImage(s, image);
  freeRaster(s);
  if (s->image.imageSize.set) swapImageSize(s);
}

} // namespace quilla
