// Maps of random projections and limits, and files of random bytes: nothing may reach outside its memory, which the
// sanitizers see, and every plot can be finished.
#include <random>

#include "plot_fixture.h"

using namespace quilla;

namespace {

constexpr const char* kProjections[] = {"CYLI", "MERC", "EXAC", "CORR", "UTM",  "OBLI", "EQUA", "MOLL",
                                        "AITO", "HAMM", "WINK", "SANS", "ELLI", "CONF", "ALBE", "POLY",
                                        "CONI", "GNOM", "ORTH", "STER", "AZIM", "LAMB", "MYPR"};

class RandomMaps : public PlotTest {
protected:
  std::mt19937 source{20};

  float number(float low, float high) { return std::uniform_real_distribution<float>(low, high)(source); }
  int whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(source); }
  // Mostly a number of the range, now and then one far away.
  float odd(float low, float high) {
    constexpr float kOdd[] = {0.0F, 90.0F, -90.0F, 180.0F, -180.0F, 540.0F, 1e-30F, 3e38F, -3e38F, NAN};
    return whole(0, 9) == 0 ? kOdd[whole(0, 9)] : number(low, high);
  }
  const char* of(std::initializer_list<const char*> words) {
    return words.begin()[whole(0, static_cast<int>(words.size()) - 1)];
  }

  void settings() {
    PROJCT(kProjections[whole(0, 22)]);
    MAPPOL(odd(-180, 180), odd(-90, 90));
    if (whole(0, 2) == 0) MAPREF(odd(-90, 90), odd(-90, 90));
    MAPSPH(odd(1, 90));
    MAPMOD(of({"STRA", "INTE", "GREA"}));
    MAPOPT(of({"STAN", "AUTO"}), "XAXI");
    MAPLAB(of({"NONE", "BOTH"}), "LATI");
    CLPMOD(of({"AUTO", "AUTO", "NONE", "CIRC", "RECT"}));
    LABELS(of({"FLOA", "MAP", "NONE"}), "XY");
    AXSLEN(whole(2, 2500), whole(2, 1800));
    AXSBGD(whole(-1, 1));
    FRAME(whole(-3, 3));
  }
  void axes() {
    float xa = odd(-200, 100), ya = odd(-90, 60);
    const float xe = xa + number(1, 360), ye = ya + number(1, 120);
    GRAFMP(xa, xe, odd(xa, xe), odd(1, 60), ya, ye, odd(ya, ye), odd(1, 60));
  }
  void draw() {
    float lon[4], lat[4], x = 0, y = 0;
    for (float& v : lon) v = odd(-200, 200);
    for (float& v : lat) v = odd(-90, 90);
    GRIDMP(whole(0, 3), whole(0, 3));
    CURVMP(lon, lat, 4);
    CURVE(lon, lat, 4);
    POS2PT(lon[0], lat[0], &x, &y);
    PT2POS(x, y, &x, &y);
    PT2POS(odd(0, 2000), odd(0, 2000), &x, &y);
    XAXMAP(-20, 20, 0, odd(1, 10), "", 0, 1000);
    WORLD();
    SHDPAT(whole(0, 1) == 0 ? 16 : 4);
    SHDMAP(of({"ALL", "SEA", "LAND", "LAKE", "NORT", "GSHL", "LSEA"}));
  }
};

TEST_F(RandomMaps, OfAllProjections) {
  for (int i = 0; i < 60; i++) {
    open();
    UNIT(0);
    MAPDIR(SOURCE_DIR "/data/map");
    settings();
    axes();
    draw();
    QUIFIN();
    EXPECT_EQ(GETLEV(), 0);
  }
}

TEST_F(RandomMaps, OfRandomBytes) {
  std::filesystem::create_directory("maps");
  for (int i = 0; i < 60; i++) {
    for (const char* name : {"map0.dat", "map1.dat", "map16.dat", "gshhs_l.b", "own.txt"}) {
      std::ofstream out(std::string("maps/") + name, std::ios::binary);
      for (int k = whole(0, 400); k > 0; k--) {
        constexpr int kWords[] = {-9000, -2000, -3000, -1000, -4003, -24001, -1, 0, 180000, 90000, 2147483647};
        const int word = whole(0, 3) == 0   ? whole(-2147483647, 2147483647)
                         : whole(0, 1) == 0 ? kWords[whole(0, 9)]
                                            : whole(0, 360000);
        for (int b = 0; b < 4; b++) out.put(static_cast<char>(static_cast<unsigned>(word) >> (8 * b)));
      }
    }
    open();
    UNIT(0);
    MAPDIR("maps");
    MAPFIL("maps/own.txt", of({"GSHH", "MAPG"}));
    MAPBAS(of({"QUIL", "GSHL", "MAPF"}));
    MAPOPT(of({"COAS", "BORD", "BOTH"}), "WORL");
    settings();
    axes();
    draw();
    const int numbers[] = {1, 2}, patterns[] = {16, 5}, colors[] = {10, 20};
    SHDEUR(numbers, patterns, colors, 2);
    QUIFIN();
    EXPECT_EQ(GETLEV(), 0);
  }
}

} // namespace
