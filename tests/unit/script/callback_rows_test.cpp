// Rows that name routines of the script, with functions of the test in the library's place, and what the library then
// calls.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "script/row_fixture.h"

using namespace qsl;

namespace {

class CallbackRows : public Rows {
protected:
  void SetUp() override {
    Rows::SetUp();
    std::string pattern = testing::TempDir() + "quilla_callbacks_XXXXXX"; // tests run side by side
    folder_ = std::string(mkdtemp(pattern.data())) + "/";
    setenv("QSL_PATH", folder_.c_str(), 1);
    write("cb_show1", "SUBROUTINE CB_SHOW1(INT : I)\nPRINTL 'show', I\nEND\n");
    write("cb_show2", "SUBROUTINE CB_SHOW2(INT : I, INT : K)\nPRINTL 'show', I, K\nEND\n");
    write("cb_show3", "SUBROUTINE CB_SHOW3(INT : I, INT : K, INT : L)\nPRINTL 'show', I, K, L\nEND\n");
    write("cb_show5", "SUBROUTINE CB_SHOW5(I, K, L, M, N)\nPRINTL 'show', I, K, L, M, N\nEND\n");
    write("cb_array", "SUBROUTINE CB_ARRAY(INT : I, INT : A[])\nA[I] = 99\nEND\n");
    write("cb_surf", "FUNCTION CB_SURF(FLOAT : X, FLOAT : Y)\nRETURN DOUBLE(X + 10.0 * Y)\nEND\n");
    write("cb_para", "FUNCTION CB_PARA(FLOAT : U, FLOAT : V, INT : K)\nRETURN U * V * K + 0.5D0\nEND\n");
    write("cb_proj", "SUBROUTINE CB_PROJ(X, Y)\nX = X * 2.0\nY = Y + 1\nEND\n");
    write("cb_pie", "SUBROUTINE CB_PIE(I, X, P, N1, N2, R, L1, L2, L3, L4)\nI = 0\nX = 0.0\nN1 = N1 + I\nN2 = 22.9\n"
                    "R = X + P\nL1 = 1\nL2 = 2\nL3 = 'text'\nL4 = 4\nEND\n");
    write("cb_none", "FUNCTION CB_NONE(X, Y)\nEND\n");
  }
  void TearDown() override {
    unsetenv("QSL_PATH");
    std::filesystem::remove_all(folder_);
    Rows::TearDown();
  }
  void write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ + name + ".qsl") << "%QSL\n" << text;
  }
  std::string folder_;

  template <typename Act> static std::string printed(Act act) {
    testing::internal::CaptureStdout();
    act();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
  }
};

// The library's side.
void (*kept1)(int);
void (*keptArray)(int, int*);
void (*kept3)(int, int, int);
void (*kept2)(int, int);
void (*kept5)(int, int, int, int, int);
void (*keptProjection)(float*, float*);
void (*keptPie)(int, float, float, int*, int*, float*, int*, int*, int*, int*);
int keptNumber;
std::string keptKey;
std::vector<float> values;

void swgcbk(int id, void (*routine)(int)) {
  keptNumber = id;
  kept1 = routine;
}
void swgcb(int id, void (*routine)(int, int*), int* data) {
  keptNumber = id;
  EXPECT_EQ(data, nullptr); // the script's array may move
  keptArray = routine;
}
void swgcb2(int, void (*routine)(int, int, int)) { kept3 = routine; }
void swgcb3(int, void (*routine)(int, int)) { kept2 = routine; }
void wincbk(void (*routine)(int, int, int, int, int), const char* key) {
  kept5 = routine;
  keptKey = key;
}
void surfun(float (*f)(float, float), int nx, float dx, int ny, float dy) {
  values = {f(1.0F, 2.0F), f(0.5F, -1.0F), static_cast<float>(nx), dx, static_cast<float>(ny), dy};
}
void surfcp(float (*f)(float, float, int), float a1, float a2, float astep, float b1, float b2, float bstep) {
  values = {f(2.0F, 3.0F, 1), f(2.0F, 3.0F, 2), a1, a2, astep, b1, b2, bstep};
}
void setcbk(void (*routine)(float*, float*), const char* key) {
  keptProjection = routine;
  keptKey = key;
}
void piecbk(void (*routine)(int, float, float, int*, int*, float*, int*, int*, int*, int*)) { keptPie = routine; }

} // namespace

TEST_F(CallbackRows, WidgetRoutines) {
  EXPECT_EQ(call("SWGCBK", run_swgcbk<swgcbk>, "200, 'cb_show1'"), "");
  EXPECT_EQ(keptNumber, 200);
  EXPECT_EQ(printed([] { kept1(200); }), "show 200 \n");
  EXPECT_EQ(call("SWGCB2", run_swgcb2<swgcb2>, "1, 'Cb_Show3'"), "");
  EXPECT_EQ(printed([] { kept3(1, 20, 30); }), "show 1 20 30 \n");
  EXPECT_EQ(call("SWGCB3", run_swgcb3<swgcb3>, "2, 'CB_SHOW2'"), "");
  EXPECT_EQ(printed([] { kept2(2, 7); }), "show 2 7 \n");
  EXPECT_EQ(printed([] { kept1(200); }), "show 200 \n"); // each widget has its own
}

// A number outside the table is not kept; the library is told all the same.
TEST_F(CallbackRows, WidgetNumbersBeyondTheTable) {
  for (const char* number : {"0", "201", "-1"}) {
    EXPECT_EQ(call("SWGCBK", run_swgcbk<swgcbk>, std::string(number) + ", 'cb_show1'"), "");
    EXPECT_EQ(keptNumber, std::atoi(number));
    EXPECT_EQ(printed([] { kept1(keptNumber); }), "");
  }
}

TEST_F(CallbackRows, WidgetArraysAreTheScriptsOwn) {
  prepare("A = IALLOC(5)\n");
  EXPECT_EQ(call("SWGCB", run_swgcb<swgcb>, "3, 'cb_array', A"), "");
  keptArray(3, nullptr);
  EXPECT_EQ(elements<std::int32_t>(named("A"))[3], 99);
  prepare("A = IALLOC(4)\n"); // another array of that name
  keptArray(3, nullptr);
  EXPECT_EQ(elements<std::int32_t>(named("A"))[3], 99);
  free_variable(find_variable("A"));
  EXPECT_EQ(printed([] { keptArray(3, nullptr); }),
            " >>>> Mismatch of parameter 2 in CALL to CB_ARRAY in record 1 (t)\n");
  EXPECT_EQ(interp.variables.level, 0);
}

TEST_F(CallbackRows, WindowRoutine) {
  EXPECT_EQ(call("WINCBK", run_wincbk<wincbk>, "'cb_show5', 'SIZE'"), "");
  EXPECT_EQ(keptKey, "SIZE");
  EXPECT_EQ(printed([] { kept5(1, 2, 3, 4, 5); }), "show 1 2 3 4 5 \n");
}

TEST_F(CallbackRows, SurfacesAskForValues) {
  EXPECT_EQ(call("SURFUN", run_surfun<surfun>, "'cb_surf', 3, 0.25, 4, 1"), "");
  EXPECT_EQ(values, (std::vector<float>{21.0F, -9.5F, 3.0F, 0.25F, 4.0F, 1.0F}));
  EXPECT_EQ(call("SURFCP", run_surfcp<surfcp>, "'cb_para', 1, 2, 3, 4, 5, 6.5"), "");
  EXPECT_EQ(values, (std::vector<float>{6.5F, 12.5F, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.5F}));
}

// A routine without a value gives 0, not the value of another one.
TEST_F(CallbackRows, MissingValuesAreZero) {
  call("SURFUN", run_surfun<surfun>, "'cb_surf', 3, 0.25, 4, 1");
  call("SURFUN", run_surfun<surfun>, "'cb_none', 3, 0.25, 4, 1");
  EXPECT_EQ(values[0], 0.0F);
  EXPECT_EQ(call("SURFUN", run_surfun<surfun>, "'cb_no_file', 3, 0.25, 4, 1"),
            " >>>> Open error in file cb_no_file.qsl\n >>>> Open error in file cb_no_file.qsl\n");
  EXPECT_EQ(values[1], 0.0F);
}

TEST_F(CallbackRows, ProjectionsChangeTheirArguments) {
  EXPECT_EQ(call("SETCBK", run_setcbk<setcbk>, "'cb_proj', 'MYPR'"), "");
  EXPECT_EQ(keptKey, "MYPR");
  float x = 1.5F, y = 2.25F;
  keptProjection(&x, &y);
  EXPECT_EQ(x, 3.0F);
  EXPECT_EQ(y, 3.25F);
}

TEST_F(CallbackRows, PieRoutinesChangeAllButThree) {
  EXPECT_EQ(call("PIECBK", run_piecbk<piecbk>, "'cb_pie'"), "");
  int pattern = 5, color = 6, l1 = 0, l2 = 0, l3 = 3, l4 = 0;
  float exploded = 1.0F;
  keptPie(2, 7.0F, 12.5F, &pattern, &color, &exploded, &l1, &l2, &l3, &l4);
  EXPECT_EQ(pattern, 5); // the segment was set to 0 in the routine
  EXPECT_EQ(color, 22);
  EXPECT_EQ(exploded, 12.5F);
  EXPECT_EQ(l1, 1);
  EXPECT_EQ(l2, 2);
  EXPECT_EQ(l3, 3); // a text is no number
  EXPECT_EQ(l4, 4);
  EXPECT_EQ(call("PIECBK", run_piecbk<piecbk>, "''"), "");
  EXPECT_EQ(keptPie, nullptr);
}

TEST_F(CallbackRows, NamesAreCutAtFortyCharacters) {
  call("WINCBK", run_wincbk<wincbk>, "'" + std::string(60, 'n') + "', 'SIZE'");
  EXPECT_EQ(std::string(interp.callbacks.window), std::string(40, 'n'));
  EXPECT_EQ(printed([] { kept5(1, 2, 3, 4, 5); }), " >>>> Open error in file " + std::string(15, 'n') + ".qsl\n");
}

// From a script: the routine is called for each segment, may replace what the call uses, and cannot end the plot.
TEST_F(CallbackRows, PieFromAScript) {
  write("cb_free",
        "SUBROUTINE CB_FREE(I, X, P, N1, N2, R, L1, L2, L3, L4)\nEXTERN V, B\nPRINTL I, X, P\nV = 7\nB = 'x'\n"
        "QUIFIN()\nEND\n");
  const std::string refused =
      " >>>> Routine not allowed in a callback: QUIFIN in record 7 (" + folder_ + "cb_free.qsl)\n";
  EXPECT_EQ(run("METAFL('PDF')\nSETFIL('/dev/null')\nQUIINI()\nUNIT(0)\nV = {1.0, 3.0}\nB = ' '\nLEGINI(B,2,4)\n"
                "PIECBK('cb_free')\nPIEGRF(B,1,V,2)\nN = GETLEV()\nPRINTL N, V\nQUIFIN()\n"),
            "1 1.000000 25.000000 \n" + refused + "2 3.000000 75.000000 \n" + refused + "2 7 \n");
}
