// A sorted index over the names of a table, made by the compiler. Of equal names the first row is found.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace qsl {

template <int N> struct NameIndex {
  std::array<std::string_view, N> names{};
  std::array<std::int16_t, N> rows{};

  // name_of(i): the name of row i.
  template <typename NameOf> consteval explicit NameIndex(NameOf name_of) {
    for (int i = 0; i < N; ++i) {
      const std::string_view name = name_of(i);
      int k = i;
      for (; k > 0 && name < names[static_cast<std::size_t>(k - 1)]; --k) {
        names[static_cast<std::size_t>(k)] = names[static_cast<std::size_t>(k - 1)];
        rows[static_cast<std::size_t>(k)] = rows[static_cast<std::size_t>(k - 1)];
      }
      names[static_cast<std::size_t>(k)] = name;
      rows[static_cast<std::size_t>(k)] = static_cast<std::int16_t>(i);
    }
  }

  // Row of a name, or -1.
  constexpr int find(std::string_view name) const {
    std::size_t low = 0, high = N;
    while (low < high) {
      const std::size_t middle = (low + high) / 2;
      if (names[middle] < name) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return low < N && names[low] == name ? rows[low] : -1;
  }
};

} // namespace qsl
