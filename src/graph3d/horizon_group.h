// Hidden lines: the floating horizon, and settings of surfaces.
#pragma once

namespace quilla {

enum HorizonMode : int { kHorizonTest = 0, kHorizonDraw = 1, kHorizonStore = 2 };
enum HorizonSide : int { kSideNone = 0, kSideUpper = 1, kSideLower = 2 };
enum VisibleSide : int { kVisibleAuto = 0, kVisibleTop = 1, kVisibleBottom = 2, kVisibleBoth = 3 }; // SURVIS
enum MeshLines : int { kMeshBoth = 0, kMeshAlongX = 1, kMeshAlongY = 2 };                           // SUROPT

// Run lifetime.
struct SurfaceGroup {
  int visibleSide = kVisibleAuto;
  int meshLines = kMeshBoth;
  bool sideColorsGiven = false;         // SURCLR
  int upperColor = -1, lowerColor = -1; // -1: the colour at entry
  bool hidingOff = false;               // NOHIDE
  bool shieldKept = false;              // SHLSUR
};

// Working state. Each column of the page keeps the largest and the smallest plot Y drawn in it so far.
struct HorizonState {
  short* largest = nullptr; // pageWidth + 1 columns each, in one block
  short* smallest = nullptr;
  int columns = 0;
  bool on = false;
  int mode = kHorizonTest;
  bool colored = false; // lines are those of a surface and take the colours of its sides
  int side = kSideNone;
  int entryColor = 0;
  int penX = 0, penY = 0;
  bool deviceThere = false; // the pen of the device stands at the pen
};

} // namespace quilla
