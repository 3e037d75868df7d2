#include "device_fixture.h"

#include "device/ply_file.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

class Ply : public DeviceTest {
protected:
  void collect() {
    PLYINI("stan");
    const int corners[] = {plyVertex(s, {0, 0, 0, 255, 0, 1}), plyVertex(s, {1, 0.5F, -0.25F, 2, 3, 4}),
                           plyVertex(s, {1, 1, 1e6F, 5, 6, 7})};
    EXPECT_TRUE(plyFace(s, corners, 3));
    EXPECT_TRUE(plyFace(s, corners, 2));
  }
};

constexpr char kMesh[] = "element vertex 3\nproperty float x\nproperty float y\nproperty float z\n"
                         "property uchar red\nproperty uchar green\nproperty uchar blue\n"
                         "element face 2\nproperty list uchar int vertex_indices\nend_header\n"
                         "0.000000 0.000000 0.000000 255 0 1\n1.000000 0.500000 -0.250000 2 3 4\n"
                         "1.000000 1.000000 1000000.000000 5 6 7\n3 0 1 2\n2 0 1\n";

TEST_F(Ply, File) {
  ASSERT_TRUE(open(kDevicePdf));
  write("a.ply");
  collect();
  PLYFIN("a.ply", "Two faces");
  close();
  EXPECT_EQ(read("a.ply"), "old\n");
  EXPECT_EQ(read("a_1.ply"),
            "ply\nformat ascii 1.0\ncomment author: Quilla\ncomment object: Two faces\n" + std::string(kMesh));
  EXPECT_FALSE(plyCollects(s));
}

TEST_F(Ply, ForgottenEnd) {
  ASSERT_TRUE(open(kDevicePdf));
  collect();
  close();
  EXPECT_NE(read("quilla.ply").find(kMesh), std::string::npos);
  EXPECT_FALSE(plyCollects(s));
}

TEST_F(Ply, EmptyMesh) {
  ASSERT_TRUE(open(kDevicePdf));
  PLYINI("STAN");
  PLYFIN("a.ply", "");
  EXPECT_NE(read("a.ply").find("element vertex 0\n"), std::string::npos);
  close();
}

TEST_F(Ply, OrderOfCalls) {
  ASSERT_TRUE(open(kDevicePdf));
  PLYFIN("a.ply", "x");
  EXPECT_NE(takeMessages().find("Warning 191: Output to PLY format is not enabled"), std::string::npos);
  PLYINI("BINA");
  EXPECT_NE(takeMessages().find("Warning 2"), std::string::npos);
  PLYINI("STAN");
  PLYINI("STAN");
  EXPECT_NE(takeMessages().find("Warning 190: Output to PLY format is already enabled"), std::string::npos);
  PLYFIN("missing/a.ply", "x");
  EXPECT_NE(takeMessages().find("Warning 36: File error in plyfin!   (missing/a.ply)"), std::string::npos);
  EXPECT_FALSE(plyCollects(s));
  close();
}

TEST_F(Ply, ManyVertices) {
  ASSERT_TRUE(open(kDevicePdf));
  PLYINI("STAN");
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(plyVertex(s, {0, 0, 0, 0, 0, 0}), i);
  freePlotState(); // the sanitizers watch that nothing is left behind
  s = plotState();
}

} // namespace
} // namespace quilla
