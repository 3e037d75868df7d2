// Device selection, the plot file and the drivers' records.
#pragma once

#include <cstdio>

#include "core/message_group.h"

namespace quilla {

struct PlotState;
struct PdfWriter;
struct PostScriptWriter;
struct OutputBuffer;
struct VectorWriter;
struct CgmWriter;
struct MetafileWriter;
struct PlyMesh;

inline constexpr int kLineLimit = 80;      // characters of a line of text formats
inline constexpr int kLineBufferSize = 82; // with newline and end mark

inline constexpr int kCgmNameLength = 255; // of a picture of CGM

enum FileMode : int { kFileCount = 0, kFileDelete = 1, kFileBreak = 2, kFileVersion = 3 };
enum PdfMode : int { kPdfModeCompress = 1, kPdfModeMemory = 2 };
enum FileNameState : int { kFileNameDefault = 0, kFileNameGiven = 1, kFileNameReused = 2 };

// Process lifetime.
struct DeviceSetup {
  int deviceNumber = 0;                        // 0 until METAFL, SETPAG or QUIINI sets it
  char deviceKeyword[5] = "";                  // shown as "Fileformat" in the closing message
  bool deviceChosen = false;                   // set by METAFL
  char plotFileName[kFileNameLength + 1] = ""; // after opening: the versioned name
  char userFileName[kFileNameLength + 1] = ""; // as SETFIL gave it
  int fileNameState = kFileNameDefault;
  int fileMode = kFileCount;                    // FILMOD
  int versionSeparator = 0;                     // FILOPT SEPA: 0 UNDE, 1 HYPH, 2 NONE
  int versionStyle = 0;                         // FILOPT NUMB: 0 SHOR, 1 LONG
  int versionDigits = 4;                        // FILOPT DIGI
  int includeScaling = 0;                       // FILOPT SCAL: 0 OFF, 1 PAGE, 2 VIEW
  int pdfMode = 1;                              // bit 0: compression, bit 1: buffer output
  int psSinglePage = 0;                         // PSMODE SING
  char* psInfoText = nullptr;                   // PSMETA, owned
  bool hpglAris = false;                        // HPGMOD PLOT ARIS
  bool wmfPlaceable = false;                    // WMFMOD FORM PLAC
  int cgmVersion = 1;                           // CGMVER: 1 or 4
  char cgmPictureName[kCgmNameLength + 1] = ""; // CGMPIC: name of the next picture
  bool cgmPictureNameSet = false;
  int cgmBackground[3] = {255, 255, 255}; // CGMBGD
  bool cgmBackgroundSet = false;
};

// Working state from QUIINI to QUIFIN.
struct DeviceGroup {
  OutputBuffer* plotOutput = nullptr; // the open plot file; null for windows and drivers that own theirs
  char lineBuffer[kLineBufferSize] = "";
  int lineUsed = 0;
  float deviceScale = 1.0F; // device units per plot unit
  int colourDepth = 8;      // 8 indexed, 24 true colour
  int pixelWidth = 853, pixelHeight = 603;
  bool swapBytes = true;
  PostScriptWriter* postScript = nullptr;
  PdfWriter* pdf = nullptr;
  VectorWriter* vector = nullptr; // SVG and IPE
  CgmWriter* cgm = nullptr;
  MetafileWriter* metafile = nullptr;          // WMF and EMF
  PlyMesh* ply = nullptr;                      // between PLYINI and PLYFIN
  int pltmPenCode = 0;                         // last pen code of the file
  int javaLastX = 0, javaLastY = 0;            // last point of the pen
  std::FILE* trace = nullptr;                  // hidden output of sink primitives as text, for tests
  bool sendAfterPicture = false;               // BUFMOD
  void (*freeDrivers)(PlotState* s) = nullptr; // set while a driver holds memory: frees it
};

// Run lifetime: where and how INCFIL puts a file.
struct IncludeGroup {
  bool fileBoxSet = false; // FILBOX
  int fileBoxX = 0, fileBoxY = 0, fileBoxW = 0, fileBoxH = 0;
  bool ignoreFileColors = false; // FILCLR NONE
  bool fileWindowSet = false;    // FILWIN: the part of an image that is shown, in its pixels
  int fileWindowX = 0, fileWindowY = 0, fileWindowW = 0, fileWindowH = 0;
};

} // namespace quilla
