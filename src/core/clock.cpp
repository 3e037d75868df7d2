#include "core/clock.h"

#include <cstdlib>
#include <ctime>

namespace quilla {

namespace {

void twoDigits(int value, char* out) {
  out[0] = static_cast<char>('0' + value / 10 % 10);
  out[1] = static_cast<char>('0' + value % 10);
}

} // namespace

ClockReading readClock() {
  std::time_t now = std::time(nullptr);
  std::tm parts{};
  const char* fixedDate = std::getenv("SOURCE_DATE_EPOCH");
  char* end = nullptr;
  long long seconds = fixedDate ? std::strtoll(fixedDate, &end, 10) : 0;
  if (fixedDate && end != fixedDate && *end == 0) {
    now = static_cast<std::time_t>(seconds);
    if (!gmtime_r(&now, &parts)) parts = std::tm{};
  } else {
    localtime_r(&now, &parts);
  }
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

void formatDate(const ClockReading& c, char out[11]) {
  twoDigits(c.day, out);
  out[2] = '.';
  twoDigits(c.month, out + 3);
  out[5] = '.';
  twoDigits(c.year / 100, out + 6);
  twoDigits(c.year, out + 8);
  out[10] = 0;
}

void formatTime(const ClockReading& c, char out[9]) {
  twoDigits(c.hour, out);
  out[2] = ':';
  twoDigits(c.minute, out + 3);
  out[5] = ':';
  twoDigits(c.second, out + 6);
  out[8] = 0;
}

} // namespace quilla
