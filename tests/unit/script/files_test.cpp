#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "script/script_fixture.h"

using namespace qsl;

namespace {

// A folder of its own: tests run side by side.
struct Folder {
  std::string pattern = testing::TempDir() + "quilla_files_XXXXXX";
  std::string path = mkdtemp(pattern.data());
  ~Folder() { std::filesystem::remove_all(path); }
} folder;

std::string pathOf(const char* name) { return folder.path + "/" + name; }

void writeFile(const char* name, const std::string& text) { std::ofstream(pathOf(name), std::ios::binary) << text; }

std::string readFile(const char* name) {
  std::ostringstream text;
  text << std::ifstream(pathOf(name), std::ios::binary).rdbuf();
  return text.str();
}

class Files : public Script {
protected:
  // N = FOPEN of a file in the folder of the tests.
  static std::string open(const char* name, const char* mode) {
    return "N = FOPEN('" + pathOf(name) + "','" + mode + "')\n";
  }
};

} // namespace

TEST_F(Files, PrintfFormatsNumbers) {
  EXPECT_EQ(run("PRINTF('%5.2F\\n', 1)\n"), " 1.00\n");
  EXPECT_EQ(run("PRINTF('%d|%5d|%-5d|%05d|%i\\n', 1, 2, 3, 4, 5)\n"), "1|    2|3    |00004|5\n");
  EXPECT_EQ(run("PRINTF('%x %X %o\\n', 255, 255, 8)\n"), "ff FF 10\n");
  EXPECT_EQ(run("PRINTF('%e %.2E %f\\n', 12.5, FLOAT(0.5), 2.25)\n"), "1.250000e+01 5.00E-01 2.250000\n");
  EXPECT_EQ(run("PRINTF('%c%C%3c|\\n', 72, BYTE(105), CHAR(33))\n"), "Hi  !|\n");
  EXPECT_EQ(run("PRINTF('%s|%6s|%-6s|%.2s\\n', 'ab', 'cd', 'ef', 'ghi')\n"), "ab|    cd|ef    |gh\n");
  EXPECT_EQ(run("PRINTF('plain')\n"), "plain");
  EXPECT_EQ(run("PRINTF('a\\tb\\\\n')\n"), "a\\tb\\\n"); // the two characters \n are the only escape
  EXPECT_EQ(run("CHAR C[4]\nC[0] = 72\nPRINTF('%s\\n', C)\nX = PRINTF('')\nPRINTL X\n"), "H\n0 \n");
  EXPECT_EQ(run("PRINTF('%4096d|\\n', 1)\n"), std::string(4095, ' ') + "1|\n");
}

// A faulty format prints nothing at all.
TEST_F(Files, PrintfFaults) {
  EXPECT_EQ(run("X = PRINTF('text %d %s\\n', 1, 2)\nPRINTL X\n"), fault("Parameter mismatch in PRINTF") + "-1 \n");
  EXPECT_EQ(run("PRINTF('100%')\n"), fault("More format specifications than variables in PRINTF"));
  EXPECT_EQ(run("PRINTF('100%', 1)\n"), fault("Syntax error in format specification in PRINTF"));
  EXPECT_EQ(run("PRINTF('%5%d', 1)\n"), fault("Syntax error in format specification in PRINTF"));
  EXPECT_EQ(run("PRINTF('%q', 1)\n"), fault("Syntax error in format specification in PRINTF"));
  EXPECT_EQ(run("PRINTF('%n', 1)\n"), fault("Syntax error in format specification in PRINTF"));
  EXPECT_EQ(run("PRINTF('%4097d', 1)\n"), fault("Syntax error in format specification in PRINTF"));
  EXPECT_EQ(run("PRINTF('%5-3d', 1)\n"), fault("Syntax error in format specification in PRINTF"));
  EXPECT_EQ(run("PRINTF('%*d', 1, 2)\n"), fault("Syntax error in format specification in PRINTF"));
  EXPECT_EQ(run("PRINTF('x', 1)\n"), fault("More variables than format specifications in PRINTF"));
  EXPECT_EQ(run("PRINTF('%d', 1.5)\n"), fault("Parameter mismatch in PRINTF"));
  EXPECT_EQ(run("PRINTF('%f', 'a')\n"), fault("Parameter mismatch in PRINTF"));
  EXPECT_EQ(run("PRINTF('%s', 5)\n"), fault("Parameter mismatch in PRINTF"));
  EXPECT_EQ(run("PRINTF()\n"), fault("Missing parameters in PRINTF"));
  EXPECT_EQ(run("PRINTF(5)\n"), fault("Format specifier must be a string in PRINTF"));
  EXPECT_EQ(run("C = CHAR('abc')\nPRINTF('%s', C)\n"), fault("Parameter mismatch in PRINTF", 3));
  EXPECT_EQ(run("C = CHAR('abc')\nPRINTF(C)\n"), fault("Format specifier must be a string in PRINTF", 3));
  EXPECT_EQ(run("PRINTF('%d', NO)\n"), fault("Undefined identifier NO"));
}

TEST_F(Files, SprintfNeedsRoom) {
  EXPECT_EQ(run("CHAR C[4]\nX = SPRINTF(C, '%d', 123)\nPRINTL C, X\n"), "123 0 \n");
  EXPECT_EQ(run("CHAR C[3]\nC[0] = 65\nX = SPRINTF(C, '%d', 123)\nPRINTL C, X\n"),
            fault("Not enough memory in parameter 1 in SPRINTF", 4) + "A -1 \n");
  EXPECT_EQ(run("CHAR C[9]\nSPRINTF(C, 'ab')\nSPRINTF(C, '%s%s', C, C)\nPRINTL C\n"), "abab \n");
  EXPECT_EQ(run("INT I[4]\nSPRINTF(I, 'x')\n"), fault("Parameter 1 in SPRINTF must be a character array", 3));
  EXPECT_EQ(run("CHAR C[4]\nSPRINTF(C)\nSPRINTF(C, 5)\nSPRINTF(C, '%d')\nSPRINTF(C, '%d', 'x')\nSPRINTF(C, '%y', 1)\n"
                "SPRINTF(C, '', 1)\n"),
            fault("Missing parameters in SPRINTF", 3) + fault("Format specifier must be a string in SPRINTF", 4) +
                fault("More format specifications than variables in SPRINTF", 5) +
                fault("Parameter mismatch in SPRINTF", 6) +
                fault("Syntax error in format specification in SPRINTF", 7) +
                fault("More variables than format specifications in SPRINTF", 8));
}

TEST_F(Files, TextOut) {
  EXPECT_EQ(run(open("out.txt", "w") + "FPRINTF(N, '%d %s\\n', 5, 'five')\nFPUTS('line', N)\nX = FPUTC(33, N)\n"
                                       "PRINTL N, X, FTELL(N), FCLOSE(N)\n"),
            "0 33 12 0 \n");
  EXPECT_EQ(readFile("out.txt"), "5 five\nline!");
  EXPECT_EQ(run(open("out.txt", "A") + "FPUTS('more', N)\nFCLOSE(N)\n"), "");
  EXPECT_EQ(readFile("out.txt"), "5 five\nline!more");
  EXPECT_EQ(run(open("out.txt", "r+") + "FPUTS('6', N)\nFSEEK(N, 2)\nFPUTS('FIVE', N)\nFFLUSH(N)\nREWIND(N)\n"
                                        "PRINTL FTELL(N)\nFCLOSE(N)\n"),
            "0 \n");
  EXPECT_EQ(readFile("out.txt"), "6 FIVE\nline!more");
}

TEST_F(Files, TextIn) {
  writeFile("in.txt", "first line\nsecond\n");
  EXPECT_EQ(run(open("in.txt", "r") + "CHAR C[20]\nPRINTL FGETC(N)\nX = FGETS(C, 20, N)\nPRINTL X, STRLEN(C)\n"
                                      "X = FGETS(C, 4, N)\nPRINTL X, C\nX = FGETS(C, 20, N)\nX = FGETS(C, 20, N)\n"
                                      "PRINTL X, FEOF(N)\nREWIND(N)\nPRINTL FEOF(N)\nFCLOSE(N)\n"),
            "102 \n10 10 \n3 sec \n-1 1 \n0 \n");
  EXPECT_EQ(run(open("in.txt", "r") + "FGETS(C, 21, N)\nFGETS('x', 1, N)\nFGETS(C, 0, N)\n"),
            fault("Not enough array elements in FGETS", 3) + fault("A CHAR array must be passed to FGETS", 4) +
                fault("Non positive value in FGETS paramter 2", 5));
}

TEST_F(Files, NumbersAreChecked) {
  EXPECT_EQ(run("FPRINTF(0-1, 'x')\nX = FCLOSE(8)\nPRINTL X, FTELL(3)\n"),
            fault("Undefined file number in FPRINTF") + fault("Undefined file number in FCLOSE", 3) +
                fault("File is not open in FTELL", 4) + "-1 -1 \n");
  EXPECT_EQ(run("FPRINTF(1.5, 'x')\nFPRINTF(1)\nX = FSCANF('a', 'b')\n"),
            fault("File number in FPRINTF must be an integer") + fault("Missing parameters in FPRINTF", 3) +
                fault("File number in FSCANF must be an integer", 4));
  EXPECT_EQ(run("X = FEOF(7)\nX = FEOF(-1)\n"),
            fault("File is not open in FEOF") + fault("Undefined file number in FEOF", 3));
}

TEST_F(Files, EightAreOpenAtMost) {
  std::string opens, wanted;
  for (int i = 0; i < 8; ++i) {
    opens += "PRINTL FOPEN('con:','w')\n";
    wanted += std::to_string(i) + " \n";
  }
  EXPECT_EQ(run(opens + "PRINTL FOPEN('con:','w')\nFCLOSE(3)\nPRINTL FOPEN('CON:','w')\n"),
            wanted + fault("Maximal number of open files is reachend", 10) + "-1 \n3 \n");
}

TEST_F(Files, AccessFollowsTheMode) {
  EXPECT_EQ(run(open("access.txt", "w") + "CHAR C[4]\nFGETC(N)\nFGETS(C,4,N)\nX = FSCANF(N,'%d',A)\nFREAD(C,1,N)\n"
                                          "FWRITE(C,1,N)\nFCLOSE(N)\n"),
            fault("Illegal file access in FGETC", 4) + fault("Illegal file access in FGETS", 5) +
                fault("Illegal file access in FSCANF", 6) + fault("Illegal file access in FREAD", 7) +
                fault("Illegal file access in FWRITE", 8));
  EXPECT_EQ(run(open("access.txt", "rb") + "FPRINTF(N,'x')\nFPUTS('x',N)\nFPUTC(65,N)\nFCLOSE(N)\n"),
            fault("Illegal file access in FPRINTF", 3) + fault("Illegal file access in FPUTS", 4) +
                fault("Illegal file access in FPUTC", 5));
  EXPECT_EQ(run("X = FOPEN('x','z')\nX = FOPEN('x','rbw')\nX = FOPEN('/no/such/file','r')\nPRINTL X\n"),
            fault("Undefined file mode in FOPEN") + fault("Undefined file mode in FOPEN", 3) +
                fault("Open error in /no/such/file", 4) + "-1 \n");
  EXPECT_EQ(run(open("access.txt", "r+b") + "C = CHAR('ab')\nFREAD(C,1,N)\nFPUTC(1,N)\nFCLOSE(N)\n"),
            fault("Illegal file access in FREAD", 4) + fault("Illegal file access in FPUTC", 5));
  EXPECT_EQ(run("X = FSEEK(0, 1)\nN = FOPEN('con:','w')\nX = FSEEK(N, -1)\nPRINTL X\n"),
            fault("File is not open in FSEEK") + fault("Negative offset in FSEEK", 4) + "-1 \n");
}

TEST_F(Files, ConsoleAtThePrompt) {
  interp.driver.interactive_mode = true;
  EXPECT_EQ(
      run("X = FOPEN('CON:','r')\nX = FOPEN('con:','w')\nFPUTS('out', X)\nX = SCANF('%d', A)\nCHAR C[4]\nX = "
          "GETS(C)\n"),
      "QSL>  >>>> Not allowed file mode in FOPEN\nQSL> QSL> outQSL>  >>>> SCANF cannot be used in interactive mode\n"
      "QSL> QSL>  >>>> GETS cannot be used in interactive mode\nQSL> ");
}

TEST_F(Files, Blocks) {
  EXPECT_EQ(run(open("block.bin", "WB") +
                "A = {1, 2, 3}\nPRINTL FWRITE(A, 3, N)\nB = {1.5}\nPRINTL FWRITE(B, 1, N)\n"
                "FWRITE(A, 0, N)\nFWRITE(A, 4, N)\nZ = COMPLEX(A)\nFWRITE(Z, 1, N)\nFCLOSE(N)\n"),
            "3 \n1 \n" + fault("Non positive value in FWRITE paramter 2", 7) +
                fault("Not enough array elements in FWRITE", 8) + fault("Parameter 1 in FWRITE must be an array", 10));
  EXPECT_EQ(readFile("block.bin"), std::string("\1\0\0\0\2\0\0\0\3\0\0\0\0\0\xC0\x3F", 16));
  EXPECT_EQ(run(open("block.bin", "br") + "INT R[3]\nPRINTL FREAD(R, 3, N)\nFLOAT F[2]\nPRINTL FREAD(F, 2, N)\n"
                                          "PRINTL R, F\nFREAD(R, 0, N)\nFREAD(R, 4, N)\nFREAD(Z, 1, N)\nFCLOSE(N)\n"),
            "3 \n1 \n1 2 3 1.500000 0.000000 \n" + fault("Non positive value in FREAD paramter 2", 8) +
                fault("Not enough array elements in FREAD", 9) + fault("Parameter 1 in FREAD must be an array", 10));
}

TEST_F(Files, ReadingByAFormat) {
  writeFile("scan.txt", "12 -3.5 word\n7");
  EXPECT_EQ(run(open("scan.txt", "r") +
                "CHAR C[10]\nX = FSCANF(N, '%d %f %s', I, F, C)\nPRINTL X, I, F, C\n"
                "X = FSCANF(N, '%i', I)\nPRINTL X, I\nX = FSCANF(N, '%d', I)\nPRINTL X, I\nFCLOSE(N)\n"),
            "3 12 -3.500000 word \n1 7 \n-1 7 \n");
  EXPECT_EQ(run("I = {1,2}\n" + open("scan.txt", "r") + "X = FSCANF(N, '%c%c', I, K)\nPRINTL X, I, K\nFCLOSE(N)\n"),
            "2 49 50 \n");
  EXPECT_EQ(run(open("scan.txt", "r") + "X = FSCANF(N, '%1d%1d', I, I)\nPRINTL X, I\nFCLOSE(N)\n"), "2 2 \n");
}

// A conversion that reads nothing restores the position of the file.
TEST_F(Files, ReadErrorsGoBack) {
  writeFile("scan.txt", "12 word");
  EXPECT_EQ(run(open("scan.txt", "r") + "X = FSCANF(N, '%d %d', I, J)\nPRINTL X, I, VARDEF(J), FTELL(N)\nFCLOSE(N)\n"),
            fault("Read error in FSCANF", 3) + "-1 12 0 0 \n");
  EXPECT_EQ(run(open("scan.txt", "r") + "X = FSCANF(N, '%d %q', I, J)\nPRINTL FTELL(N)\nX = FSCANF(N, '%d', 5)\n"
                                        "X = FSCANF(N, '%d', I, J)\nX = FSCANF(N, '%d%d', I)\nX = FSCANF(N, '%s', I)\n"
                                        "X = FSCANF(N, 5)\nX = FSCANF(N)\nFCLOSE(N)\n"),
            fault("Syntax error in format specification in FSCANF", 3) + "0 \n" +
                fault("Variables must be used in FSCANF", 5) +
                fault("More variables than format specifications in FSCANF", 6) +
                fault("More format specifications than variables in FSCANF", 7) +
                fault("A character array must be used in FSCANF", 8) +
                fault("Format specifier must be a string in FSCANF", 9) + fault("Missing parameters in FSCANF", 10));
}

TEST_F(Files, ReadingFromAText) {
  EXPECT_EQ(run("X = SSCANF('5 2.5', '%d,%f', I, F)\nPRINTL X, I, F\n"), "2 5 2.500000 \n");
  EXPECT_EQ(run("X = SSCANF('5', '%d%d', I, J)\nPRINTL X, I\n"),
            fault("End of string is reached in SSCANF") + "-1 5 \n");
  EXPECT_EQ(run("X = SSCANF('', '%d', I)\n"), fault("End of string is reached in SSCANF"));
  EXPECT_EQ(run("X = SSCANF('a', '%d', I)\nX = SSCANF(5, '%d', I)\nX = SSCANF('a')\nX = SSCANF('a', 5)\n"),
            fault("Read error in SSCANF") + fault("Parameter 1 in SSCANF must be a string", 3) +
                fault("Missing parameters in SSCANF", 4) + fault("Format specifier must be a string in SSCANF", 5));
  EXPECT_EQ(run("CHAR C[4]\nX = SSCANF('abcdef', '%s', C)\nPRINTL C, VARCNT(C)\n"), "abc 4 \n");
  EXPECT_EQ(run("I = 3\nX = SSCANF('9999999999', '%d', I)\nPRINTL I\n"), "2147483647 \n");
}

TEST_F(Files, SignatureComesFirst) {
  const auto mismatch = [](const char* function, const char* given, const char* wanted) {
    return fault("Parameter mismatch") + "      User   : " + function + " (" + given + ")\n      Correct: " + function +
           " (" + wanted + ")\n";
  };
  EXPECT_EQ(run("FGETC(1.5)\n"), mismatch("FGETC", "D", "I"));
  EXPECT_EQ(run("FGETS(NO, 5, 1)\n"), mismatch("FGETS", "U,I,I", "S,I,I"));
  EXPECT_EQ(run("FREAD(5, 5, 1)\n"), mismatch("FREAD", "I,I,I", "AR,I,I"));
  EXPECT_EQ(run("FOPEN = 1\n"), fault("Reserved identifier FOPEN"));
}

TEST_F(Files, ExitClosesFiles) {
  EXPECT_EQ(run(open("exit.txt", "w") + "FPUTS('kept', N)\nEXIT\n"), "");
  EXPECT_EQ(readFile("exit.txt"), "kept");
}

TEST_F(Files, PutsEndsTheLine) { EXPECT_EQ(run("PUTS('text')\nX = PUTS('')\nPRINTL X\n"), "text\n\n0 \n"); }

// The first numbers of the generator, computed by hand: state = state * 1103515245 + 12345, bits 16 to 30.
TEST_F(Files, RandomNumbersAreTheSameEverywhere) {
  EXPECT_EQ(run("SRAND(1)\nPRINTF('%d %d %d\\n', INT(RAND() * 32767 + 0.5), INT(RAND() * 32767 + 0.5), INT(RAND() * "
                "32767 + 0.5))\n"),
            "16838 5758 10113\n");
  EXPECT_EQ(
      run("LOW = 1.0\nHIGH = 0.0\nDO I = 1, 5000\nR = RAND()\nIF (R < LOW) LOW = R\nIF (R > HIGH) HIGH = R\nEND DO\n"
          "PRINTL LOW >= 0.0, LOW < 0.001, HIGH <= 1.0, HIGH > 0.999\n"),
      "1 1 1 1 \n");
}
