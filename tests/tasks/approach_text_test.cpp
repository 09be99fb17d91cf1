#include "tasks/approach_text.h"

#include <gtest/gtest.h>

#include "base/fortran_format.h"
#include "task_test_support.h"
#include "tasks/text_panel.h"

namespace {

using namespace orvane;

constexpr double kJ2000 = 2451545.0;

TEST(CloseApproaches, LinesRunFromTheLastEventToTheFirst) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.planetSizeCounted = false;
    ObjectResults r;
    r.rows = {{0.5, kJ2000, 5}, {0.25, kJ2000 + 100.25, 4}};
    EXPECT_EQ(CloseApproachBlock("81P/Wild", r, o, t),
              "Close Approaches of 81P/Wild:\r\n\r\n"
              "Mars      : 2000-04-10 18:00:00 ->  0.250000000000 (AU)\r\n"
              "Jupiter   : 2000-01-01 12:00:00 ->  0.500000000000 (AU)\r\n");
}

TEST(CloseApproaches, PlanetRadiusComesOffInAuAndKm) {
    TaskOptions o;
    const ApproachRow jupiter{0.5, kJ2000, 5};
    EXPECT_EQ(ApproachDistanceText(jupiter, o), formatF(0.5 - 69911.0 / 149597870.691, 15, 12));
    EXPECT_EQ(ApproachDistanceText(jupiter, o), " 0.499532673830");
    o.distanceUnitsKm = true;
    EXPECT_EQ(ApproachDistanceText(jupiter, o), "   74729024.346");
    o.planetSizeCounted = false;
    EXPECT_EQ(ApproachDistanceText(jupiter, o), "   74798935.346");
}

TEST(CloseApproaches, DistanceBelowTheRadiusPrintsWithItsSign) {
    TaskOptions o;
    const ApproachRow grazing{1e-5, kJ2000, 3};  // 1496 km from the Earth's centre
    EXPECT_EQ(ApproachDistanceText(grazing, o), "-0.000032587505");
    o.distanceUnitsKm = true;
    EXPECT_EQ(ApproachDistanceText(grazing, o), "      -4875.021");
}

TEST(CloseApproaches, EarthAtIndex3IsHiddenByTheAppearanceMinimum) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.minDistanceEachAppearance = true;
    ObjectResults r;
    r.rows = {{0.3, kJ2000, 3}, {0.2, kJ2000 + 1.0, 3}};
    EXPECT_EQ(CloseApproachBlock("X", r, o, t),
              "Close Approaches of X:\r\n\r\nNo close-approaches were found in selected interval...\r\n");
    r.rows.push_back({0.15, kJ2000 + 2.0, kApproachEarthAppearance});
    const std::string block = CloseApproachBlock("X", r, o, t);
    EXPECT_EQ(block.substr(26), "Earth     : 2000-01-03 12:00:00 ->  0.149957412495 (AU)\r\n");
    o.minDistanceEachAppearance = false;
    const std::string both = CloseApproachBlock("X", r, o, t);
    EXPECT_EQ(both.substr(26), "Earth     : 2000-01-02 12:00:00 ->  0.199957412495 (AU)\r\n"
                               "Earth     : 2000-01-01 12:00:00 ->  0.299957412495 (AU)\r\n");
}

TEST(CloseApproaches, TwoPerihelionPassagesGiveTwoSunLinesAtTheirPerihelionDistance) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    ObjectResults r;
    r.rows = {{1.592, kJ2000, 0}, {0.4, kJ2000 + 500.0, 5}, {1.59875, kJ2000 + 2400.5, 0}};
    EXPECT_EQ(CloseApproachBlock("X", r, o, t).find("Sun"), std::string::npos);
    o.showPerihelionPassages = true;
    EXPECT_EQ(CloseApproachBlock("X", r, o, t),
              "Close Approaches of X:\r\n\r\n"
              "Sun       : 2006-07-29 00:00:00 ->  1.598750000000 (AU)\r\n"
              "Jupiter   : 2001-05-15 12:00:00 ->  0.399532673830 (AU)\r\n"
              "Sun       : 2000-01-01 12:00:00 ->  1.592000000000 (AU)\r\n");
}

TEST(CloseApproaches, EmptyResults) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    ObjectResults r;
    EXPECT_EQ(CloseApproachBlock("X", r, TaskOptions{}, t),
              "Close Approaches of X:\r\n\r\nNo close-approaches were found in selected interval...\r\n");
    r.intervalState = 1;
    EXPECT_EQ(CloseApproachBlock("X", r, TaskOptions{}, t), "Close Approaches of X:\r\n\r\nNo interval selected...\r\n");
}

TEST(CloseApproaches, DateForms) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.planetSizeCounted = false;
    ObjectResults r;
    r.rows = {{0.5, kJ2000 + 0.25, 6}};
    o.showHms = false;
    EXPECT_EQ(CloseApproachBlock("X", r, o, t).substr(26),
              "Saturn    : 2000-01-01.75000000 ->  0.500000000000 (AU)\r\n");
    o.datesInJulianDays = true;
    EXPECT_EQ(CloseApproachBlock("X", r, o, t).substr(26),
              "Saturn    : 2451545.25000000 JD ->  0.500000000000 (AU)\r\n");
    o.showHms = true;
    EXPECT_EQ(CloseApproachBlock("X", r, o, t).substr(26), "Saturn    :2451545 06:00:00 JD ->  0.500000000000 (AU)\r\n");
}

TEST(CloseApproaches, ApplyingHmsAfterARunReformatsTheStoredRows) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TextPanel panel(2);
    panel.setName(0, "A");
    panel.setName(1, "B");
    ObjectResults r;
    r.rows = {{0.5, kJ2000, 7}};
    panel.setApproachResults(0, r);
    panel.setApproachResults(1, ObjectResults{});
    TaskOptions o;
    o.planetSizeCounted = false;
    const std::string before = panel.closeApproachText(o, t);
    EXPECT_EQ(before, "Close Approaches of A:\r\n\r\nUranus    : 2000-01-01 12:00:00 ->  0.500000000000 (AU)\r\n"
                      "\r\n---------------------------------------------------------------------<\r\n\r\n"
                      "Close Approaches of B:\r\n\r\nNo close-approaches were found in selected interval...\r\n");
    o.showHms = false;
    const std::string after = panel.closeApproachText(o, t);
    EXPECT_NE(after.find("Uranus    : 2000-01-01.50000000 ->"), std::string::npos);
    EXPECT_EQ(after.size(), before.size());
}

TEST(CloseApproaches, LongBlockIsCutBeforeItsLastLineAndEndsWithDots) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    ObjectResults r;
    for (int i = 0; i < 200; ++i) r.rows.push_back({0.5, kJ2000 + i, 5});
    const std::string block = CloseApproachBlock("X", r, o, t);
    const std::string line = "Jupiter   : 2000-01-01 12:00:00 ->  0.499532673830 (AU)\r\n";
    // A title of 26, then lines of 57: the 105th passes character 6000 and goes as a
    // whole.
    ASSERT_EQ(line.size(), 57u);
    EXPECT_EQ(block.size(), 26u + 104u * 57u + 3u);
    EXPECT_EQ(block.substr(block.size() - 5), "\r\n...");
    EXPECT_EQ(block.substr(26, 57), "Jupiter   : 2000-07-18 12:00:00 ->  0.499532673830 (AU)\r\n");
}

TEST(CloseApproaches, CutWithoutALabelKeepsTheLimit) {
    const std::string text(7000, 'x');
    EXPECT_EQ(CutToPanel(text), std::string(6000, 'x') + "...");
    EXPECT_EQ(CutToPanel("short"), "short");
}

}  // namespace
