// Fields of vectors: arrows, streamlines and line integral convolution.
#pragma once

namespace quilla {

inline constexpr int kVectorColorCurrent = -1, kVectorColorByLength = -2; // VECCLR

// Run lifetime: VECOPT and VECCLR.
struct VectorGroup {
  float headAngle = 20.0F; // degrees between the shaft and a side of the head, where the code gives no width
  float headSize = 0.25F;  // length of heads as part of the arrow, where the code gives none
  float scale = 1.0F;      // factor of lengths
  float length = 0.0F;     // plot units of the longest arrow; 0: by the number of arrows
  int color = kVectorColorCurrent;
};

enum StreamIntegration : int { kEuler = 0, kRungeKutta2 = 1, kRungeKutta4 = 2 };

// Run lifetime: STMMOD, STMOPT, STMVAL, STRTPT. Distances are parts of the longer side of the field on the page.
struct StreamGroup {
  int integration = kRungeKutta4;
  bool closingTest = false;
  bool arrows = false;
  int mostPoints = 1000;    // of a line in each direction
  int closingInterval = 10; // points from one test for a closed line to the next
  int arrowCode = 1201;     // as in VECTOR
  int mostLines = 10000;    // placed without seeds
  float step = 0.005F;
  float lineDistance = 0.03F;    // from a line to the seeds beside it
  float testDistance = 0.015F;   // a line ends this near to another one
  float closingDistance = 0.01F; // from the first point of a line that is closed
  float arrowDistance = 0.2F;    // from one arrow of a line to the next
  bool seedGiven = false;        // STRTPT
  float seedX = 0.0F, seedY = 0.0F;
};

// Run lifetime: LICMOD, and the keys of STMOPT and STMVAL for LICPTS. Lengths are counted in grid steps.
struct LicGroup {
  bool fast = true;      // a line gives its means to all grid points on it
  bool spread = false;   // means are spread over the range of the texture
  int hits = 1;          // lines through a grid point after which no further one begins there
  int linePoints = 50;   // points on each side of the first one at which a line gives its means
  int kernelPoints = 20; // points on each side of a mean
  float licStep = 0.5F;
};

} // namespace quilla
