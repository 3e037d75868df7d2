#include "widget/widget_text.h"

#include "text/code_pages.h"
#include "text/coding.h"

namespace quilla {

namespace {

constexpr int kAsciiEnd = 128, kUnknownSign = '?', kLastShortCode = 0xFFFF;

// Unicode number of a byte.
int unicodeOfByte(int coding, int byte) {
  if (byte < (coding == kBytesRussian ? kAsciiEnd : kFirstUpperCode)) return byte;
  int code = byte;
  if (coding == kBytesRussian) code = byte < kFirstUpperCode ? 0 : kKoi8Unicode[byte - kFirstUpperCode];
  if (coding == kBytesGreek) code = kIsoGreekUnicode[byte - kFirstUpperCode];
  return code ? code : kUnknownSign;
}

int byteOfUnicode(int coding, int code) {
  if (code < kAsciiEnd) return code;
  for (int byte = kAsciiEnd; byte <= 255; ++byte)
    if (unicodeOfByte(coding, byte) == code) return byte;
  return kUnknownSign;
}

void append(std::string* text, int code) {
  char bytes[kUtfBytes];
  text->append(bytes, static_cast<std::size_t>(encodeUtf8(code, bytes)));
}

bool isDigit(int c) { return c >= '0' && c <= '9'; }
bool isLetter(int c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c > kFirstLatin1Letter; }
bool isOneOf(int c, std::string_view set) { return c < kAsciiEnd && set.find(static_cast<char>(c)) != set.npos; }

bool isAllowed(int mask, int c) {
  switch (mask) {
  case kMaskInteger: return isDigit(c) || isOneOf(c, "+-");
  case kMaskFloat: return isDigit(c) || isOneOf(c, "+-.");
  case kMaskDoubleFloat: return isDigit(c) || isOneOf(c, "+-.Dd");
  case kMaskExponent: return isDigit(c) || isOneOf(c, "+-.Ee");
  case kMaskDigits: return isDigit(c);
  case kMaskLetters: return isLetter(c) || c == ' ';
  case kMaskAlphanumeric: return isDigit(c) || isLetter(c) || c == ' ';
  case kMaskMail: return isDigit(c) || isLetter(c) || isOneOf(c, ".@-");
  case kMaskTime: return isDigit(c) || c == ':';
  case kMaskDate: return isDigit(c) || isOneOf(c, "./");
  case kMaskPhone: return isDigit(c) || isOneOf(c, "+-()/ ");
  case kMaskHexadecimal: return isDigit(c) || isOneOf(c, "ABCDEFabcdefxX");
  case kMaskOctal: return isOneOf(c, "01234567oO");
  default: return true;
  }
}

std::vector<int> codesOf(std::string_view text) {
  std::vector<int> codes(text.size() + 1);
  const int count = decodeUtf8(std::string(text).c_str(), codes.data(), static_cast<int>(codes.size()));
  codes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return codes;
}

} // namespace

bool decodeWidgetText(const WidgetContext* c, int coding, const char* text, std::string* decoded) {
  decoded->clear();
  if (!text) return true;
  if (coding != kBytesUtf8) {
    for (; *text; ++text) append(decoded, unicodeOfByte(coding, static_cast<unsigned char>(*text)));
    return true;
  }
  std::vector<int> codes(std::char_traits<char>::length(text) + 1);
  const int count = decodeUtf8(text, codes.data(), static_cast<int>(codes.size()));
  if (count < 0) {
    widgetFault(c, "Syntax error in UTF string");
    return false;
  }
  for (int i = 0; i < count; ++i) append(decoded, codes[static_cast<std::size_t>(i)] & kLastShortCode);
  return true;
}

std::string encodeWidgetText(int coding, std::string_view text) {
  if (coding == kBytesUtf8) return std::string(text);
  std::string bytes;
  for (int code : codesOf(text)) bytes += static_cast<char>(byteOfUnicode(coding, code));
  return bytes;
}

std::string firstCharacters(std::string_view text, int count) {
  std::size_t end = 0;
  for (; end < text.size(); ++end)
    if ((text[end] & 0xC0) != 0x80 && count-- == 0) break;
  return std::string(text.substr(0, end));
}

bool fitsMask(int mask, std::string_view text) {
  for (int code : codesOf(text))
    if (!isAllowed(mask, code)) return false;
  return true;
}

std::vector<std::string> itemsOf(const WidgetContext* c, std::string_view list) {
  std::vector<std::string> items;
  if (list.empty()) return items;
  const char separator = c->state->widgetSetup.itemSeparator;
  for (std::size_t from = 0;;) {
    const std::size_t end = list.find(separator, from);
    items.emplace_back(list.substr(from, end - from));
    if (end == list.npos) return items;
    from = end + 1;
  }
}

} // namespace quilla
