#include <sys/stat.h>

#include <cstdlib>
#include <fstream>

#include "script/script_fixture.h"

using namespace qsl;

namespace {

// Data files lie in a directory of their own, so that messages can be told in full.
class DataFile : public Script {
protected:
  void SetUp() override {
    Script::SetUp();
    char pattern[] = "/tmp/qsl_data_XXXXXX";
    directory = mkdtemp(pattern);
  }
  void TearDown() override {
    Script::TearDown();
    run("X = SYSTEM('rm -r " + directory + "')\n");
    Script::TearDown();
  }
  std::string path(const std::string& name) const { return directory + "/" + name; }
  std::string write(const std::string& text) {
    std::ofstream(path("a.qdf"), std::ios::binary) << text;
    return "X = DATFIL('" + path("a") + "')\nPRINTL X\n";
  }
  std::string directory;
};

const char* kGood = "%QSL-ASC\n%HEADER\n// a note\nTITLE = 'x y' // behind\nN = -5\nR = +2.5\n"
                    "%DATA\n2 // columns\n1 2,3\n4, 5 6 // six\n// none\n%DATA\n1\n7\n8\n9\n%END\n10\n";

} // namespace

TEST_F(DataFile, CountsRowsColumnsAndBlocks) {
  EXPECT_EQ(run(write(kGood) + "PRINTL DATCNT('rows'), DATCNT('COL'), DATCNT('BLOCKS')\n"), "0 \n3 2 2 \n");
  EXPECT_EQ(run("PRINTL DATBLK(2), DATCNT('ROW'), DATBLK(2), DATBLK(3), DATCNT('ROW')\n"),
            " >>>> Cannot find block 3 in data file " + path("a.qdf") + "\n0 3 0 -1 3 \n");
  EXPECT_EQ(run("X = DATCNT('FULL')\nPRINTL X\n"), " >>>> Undefined parameter FULL in datcnt\n0 \n");
  EXPECT_EQ(run("X = DATBLK(0)\n"), " >>>> Not allowed parameter 0 in DATBLK\n");
}

TEST_F(DataFile, Numbers) {
  run(write(kGood));
  EXPECT_EQ(run("A = DATMAT()\nPRINTL A, VARDIM(A,1), VARDIM(A,2), VARTYP(A)\n"),
            "1.000000 2.000000 3.000000 4.000000 5.000000 6.000000 3 2 FLOAT \n");
  EXPECT_EQ(run("A = DATRAY(2)\nPRINTL A\n"), "2.000000 4.000000 6.000000 \n");
  EXPECT_EQ(run("A = DATRAY(3)\nPRINTL A\n"), " >>>> Not allowed parameter 3 in DATRAY\n-1 \n");
  EXPECT_EQ(run("X = DATBLK(2)\nA = DATRAY(1)\nPRINTL A\n"), "7.000000 8.000000 9.000000 \n");
}

TEST_F(DataFile, HeaderItems) {
  run(write(kGood));
  EXPECT_EQ(run("PRINTL DATVAR('title'), DATVAR('n'), DATVAR('R') + 1\n"), "x y -5 3.500000 \n");
  EXPECT_EQ(run("X = DATVAR('none')\nPRINTL X\n"), " >>>> none is not defined in " + path("a.qdf") + "\n-1 \n");
  EXPECT_EQ(run("X = DATHDR()\n"), "// a note\nTITLE = 'x y' // behind\nN = -5\nR = +2.5\n");
}

TEST_F(DataFile, HeaderFaults) {
  run(write("%QSL-ASC\n%HEADER\nA = x\nB 3\nC = 'x\n= 4\nD = 1.2.3\nE = 5\n%DATA\n1\n1\n"));
  const std::string file = " (" + path("a.qdf") + ")\n";
  EXPECT_EQ(run("X = DATVAR('e')\nPRINTL X\n"),
            " >>>> Syntax error in record 3" + file + " >>>> Expected '=' in record 4" + file +
                " >>>> Syntax error in record 5" + file + " >>>> Syntax error in record 6" + file +
                " >>>> Syntax error in record 7" + file + "5 \n");
  run(write("%QSL-ASC\n%DATA\n1\n1\n"));
  EXPECT_EQ(run("X = DATHDR()\nY = DATVAR('E')\n"),
            " >>>> No header found in " + path("a.qdf") + "\n >>>> No header found in " + path("a.qdf") + "\n");
}

TEST_F(DataFile, FilesThatDoNotFit) {
  EXPECT_EQ(run(write("%QSL\n")), " >>>> Not allowed file format in " + path("a.qdf") + "\n-1 \n");
  EXPECT_EQ(run(write("%qsl-asc of mine\n")), " >>>> Missing '%DATA' in data file " + path("a.qdf") + "\n-1 \n");
  EXPECT_EQ(run(write("%QSL-ASC\n%DATA\n2\n1 2 3\n")), " >>>> Count error\n-1 \n");
  EXPECT_EQ(run(write("%QSL-ASC\n%DATA\n-1\n1\n")), " >>>> Count error\n-1 \n");
  EXPECT_EQ(run(write("%QSL-ASC\n%DATA\n2\n1 x\n")),
            " >>>> Syntax error in data file " + path("a.qdf") + " in record 4\n-1 \n");
  EXPECT_EQ(run(write("%QSL-ASC\n%DATA\n2\n1 2\n%FOO\n")),
            " >>>> Syntax error in data file " + path("a.qdf") + " in record 5\n-1 \n");
  EXPECT_EQ(run("X = DATFIL('" + path("none") + "')\n"), " >>>> Open error in file " + path("none.qdf") + "\n");
  EXPECT_EQ(run("X = DATFIL('" + directory + "/.')\n"), " >>>> Open error in file " + directory + "/.\n");
  EXPECT_EXIT(runUntilFault(write("%QSL-ASC\n%DATA\n0\n1\n")), testing::KilledBySignal(SIGFPE), "");
}

TEST_F(DataFile, WithoutAFile) {
  EXPECT_EQ(run("PRINTL DATCNT('ROW'), DATCLS()\n"), " >>>> Missing routine DATFIL\n0 -1 \n");
  EXPECT_EQ(run("PRINTL DATHDR(), DATVAR('x')\n"),
            " >>>> Missing routine DATFIL\n >>>> Missing routine DATFIL\n-1 -1 \n");
  EXPECT_EQ(run("PRINTL DATBLK(2)\n" + write(kGood) + "PRINTL DATCNT('ROW'), DATCLS(), DATCLS()\n"),
            "0 \n0 \n3 0 -1 \n");
}

TEST_F(DataFile, SearchInQslData) {
  write(kGood);
  setenv("QSL_DATA", directory.c_str(), 1);
  EXPECT_EQ(run("PRINTL DATFIL('a')\n"), "0 \n");
  setenv("QSL_DATA", (directory + "/").c_str(), 1);
  EXPECT_EQ(run("PRINTL DATFIL('A.QDF')\n"), " >>>> Open error in file A.QDF\n-1 \n");
  EXPECT_EQ(run("PRINTL DATFIL('a.qdf')\n"), "0 \n");
  unsetenv("QSL_DATA");
}

TEST_F(DataFile, LongRecordsAreReadInPieces) {
  std::string row;
  for (int i = 0; i < 300; ++i) row += "1,";
  EXPECT_EQ(run(write("%QSL-ASC\n%DATA\n3\n" + row + "\n") + "PRINTL DATCNT('ROW')\n"), "0 \n100 \n");
}
