#!/bin/sh
# Installs a build into an empty folder and uses what stands there: program, library, header, pkg-config file, CMake
# package, examples.
set -eu
build=$1
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cmake --install "$build" --prefix "$place/usr" > /dev/null
test "$("$place/usr/bin/qslrun" --version)" = "$("$place/usr/bin/QSLRUN" --version)"
examples="$place/usr/share/quilla/examples"

# The header in C and in C++, every warning an error.
printf '#include <quilla/quilla.h>\nint main(void) { return GETPLV() == 2 ? 0 : 1; }\n' | tee "$place/host.c" > "$place/host.cpp"
PKG_CONFIG_PATH=$(dirname "$(find "$place/usr" -name quilla.pc)")
export PKG_CONFIG_PATH
# The flags are words of their own.
# shellcheck disable=SC2046
cc -std=c11 -Wall -Wextra -Wstrict-prototypes -pedantic -Werror "$place/host.c" $(pkg-config --static --cflags --libs quilla) -o "$place/host"
"$place/host"
# shellcheck disable=SC2046
c++ -std=c++20 -Wall -Wextra -pedantic -Werror "$place/host.cpp" $(pkg-config --static --cflags --libs quilla) -o "$place/host"
"$place/host"

# Every routine of the header is in the library.
{
  echo '#include <quilla/quilla.h>'
  echo 'typedef void (*routine)(void);'
  echo 'routine all[] = {'
  sed 's|/\*.*\*/||' "$place"/usr/include/quilla/*.h | grep -oE '^[a-z][a-zA-Z *]*[ *][A-Z][A-Z0-9]+\(' | grep -oE '[A-Z][A-Z0-9]+\(' | sed 's|(|, |; s|^|(routine)|'
  echo '}; int main(void) { return sizeof all / sizeof all[0] > 300 ? 0 : 1; }'
} > "$place/all.c"
# shellcheck disable=SC2046
cc -std=c11 "$place/all.c" $(pkg-config --static --cflags --libs quilla) -o "$place/all"
"$place/all"

# The examples, by pkg-config and by the CMake package.
mkdir "$place/plot"
# shellcheck disable=SC2046
cc -std=c11 "$examples/c_program/main.c" $(pkg-config --static --cflags --libs quilla) -o "$place/oscillation"
(cd "$place/plot" && "$place/oscillation" > out && qpdf --check oscillation.pdf > /dev/null && grep -q "END OF QUILLA" out)
for example in c_program cpp_threads; do
  cmake -S "$examples/$example" -B "$place/$example" -DCMAKE_PREFIX_PATH="$place/usr" > /dev/null
  cmake --build "$place/$example" > /dev/null
done
rm "$place/plot/oscillation.pdf"
(cd "$place/plot" && "$place/c_program/oscillation" > /dev/null && qpdf --check oscillation.pdf > /dev/null)
(cd "$place/plot" && "$place/cpp_threads/figures" && for n in 2 4; do qpdf --check figure_$n.pdf > /dev/null; done)
for n in 1 3; do
  grep -q '</svg>' "$place/plot/figure_$n.svg"
  grep -q 'polyline\|path' "$place/plot/figure_$n.svg"
done

(cd "$place/plot" && QSL_DATA="$examples" "$place/usr/bin/qslrun" "$examples/first_plot.qsl" > out)
test -s "$place/plot/first_plot.pdf"
echo "installation: 1 passed, 0 failed"
