#!/bin/sh
# Installs a build into an empty folder and uses what stands there: program, link, library, header, examples.
set -eu
build=$1
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cmake --install "$build" --prefix "$place/usr" > /dev/null
test "$("$place/usr/bin/qslrun" --version)" = "$("$place/usr/bin/QSLRUN" --version)"
cat > "$place/host.c" <<'END'
#include <quilla/quilla.h>
int main(void) {
  METAFL("PDF");
  SETFIL("host.pdf");
  QUIINI();
  PAGERA();
  LINE(100, 100, 2000, 1500);
  QUIFIN();
  return 0;
}
END
library=$(dirname "$(find "$place/usr" -name 'libquilla.a')")
libraries=$(sed -n 's/^Libs.private: //p' "$(find "$place/usr" -name quilla.pc)")
# The names of libraries are words of their own.
# shellcheck disable=SC2086
cc -std=c11 -Wall -Werror -I"$place/usr/include" "$place/host.c" "$library/libquilla.a" $libraries -o "$place/host"
(cd "$place" && ./host > host.out && qpdf --check host.pdf > /dev/null)
grep -q "END OF QUILLA" "$place/host.out"
mkdir "$place/plot"
(cd "$place/plot" && QSL_DATA="$place/usr/share/quilla/examples" "$place/usr/bin/qslrun" "$place/usr/share/quilla/examples/first_plot.qsl" > out)
test -s "$place/plot/first_plot.pdf"
echo "installation: 1 passed, 0 failed"
