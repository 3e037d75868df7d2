// FITS files: headers of cards, classes of values, units one behind the other, and their data.
#include <string>

#include "plot_fixture.h"

namespace {

class Fits : public PlotTest {
protected:
  static std::string card(const std::string& text) { return text + std::string(80 - text.size(), ' '); }
  static std::string header(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines) all += card(line);
    return all + card("END");
  }
  static std::string padded(std::string text, char fill = ' ') {
    text.resize((text.size() + 2879) / 2880 * 2880, fill);
    return text;
  }
  static void write(const std::string& bytes) { std::ofstream("a.fits", std::ios::binary) << bytes; }
  static int opened(const std::string& bytes) {
    write(bytes);
    return FITSOPN("a.fits");
  }
  static std::string standard() {
    return padded(
        header({"SIMPLE  =                    T / a comment", "BITPIX  =                   16",
                "NAXIS   =                    2", "NAXIS1  =                    3", "NAXIS2  =                    2",
                "OBJECT  = 'M 31''s  '  / name", "EXPTIME =                12.5", "EMPTY   = ''",
                "NONE    =", "BLANKED =            / nothing", "BAD     = 'no end", "CPLX    = (1, 2)",
                "CPLXR   = (1.5, 2)", "BLOCKED =                    F"}));
  }
  std::string said(int& result, int (*call)(const char*), const char* key) {
    return outputOf([&] { result = call(key); });
  }
};

} // namespace

TEST_F(Fits, ValuesOfAStandardHeader) {
  ASSERT_EQ(opened(standard()), 0);
  EXPECT_EQ(FITSVAL("SIMPLE"), 1);
  EXPECT_EQ(FITSVAL("BLOCKED"), 0);
  EXPECT_EQ(FITSVAL("BITPIX"), 16);
  EXPECT_EQ(FITSFLT("EXPTIME"), 12.5);
  EXPECT_EQ(FITSFLT("NAXIS1"), 3.0);
  EXPECT_EQ(FITSVAL("SIMPLE  LONGER"), 1); // cut at eight characters
  FITSCLS();
}

TEST_F(Fits, ClassesOfValues) {
  ASSERT_EQ(opened(standard()), 0);
  const std::vector<std::pair<const char*, int>> wanted = {{"BITPIX", 0},  {"EXPTIME", 1}, {"EMPTY", 2}, {"OBJECT", 3},
                                                           {"SIMPLE", 4},  {"BLOCKED", 5}, {"CPLX", 6},  {"CPLXR", 7},
                                                           {"BLANKED", 8}, {"BAD", 9}};
  for (const auto& [key, kind] : wanted) EXPECT_EQ(FITSTYP(key), kind) << key;
}

TEST_F(Fits, Strings) {
  ASSERT_EQ(opened(standard()), 0);
  char text[20] = "?";
  FITSSTR("OBJECT", text, 20);
  EXPECT_STREQ(text, "M 31's  ");
  FITSSTR("EMPTY", text, 20);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(outputOf([&] { FITSSTR("OBJECT", text, 6); }),
            " <<<< Warning 204: String does not fit into buffer in fitsstr!\n");
  EXPECT_STREQ(text, "M 31'");
  FITSSTR("OBJECT", text, 9); // just fits
  EXPECT_STREQ(text, "M 31's  ");
}

TEST_F(Fits, FaultsAreTold) {
  int result = 0;
  EXPECT_EQ(said(result, FITSVAL, "SIMPLE"), " <<<< Warning 199: No open FITS file in fitsval!\n");
  EXPECT_EQ(result, -1);
  EXPECT_EQ(said(result, FITSOPN, "none.fits"), " <<<< Warning 195: Open error in FITS file in fitsopn!\n");
  EXPECT_EQ(result, -1);
  ASSERT_EQ(opened(standard()), 0);
  EXPECT_EQ(said(result, FITSVAL, "simple"), " <<<< Warning 200: Keyword is not defined in FITS file in fitsval!\n");
  double value = 0.0;
  EXPECT_EQ(outputOf([&] { value = FITSFLT("SIMPLE"); }),
            " <<<< Warning 201: Keyword does not match type in FITS file in fitsflt!\n");
  EXPECT_EQ(value, -1.0);
  FITSCLS();
  EXPECT_EQ(outputOf([] { FITSCLS(); }), " <<<< Warning 199: No open FITS file in fitscls!\n");
}

TEST_F(Fits, HeadersThatLackKeywords) {
  const auto result = [](const std::vector<std::string>& lines) {
    int code = 0;
    outputOf([&] { code = opened(header(lines)); });
    return code;
  };
  EXPECT_EQ(result({"SIMPLE  = T", "NAXIS   = 0"}), -3);
  EXPECT_EQ(result({"SIMPLE  = T", "BITPIX  = 8"}), -4);
  EXPECT_EQ(result({"BITPIX  = 8", "NAXIS   = 2", "NAXIS1  = 4"}), -5);
  EXPECT_EQ(result({"BITPIX  = 8", "NAXIS   = 1000", "NAXIS1  = 4"}), -5);
  EXPECT_EQ(result({"BITPIX  = 8", "NAXIS   = 2", "NAXIS1  = 4", "NAXIS3  = 9", "NAXIS2  = 5"}), 0);
  EXPECT_EQ(FITSVAL("NAXIS2"), 5);
}

TEST_F(Fits, SizesOfImages) {
  ASSERT_EQ(opened(header({"BITPIX  = -32", "NAXIS   = 2", "NAXIS1  = 10", "NAXIS2  = 20"})), 0);
  EXPECT_EQ(FITSIMG(nullptr, 0), 800);
  int result = 0;
  unsigned char few[4];
  EXPECT_EQ(outputOf([&] { result = FITSIMG(few, 4); }),
            " <<<< Warning 201: Not enough space in array for FITS image in fitsimg!\n");
  EXPECT_EQ(result, -1);
  std::vector<unsigned char> data(800);
  EXPECT_EQ(outputOf([&] { result = FITSIMG(data.data(), 800); }),
            " <<<< Warning 202: Syntax error in FITS file in fitsimg!\n"); // the file ends with its header
  EXPECT_EQ(result, -2);
  ASSERT_EQ(opened(header({"BITPIX  = 8", "NAXIS   = 0"})), 0);
  EXPECT_EQ(FITSIMG(few, 4), 0);
}

// A header of 36 cards ends its block; one of 5 cards counts 5 more, where the standard has 31 more.
TEST_F(Fits, DataStandBehindTheCountedCards) {
  std::vector<std::string> lines = {"SIMPLE  = T", "BITPIX  = 16", "NAXIS   = 1", "NAXIS1  = 3"};
  while (lines.size() < 35) lines.push_back("COMMENT a line");
  std::string file = header(lines);
  ASSERT_EQ(file.size(), 2880U);
  file += std::string("\x01\x02\x03\x04\x05\x06", 6);
  ASSERT_EQ(opened(padded(file, 0)), 0);
  unsigned char data[6] = {};
  EXPECT_EQ(FITSIMG(data, 6), 6);
  EXPECT_EQ(data[0], 1);
  EXPECT_EQ(data[5], 6);
  lines.resize(4);
  file = header(lines) + std::string(5 * 80, ' ') + "abcdef";
  ASSERT_EQ(opened(padded(file)), 0);
  EXPECT_EQ(FITSIMG(data, 6), 6);
  EXPECT_EQ(std::string(data, data + 6), "abcdef");
}

TEST_F(Fits, UnitsFollowEachOther) {
  std::vector<std::string> first = {"SIMPLE  = T", "BITPIX  = 8", "NAXIS   = 1", "NAXIS1  = 2881"};
  std::vector<std::string> second = {"XTENSION= 'IMAGE'", "BITPIX  = 16", "NAXIS   = 1", "NAXIS1  = 4"};
  std::vector<std::string> third = {"EXTENSIO= 'BINTABLE'", "BITPIX  = 8", "NAXIS   = 0"};
  for (auto* lines : {&first, &second, &third})
    while (lines->size() < 35) lines->push_back("COMMENT");
  const std::string file =
      header(first) + std::string(5760, 'a') + header(second) + std::string(2880, 'b') + header(third);
  ASSERT_EQ(opened(file), 0);
  EXPECT_EQ(FITSHDU(2), 0); // only EXTENSIO tells the kind
  EXPECT_EQ(FITSVAL("BITPIX"), 16);
  EXPECT_EQ(FITSIMG(nullptr, 0), 8);
  EXPECT_EQ(FITSHDU(3), 3);
  EXPECT_EQ(FITSHDU(1), 0);
  EXPECT_EQ(FITSVAL("NAXIS1"), 2881);
  int result = 0;
  EXPECT_EQ(outputOf([&] { result = FITSHDU(4); }), " <<<< Warning 196: Keyword BITPIX is not defined in fitshdu!\n");
  EXPECT_EQ(result, -3);
  EXPECT_EQ(outputOf([&] { result = FITSHDU(2147483647); }).substr(0, 17), " <<<< Warning 196");
  EXPECT_NE(outputOf([&] { result = FITSHDU(0); }), "");
  EXPECT_EQ(result, -1);
}

TEST_F(Fits, HugeLengthsAreRefused) {
  ASSERT_EQ(opened(header({"BITPIX  = 64", "NAXIS   = 3", "NAXIS1  = 2147483647", "NAXIS2  = 2147483647",
                           "NAXIS3  = 2147483647"})),
            0);
  int result = 0;
  outputOf([&] { result = FITSIMG(nullptr, 0); });
  EXPECT_EQ(result, -2);
  EXPECT_EQ(outputOf([&] { result = FITSHDU(2); }), " <<<< Warning 201: No HDU in FITS file in fitshdu!\n");
  EXPECT_EQ(result, -1);
}
