// The one record of all settings and running state of a plot. A field belongs to the room that declares its group;
// a group's member initialisers are its defaults, so that resetting assigns groups.
#pragma once

#include "contour/contour_group.h"
#include "contour/field_group.h"
#include "core/color_group.h"
#include "core/file_group.h"
#include "core/level_group.h"
#include "core/line_group.h"
#include "core/message_group.h"
#include "core/page_group.h"
#include "core/shading_group.h"
#include "core/shield_group.h"
#include "core/window_group.h"
#include "device/device_group.h"
#include "device/screen_group.h"
#include "graph2d/area_group.h"
#include "graph2d/axis_group.h"
#include "graph2d/bar_group.h"
#include "graph2d/color_bar_group.h"
#include "graph2d/curve_group.h"
#include "graph2d/legend_group.h"
#include "graph2d/matrix_group.h"
#include "graph2d/pie_group.h"
#include "graph2d/projection_group.h"
#include "graph3d/depth_group.h"
#include "graph3d/horizon_group.h"
#include "graph3d/light_group.h"
#include "graph3d/view_group.h"
#include "image/fits_group.h"
#include "map/map_group.h"
#include "raster/raster_group.h"
#include "run/quick_group.h"
#include "text/text_group.h"
#include "widget/widget_group.h"

namespace quilla {

struct PlotState {
  LevelGroup level;
  CounterGroup counters;

  // Process lifetime: set on first touch, never reset by QUIINI.
  MessageSetup messageSetup;
  PageSetup pageSetup;
  ColorSetup colorSetup;
  DeviceSetup deviceSetup;
  LibrarySetup librarySetup;
  WindowSetup windowSetup;
  DateSetup dateSetup;
  WidgetSetup widgetSetup;
  UserFiles userFiles;
  FitsState fits;
  RasterSetup rasterSetup;
  QuickSetup quickSetup;
  ProjectionSetup projectionSetup;

  // Run lifetime: set by the default settings of QUIINI and by RESET("ALL").
  MessageGroup message;
  PageGroup page;
  LineGroup line;
  TransformGroup transform;
  ShadingGroup shading;
  ColorGroup color;
  ShieldGroup shield;
  TextGroup text;
  FontGroup font;
  AxisGroup axis;
  MyLabelGroup myLabels;
  CurveGroup curve;
  IncludeGroup include;
  AreaGroup area;
  LegendGroup legend;
  BarGroup bar;
  PieGroup pie;
  MatrixGroup matrix;
  ColorBarGroup colorBar;
  ResolutionGroup resolution;
  ShadeModeGroup shadeModes;
  ContourGroup contour;
  BandGroup bands;
  ScatteredGroup scattered;
  VectorGroup vectors;
  StreamGroup streamlines;
  LicGroup lic;
  ImageGroup image;
  ViewGroup view;
  BoxTransform boxTransform;
  SurfaceGroup surface;
  LightGroup light;
  ProjectionGroup projection;
  MapDataGroup mapData;
  DepthGroup depth;
  ScreenGroup window;

  // Working state.
  MessageStreams streams;
  PageGeometry geometry;
  ColorState colorState;
  DeviceGroup device;
  RasterState raster;
  ScreenLayer screen;
  DashState dash;
  PathState path;
  PathMeasure measure;
  ClipGroup clip;
  TextState textState;
  ScalingState scaling;
  ColorScaleState colorScale;
  CycleState cycle;
  LegendState legendState;
  BarState barState;
  ViewState viewState;
  BoxPen boxPen;
  PlaneState plane;
  HorizonState horizon;
  ProjectionState map;
  DepthState depthState;
  bool shieldingSuspended = false;  // outlines of shields are not cut
  bool internalCoordinates = false; // a routine of the library draws: y of PAGORG is not reversed
};

} // namespace quilla
