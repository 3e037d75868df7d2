// Arbitrary bytes as a PLTM or CGM file that is drawn into a plot. READER is 0 for PLTM and 1 for CGM; the first byte
// chooses a device with true or indexed colours, and the table.
//
//   clang++ -std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -Isrc -Iinclude -DREADER=0 -DQUILLA_SHARE_DIR='""' \
//     tests/fuzz/include_fuzz.cpp <sources of the library> -lz -o include_fuzz
//   ./include_fuzz -max_total_time=600 <folder with a plot file of each kind behind a byte of any value>
#include <cstdint>
#include <cstdio>

#include "core/colors.h"
#include "core/levels.h"
#include "graph2d/plot_file_reader.h"
#include "quilla/quilla.h"

using namespace quilla;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  PlotState* s = plotState();
  s->message.messageUnit = kUnitNone;
  METAFL((data[0] & 2) != 0 ? "SVG" : "HPGL");
  QUIINI();
  if (s->level.plotLevel == 0) return 0;
  UNIT(nullptr);
  if ((data[0] & 4) != 0) loadColorTable(s, kTableReverseRain);
  std::FILE* file = fmemopen(const_cast<std::uint8_t*>(data + 1), size - 1, "rb");
  const FileBox box = {100.0F, 50.0F, 1000.0F, 700.0F};
  if (READER == 1) {
    drawCgm(s, file, box);
  } else {
    drawPltm(s, file, box);
  }
  std::fclose(file);
  UNIT(nullptr);
  QUIFIN();
  std::remove(s->deviceSetup.plotFileName);
  return 0;
}
