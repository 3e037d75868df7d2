// Rows that hand out, copy or fill arrays, with functions of the test in the library's place.
#include <vector>

#include "script/row_fixture.h"

using namespace qsl;

namespace {

class ArrayRows : public Rows {};

// What a function of the test was given.
struct Seen {
  int calls = 0;
  std::vector<int> numbers, patterns;
  const void* pointer = nullptr;
} seen;

void conpts(const float*, int n, const float*, int m, const float* z, float level, float* xp, float* yp, int most,
            int* counts, int mostCurves, int* curves) {
  seen = {seen.calls + 1, {n, m, static_cast<int>(z[5]), static_cast<int>(level), most, mostCurves}, {}, nullptr};
  EXPECT_EQ(xp[0], 0.0F); // the memory is zeroed
  xp[most - 1] = 1.5F;
  yp[0] = 2.5F;
  counts[mostCurves - 1] = 7;
  *curves = 3;
}

int triang(float* x, float* y, int n, int* a, int* b, int* c, int most) {
  x[n + 2] = y[n + 2] = 9.0F;
  a[0] = 1;
  b[0] = 2;
  c[most - 1] = 3;
  return 4;
}

void getmat(const float*, const float*, const float*, int, float* z, int nx, int ny, float, int* i, float* w) {
  z[nx * ny - 1] = 1.0F;
  i[nx * ny - 1] = 2;
  w[nx * ny - 1] = 3.0F;
}

void stmpts3d(const float*, const float*, const float*, int, int, int, const float*, const float*, const float*, float,
              float, float, float* x, float* y, float* z, int most, int* n) {
  x[most - 1] = y[most - 1] = z[most - 1] = 1.0F;
  *n = most;
}

void countries(const int* list, int* patterns, const int* colors, int n) {
  ++seen.calls;
  seen.numbers = {list[n - 1], colors[n - 1]};
  seen.patterns.assign(patterns, patterns + n);
  patterns[0] = -99; // into the copy
}

void cursorPoints(int* x, int* y, int most, int* n, int* status) {
  ++seen.calls;
  x[most - 1] = 11;
  y[most - 1] = 12;
  *n = most;
  *status = 1;
}

int itemBytes = 1;
int itemSize() { return itemBytes; }
void readPixels(unsigned char* bytes, int, int, int w, int h) {
  ++seen.calls;
  bytes[w * h * itemBytes - 1] = 200;
}
void readRow(unsigned char* bytes, int, int, int n) {
  ++seen.calls;
  bytes[n * itemBytes - 1] = 201;
}

void swapShorts(short* values, int n) {
  ++seen.calls;
  values[0] = static_cast<short>(n);
}
short shortBits(int n, short source, int from, short target, int to) {
  seen.numbers = {n, source, from, target, to};
  return 5;
}
int readBytes(int unit, void* data, int n) {
  seen.numbers = {unit, n};
  seen.pointer = data;
  return n;
}
void labels(char* x, char* y, char* z) {
  std::snprintf(x, QUILLA_TEXT_SIZE, "one");
  std::snprintf(y, QUILLA_TEXT_SIZE, "%255s", "x");
  *z = 0;
}

constexpr auto kConpts = run_bound<conpts, "FR,I,FR,I,FR,X,U,U,I,U,I,U">;
const char* kGrid = "X = FALLOC(2)\nY = FALLOC(3)\nZ = FALLOC(6)\n";

} // namespace

TEST_F(ArrayRows, OutputsGetTagsAndCounts) {
  prepare(kGrid);
  EXPECT_EQ(call("CONPTS", kConpts, "X, 2, Y, 3, Z, 1, XP, YP, 10, N, 4, NC"), "");
  EXPECT_EQ(seen.numbers, (std::vector<int>{2, 3, 5, 1, 10, 4}));
  EXPECT_EQ(named("XP").type, kFloatArray);
  EXPECT_EQ(named("XP").count, 10);
  EXPECT_EQ(named("XP").ndim, 1);
  EXPECT_EQ(elements<float>(named("XP"))[9], 1.5F);
  EXPECT_EQ(elements<float>(named("YP"))[0], 2.5F);
  EXPECT_EQ(named("N").type, kIntArray);
  EXPECT_EQ(named("N").count, 4);
  EXPECT_EQ(elements<std::int32_t>(named("N"))[3], 7);
  EXPECT_EQ(named("NC").type, kInt);
  EXPECT_EQ(named("NC").value.i, 3);
}

// An output may be a variable that is read by the same call.
TEST_F(ArrayRows, OutputsReplaceWhatTheVariableHeld) {
  prepare(std::string(kGrid) + "XP = 'text'\n");
  EXPECT_EQ(call("CONPTS", kConpts, "X, 2, Y, 3, Z, 1, XP, Z, 3, Y, 4, NC"), "");
  EXPECT_EQ(named("XP").type, kFloatArray);
  EXPECT_EQ(named("Z").count, 3);
  EXPECT_EQ(named("Y").type, kIntArray);
}

TEST_F(ArrayRows, SizesMustBePositive) {
  prepare(kGrid);
  const int before = seen.calls;
  const std::string message = " >>>> Non positive parameter in record 1 (t)\n";
  EXPECT_EQ(call("CONPTS", kConpts, "X, 2, Y, 3, Z, 1, XP, YP, 0, N, 4, NC"), message);
  EXPECT_EQ(call("CONPTS", kConpts, "X, 2, Y, 3, Z, 1, XP, YP, 4, N, -4, NC"), message);
  EXPECT_EQ(call("GETMAT", run_bound<getmat, "FR,FR,FR,I,U,I,I,X,U,U">, "Z, Z, Z, 6, ZM, 4, 0, 0, IM, WM"), message);
  EXPECT_EQ(call("CONPTS", kConpts, "X, 2, Y, 3, Z, 1, XQ, YQ, 10, NQ, 4, 5"),
            " >>>> Parameter mismatch in record 1 (t)\n      User   : CONPTS (FR,I,FR,I,FR,I,U,U,I,U,I,I)\n"
            "      Correct: CONPTS (FR,I,FR,I,FR,X,U,U,I,U,I,U)\n");
  EXPECT_EQ(seen.calls, before);
}

TEST_F(ArrayRows, SizesBeyondAllMemory) {
  prepare(kGrid);
  EXPECT_EQ(
      call("GETMAT", run_bound<getmat, "FR,FR,FR,I,U,I,I,X,U,U">, "Z, Z, Z, 6, ZM, 2000000000, 2000000000, 0, IM, WM"),
      " >>>> Not enough memory in record 1 (t)\n");
  EXPECT_EQ(named("ZM").type, kInt); // made by the call, and left alone
}

TEST_F(ArrayRows, SizesOfProductsAndManyOutputs) {
  prepare(kGrid);
  EXPECT_EQ(call("GETMAT", run_bound<getmat, "FR,FR,FR,I,U,I,I,X,U,U">, "Z, Z, Z, 6, ZM, 4, 5, 0, IM, WM"), "");
  EXPECT_EQ(named("ZM").count, 20);
  EXPECT_EQ(elements<std::int32_t>(named("IM"))[19], 2);
  EXPECT_EQ(elements<float>(named("WM"))[19], 3.0F);
  prepare("V = FALLOC(24)\nP = FALLOC(4)\n");
  EXPECT_EQ(call("STMPTS3D", run_bound<stmpts3d, "FR,FR,FR,I,I,I,FR,FR,FR,F,F,F,U,U,U,I,U">,
                 "V, V, V, 2, 3, 4, P, P, P, P[0], P[0], P[0], A, B, C, 8, N"),
            "");
  EXPECT_EQ(named("C").count, 8);
  EXPECT_EQ(named("N").value.i, 8);
}

// The value of the library's routine goes to the last operand; three more elements than points are needed.
TEST_F(ArrayRows, ValuesInTheLastOperand) {
  prepare("X = FALLOC(7)\nY = FALLOC(7)\nT = FALLOC(6)\n");
  constexpr auto kTriang = run_bound<value_last<triang>, "FR,FR,I,U,U,U,I,U">;
  EXPECT_EQ(call("TRIANG", kTriang, "X, Y, 4, A, B, C, 9, N"), "");
  EXPECT_EQ(named("N").value.i, 4);
  EXPECT_EQ(named("A").count, 9);
  EXPECT_EQ(elements<std::int32_t>(named("C"))[8], 3);
  EXPECT_EQ(elements<float>(named("X"))[6], 9.0F);
  EXPECT_EQ(call("TRIANG", kTriang, "X, T, 4, A, B, C, 9, N"),
            " >>>> Not enough array elements in TRIANG in record 1 (t)\n");
}

TEST_F(ArrayRows, CountriesGetAWorkCopy) {
  prepare("I = IALLOC(3)\nP = IALLOC(3)\n");
  constexpr auto kCountries = run_countries<countries, "SHDEUR">;
  EXPECT_EQ(call("SHDNOR", kCountries, "I, P, I, 3"), "");
  EXPECT_EQ(seen.numbers, (std::vector<int>{2, 2}));
  EXPECT_EQ(seen.patterns, (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(elements<std::int32_t>(named("P"))[0], 0);
  const int before = seen.calls;
  EXPECT_EQ(call("SHDNOR", kCountries, "I, P, I, 0"), " >>>> Non positive parameter in record 1 (t)\n");
  EXPECT_EQ(call("SHDNOR", kCountries, "I, P, I, 4"), " >>>> Not enough array elements in SHDNOR in record 1 (t)\n");
  EXPECT_EQ(seen.calls, before);
}

TEST_F(ArrayRows, CursorArraysMustBeVariablesOfEnoughElements) {
  prepare("X = IALLOC(3)\nY = IALLOC(3)\nS = IALLOC(2)\n");
  constexpr auto kMove = run_cursor_points<cursorPoints, "CSRMOV">;
  constexpr auto kPoints = run_cursor_points<cursorPoints, "CSRPTS">;
  EXPECT_EQ(call("CSRMOV", kMove, "X, Y, 3, N, ST"), "");
  EXPECT_EQ(elements<std::int32_t>(named("Y"))[2], 12);
  EXPECT_EQ(named("N").value.i, 3);
  EXPECT_EQ(named("ST").value.i, 1);
  const int before = seen.calls;
  const auto message = [](const char* text) { return std::string(" >>>> ") + text + " in record 1 (t)\n"; };
  EXPECT_EQ(call("CSRMOV", kMove, "X + 0, Y, 3, N, ST"), message("Int array in CSRMOV must be a variable"));
  EXPECT_EQ(call("CSRPTS", kPoints, "X, Y + 0, 3, N, ST"), message("Int array in CSRPTS must be a variable"));
  EXPECT_EQ(call("CSRPOL", kPoints, "X, S, 3, N, ST"), message("Int array too small in CSRPTS"));
  EXPECT_EQ(call("CSRMOV", kMove, "S, Y, 3, N, ST"), message("Int array too small in CSRMOV"));
  EXPECT_EQ(seen.calls, before);
}

TEST_F(ArrayRows, PixelArraysMustHoldTheArea) {
  prepare("BYTE B[12]\n");
  constexpr auto kPixels = run_read_pixels<readPixels, itemSize>;
  constexpr auto kRow = run_read_pixel_row<readRow, itemSize>;
  itemBytes = 1;
  EXPECT_EQ(call("RPIXLS", kPixels, "B, 0, 0, 4, 3"), "");
  EXPECT_EQ(elements<std::uint8_t>(named("B"))[11], 200);
  EXPECT_EQ(call("RPXROW", kRow, "B, 0, 0, 12"), "");
  EXPECT_EQ(elements<std::uint8_t>(named("B"))[11], 201);
  const auto message = [](const char* text) { return std::string(" >>>> ") + text + " in record 1 (t)\n"; };
  EXPECT_EQ(call("RPIXLS", kPixels, "B, 0, 0, 5, 3"), message("Byte array too small in RPIXLS"));
  EXPECT_EQ(call("RPIXLS", kPixels, "B + BYTE(1), 0, 0, 1, 1"), message("Byte array in RPIXLS must be a variable"));
  EXPECT_EQ(call("RPXROW", kRow, "B, 0, 0, 13"), message("Byte array too small in RPXROW"));
  itemBytes = 3;
  EXPECT_EQ(call("RPXROW", kRow, "B, 0, 0, 4"), "");
  EXPECT_EQ(call("RPXROW", kRow, "B, 0, 0, 5"), message("Byte array too small in RPXROW"));
}

// A SHORT is lost on its way: a scalar counts as 0, without its array a routine is not called.
TEST_F(ArrayRows, ShortOperandsAreNotDelivered) {
  prepare("SHORT H[3]\nH[0] = 4\nD = DALLOC(4)\nF = FALLOC(4)\n");
  const int before = seen.calls;
  EXPECT_EQ(call("SWAPI2", run_bound<swapShorts, "HR,I">, "H, 3"), "");
  EXPECT_EQ(seen.calls, before);
  EXPECT_EQ(elements<std::int16_t>(named("H"))[0], 4);
  EXPECT_EQ(call("SWAPI2", run_bound<swapShorts, "HR,I">, "H, 4"),
            " >>>> Not enough array elements in SWAPI2 in record 1 (t)\n");
  ScriptValue result{};
  EXPECT_EQ(call("BITSI2", run_bound<shortBits, "I,H,I,H,I">, "3, SHORT(7), 1, H[0], 2", &result), "");
  EXPECT_EQ(seen.numbers, (std::vector<int>{3, 0, 1, 0, 2}));
  EXPECT_EQ(result.type, kShort);
  EXPECT_EQ(result.value.h, 5);
  set_int(result, 0);
  seen.pointer = nullptr;
  EXPECT_EQ(call("READFL", run_bound<readBytes, "I,AR,I">, "1, D, 8", &result), "");
  EXPECT_EQ(seen.pointer, nullptr); // an array of DOUBLE is not delivered either
  EXPECT_EQ(call("READFL", run_bound<readBytes, "I,AR,I">, "1, F, 16", &result), "");
  EXPECT_EQ(seen.pointer, named("F").value.data);
  EXPECT_EQ(call("READFL", run_bound<readBytes, "I,AR,I">, "1, F, 17", &result),
            " >>>> Not enough array elements in READFL in record 1 (t)\n");
}

TEST_F(ArrayRows, TextOutputs) {
  prepare("Y = 3.5\n");
  EXPECT_EQ(call("GETLAB", run_bound<labels, "U,U,U">, "X, Y, Z"), "");
  EXPECT_EQ(named("X").type, kString);
  EXPECT_STREQ(text_of(named("X")), "one");
  EXPECT_EQ(named("Y").count, 255);
  EXPECT_EQ(named("Z").count, 0);
}

namespace {

int refused;
void neverCalled(const Call&) { ++refused; }

// An operand that fits a field; arrays have one element less than the counts say.
std::string shortOperand(const RoutineRow& row, int k, int one_less_of, std::string& preparation) {
  const std::string_view field = signature_field(row.signature, k);
  const std::string name = "V" + std::to_string(k);
  if (field == "X" || field == "I") return "4";
  if (field == "F") return "FLOAT(4)";
  if (field == "B") return "BYTE(4)";
  if (field == "S") return "'text'";
  if (field == "H") return "SHORT(4)";
  if (field == "V") {
    preparation += name + " = 'text'\n";
    return name;
  }
  if (field == "U") return name;
  int length = 200;
  for (const ArrayCount& c : row.counts) {
    if (c.array != k + 1) continue;
    length = c.extra;
    if (c.count != 0) length += 4 * (c.times != 0 ? 4 : 1) * (c.times_too != 0 ? 4 : 1);
    if (c.array == one_less_of) --length;
  }
  if (field == "HR") {
    preparation += "SHORT " + name + "[" + std::to_string(length) + "]\n";
  } else if (field == "BR" || field == "AR") {
    preparation += "BYTE " + name + "[" + std::to_string(length) + "]\n";
  } else {
    preparation += (field == "FR" ? "FLOAT " : "INT ") + name + "[" + std::to_string(length) + "]\n";
  }
  return name;
}

} // namespace

// Every row with counted arrays: with arrays of the very length it is called, with one element less it is not.
TEST_F(ArrayRows, EveryRowWithAnArrayThatIsOneElementTooShort) {
  int rows = 0, arrays = 0;
  const auto check = [&](const RoutineRow& row) {
    rows += row.counts[0].array != 0;
    for (const ArrayCount& c : row.counts) {
      if (c.array == 0) break;
      if (c.extra == 0 && c.count == 0) continue; // no element is needed
      ++arrays;
      for (const bool too_short : {true, false}) {
        std::string preparation, operands;
        for (int k = 0; k < signature_length(row.signature); ++k)
          operands += (k > 0 ? ", " : "") + shortOperand(row, k, too_short ? c.array : 0, preparation);
        prepare(preparation);
        refused = 0;
        const std::string message =
            std::string(" >>>> Not enough array elements in ") + row.name + " in record 1 (t)\n";
        EXPECT_EQ(call(row.name, neverCalled, operands), too_short ? message : "") << operands;
        EXPECT_EQ(refused, too_short ? 0 : 1) << row.name;
        for (int i = 0; i < kVariables; ++i) free_variable(i);
      }
    }
  };
  for (const RoutineRow& row : kRoutines) check(row);
  for (const RoutineRow& row : kValueRoutines) check(row);
  EXPECT_GE(rows, 105);
  EXPECT_GE(arrays, 300);
}
