// RESET: one group of settings, by the name of its routine, back to its default.
#include <cstdlib>
#include <cstring>

#include "core/colors.h"
#include "core/levels.h"
#include "core/messages.h"
#include "core/pipeline.h"
#include "graph2d/area.h"
#include "quilla/quilla.h"
#include "run/default_settings.h"
#include "text/text.h"

using namespace quilla;

namespace {

struct Defaults {
  AxisGroup axis;
  TextGroup text;
  CurveGroup curve;
  ContourGroup contour;
};

template <class Field> void copyField(Field& target, const Field& source) {
  std::memcpy(&target, &source, sizeof target);
}

void restoreClip(PlotState* s) {
  s->clip.clipBorderMode = kBorderPage;
  clipWholePage(s);
  s->clip.clipIsCircle = s->clip.axisClipActive = false;
  sendClip(s, 0.0F);
}

void fillColorCycle(PlotState* s) {
  for (int i = 0; i < kCycleLength; i++) s->color.colorCycle[i] = s->color.namedColors[i % (kNamedColorCount - 1)];
}

int lastRangeEntry(const PlotState* s) {
  int last = lastTableEntry(s->color.tableKind);
  return s->color.tableKind == kTableSmall ? kNamedColorCount - 1 : last - 1;
}

void resetLabelDigits(PlotState* s, const AxisGroup& d) {
  copyField(s->axis.labelDigits, d.labelDigits);
  copyField(s->axis.labelAutoDigits, d.labelAutoDigits);
  copyField(s->axis.labelDigitsGiven, d.labelDigitsGiven);
}

void resetMixCharacters(PlotState* s, const TextGroup& d) {
  s->text.mixExp = d.mixExp;
  s->text.mixIndex = d.mixIndex;
  s->text.mixReset = d.mixReset;
  s->text.mixLegend = d.mixLegend;
  s->text.mixTex = d.mixTex;
}

void resetNumberMode(PlotState* s, const TextGroup& d) {
  s->text.decimalChar = d.decimalChar;
  s->text.groupChar = d.groupChar;
  s->text.plusChar = d.plusChar;
  s->text.equalMode = d.equalMode;
}

struct ResetRow {
  char name[5];
  void (*restore)(PlotState* s, const Defaults& d); // null: the settings belong to graphs without fields of their own
};

constexpr ResetRow kResetRows[] = {
    {"ALL ", [](PlotState* s, const Defaults&) {
     applyDefaultSettings(s);
   }},
    {"ANGL", [](PlotState* s, const Defaults&) {
     setTextAngle(s, 0);
   }},
    {"AUTR", [](PlotState* s, const Defaults&) {
     s->resolution.autoResolution = kResolutionGiven;
   }},
    {"AX3L", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.axisLength, d.axis.axisLength);
   }},
    {"AXCL", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.axisColors, d.axis.axisColors);
   }},
    {"AXEN", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.axisEndsMode, d.axis.axisEndsMode);
   }},
    {"AXIS", [](PlotState* s, const Defaults&) {
     copyField(s->view.boxLength, ViewGroup{}.boxLength);
   }},
    {"AXSL", [](PlotState* s, const Defaults& d) {
     s->axis.axisLength[kAxisX] = d.axis.axisLength[kAxisX];
     s->axis.axisLength[kAxisY] = d.axis.axisLength[kAxisY];
   }},
    {"AXSP", [](PlotState* s, const Defaults& d) {
     s->axis.axisPosX = d.axis.axisPosX;
     s->axis.axisPosY = d.axis.axisPosY;
     s->axis.axisOriginGiven = false;
   }},
    {"BARD", nullptr},
    {"BARG", [](PlotState* s, const Defaults&) {
     s->bar.barGroupCount = 1;
     s->bar.barGroupGap = 0.0F;
     s->barState = BarState{};
   }},
    {"BARP", [](PlotState* s, const Defaults&) {
     s->bar.barPositionMode = kBarAsGiven;
   }},
    {"BART", [](PlotState* s, const Defaults&) {
     s->bar.barType = kBarVertical;
     s->bar.fbarType = kBarCandles;
     s->curve.errorBarHorizontal = false;
   }},
    {"BARW", [](PlotState* s, const Defaults& d) {
     s->curve.barWidth = d.curve.barWidth;
   }},
    {"BASA", [](PlotState* s, const Defaults&) {
     s->font.baseAlphabet = s->font.currentAlphabet = 1;
   }},
    {"CENT", [](PlotState* s, const Defaults&) {
     s->axis.centerState = 0;
   }},
    {"CHAA", [](PlotState* s, const Defaults& d) {
     s->text.charSlant = d.text.charSlant;
   }},
    {"CHAS", [](PlotState* s, const Defaults& d) {
     s->text.charSpacing = d.text.charSpacing;
   }},
    {"CHAW", [](PlotState* s, const Defaults& d) {
     s->text.charWidthFactor = d.text.charWidthFactor;
   }},
    {"CHNC", [](PlotState* s, const Defaults& d) {
     s->curve.cycleMode = d.curve.cycleMode;
   }},
    {"CHNP", [](PlotState* s, const Defaults&) {
     s->pie.pieCycle = kChartCycleNone;
   }},
    {"CIRC", [](PlotState* s, const Defaults&) {
     s->area.circleSpacing = 0;
   }},
    {"CLPB", [](PlotState* s, const Defaults&) {
     restoreClip(s);
   }},
    {"CLPM", [](PlotState* s, const Defaults&) {
     s->clip.clipMode = kClipAuto;
   }},
    {"CLPW", [](PlotState* s, const Defaults&) {
     restoreClip(s);
   }},
    {"CLRC", [](PlotState* s, const Defaults&) {
     fillColorCycle(s);
   }},
    {"COLM", nullptr},
    {"COLO", [](PlotState* s, const Defaults&) {
     setColor(s, s->color.foregroundColor);
   }},
    {"COLR", [](PlotState* s, const Defaults&) {
     s->color.colorRangeLow = 1;
     s->color.colorRangeHigh = lastRangeEntry(s);
   }},
    {"CONC", [](PlotState* s, const Defaults&) {
     s->bands = BandGroup{};
   }},
    {"CONG", [](PlotState* s, const Defaults& d) {
     s->contour.contourGapFactor = d.contour.contourGapFactor;
   }},
    {"CONM", [](PlotState* s, const Defaults& d) {
     s->contour.contourStretchFactor = d.contour.contourStretchFactor;
     s->contour.contourCurvatureLimit = d.contour.contourCurvatureLimit;
   }},
    {"DIGI", [](PlotState* s, const Defaults& d) {
     resetLabelDigits(s, d.axis);
   }},
    {"EUSH", [](PlotState* s, const Defaults&) {
     s->text.shiftCharsOn = false;
   }},
    {"EXPZ", [](PlotState* s, const Defaults&) {
     s->colorBar.firstOpen = s->colorBar.lastOpen = false;
   }},
    {"FILB", [](PlotState* s, const Defaults&) {
     s->include.fileBoxSet = false;
   }},
    {"FILC", [](PlotState* s, const Defaults&) {
     s->include.ignoreFileColors = false;
   }},
    {"FIXS", [](PlotState* s, const Defaults&) {
     s->text.fixedSpacingOn = false;
   }},
    {"FLAB", [](PlotState* s, const Defaults&) {
     s->view.firstLabels = false;
   }},
    {"FRAM", [](PlotState* s, const Defaults& d) {
     s->axis.frameThickness = d.axis.frameThickness;
   }},
    {"FRME", [](PlotState* s, const Defaults&) {
     s->text.textBoxFrame = 0;
   }},
    {"GAPC", [](PlotState* s, const Defaults& d) {
     copyField(s->curve.gapLimitOn, d.curve.gapLimitOn);
   }},
    {"GRAC", [](PlotState* s, const Defaults&) {
     s->axis.graceMargin = 0;
   }},
    {"HEIG", [](PlotState* s, const Defaults& d) {
     setTextHeight(s, d.text.textHeight);
   }},
    {"HNAM", [](PlotState* s, const Defaults& d) {
     s->axis.nameHeight = d.axis.nameHeight;
   }},
    {"HTIT", [](PlotState* s, const Defaults&) {
     s->axis.titleHeight = 0;
   }},
    {"IANG", [](PlotState* s, const Defaults&) {
     setTextAngle(s, 0);
   }},
    {"IMGC", [](PlotState* s, const Defaults&) { s->image.imageClip = ImageBox{}; }},
    {"INTA", [](PlotState* s, const Defaults& d) {
     resetLabelDigits(s, d.axis);
   }},
    {"LABC", [](PlotState* s, const Defaults&) {
     s->bar.barLabelColor = s->pie.pieLabelColor = s->contour.contourLabelColor = -1;
   }},
    {"LABD", [](PlotState* s, const Defaults& d) {
     resetLabelDigits(s, d.axis);
     s->bar.barLabelDigits = s->pie.pieDataDigits = s->pie.piePercentDigits = 1;
     s->contour.contourLabelDigits = d.contour.contourLabelDigits;
     copyField(s->axis.labelDistance, d.axis.labelDistance);
     s->contour.contourLabelDistance = d.contour.contourLabelDistance;
   }},
    {"LABE", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.labelKind, d.axis.labelKind);
     copyField(s->axis.labelClass, d.axis.labelClass);
     copyField(s->axis.labelType, d.axis.labelType);
     s->bar.barLabelMode = kBarLabelNone;
     s->pie.pieLabelMode = kPieLabelNone;
     s->contour.contourLabelMode = kContourLabelNone;
   }},
    {"LABJ", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.labelJustify, d.axis.labelJustify);
   }},
    {"LABP", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.labelPosition, d.axis.labelPosition);
     s->bar.barLabelPosition = kBarLabelAuto;
     s->pie.pieLabelPlace = kPieInternal;
   }},
    {"LABT", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.labelOrientation, d.axis.labelOrientation);
     s->pie.pieLabelJustify = kPieCentered;
     s->contour.contourLabelAcross = false;
   }},
    {"LEGC", [](PlotState* s, const Defaults&) {
     s->legend.legendColorFromCurve = false;
   }},
    {"LEGE", [](PlotState* s, const Defaults&) {
     s->legend = LegendGroup{};
     s->legendState.handMode = false;
   }},
    {"LFTT", [](PlotState* s, const Defaults& d) {
     s->axis.titleJustify = d.axis.titleJustify;
   }},
    {"LINC", [](PlotState* s, const Defaults& d) {
     copyField(s->curve.lineCycle, d.curve.lineCycle);
   }},
    {"LINS", [](PlotState* s, const Defaults& d) {
     s->axis.lineSpacing = d.axis.lineSpacing;
   }},
    {"LOGT", [](PlotState* s, const Defaults&) {
     s->axis.logTickMode = 0;
   }},
    {"MAPD", [](PlotState* s, const Defaults&) {
     s->mapData.mapDirectory[0] = 0;
   }},
    {"MAPM", [](PlotState* s, const Defaults&) {
     s->projection.mapLineMode = kMapInterpolated;
   }},
    {"MAPP", [](PlotState* s, const Defaults&) {
     s->projection.poleLon = s->projection.poleLat = 0.0F;
   }},
    {"MAPR", [](PlotState* s, const Defaults&) {
     s->projection.referencesGiven = false;
   }},
    {"MAPS", [](PlotState* s, const Defaults&) {
     s->projection.maximumAngle = ProjectionGroup{}.maximumAngle;
   }},
    {"MDFM", [](PlotState* s, const Defaults&) {
     s->scattered = ScatteredGroup{};
   }},
    {"MIXA", [](PlotState* s, const Defaults&) {
     s->text.mixOn = false;
   }},
    {"MIXL", [](PlotState* s, const Defaults&) {
     s->legend.legendMultipleLines = false;
   }},
    {"MYLA", [](PlotState* s, const Defaults& d) {
     s->myLabels = MyLabelGroup{};
     copyField(s->axis.myLabelCount, d.axis.myLabelCount);
   }},
    {"NAMD", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.nameDistance, d.axis.nameDistance);
   }},
    {"NAME", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.axisName, d.axis.axisName);
   }},
    {"NEGL", [](PlotState* s, const Defaults&) { s->axis.negativeLogOn = false; }},
    {"NEWM", [](PlotState* s, const Defaults& d) {
     resetMixCharacters(s, d.text);
   }},
    {"NOAR", [](PlotState* s, const Defaults&) {
     s->area.outlinesDrawn = true;
   }},
    {"NOBA", [](PlotState* s, const Defaults&) {
     s->colorBar.barHidden = false;
   }},
    {"NOBG", [](PlotState* s, const Defaults&) {
     s->area.backgroundsDrawn = true;
   }},
    {"NOCH", [](PlotState* s, const Defaults&) {
     s->message.dataCheckOn = true;
   }},
    {"NOCL", [](PlotState* s, const Defaults&) {
     s->clip.clipMode = kClipAuto;
   }},
    {"NOFI", [](PlotState* s, const Defaults&) {
     s->area.areasFilled = true;
   }},
    {"NOGR", [](PlotState* s, const Defaults&) {
     s->axis.noAxesDrawn = false;
   }},
    {"NOHI", [](PlotState* s, const Defaults&) {
     s->surface.hidingOff = false;
   }},
    {"NOLI", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.axisLineOn, d.axis.axisLineOn);
   }},
    {"NUMF", [](PlotState* s, const Defaults& d) {
     s->text.numberFormat = d.text.numberFormat;
   }},
    {"NUMO", [](PlotState* s, const Defaults& d) {
     resetNumberMode(s, d.text);
   }},
    {"ORIG", [](PlotState* s, const Defaults&) {
     flushPath(s);
     s->page.originX = s->page.originY = 0;
   }},
    {"PATC", [](PlotState* s, const Defaults&) {
     copyField(s->area.patternCycle, defaultAreaGroup().patternCycle);
   }},
    {"PIEC", [](PlotState* s, const Defaults&) {
     s->pie.pieColorCount = 0;
     s->pie.pieCallback = nullptr;
   }},
    {"PIEE", [](PlotState* s, const Defaults&) {
     s->pie.pieExplode = false;
   }},
    {"PIEL", [](PlotState* s, const Defaults&) {
     s->pie.pieLabelLeft[0] = s->pie.pieLabelRight[0] = 0;
   }},
    {"PIEV", [](PlotState* s, const Defaults&) {
     const PieGroup p;
     s->pie.pieVectorMode = p.pieVectorMode;
     s->pie.pieVectorKind = p.pieVectorKind;
     s->pie.pieGap = p.pieGap;
     s->pie.pieDistance = p.pieDistance;
   }},
    {"POLC", [](PlotState* s, const Defaults& d) {
     s->curve.curveMode = d.curve.curveMode;
   }},
    {"PROJ", [](PlotState* s, const Defaults&) {
     s->view.orthographic = false;
     s->projection.projectionCode = kProjPlain;
   }},
    {"PSME", [](PlotState* s, const Defaults&) {
     std::free(s->deviceSetup.psInfoText);
     s->deviceSetup.psInfoText = nullptr;
   }},
    {"RGTL", [](PlotState* s, const Defaults&) {
     s->axis.rightJustifyLabels = false;
   }},
    {"RVYN", [](PlotState* s, const Defaults&) {
     s->axis.reverseYName = false;
   }},
    {"SCAL", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.axisLogScale, d.axis.axisLogScale);
   }},
    {"SETB", [](PlotState* s, const Defaults& d) {
     s->text.mixExpShift = d.text.mixExpShift;
   }},
    {"SETC", [](PlotState* s, const Defaults&) {
     setColor(s, s->color.foregroundColor);
   }},
    {"SETE", [](PlotState* s, const Defaults& d) {
     s->text.mixExpSize = d.text.mixExpSize;
   }},
    {"SETG", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.axisPartDrawn, d.axis.axisPartDrawn);
   }},
    {"SETM", [](PlotState* s, const Defaults& d) {
     resetMixCharacters(s, d.text);
   }},
    {"SETR", [](PlotState* s, const Defaults&) {
     s->resolution = defaultResolutionGroup(s);
   }},
    {"SETS", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.autoScaled, d.axis.autoScaled);
   }},
    {"SHDC", [](PlotState* s, const Defaults&) {
     s->text.shadeCharacters = false;
   }},
    {"SHDP", [](PlotState* s, const Defaults&) {
     float factor = s->shading.shadeFactor;
     s->shading = ShadingGroup{};
     s->shading.shadeFactor = factor;
   }},
    {"SHIE", [](PlotState* s, const Defaults&) {
     for (bool& on : s->shield.shieldAreaOn) on = false;
   }},
    {"SHLS", [](PlotState* s, const Defaults&) {
     s->surface.shieldKept = false;
   }},
    {"SMXA", [](PlotState* s, const Defaults& d) {
     copyField(s->text.alphabetShifts, d.text.alphabetShifts);
     s->text.alphabetShiftCount = 0;
   }},
    {"SPLM", [](PlotState* s, const Defaults& d) {
     s->curve.splineDegree = d.curve.splineDegree;
     s->curve.splinePoints = d.curve.splinePoints;
   }},
    {"SURC", [](PlotState* s, const Defaults&) {
     s->surface.sideColorsGiven = false;
     s->surface.upperColor = s->surface.lowerColor = -1;
   }},
    {"SURS", [](PlotState* s, const Defaults&) {
     s->matrix = MatrixGroup{};
   }},
    {"SURV", [](PlotState* s, const Defaults&) {
     s->surface.visibleSide = kVisibleAuto;
   }},
    {"SYMR", [](PlotState* s, const Defaults&) {
     s->curve.symbolAngle = 0.0F;
   }},
    {"THKC", [](PlotState* s, const Defaults&) {
     s->curve.curveThickness = 1;
     s->depth.tubeRadius = 0.0F;
   }},
    {"TICK", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.tickCount, d.axis.tickCount);
   }},
    {"TICL", [](PlotState* s, const Defaults& d) {
     s->axis.tickLengthMajor = d.axis.tickLengthMajor;
     s->axis.tickLengthMinor = d.axis.tickLengthMinor;
   }},
    {"TICP", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.tickPosition, d.axis.tickPosition);
   }},
    {"TIMO", [](PlotState* s, const Defaults&) { s->axis.timeColon = false; }},
    {"TITL", [](PlotState* s, const Defaults& d) {
     copyField(s->axis.titleLine, d.axis.titleLine);
     copyField(s->axis.titleUnderlined, d.axis.titleUnderlined);
   }},
    {"UNIT", [](PlotState* s, const Defaults&) {
     s->message.messageUnit = s->streams.errorFileStream ? kUnitFile : kUnitConsole;
     s->streams.messageStream = s->streams.errorFileStream;
   }},
    {"VIEW", [](PlotState* s, const Defaults&) {
     s->view.eyeMode = kViewUnset;
   }},
    {"VKXB", [](PlotState* s, const Defaults&) {
     s->colorBar.barShiftX = 0;
   }},
    {"VKYB", [](PlotState* s, const Defaults&) {
     s->colorBar.barShiftY = 0;
   }},
    {"VKYT", [](PlotState* s, const Defaults&) {
     s->axis.titleDistance = 0;
   }},
    {"WIDB", [](PlotState* s, const Defaults&) {
     s->colorBar.barWidth = defaultColorBarGroup(s).barWidth;
   }},
    {"WIND", [](PlotState* s, const Defaults&) {
     s->windowSetup.windowPlacementMode = kWindowDefault;
   }},
    {"WINM", [](PlotState* s, const Defaults&) {
     s->window.endWanted = kEndFull;
   }},
    {"WINS", [](PlotState* s, const Defaults&) {
     s->windowSetup.windowPlacementMode = kWindowDefault;
   }},
    {"ZSCA", [](PlotState* s, const Defaults&) {
     s->depth.scaleGiven = false;
   }},
};
static_assert(sizeof kResetRows / sizeof kResetRows[0] == 130);

} // namespace

void RESET(const char* name) {
  PlotState* s = setterCheck("reset");
  if (!s) return;
  char key[5];
  keyOf(name, key);
  for (const ResetRow& row : kResetRows) {
    if (std::memcmp(row.name, key, 4) != 0) continue;
    // Before a plot there is nothing to keep: QUIINI sets everything to its default.
    if (s->level.plotLevel == kLevelNone || !row.restore) return;
    Defaults defaults{defaultAxisGroup(s), defaultTextGroup(s), defaultCurveGroup(s), defaultContourGroup(s)};
    flushPath(s);
    return row.restore(s, defaults);
  }
  warnWithString(s, 2, name);
}
