#include "tasks/date_text.h"

#include <gtest/gtest.h>

#include "dynamics/task_options.h"
#include "task_test_support.h"

namespace {

using namespace orvane;

constexpr double kJ2000 = 2451545.0;  // 2000-01-01 12:00 TT

double at(int h, int m, double s) { return kJ2000 - 0.5 + (h * 3600.0 + m * 60.0 + s) / 86400.0; }

TEST(DateText, FourFormsOfTheDateColumn) {
    EXPECT_EQ(DateText(kJ2000, false, false), " 2000-01-01.50000000");
    EXPECT_EQ(DateText(kJ2000, false, true), " 2000-01-01 12:00:00");
    EXPECT_EQ(DateText(kJ2000, true, false), "2451545.00000000");
    EXPECT_EQ(DateText(kJ2000, true, true), "2451545 00:00:00");
}

TEST(DateText, ColumnsAreRightAlignedIn22And18) {
    EXPECT_EQ(DateColumn(kJ2000, false, false), "   2000-01-01.50000000");
    EXPECT_EQ(DateColumn(kJ2000, false, true), "   2000-01-01 12:00:00");
    EXPECT_EQ(DateColumn(kJ2000, true, false), "  2451545.00000000");
    EXPECT_EQ(DateColumn(kJ2000, true, true), "  2451545 00:00:00");
    EXPECT_EQ(DateColumnWidth(false), 22);
    EXPECT_EQ(DateColumnWidth(true), 18);
}

TEST(DateText, SecondsAreTruncatedAfterAddingAHundredThousandthOfADay) {
    // 0.00001 day is 0.864 s: 56.0 s stays 56, 56.2 s becomes 57.
    EXPECT_EQ(DateText(at(12, 34, 56.0), false, true), " 2000-01-01 12:34:56");
    EXPECT_EQ(DateText(at(12, 34, 56.2), false, true), " 2000-01-01 12:34:57");
    EXPECT_EQ(DateText(at(23, 59, 59.5), false, true), " 2000-01-02 00:00:00");
    EXPECT_EQ(HmsText(0.25), "06:00:00");
}

TEST(DateText, DayOfTheDecimalFormGetsALeadingZero) {
    EXPECT_EQ(DateText(at(6, 0, 0.0) + 4.0, false, false), " 2000-01-05.25000000");
    EXPECT_EQ(DateText(2459000.5 + 0.75, false, false), " 2020-05-31.75000000");
}

TEST(DateText, HeadersOfTheDateColumn) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    EXPECT_EQ(DateColumnHeader(t, false), "           Epoch (TT) ");
    EXPECT_EQ(DateColumnHeader(t, true), "   Epoch (TT) (JD)");
}

TEST(DateText, RelativeDays) {
    EXPECT_EQ(RelativeDaysText(-12.25, false), "    -12.25000000");
    EXPECT_EQ(RelativeDaysText(100.5, true), "    100 12:00:00");
    EXPECT_EQ(RelativeDaysText(-2.25, true), "     -2 05:59:59");
    EXPECT_EQ(RelativeDaysText(-0.25, true), "     -0 05:59:59");
}

TEST(DateText, CloseApproachForms) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    EXPECT_EQ(ApproachDateText(kJ2000, false, false, t), " 2000-01-01.50000000");
    EXPECT_EQ(ApproachDateText(kJ2000, false, true, t), " 2000-01-01 12:00:00");
    EXPECT_EQ(ApproachDateText(kJ2000, true, false, t), " 2451545.00000000 JD");
    EXPECT_EQ(ApproachDateText(kJ2000 + 0.25, true, true, t), "2451545 06:00:00 JD");
}

TEST(DateText, StepOf999MinutesIs999Over60Over24Days) {
    TaskOptions o;
    o.stepSize = 999;
    o.stepUnit = 2;
    EXPECT_EQ(StepInDays(o, TaskKind::Ephemerides), 999.0 / 60.0 / 24.0);
    o.stepUnit = 1;
    EXPECT_EQ(StepInDays(o, TaskKind::Ephemerides), 999.0 / 24.0);
    EXPECT_EQ(StepInDays(o, TaskKind::CloseApproaches), 1.0);
}

}  // namespace
