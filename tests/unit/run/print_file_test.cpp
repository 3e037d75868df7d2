// Stand-ins for the outside programs write down how they were called.
#include "core/messages.h"
#include "plot_fixture.h"

using namespace quilla;

namespace {

class PrintFile : public PlotTest {
protected:
  std::string path = getenv("PATH");

  void SetUp() override {
    PlotTest::SetUp();
    for (const char* name : {"quidrv", "quihpj", "quidot"}) {
      std::ofstream(name) << "#!/bin/sh\nfor a; do echo \"$a\" >> " << name << ".txt; done\n";
      std::filesystem::permissions(name, std::filesystem::perms::owner_all);
    }
    setenv("PATH", (folder.string() + ":" + path).c_str(), 1);
  }
  void TearDown() override {
    setenv("PATH", path.c_str(), 1);
    PlotTest::TearDown();
  }

  void plot(const char* format, const char* file) {
    METAFL(format);
    SETFIL(file);
    outputOf([] {
      QUIINI();
      QUIFIN();
    });
  }
};

using Lines = std::vector<std::string>;

TEST_F(PrintFile, RefusedWithoutAFinishedFile) {
  EXPECT_EQ(outputOf([] { SYMFIL("NONE", "DELE"); }), " <<<< Warning 20: No metafile in symfil!\n");
  METAFL("PDF");
  EXPECT_EQ(outputOf([] { SYMFIL("NONE", "DELE"); }),
            " <<<< Warning 21: The routine must be called after quifin in symfil!\n");
}

TEST_F(PrintFile, DeletesTheFileOnce) {
  plot("PDF", "a.pdf");
  EXPECT_TRUE(std::filesystem::exists("a.pdf"));
  SYMFIL("none", "node"); // keeps
  EXPECT_TRUE(std::filesystem::exists("a.pdf"));
  SYMFIL("NONE", "DELETE");
  EXPECT_FALSE(std::filesystem::exists("a.pdf"));
  EXPECT_EQ(outputOf([] { SYMFIL("NONE", "DELE"); }), " <<<< Warning 22: The metafile is deleted before in symfil!\n");
}

TEST_F(PrintFile, CommandOfAVectorFile) {
  plot("PDF", "a.pdf"); // white paper
  SYMFIL("lp1", "KEEP");
  EXPECT_EQ(linesOf("quidrv.txt"), (Lines{"a.pdf", "LP1", "KEEP", "rain", "REVERS", "-Q", "-BS"}));
  EXPECT_EQ(state()->counters.runFinished, 1);
}

TEST_F(PrintFile, CommandWithOptionsAndTable) {
  X11MOD("NOST");
  METAFL("PSCL");
  SETFIL("b c.ps");
  outputOf([] {
    QUIINI();
    VLTFIL("my \"table\".txt", "SAVE");
    SETVLT("VGA");
    VLTFIL("my \"table\".txt", "LOAD");
    QUIFIN();
  });
  EXPECT_EQ(outputOf([] { SYMFIL("PRIN", "MAYBE"); }), " <<<< Warning 2: Incorrect parameter in symfil!   (MAYBE)\n");
  EXPECT_EQ(linesOf("quidrv.txt"), (Lines{"b c.ps", "PRIN", "KEEP", "vga", "-Q", "-NB", "V=my \"table\".txt"}));
}

TEST_F(PrintFile, ProgramsByDevice) {
  plot("PDF", "a.pdf");
  state()->deviceSetup.deviceNumber = 604;
  SYMFIL("X", "KEEP");
  state()->deviceSetup.deviceNumber = 701;
  SYMFIL("X", "DELE");
  EXPECT_EQ(linesOf("quihpj.txt"), (Lines{"a.pdf", "X", "KEEP", "rain", "REVERS"}));
  EXPECT_EQ(linesOf("quidot.txt"), (Lines{"a.pdf", "X", "DELE", "rain", "REVERS"}));
  EXPECT_EQ(state()->counters.runFinished, -1);
}

TEST_F(PrintFile, NamesAreWordsAndNoCommands) {
  plot("PDF", "a.pdf");
  copyText(state()->deviceSetup.plotFileName, "x;touch made'it", kFileNameLength);
  SYMFIL("`id`", "KEEP");
  EXPECT_FALSE(std::filesystem::exists("made'it"));
  EXPECT_EQ(linesOf("quidrv.txt").at(0), "x;touch made'it");
  EXPECT_EQ(linesOf("quidrv.txt").at(1), "`ID`");
}

} // namespace
