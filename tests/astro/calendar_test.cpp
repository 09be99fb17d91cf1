#include "astro/calendar.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvane {
namespace {

void ExpectDate(const CalendarDate& date, int year, int month, double day) {
    EXPECT_EQ(date.year, year);
    EXPECT_EQ(date.month, month);
    EXPECT_DOUBLE_EQ(date.day, day);
}

TEST(Calendar, ReformDaysMapAsStated) {
    EXPECT_EQ(CalendarToJulian(1582, 10, 4.0), 2299159.5);
    EXPECT_EQ(CalendarToJulian(1582, 10, 15.0), 2299160.5);
    EXPECT_EQ(CalendarToJulian(1582, 10, 10.0), 2299160.5);
}

TEST(Calendar, DroppedDaysWithFractionsAllFallOnTheFifteenth) {
    for (int day = 5; day <= 14; ++day) {
        EXPECT_EQ(CalendarToJulian(1582, 10, day + 0.75), 2299160.5) << day;
    }
    // A time on the 4th is a time of the last Julian day and stays.
    EXPECT_DOUBLE_EQ(CalendarToJulian(1582, 10, 4.9), 2299160.4);
    // Later days of the month are not touched.
    EXPECT_DOUBLE_EQ(CalendarToJulian(1582, 10, 15.25), 2299160.75);
}

TEST(Calendar, LastJulianDayIsMovedForward) {
    ExpectDate(JulianToCalendar(2299159.9), 1582, 10, 15.0);
    ExpectDate(JulianToCalendar(2299159.5), 1582, 10, 4.0);
    ExpectDate(JulianToCalendar(2299160.5), 1582, 10, 15.0);
}

TEST(Calendar, J2000Day) {
    ExpectDate(JulianToCalendar(2451544.5), 2000, 1, 1.0);
    EXPECT_EQ(CalendarToJulian(2000, 1, 1.0), 2451544.5);
    EXPECT_EQ(CalendarToJulian(2000, 1, 1.5), 2451545.0);
}

TEST(Calendar, YearZeroAndMinusOneExist) {
    EXPECT_EQ(CalendarToJulian(-1, 3, 1.0), 1720751.5);
    EXPECT_EQ(CalendarToJulian(0, 3, 1.0), 1721117.5);
    EXPECT_EQ(CalendarToJulian(0, 3, 1.0) - CalendarToJulian(-1, 3, 1.0), 366.0);
    EXPECT_EQ(CalendarToJulian(1, 3, 1.0) - CalendarToJulian(0, 3, 1.0), 365.0);
    ExpectDate(JulianToCalendar(1720751.5), -1, 3, 1.0);
    ExpectDate(JulianToCalendar(1721117.5), 0, 3, 1.0);
    ExpectDate(JulianToCalendar(1721482.5), 1, 3, 1.0);
}

TEST(Calendar, EphemerisSpansConvertExactly) {
    ExpectDate(JulianToCalendar(625359.5), -3000, 2, 22.0);
    ExpectDate(JulianToCalendar(2816848.5), 3000, 3, 3.0);
    ExpectDate(JulianToCalendar(2378480.5), 1799, 12, 16.0);
    ExpectDate(JulianToCalendar(2524625.5), 2200, 2, 2.0);
    EXPECT_EQ(CalendarToJulian(-3000, 2, 22.0), 625359.5);
    EXPECT_EQ(CalendarToJulian(3000, 3, 3.0), 2816848.5);
    EXPECT_EQ(CalendarToJulian(1799, 12, 16.0), 2378480.5);
    EXPECT_EQ(CalendarToJulian(2200, 2, 2.0), 2524625.5);
}

TEST(Calendar, JulianDayHalfIsSecondOfJanuaryMinus4712) {
    ExpectDate(JulianToCalendar(0.5), -4712, 1, 2.0);
    EXPECT_EQ(CalendarToJulian(-4712, 1, 2.0), 0.5);
}

TEST(Calendar, BelowMinus4716TruncationIsNoFloor) {
    // 1461 * (y + 4716) turns negative here and n/4 truncates toward zero: the
    // result lands one day after the true -4717-03-01 (-1767.5).
    EXPECT_EQ(CalendarToJulian(-4716, 3, 1.0), -1401.5);
    EXPECT_EQ(CalendarToJulian(-4717, 3, 1.0), -1766.5);
}

TEST(Calendar, FractionSurvivesUnrounded) {
    const CalendarDate date = JulianToCalendar(2451545.0 + 0.123456789);
    EXPECT_EQ(date.year, 2000);
    EXPECT_EQ(date.month, 1);
    EXPECT_NEAR(date.day, 1.623456789, 1e-9);
}

bool IsLeap(int year) {
    if (year < 1582) return year % 4 == 0;
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysIn(int year, int month) {
    static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeap(year) ? 29 : kDays[month - 1];
}

TEST(Calendar, CenturyYearsStepAtMidnightOfMarchFirst) {
    ExpectDate(JulianToCalendar(2415079.5), 1900, 3, 1.0);
    ExpectDate(JulianToCalendar(2415079.25), 1900, 2, 28.75);
    ExpectDate(JulianToCalendar(2415079.75), 1900, 3, 1.25);
    ExpectDate(JulianToCalendar(2378555.5), 1800, 3, 1.0);
    ExpectDate(JulianToCalendar(2488128.5), 2100, 3, 1.0);
    ExpectDate(JulianToCalendar(2488128.25), 2100, 2, 28.75);
    ExpectDate(JulianToCalendar(2451603.75), 2000, 2, 29.25);
    ExpectDate(JulianToCalendar(2451604.5), 2000, 3, 1.0);
    EXPECT_EQ(CalendarToJulian(1900, 3, 1.0) - CalendarToJulian(1900, 2, 28.0), 1.0);
}

TEST(Calendar, RoundTripEveryDayFromMinus3000To3000) {
    long checked = 0;
    long failures = 0;
    double previous = 0.0;
    bool first = true;
    for (int year = -3000; year <= 3000; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= DaysIn(year, month); ++day) {
                if (year == 1582 && month == 10 && day >= 5 && day <= 14) continue;
                for (double fraction : {0.0, 0.3125, 0.75, 0.99}) {
                    // A time on 1582-10-04 lies in the last Julian day, which comes back as the 15th.
                    if (year == 1582 && month == 10 && day == 4 && fraction > 0.0) continue;
                    const double jd = CalendarToJulian(year, month, day + fraction);
                    const CalendarDate back = JulianToCalendar(jd);
                    ++checked;
                    const int wantMonth = month;
                    const double wantDay = day + fraction;
                    if (back.year != year || back.month != wantMonth || std::fabs(back.day - wantDay) > 1e-9) {
                        if (++failures < 10) {
                            ADD_FAILURE() << year << "-" << month << "-" << day + fraction << " came back as "
                                          << back.year << "-" << back.month << "-" << back.day;
                        }
                    }
                    if (fraction == 0.0) {
                        if (!first) {
                            EXPECT_EQ(jd - previous, 1.0) << year << "-" << month << "-" << day;
                        }
                        previous = jd;
                        first = false;
                    }
                }
            }
        }
    }
    EXPECT_EQ(failures, 0);
    // 2191845 days from -3000-01-01 to 3001-01-01, four instants each, less three on 1582-10-04.
    EXPECT_EQ(checked, 4L * 2191845L - 3L);
}

TEST(Calendar, SexagesimalTakesMagnitudesAndSignCharacter) {
    EXPECT_DOUBLE_EQ(SexagesimalToDecimal('-', 10, 30, 36.0), -10.51);
    EXPECT_DOUBLE_EQ(SexagesimalToDecimal('+', 10, 30, 36.0), 10.51);
    EXPECT_DOUBLE_EQ(SexagesimalToDecimal(' ', -10, -30, -36.0), 10.51);
    EXPECT_DOUBLE_EQ(SexagesimalToDecimal('-', -10, -30, -36.0), -10.51);
    EXPECT_DOUBLE_EQ(SexagesimalToDecimal('x', 0, 0, 0.0), 0.0);
}

TEST(Calendar, DayFractionSplitTruncates) {
    const DayTime noonish = SplitDayFraction(0.75);
    EXPECT_EQ(noonish.hours, 18);
    EXPECT_EQ(noonish.minutes, 0);
    EXPECT_EQ(noonish.seconds, 0);
    // 23:59:59.9 stays 23:59:59; rounding would give 24:00:00.
    const DayTime late = SplitDayFraction(1.0 - 0.1 / 86400.0);
    EXPECT_EQ(late.hours, 23);
    EXPECT_EQ(late.minutes, 59);
    EXPECT_EQ(late.seconds, 59);
    const DayTime t = SplitDayFraction((13.0 * 3600.0 + 7.0 * 60.0 + 5.75) / 86400.0);
    EXPECT_EQ(t.hours, 13);
    EXPECT_EQ(t.minutes, 7);
    EXPECT_EQ(t.seconds, 5);
}

TEST(Calendar, TwoColumnsReplaceLeadingBlankWithZero) {
    EXPECT_EQ(TwoColumnsZeroFilled(0), "00");
    EXPECT_EQ(TwoColumnsZeroFilled(7), "07");
    EXPECT_EQ(TwoColumnsZeroFilled(23), "23");
    EXPECT_EQ(TwoColumnsZeroFilled(-5), "-5");
    EXPECT_EQ(TwoColumnsZeroFilled(100), "**");
    EXPECT_EQ(TwoColumnsZeroFilled(-10), "**");
}

TEST(Calendar, HostileValuesGiveNumbersNotCrashes) {
    const CalendarDate a = JulianToCalendar(1e300);
    const CalendarDate b = JulianToCalendar(std::nan(""));
    const CalendarDate c = JulianToCalendar(-1e300);
    for (const CalendarDate& date : {a, b, c}) {
        EXPECT_GE(date.month, 1);
        EXPECT_LE(date.month, 12);
    }
    const double jd = CalendarToJulian(2147483647, 12, 31.0);
    EXPECT_TRUE(std::isfinite(jd));
    EXPECT_TRUE(std::isfinite(CalendarToJulian(-2147483647 - 1, 1, 1.0)));
}

}  // namespace
}  // namespace orvane
