// The FITS file that is open.
#pragma once

namespace quilla {

struct FitsFile;

// Process lifetime: it outlives plots. Closed with the state.
struct FitsState {
  FitsFile* file = nullptr;
  FitsState() = default;
  FitsState(const FitsState&) = delete;
  FitsState& operator=(const FitsState&) = delete;
  ~FitsState() { replace(nullptr); }
  void replace(FitsFile* next); // closes the file that was open
};

} // namespace quilla
