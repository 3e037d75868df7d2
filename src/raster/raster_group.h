// Rasters and images: the canvas, what is written from it and read into it.
#pragma once

namespace quilla {

struct RasterCanvas;

enum ImageFormat : int { kImageIndexed = 0, kImageRgb = 1, kImageBilevel = 2 };
enum ImageData : int { kDataIndices = 0, kDataRgb = 1 };
enum ImageRows : int { kRowsFromTop = 0, kRowsFromBottom = 1 };
enum TiffUnit : int { kTiffInch = 2, kTiffCentimetre = 3 };

// Process lifetime: settings of file formats.
struct RasterSetup {
  int imageFormat = kImageIndexed; // IMGFMT
  int bmpResolution = 2500;        // BMPMOD, pixels a metre
  int tiffResolution = 100;        // TIFMOD
  int tiffResolutionUnit = kTiffInch;
  bool pngTransparent = false; // PNGMOD TRAN
  bool gifTransparent = false; // GIFMOD TRAN
};

struct ImageBox {
  bool set = false;
  int x = 0, y = 0, w = 0, h = 0;
};

// Run lifetime.
struct ImageGroup {
  int imageDataMode = kDataIndices;     // IMGMOD: what pixel routines exchange
  int imageRowOrder = kRowsFromTop;     // IMGMOD
  ImageBox imageBox;                    // IMGBOX: page rectangle of the image on vector devices
  ImageBox imageClip;                   // IMGCLP: rectangle that is written
  ImageBox imageSize;                   // IMGSIZ: only w and h
  bool smoothLines = true;              // LINMOD: thin lines on true colours
  int imageTransparent = -1;            // IMGTPR: -1, or the colour that is left out of images
  int transparencyValue = 255;          // TPRVAL, 0 to 255
  bool autoTransparency = false;        // TPRMOD FIGU
  bool blendBackground = false;         // TPRMOD BACK NOOP: colours over the background are blended, too
  ImageBox tiffWindow;                  // TIFWIN: part of a TIFF file that WTIFF reads
  int tiffOriginX = 0, tiffOriginY = 0; // TIFORG: where WTIFF places the image
};

// Working state from QUIINI to QUIFIN.
struct RasterState {
  RasterCanvas* canvas = nullptr;
  bool imageOpen = false;                      // between IMGINI and IMGFIN
  int transparencyDepth = 0;                   // nesting of TPRINI
  int keptPixelWidth = 0, keptPixelHeight = 0; // put away while an image of IMGSIZ is open
};

} // namespace quilla
