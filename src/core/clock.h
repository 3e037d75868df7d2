// Date and time of a run, for headers, comments and logs.
#pragma once

namespace quilla {

struct ClockReading {
  int year, month, day, hour, minute, second;
};

// Local time; if SOURCE_DATE_EPOCH is set in the environment, that many seconds after 1970 in UTC instead.
ClockReading readClock();

// "DD.MM.YYYY" and "HH:MM:SS".
void formatDate(const ClockReading& c, char out[11]);
void formatTime(const ClockReading& c, char out[9]);

} // namespace quilla
