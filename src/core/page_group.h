// Page settings and geometry.
#pragma once

namespace quilla {

enum ScaleMode : int { kScaleDown = 0, kScaleFull = 1, kScaleNone = 2 };
// PAGMOD: 0 "COMI" and "LAND", 1 "MOVI" and "PORT" (turned by 90 degrees), 2 "NONE".
enum PageRotation : int { kPageAsIs = 0, kPageTurned = 1, kPageNever = 2 };

inline constexpr float kDefaultPageWidth = 2969.0F;
inline constexpr float kDefaultPageHeight = 2099.0F;

// Process lifetime.
struct PageSetup {
  char pageFormatName[5] = "DA4L";
  float pageWidthUnits = kDefaultPageWidth;   // in the units of unitFactor 1
  float pageHeightUnits = kDefaultPageHeight; // in the units of unitFactor 1
  float unitFactor = 1.0F;                    // UNITS
  float scaleFactor = 1.0F;                   // SCLFAC
  int scaleMode = kScaleDown;                 // SCLMOD
  int pageRotation = kPageAsIs;               // PAGMOD
  bool hardwareOriginSet = false;             // HWORIG
  int hardwareOriginX = 0, hardwareOriginY = 0;
  bool hardwarePageSet = false; // HWPAGE
  int hardwarePageWidth = 0, hardwarePageHeight = 0;
  float hardwareScale = 1.0F; // HWSCAL
};

// Run lifetime. Plot coordinates: origin upper left, x to the right, y downwards.
struct PageGroup {
  bool originAtTop = false; // PAGORG("BOTT"): y of the user counts from the bottom of the page
  int originX = 0, originY = 0;
};

// Working state, fixed at QUIINI.
struct PageGeometry {
  int pageWidth = 0, pageHeight = 0; // plot units
  int pageNumber = 1;
};

} // namespace quilla
