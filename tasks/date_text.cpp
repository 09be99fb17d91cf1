#include "tasks/date_text.h"

#include <cmath>

#include "base/line_builder.h"

namespace orvane {

namespace {

constexpr double kSecondsRounding = 0.00001;  // day, added before a day is split into h:m:s

void appendHms(LineBuilder& b, double dayFraction) {
    const DayTime t = SplitDayFraction(dayFraction);
    b.fieldIZero(t.hours, 2).text(":").fieldIZero(t.minutes, 2).text(":").fieldIZero(t.seconds, 2);
}

void appendCalendarDate(LineBuilder& b, JulianDate jd, bool showHms) {
    const CalendarDate date = JulianToCalendar(jd);
    b.fieldI(date.year, 5).text("-").fieldIZero(date.month, 2).text("-");
    if (!showHms) {
        b.fieldFZero(date.day, 11, 8);
        return;
    }
    const double day = date.day + kSecondsRounding;
    const double whole = std::trunc(day);
    b.fieldIZero(static_cast<long long>(whole), 2).text(" ");
    appendHms(b, day - whole);
}

// The whole part and the h:m:s of a day count, with the rounding of the seconds.
void appendDaysHms(LineBuilder& b, double days, int width, bool trimmed) {
    const double shifted = days + kSecondsRounding;
    const double whole = std::trunc(shifted);
    if (trimmed) {
        b.fieldITrimmed(static_cast<long long>(whole), width);
    } else if (shifted < 0.0 && whole == 0.0) {
        // Less than a day before: the days keep the sign the integer 0 cannot carry.
        b.right("-0", static_cast<std::size_t>(width));
    } else {
        b.fieldI(static_cast<long long>(whole), width);
    }
    b.text(" ");
    appendHms(b, std::fabs(shifted - whole));
}

void appendDateText(LineBuilder& b, JulianDate jd, bool datesInJulianDays, bool showHms) {
    if (!datesInJulianDays) {
        appendCalendarDate(b, jd, showHms);
    } else if (!showHms) {
        b.fieldF(jd, 16, 8);
    } else {
        appendDaysHms(b, jd, 7, false);
    }
}

}  // namespace

std::string HmsText(double dayFraction) {
    std::string text;
    LineBuilder b(text);
    appendHms(b, dayFraction);
    return text;
}

std::string DateText(JulianDate jd, bool datesInJulianDays, bool showHms) {
    std::string text;
    LineBuilder b(text);
    appendDateText(b, jd, datesInJulianDays, showHms);
    return text;
}

int DateColumnWidth(bool datesInJulianDays) { return datesInJulianDays ? 18 : 22; }

void AppendDateColumn(LineBuilder& b, JulianDate jd, bool datesInJulianDays, bool showHms) {
    const std::size_t start = b.size();
    appendDateText(b, jd, datesInJulianDays, showHms);
    b.rightAlignFrom(start, static_cast<std::size_t>(DateColumnWidth(datesInJulianDays)));
}

std::string DateColumn(JulianDate jd, bool datesInJulianDays, bool showHms) {
    std::string column;
    LineBuilder b(column);
    AppendDateColumn(b, jd, datesInJulianDays, showHms);
    return column;
}

std::string DateColumnHeader(const TaskTexts& texts, bool datesInJulianDays) {
    std::string label = texts.epochWord + " (TT) ";
    if (datesInJulianDays) label += "(" + texts.jd + ")";
    std::string header;
    LineBuilder(header).right(label, static_cast<std::size_t>(DateColumnWidth(datesInJulianDays)));
    return header;
}

void AppendRelativeDays(LineBuilder& b, double days, bool showHms) {
    if (showHms) {
        appendDaysHms(b, days, 7, false);
    } else {
        b.fieldF(days, 16, 8);
    }
}

std::string RelativeDaysText(double days, bool showHms) {
    std::string text;
    LineBuilder b(text);
    AppendRelativeDays(b, days, showHms);
    return text;
}

std::string ApproachDateText(JulianDate jd, bool datesInJulianDays, bool showHms, const TaskTexts& texts) {
    std::string text;
    LineBuilder b(text);
    if (!datesInJulianDays) {
        appendCalendarDate(b, jd, showHms);
        return text;
    }
    if (showHms) {
        appendDaysHms(b, jd, 8, true);
    } else {
        b.fieldF(jd, 17, 8);
    }
    b.text(" ").text(texts.jd);
    return text;
}

}  // namespace orvane
