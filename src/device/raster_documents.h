// PostScript and PDF documents of one picture: it fills the sheet as far as its shape allows, turned if it lies.
#pragma once

#include "device/writers.h"
#include "raster/encoders.h"

namespace quilla {

EncodeResult writePsImage(const PlotState* s, const PixelSource& source, OutputBuffer* out);
EncodeResult writePdfImage(const PlotState* s, const PixelSource& source, OutputBuffer* out);

} // namespace quilla
