// The buffered file under all drivers.
#include <cstdlib>
#include <cstring>
#include <new>

#include "device/writers.h"

namespace quilla {

OutputBuffer* openOutput(const char* name, const char* mode) {
  std::FILE* file = std::fopen(name, mode);
  if (!file) return nullptr;
  OutputBuffer* out = new (std::nothrow) OutputBuffer;
  if (!out) {
    std::fclose(file);
    return nullptr;
  }
  // The buffer here is the only one, so that a failing write is seen where it happens.
  std::setvbuf(file, nullptr, _IONBF, 0);
  out->file = file;
  return out;
}

void flushOutput(OutputBuffer* out) {
  const auto count = static_cast<std::size_t>(out->used);
  if (!out->failed && count > 0 && std::fwrite(out->bytes, 1, count, out->file) != count) out->failed = true;
  out->used = 0;
}

void putBytes(OutputBuffer* out, const char* bytes, int count) {
  out->position += count;
  while (count > kOutputBufferSize - out->used) {
    const int part = kOutputBufferSize - out->used;
    std::memcpy(out->bytes + out->used, bytes, static_cast<std::size_t>(part));
    out->used = kOutputBufferSize;
    flushOutput(out);
    bytes += part;
    count -= part;
  }
  std::memcpy(out->bytes + out->used, bytes, static_cast<std::size_t>(count));
  out->used += count;
}

void putText(OutputBuffer* out, std::string_view text) { putBytes(out, text.data(), static_cast<int>(text.size())); }

ByteTarget bytesTo(OutputBuffer* out) {
  ByteTarget target;
  target.to = out;
  target.put = [](void* to, const unsigned char* bytes, std::size_t count) {
    constexpr std::size_t kAtOnce = 1U << 30; // putBytes counts in int
    auto* buffer = static_cast<OutputBuffer*>(to);
    for (; count > 0 && !buffer->failed;) {
      const std::size_t part = count < kAtOnce ? count : kAtOnce;
      putBytes(buffer, reinterpret_cast<const char*>(bytes), static_cast<int>(part));
      bytes += part;
      count -= part;
    }
    return !buffer->failed;
  };
  return target;
}

bool closeOutput(OutputBuffer* out) {
  flushOutput(out);
  const bool closed = std::fclose(out->file) == 0;
  const bool written = closed && !out->failed;
  delete out;
  return written;
}

} // namespace quilla
