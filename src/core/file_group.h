// Files that the user reads and writes by number.
#pragma once

#include <cstdio>

namespace quilla {

inline constexpr int kUserFiles = 99; // numbers from 1

// Process lifetime. The files are closed with the state.
struct UserFiles {
  std::FILE* stream[kUserFiles + 1] = {};
  UserFiles() = default;
  UserFiles(const UserFiles&) = delete;
  UserFiles& operator=(const UserFiles&) = delete;
  ~UserFiles() {
    for (std::FILE* file : stream)
      if (file) std::fclose(file);
  }
};

} // namespace quilla
