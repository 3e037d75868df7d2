/* A damped oscillation as a PDF, from C.
 *
 *   cc main.c $(pkg-config --static --cflags --libs quilla) -o oscillation && ./oscillation
 */
#include <math.h>
#include <quilla/quilla.h>

enum { POINTS = 201 };

int main(void) {
  float x[POINTS], y[POINTS];
  for (int i = 0; i < POINTS; i++) {
    x[i] = (float)i * 0.1f;
    y[i] = expf(-0.15f * x[i]) * cosf(2.0f * x[i]);
  }
  METAFL("PDF");
  SETFIL("oscillation.pdf");
  FILMOD("DELETE");
  QUIINI();
  PAGERA();
  COMPLX();
  TITLIN("A damped oscillation", 2);
  NAME("Time in seconds", "X");
  NAME("Deflection in metres", "Y");
  GRAF(0.0f, 20.0f, 0.0f, 5.0f, -1.0f, 1.0f, -1.0f, 0.5f);
  GRID(1, 1);
  TITLE();
  COLOR("RED");
  CURVE(x, y, POINTS);
  QUIFIN();
  return 0;
}
