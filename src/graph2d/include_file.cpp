// INCFIL: plot files and images drawn into the plot.
#include "core/clipper.h"
#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "core/rectangle.h"
#include "device/sink.h"
#include "graph2d/include_image.h"
#include "graph2d/plot_file_reader.h"
#include "image/file_kind.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

constexpr int kNegative = 1, kBadParameter = 2, kFileError = 36, kIncompatible = 40, kBadFormat = 56,
              kNotComplete = 122;

WholeBox targetBox(const PlotState* s) {
  const IncludeGroup& include = s->include;
  if (include.fileBoxSet) return {include.fileBoxX, include.fileBoxY, include.fileBoxW, include.fileBoxH};
  return {0, 0, s->geometry.pageWidth + 1, s->geometry.pageHeight + 1};
}

void report(PlotState* s, FileReadResult result) {
  switch (result) {
  case FileReadResult::kFine: return;
  case FileReadResult::kBadFormat: return warnPlain(s, kBadFormat);
  case FileReadResult::kNotComplete: return warnWithText(s, kNotComplete, "The PLTMET file is not complete!");
  }
}

// The box does not move with the page origin.
void drawFrame(PlotState* s, const WholeBox& box) {
  if (s->axis.frameThickness == 0) return;
  qqrect(s, box.x - s->page.originX, box.y - s->page.originY, box.width, box.height, s->axis.frameThickness, 0);
}

void includePlotFile(PlotState* s, const char* name, FileKind kind) {
  std::FILE* file = std::fopen(name, "rb");
  if (!file) return warnWithString(s, kFileError, name);
  const WholeBox box = targetBox(s);
  const FileBox place = {static_cast<float>(box.x), static_cast<float>(box.y), static_cast<float>(box.width),
                         static_cast<float>(box.height)};
  flushPath(s);
  const int kept = s->color.currentColor;
  const FileReadResult result = kind == kFileCgm ? drawCgm(s, file, place) : drawPltm(s, file, place);
  std::fclose(file);
  if (s->color.currentColor != kept) setColor(s, kept);
  report(s, result);
  if (result != FileReadResult::kBadFormat) drawFrame(s, box);
}

void includeImageFile(PlotState* s, const char* name, FileKind kind) {
  constexpr int kScaleToPage = 2;
  if (!showsImages(s)) return warnPlain(s, kIncompatible);
  const WholeBox box = targetBox(s);
  const bool drawn = includeImage(s, name, kind, box);
  // An image of the size of the page has no use for its box, but on paper.
  if (drawn && (s->deviceSetup.includeScaling != kScaleToPage || !s->raster.canvas)) drawFrame(s, box);
}

} // namespace

void moveFilePen(PlotState* s, FilePen& pen, float x, float y, int code) {
  const ClipGroup& c = s->clip;
  const ClipBox window = {static_cast<float>(c.clipX0), static_cast<float>(c.clipY0), static_cast<float>(c.clipX1),
                          static_cast<float>(c.clipY1)};
  const bool inside = insideBox(window, x, y);
  if (code == kPenMove) {
    if (inside) qqpen(s, x, y, kPenMove);
    pen = {x, y, inside};
  } else if (inside && pen.inside) {
    qqpen(s, x, y, kPenDraw);
    pen = {x, y, true};
  } else {
    Segment part{pen.x, pen.y, x, y};
    const ClipResult cut = clipSegment(window, part);
    if (cut.visible) {
      if (!pen.inside) qqpen(s, part.x0, part.y0, kPenMove);
      qqpen(s, part.x1, part.y1, kPenDraw);
    }
    pen = {x, y, cut.visible && inside};
  }
}

} // namespace quilla

using namespace quilla;

void FILBOX(int nx, int ny, int nw, int nh) {
  PlotState* s = setterCheck("filbox");
  if (!s) return;
  const int top = userY(s, ny);
  if (nx < 0 || top < 0) return warnWithNumber(s, kNegative, nx < 0 ? nx : top);
  const int width = s->geometry.pageWidth + 1, height = s->geometry.pageHeight + 1;
  const bool fits = nw > 0 && nh > 0 && nx < width && top < height && nw <= width - nx && nh <= height - top;
  if (!fits) return warnPlain(s, kBadParameter);
  s->include.fileBoxSet = true;
  s->include.fileBoxX = nx;
  s->include.fileBoxY = top;
  s->include.fileBoxW = nw;
  s->include.fileBoxH = nh;
}

void FILWIN(int nx, int ny, int nw, int nh) {
  PlotState* s = setterCheck("filwin");
  if (!s || checkRange(s, nx < ny ? nx : ny, 0, -1) || checkRange(s, nw < nh ? nw : nh, 1, 0)) return;
  s->include.fileWindowSet = true;
  s->include.fileWindowX = nx;
  s->include.fileWindowY = ny;
  s->include.fileWindowW = nw;
  s->include.fileWindowH = nh;
}

void FILCLR(const char* mode) {
  PlotState* s = setterCheck("filclr");
  if (!s) return;
  if (const int found = matchKeyword(s, "ALL +NONE", 2, mode)) s->include.ignoreFileColors = found == 2;
}

void INCFIL(const char* name) {
  PlotState* s = strictCheck(1, 3, "incfil");
  if (!s) return;
  const FileKind kind = probeFileKind(name);
  switch (kind) {
  case kFileNotOpened: return warnWithString(s, kFileError, name);
  case kFilePltm:
  case kFileCgm: return includePlotFile(s, name, kind);
  case kFileBmp:
  case kFileGif:
  case kFilePng:
  case kFileTiff:
  case kFilePpm:
  case kFileTiffSpecial: return includeImageFile(s, name, kind);
  case kFileWmf:
  case kFileHpgl:
  case kFilePostScript:
  case kFileRawImage:
  case kFilePdf:
  case kFilePlaceableWmf: return warnPlain(s, kBadFormat);
  }
}
