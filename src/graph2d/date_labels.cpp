#include "graph2d/date_labels.h"

#include <cmath>
#include <cstring>
#include <span>
#include <string_view>

#include "core/levels.h"
#include "core/messages.h"
#include "graph2d/axis_string.h"
#include "graph2d/calendar.h"
#include "quilla/quilla.h"

namespace quilla {

namespace {

// Accented letters of the names, as private codes of small letters.
#define A_DIAERESIS "\202"
#define A_ACUTE "\231"
#define E_ACUTE "\232"

constexpr std::string_view kMonths[3][12] = {{"January", "February", "March", "April", "May", "June", "July", "August",
                                              "September", "October", "November", "December"},
                                             {"Januar", "Februar", "M" A_DIAERESIS "rz", "April", "Mai", "Juni", "Juli",
                                              "August", "September", "Oktober", "November", "Dezember"},
                                             {"Enero", "Febrero", "Marzo", "Abril", "Mayo", "Junio", "Julio", "Agosto",
                                              "Septiembre", "Octubre", "Noviembre", "Diciembre"}};
constexpr std::string_view kDays[3][7] = {
    {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"},
    {"Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Sonnabend", "Sonntag"},
    {"Lunes", "Martes", "Mi" E_ACUTE "rcoles", "Jueves", "Viernes", "S" A_ACUTE "bado", "Domingo"}};

constexpr int kGerman = 1, kSaturday = 6;
constexpr int kPartSize = 16;

// One part of a date: its letters in private codes.
struct DatePart {
  char text[kPartSize] = "";
  int length = 0;

  void add(char c) {
    if (length < kPartSize - 1) text[length++] = c;
    text[length] = 0;
  }
  void add(std::string_view piece) {
    for (char c : piece) add(c);
  }
  void addNumber(int value, int digits) {
    char reversed[12];
    int n = 0;
    unsigned rest = value < 0 ? 0U - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    for (; rest > 0 || n == 0; rest /= 10) reversed[n++] = static_cast<char>('0' + rest % 10);
    while (n < digits) reversed[n++] = '0';
    if (value < 0) add('-');
    while (n > 0) add(reversed[--n]);
  }
};

DatePart yearPart(const DateStyle& style, int year) {
  DatePart part;
  if (style.dateYear == 0) part.addNumber(year, 4);
  if (style.dateYear == 1) part.addNumber((year % 100 + 100) % 100, 2);
  return part;
}

DatePart monthPart(const DateStyle& style, int month) {
  DatePart part;
  std::string_view name = kMonths[style.dateLanguage][month - 1];
  switch (style.dateMonth) {
  case 0: part.add(name.substr(0, 3)); break;
  case 1: part.addNumber(month, 1); break;
  case 3: part.add(name); break;
  case 4: part.addNumber(month, 2); break;
  case 5: part.add(name.substr(0, 1)); break;
  default: break;
  }
  return part;
}

std::string_view shortDayName(int language, int weekday) {
  if (language == kGerman) return weekday == kSaturday ? "Sa" : kDays[kGerman][weekday - 1].substr(0, 2);
  return kDays[language][weekday - 1].substr(0, 3);
}

DatePart dayPart(const DateStyle& style, const CalendarDate& date) {
  DatePart part;
  int weekday = weekdayOf(dayNumber(date));
  switch (style.dateDay) {
  case 0: part.add(shortDayName(style.dateLanguage, weekday)); break;
  case 1: part.addNumber(date.day, 1); break;
  case 3: part.add(kDays[style.dateLanguage][weekday - 1]); break;
  case 4: part.addNumber(date.day, 2); break;
  default: break;
  }
  return part;
}

struct Accent {
  unsigned char small, capital; // private codes
  unsigned char latin1Small, latin1Capital;
};
constexpr Accent kAccents[] = {{0202, 0177, 228, 196}, {0231, 0224, 225, 193}, {0232, 0225, 233, 201}};

// Appends a letter in the coding of texts, as a capital if asked for.
void addLetter(const PlotState* s, char c, bool capital, char* text, int size, int& length) {
  auto put = [&](int code) {
    if (length < size - 1) text[length++] = static_cast<char>(code);
  };
  int code = static_cast<unsigned char>(c);
  for (const Accent& accent : kAccents) {
    if (accent.small != code) continue;
    int latin1 = capital ? accent.latin1Capital : accent.latin1Small;
    if (s->text.coding == kCodingStandard) return put(capital ? accent.capital : accent.small);
    if (s->text.coding == kCodingLatin1) return put(latin1);
    if (s->text.coding == kCodingUtf8) {
      put(0xC0 | (latin1 >> 6));
      return put(0x80 | (latin1 & 0x3F));
    }
    return put(accent.small == 0232 ? 'e' : 'a');
  }
  put(capital && c >= 'a' && c <= 'z' ? c - 'a' + 'A' : code);
}

double stepSign(const PlotState* s, int axis) {
  return s->scaling.axisEnd[axis] < s->scaling.axisStart[axis] ? -1.0 : 1.0;
}

} // namespace

void dateText(const PlotState* s, int axis, double value, char* text, int size) {
  // Places of day, month and year in the six orders.
  enum Part { kDay, kMonth, kYear };
  constexpr Part kOrders[6][3] = {{kDay, kMonth, kYear}, {kDay, kYear, kMonth}, {kMonth, kDay, kYear},
                                  {kMonth, kYear, kDay}, {kYear, kDay, kMonth}, {kYear, kMonth, kDay}};
  text[0] = 0;
  if (!s->dateSetup.baseDateSet) return;
  const DateStyle& style = s->axis.dates[axis];
  CalendarDate date = dateOfValue(s, value);
  const DatePart parts[3] = {dayPart(style, date), monthPart(style, date.month), yearPart(style, date.year)};
  int length = 0;
  for (Part which : kOrders[style.dateOrder]) {
    const DatePart& part = parts[which];
    if (part.length == 0) continue;
    if (length > 0 && length < size - 1) text[length++] = style.dateSeparator;
    for (int i = 0; i < part.length; i++) addLetter(s, part.text[i], style.dateUpperCase, text, size, length);
  }
  text[length] = 0;
}

bool isCalendarAxis(const PlotState* s, int axis) {
  return s->axis.labelClass[axis] == kClassDate && s->dateSetup.baseDateSet &&
         s->axis.dates[axis].dateLabelStep != kStepDays;
}

double calendarValue(const PlotState* s, int axis, int i) {
  CalendarDate first = dateOfValue(s, static_cast<double>(s->scaling.axisFirstLabel[axis]));
  int months = monthsOfStep(s->axis.dates[axis].dateLabelStep);
  return valueOfDate(s, addMonths(first, static_cast<int>(stepSign(s, axis)) * months * i));
}

void automaticDates(PlotState* s, int axis, float start, float end, float& first, float& step) {
  struct Rule {
    float below;
    int days, dateStep;
  };
  constexpr Rule kRules[] = {{6, 1, kStepDays},    {11, 2, kStepDays},     {16, 3, kStepDays},  {36, 7, kStepDays},
                             {160, 0, kStepMonth}, {500, 0, kStepQuarter}, {1000, 0, kStepHalf}};
  float days = end - start;
  Rule chosen{0, 0, kStepYear};
  for (const Rule& rule : kRules) {
    if (days >= rule.below) continue;
    chosen = rule;
    break;
  }
  s->axis.dates[axis].dateLabelStep = chosen.dateStep;
  s->axis.tickCalendarMode[axis] = 0;
  step = chosen.days > 0 ? static_cast<float>(chosen.days) : 1.0F;
  first = std::ceil(start);
  if (chosen.days > 0) return;
  // The first day of a month that begins a step, at or behind the start.
  int months = monthsOfStep(chosen.dateStep);
  CalendarDate date = dateOfValue(s, static_cast<double>(first));
  if (date.day > 1) date = addMonths({1, date.month, date.year}, 1);
  date = addMonths(date, (months - (date.month - 1) % months) % months);
  first = static_cast<float>(valueOfDate(s, date));
}

void automaticTimes(float start, float end, float& first, float& step) {
  struct Rule {
    float below;
    int step;
  };
  constexpr Rule kSeconds[] = {{8, 1}, {15, 2}, {30, 5}, {60, 10}};
  constexpr Rule kMinutes[] = {{8, 1}, {15, 2}, {30, 5}, {60, 10}, {120, 15}, {240, 30}};
  constexpr float kLongestSeconds = 120.0F, kSecondsBeyond = 20.0F;
  float range = end - start;
  auto pick = [](std::span<const Rule> rules, float value) {
    for (const Rule& rule : rules) {
      if (value < rule.below) return rule.step;
    }
    return 0;
  };
  if (range < kLongestSeconds) {
    int seconds = pick(kSeconds, range);
    step = seconds > 0 ? static_cast<float>(seconds) : kSecondsBeyond;
  } else {
    double minutes = static_cast<double>(range) / 60.0, power = 1.0;
    if (int chosen = pick(kMinutes, static_cast<float>(minutes))) {
      step = 60.0F * static_cast<float>(chosen);
    } else {
      double hours = minutes / 60.0;
      while (hours / power >= 10.0) power *= 10.0;
      int e = static_cast<int>(hours / power);
      double hourStep = 60.0 * power;
      if (e == 1)
        hourStep /= 5.0;
      else if (e < 4)
        hourStep /= 2.5;
      else if (e > 7)
        hourStep *= 2.0;
      if (hourStep > 300.0) hourStep *= 1.2;
      step = static_cast<float>(60.0 * hourStep);
    }
  }
  first = std::ceil(start / step) * step;
}

} // namespace quilla

using namespace quilla;

void LABMOD(const char* key, const char* value, const char* axes) {
  constexpr const char* kKeys[] = {"YEA", "DAY", "MON", "LAN", "FOR", "SEP", "CAS", "STE"};
  struct Choice {
    const char* list;
    int count;
    int DateStyle::*field;
  };
  constexpr Choice kChoices[] = {{"FULL+SHOR+NONE", 3, &DateStyle::dateYear},
                                 {"NAME+SHOR+NONE+FULL+LONG", 5, &DateStyle::dateDay},
                                 {"NAME+SHOR+NONE+FULL+LONG+TINY", 6, &DateStyle::dateMonth},
                                 {"ENGL+GERM+SPAN", 3, &DateStyle::dateLanguage},
                                 {"DMY +DYM +MDY +MYD +YDM +YMD ", 6, &DateStyle::dateOrder},
                                 {"", 0, nullptr},
                                 {"NONE+UPPE", 2, nullptr},
                                 {"DAYS+MONT+QUAR+HALF+YEAR+DMON+DYEA+QYEA", 8, &DateStyle::dateLabelStep}};
  constexpr int kSeparator = 5, kCase = 6, kKeyCount = 8;
  PlotState* s = setterCheck("labmod");
  if (!s) return;
  char word[5];
  keyOf(key, word);
  int which = 0;
  while (which < kKeyCount && std::strncmp(word, kKeys[which], 3) != 0) which++;
  if (which == kKeyCount) return warnWithString(s, 2, key);
  if (which == kSeparator) {
    if (value && value[0]) eachAxis(axes, [&](int axis) { s->axis.dates[axis].dateSeparator = value[0]; });
    return;
  }
  int found = matchKeyword(s, kChoices[which].list, kChoices[which].count, value);
  if (!found) return;
  eachAxis(axes, [&](int axis) {
    if (which == kCase) {
      s->axis.dates[axis].dateUpperCase = found == 2;
    } else {
      s->axis.dates[axis].*kChoices[which].field = found - 1;
    }
  });
}

void TICMOD(const char* mode, const char* axes) {
  PlotState* s = setterCheck("ticmod");
  if (!s) return;
  int found = matchKeyword(s, "NONE+DAYS+MONT+QUAR+HALF+YEAR+DMON+HOUR", 8, mode);
  if (found) eachAxis(axes, [&](int axis) { s->axis.tickCalendarMode[axis] = found - 1; });
}

void TIMOPT(void) {
  if (PlotState* s = setterCheck("timopt")) s->axis.timeColon = true;
}
