// The packings of TIFF. Each unpacks into size bytes and tells how many it made; kImageOverrun if the input gives more
// than fits or ends in the middle of a step.
#pragma once

#include "image/tiff_directory.h"

namespace quilla {

// The most bytes that so many packed ones stand for.
long long tiffUnpackedLimit(unsigned compression, std::size_t packed);

ImageStatus unpackTiffLzw(FileBytes packed, unsigned char* out, std::size_t size, std::size_t& made);
ImageStatus unpackTiffBits(FileBytes packed, unsigned char* out, std::size_t size, std::size_t& made);

} // namespace quilla
