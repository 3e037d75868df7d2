/* QUILLA, the plotting library, for C and C++ programs.
 *
 * Coordinates are plot coordinates unless told: one unit is 0.1 mm on the default page, x to the right, y downwards
 * from the upper left corner. Levels: 0 no plot, 1 plot open (QUIINI), 2 axis system open (GRAF), 3 three-dimensional
 * axis system open. A routine called at a wrong level gives warning 3; a wrong parameter gives warning 2 and keeps the
 * setting. Keywords are matched on their first four characters, in either case. An axis string names axes by the
 * letters X, Y and Z in its first three characters. No routine returns an error code.
 */
#ifndef QUILLA_QUILLA_H
#define QUILLA_QUILLA_H

#include "quilla/axes.h"
#include "quilla/drawing.h"
#include "quilla/fields.h"
#include "quilla/graphs.h"
#include "quilla/maps.h"
#include "quilla/pixels.h"
#include "quilla/plot.h"
#include "quilla/space.h"
#include "quilla/text.h"
#include "quilla/values.h"
#include "quilla/widgets.h"
#include "quilla/windows.h"

#endif
