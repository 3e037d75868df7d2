#include "raster/reduce.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace quilla {
namespace {

constexpr int kDepth = 8, kChildren = 8, kMostLeaves = 256;
// One leaf more than allowed may stand for a moment, each with its way from the root.
constexpr int kNodeCount = (kMostLeaves + 1) * kDepth + 1;
constexpr int kNone = -1, kRoot = 0;
constexpr int kCacheSize = 1024;
constexpr int kPixelBytes = 4;

struct Node {
  std::uint64_t red, green, blue, count;
  short child[kChildren];
  short next; // in the list of its level, or of free nodes
  unsigned char level, index;
  bool leaf;
};

struct CachedColour {
  std::uint32_t key; // colour and a mark; 0: free
  short node;
};

} // namespace

struct Octree {
  Node nodes[kNodeCount];
  int free, leaves;
  int reducible[kDepth]; // first inner node of each level
  CachedColour cache[kCacheSize];
};

namespace {

std::uint32_t colourOf(const unsigned char* pixel) {
  return static_cast<std::uint32_t>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
}

// Bit 7 - level of red, green and blue: red counts most.
int childOf(std::uint32_t colour, int level) {
  const int bit = 7 - level;
  return static_cast<int>((colour >> (16 + bit) & 1) << 2 | (colour >> (8 + bit) & 1) << 1 | (colour >> bit & 1));
}

int newNode(Octree& tree, int level) {
  const int place = tree.free;
  Node& node = tree.nodes[place];
  tree.free = node.next;
  node = Node{};
  std::fill_n(node.child, kChildren, static_cast<short>(kNone));
  node.level = static_cast<unsigned char>(level);
  node.leaf = level == kDepth;
  if (node.leaf) {
    ++tree.leaves;
  } else {
    node.next = static_cast<short>(tree.reducible[level]);
    tree.reducible[level] = place;
  }
  return place;
}

void forgetColours(Octree& tree) { std::fill_n(tree.cache, kCacheSize, CachedColour{0, kNone}); }

void clearTree(Octree& tree) {
  for (int i = 0; i < kNodeCount; ++i) tree.nodes[i].next = static_cast<short>(i + 1 < kNodeCount ? i + 1 : kNone);
  tree.free = 0;
  tree.leaves = 0;
  std::fill_n(tree.reducible, kDepth, kNone);
  forgetColours(tree);
  newNode(tree, 0);
}

// Makes a leaf of one of the deepest inner nodes.
void mergeNode(Octree& tree) {
  int level = kDepth - 1;
  while (level > 1 && tree.reducible[level] == kNone) --level;
  Node& node = tree.nodes[tree.reducible[level]];
  tree.reducible[level] = node.next;
  for (short& place : node.child) {
    if (place == kNone) continue;
    Node& child = tree.nodes[place];
    node.red += child.red;
    node.green += child.green;
    node.blue += child.blue;
    node.count += child.count;
    child.next = static_cast<short>(tree.free);
    tree.free = place;
    place = kNone;
    --tree.leaves;
  }
  node.leaf = true;
  ++tree.leaves;
}

// The leaf of a colour; leaves that are missing are made if grow.
int leafOf(Octree& tree, std::uint32_t colour, bool grow) {
  int place = kRoot;
  for (int level = 0; !tree.nodes[place].leaf; ++level) {
    const int child = childOf(colour, level);
    int next = tree.nodes[place].child[child];
    if (next == kNone) {
      if (!grow) return place;
      next = newNode(tree, level + 1);
      tree.nodes[place].child[child] = static_cast<short>(next);
    }
    place = next;
  }
  return place;
}

CachedColour& cached(Octree& tree, std::uint32_t colour, bool grow) {
  constexpr std::uint32_t kUsed = 0x01000000U, kSpread = 0x9E3779B1U;
  constexpr int kShift = 22;
  static_assert(kCacheSize == 1 << (32 - kShift));
  CachedColour& entry = tree.cache[colour * kSpread >> kShift];
  if (entry.key != (colour | kUsed)) entry = {colour | kUsed, static_cast<short>(leafOf(tree, colour, grow))};
  return entry;
}

void addColour(Octree& tree, std::uint32_t colour, std::uint64_t times) {
  Node& leaf = tree.nodes[cached(tree, colour, true).node];
  leaf.red += times * (colour >> 16);
  leaf.green += times * (colour >> 8 & 255);
  leaf.blue += times * (colour & 255);
  leaf.count += times;
  if (tree.leaves <= kMostLeaves) return;
  while (tree.leaves > kMostLeaves) mergeNode(tree);
  forgetColours(tree);
}

const unsigned char* pixelsOf(const PixelSource& source, int y) {
  return canvasRow(*source.canvas, source.box.y1 + y) + static_cast<std::ptrdiff_t>(source.box.x1) * kPixelBytes;
}

// Neighbours of one colour are added together.
void addRow(Octree& tree, const unsigned char* pixel, int n) {
  for (int i = 0; i < n;) {
    const std::uint32_t colour = colourOf(pixel);
    const int start = i;
    do {
      ++i;
      pixel += kPixelBytes;
    } while (i < n && colourOf(pixel) == colour);
    addColour(tree, colour, static_cast<std::uint64_t>(i - start));
  }
}

void numberLeaves(IndexedRows& rows, int place) {
  Node& node = rows.tree->nodes[place];
  if (!node.leaf) {
    for (short child : node.child) {
      if (child != kNone) numberLeaves(rows, child);
    }
    return;
  }
  node.index = static_cast<unsigned char>(rows.paletteCount);
  rows.palette[rows.paletteCount++] = {static_cast<unsigned char>(node.red / node.count),
                                       static_cast<unsigned char>(node.green / node.count),
                                       static_cast<unsigned char>(node.blue / node.count)};
}

} // namespace

bool openIndexedRows(IndexedRows& rows, const PixelSource& source) {
  rows.source = source;
  if (!source.canvas->trueColour) {
    std::copy_n(source.canvas->palette, kPaletteSize, rows.palette);
    rows.paletteCount = kPaletteSize;
    return true;
  }
  rows.tree = new (std::nothrow) Octree;
  if (!rows.tree) return false;
  clearTree(*rows.tree);
  for (int y = 0; y < source.height(); ++y) addRow(*rows.tree, pixelsOf(source, y), source.width());
  rows.paletteCount = 0;
  numberLeaves(rows, kRoot);
  forgetColours(*rows.tree);
  return true;
}

void closeIndexedRows(IndexedRows& rows) {
  delete rows.tree;
  rows.tree = nullptr;
}

const unsigned char* indexedRow(IndexedRows& rows, int y, unsigned char* buffer) {
  const PixelSource& source = rows.source;
  if (!rows.tree) return canvasRow(*source.canvas, source.box.y1 + y) + source.box.x1;
  const unsigned char* pixel = pixelsOf(source, y);
  std::uint32_t last = ~0U;
  unsigned char index = 0;
  for (int i = 0; i < source.width(); ++i, pixel += kPixelBytes) {
    const std::uint32_t colour = colourOf(pixel);
    if (colour != last) index = rows.tree->nodes[cached(*rows.tree, colour, false).node].index;
    last = colour;
    buffer[i] = index;
  }
  return buffer;
}

} // namespace quilla
