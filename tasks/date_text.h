#pragma once
// The date forms of the ephemeris tables, the panels and the close-approach lines.
// Dates are on the scale TT and are printed without a conversion.
#include <string>

#include "astro/calendar.h"
#include "base/line_builder.h"
#include "tasks/task_texts.h"

namespace orvane {

// The date as the tables write it, before it is placed in its column:
//   calendar, no h:m:s   year I5 "-" month I2 "-" day F11.8     " 2020-05-01.50000000"
//   calendar, h:m:s      year I5 "-" month "-" day " " hh:mm:ss  " 2020-05-01 12:00:00"
//   JD, no h:m:s         F16.8                                   "2459000.50000000"
//   JD, h:m:s            integer part I7 " " hh:mm:ss            "2459000 12:00:00"
// Month, day, hours, minutes and seconds get a "0" for a leading blank.
std::string DateText(JulianDate jd, bool datesInJulianDays, bool showHms);

// The forms with seconds: 0.00001 day is added before the day is split, and each of
// hours, minutes and seconds is truncated, never rounded.
std::string HmsText(double dayFraction);

// Width of a date column: 22 for calendar dates, 18 for Julian dates.
int DateColumnWidth(bool datesInJulianDays);

// The date right-aligned in its column; the year keeps no blanks of its own.
std::string DateColumn(JulianDate jd, bool datesInJulianDays, bool showHms);
// The same appended to a line that is being built, without a text of its own.
void AppendDateColumn(LineBuilder& b, JulianDate jd, bool datesInJulianDays, bool showHms);

// "Epoch (TT) ", with "(JD)" after it for Julian dates, right-aligned in the column.
std::string DateColumnHeader(const TaskTexts& texts, bool datesInJulianDays);

// Days of a time difference (the perihelion time relative to the epoch): F16.8, or
// the whole days I7, " " and h:m:s of the rest.
std::string RelativeDaysText(double days, bool showHms);
void AppendRelativeDays(LineBuilder& b, double days, bool showHms);

// The date of a close-approach line:
//   calendar forms as DateText (the year in I5);
//   JD, no h:m:s   F17.8 " JD";
//   JD, h:m:s      integer part I8 trimmed, " ", hh:mm:ss, " JD".
std::string ApproachDateText(JulianDate jd, bool datesInJulianDays, bool showHms, const TaskTexts& texts);

}  // namespace orvane
