#include "run/default_settings.h"

#include "core/colors.h"
#include "core/page.h"
#include "core/pipeline.h"
#include "device/sink.h"
#include "graph2d/area.h"
#include "graph2d/axis_system.h"
#include "graph2d/legend.h"
#include "graph2d/symbols.h"
#include "text/text.h"

namespace quilla {

namespace {

// Distances in 0.1 mm; they keep the look of a page whatever its units are.
constexpr int kTickMajor = 24, kTickMinor = 16, kLabelDistance = 24, kNameDistance = 30, kCharacterHeight = 36;
constexpr int kAxisAbovePageEnd = 300, kContourLabelDistance = 500, kColorBar = 85;
constexpr int kDefaultFont = 1; // QUIALF
constexpr int kPostDevice = 501;

int atLeastOne(int value) { return value < 1 ? 1 : value; }

// A symbol inside a text, turned with it. (x, y) is a page point with ORIGIN in it.
void drawTextSymbol(PlotState* s, int n, float x, float y, float height, float angle) {
  const float symbolAngle = s->curve.symbolAngle;
  s->curve.symbolAngle = angle;
  drawSymbol(s, n, roundHalfUp(height), x - static_cast<float>(s->page.originX),
             y - static_cast<float>(s->page.originY));
  s->curve.symbolAngle = symbolAngle;
}

} // namespace

AxisGroup defaultAxisGroup(const PlotState* s) {
  AxisGroup a;
  int width = s->geometry.pageWidth, height = s->geometry.pageHeight;
  a.axisLength[kAxisX] = roundHalfUp(static_cast<float>(width + 1) * 2.0F / 3.0F);
  a.axisLength[kAxisY] = roundHalfUp(static_cast<float>(height + 1) * 2.0F / 3.0F);
  a.axisPosX = (width - a.axisLength[kAxisX]) / 2;
  a.axisPosY = height - plotUnits(s, kAxisAbovePageEnd);
  a.tickLengthMajor = atLeastOne(plotUnits(s, kTickMajor));
  a.tickLengthMinor = atLeastOne(plotUnits(s, kTickMinor));
  a.nameHeight = atLeastOne(plotUnits(s, kCharacterHeight));
  for (int axis = 0; axis < kAxisCount; axis++) {
    a.labelDistance[axis] = plotUnits(s, kLabelDistance);
    a.nameDistance[axis] = plotUnits(s, kNameDistance);
  }
  return a;
}

TextGroup defaultTextGroup(const PlotState* s) {
  TextGroup t;
  t.textHeight = atLeastOne(plotUnits(s, kCharacterHeight));
  return t;
}

CurveGroup defaultCurveGroup(const PlotState* s) {
  CurveGroup c;
  c.markerHeight = atLeastOne(plotUnits(s, kCharacterHeight));
  for (int i = 0; i < kCycleLength; i++) c.lineCycle[i] = i % kLineTypeCount;
  return c;
}

ContourGroup defaultContourGroup(const PlotState* s) {
  ContourGroup c;
  c.contourLabelDistance = atLeastOne(plotUnits(s, kContourLabelDistance));
  return c;
}

ColorBarGroup defaultColorBarGroup(const PlotState* s) {
  ColorBarGroup c;
  c.barWidth = c.barDistance = atLeastOne(plotUnits(s, kColorBar));
  return c;
}

ResolutionGroup defaultResolutionGroup(const PlotState* s) {
  ResolutionGroup r;
  r.cellWidth = r.cellHeight = atLeastOne(plotUnits(s, 1));
  return r;
}

void applyDefaultSettings(PlotState* s) {
  flushPath(s);
  s->line = LineGroup{};
  s->transform = TransformGroup{};
  setLineType(s, 0);
  s->dash.lineGapSize = 0.0F;
  s->color.currentColor = 0;
  loadColorTable(s, s->deviceSetup.deviceNumber == kPostDevice ? kTableReverseGrey : kTableRain);
  s->message = MessageGroup{};
  s->message.messageUnit = s->streams.errorFileStream ? kUnitFile : kUnitConsole;
  s->page = PageGroup{};
  s->clip = ClipGroup{};
  s->shield = ShieldGroup{};
  clipWholePage(s);
  s->axis = defaultAxisGroup(s);
  s->myLabels = MyLabelGroup{};
  s->curve = defaultCurveGroup(s);
  s->area = defaultAreaGroup();
  s->bar = BarGroup{};
  s->barState = BarState{};
  s->pie = PieGroup{};
  s->matrix = MatrixGroup{};
  s->colorBar = defaultColorBarGroup(s);
  s->resolution = defaultResolutionGroup(s);
  s->shadeModes = ShadeModeGroup{};
  s->contour = defaultContourGroup(s);
  s->bands = BandGroup{};
  s->scattered = ScatteredGroup{};
  s->vectors = VectorGroup{};
  s->streamlines = StreamGroup{};
  s->lic = LicGroup{};
  s->legend = LegendGroup{};
  s->legendState.handMode = false;
  resetCycle(s);
  s->include = IncludeGroup{};
  s->image = ImageGroup{};
  s->view = ViewGroup{};
  s->boxTransform = BoxTransform{};
  s->plane = PlaneState{};
  s->surface = SurfaceGroup{};
  s->light = LightGroup{};
  s->depth = DepthGroup{};
  s->horizon.on = false;
  s->measure = PathMeasure{};
  s->projection = ProjectionGroup{};
  s->mapData = MapDataGroup{};
  s->window = ScreenGroup{};
  forgetRecords(s);
  s->shading = ShadingGroup{};
  s->text = defaultTextGroup(s);
  s->textState = TextState{};
  s->textState.symbolDrawer = drawTextSymbol;
  s->font = FontGroup{};
  installFont(s, kDefaultFont);
  sinkLineCap(s, s->line.lineCap);
  sinkLineJoin(s, s->line.lineJoin);
  setLineWidth(s, 1);
}

} // namespace quilla
