#include "raster/pack.h"

#ifdef QUILLA_LIBDEFLATE
#include <libdeflate.h>
#else
#include <algorithm>
#include <zlib.h>
#endif

#include "raster/row_buffer.h"

namespace quilla {

#ifdef QUILLA_LIBDEFLATE

// This packer wants all rows at once.
EncodeResult packRows(const RowReader& reader, PackedRows& packed) {
  constexpr int kDefaultLevel = 6;
  const std::size_t lead = static_cast<std::size_t>(reader.lead), stride = reader.rowBytes + lead;
  const RowBuffer image(reader.rows, stride);
  libdeflate_compressor* packer = libdeflate_alloc_compressor(kDefaultLevel);
  if (image.bytes && packer) {
    for (int y = 0; y < reader.rows; ++y) {
      reader.read(reader.picture, y, image.bytes + static_cast<std::size_t>(y) * stride + lead);
    }
    const std::size_t room = libdeflate_zlib_compress_bound(packer, image.size);
    packed.bytes = static_cast<unsigned char*>(std::malloc(room));
    if (packed.bytes) packed.size = libdeflate_zlib_compress(packer, image.bytes, image.size, packed.bytes, room);
  }
  libdeflate_free_compressor(packer);
  if (!packed.bytes) return EncodeResult::kNoMemory;
  return packed.size > 0 ? EncodeResult::kFine : EncodeResult::kDeflateFailed;
}

#else

namespace {

// Room for what deflate makes, grown as it is needed: a chart packs to a few percent.
bool growRoom(z_stream& stream, PackedRows& packed, std::size_t& room) {
  constexpr std::size_t kFirstRoom = 65536, kMostAtOnce = 0x7FFFFFFF;
  room += std::max(room, kFirstRoom);
  void* grown = std::realloc(packed.bytes, room);
  if (!grown) return false;
  packed.bytes = static_cast<unsigned char*>(grown);
  stream.next_out = packed.bytes + stream.total_out;
  stream.avail_out = static_cast<uInt>(std::min<std::size_t>(room - stream.total_out, kMostAtOnce));
  return true;
}

EncodeResult packRow(z_stream& stream, PackedRows& packed, std::size_t& room, int flush) {
  for (;;) {
    if (stream.avail_out == 0 && !growRoom(stream, packed, room)) return EncodeResult::kNoMemory;
    const int status = deflate(&stream, flush);
    if (status == Z_STREAM_END || (flush == Z_NO_FLUSH && stream.avail_in == 0)) return EncodeResult::kFine;
    if (status != Z_OK && status != Z_BUF_ERROR) return EncodeResult::kDeflateFailed;
  }
}

} // namespace

EncodeResult packRows(const RowReader& reader, PackedRows& packed) {
  const RowBuffer row(1, reader.rowBytes + static_cast<std::size_t>(reader.lead));
  if (!row.bytes) return EncodeResult::kNoMemory;
  z_stream stream{};
  if (deflateInit(&stream, Z_DEFAULT_COMPRESSION) != Z_OK) return EncodeResult::kDeflateFailed;
  std::size_t room = 0;
  EncodeResult result = EncodeResult::kFine;
  for (int y = 0; y < reader.rows && result == EncodeResult::kFine; ++y) {
    reader.read(reader.picture, y, row.bytes + reader.lead);
    stream.next_in = row.bytes;
    stream.avail_in = static_cast<uInt>(row.size);
    result = packRow(stream, packed, room, y + 1 < reader.rows ? Z_NO_FLUSH : Z_FINISH);
  }
  packed.size = stream.total_out;
  deflateEnd(&stream);
  return result;
}

#endif

} // namespace quilla
