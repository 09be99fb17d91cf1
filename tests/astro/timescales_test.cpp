#include "astro/timescales.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>
#include <string>

#include "support/temp_home.h"

namespace orvane {
namespace {

TEST(DeltaT, NoCorrectionUpTo1820AndAJumpJustAbove) {
    EXPECT_EQ(DeltaT(1820.5), 0.0);
    EXPECT_EQ(DeltaT(1700.0), 0.0);
    EXPECT_EQ(DeltaT(-3000.0), 0.0);
    EXPECT_NEAR(DeltaT(1820.51), 5.14, 0.005);
    EXPECT_NEAR(DeltaT(1820.5 + 1e-9), 5.15, 1e-6);
}

TEST(DeltaT, TabledCenturyValues) {
    EXPECT_NEAR(DeltaT(1900.0), -4.48, 0.005);
    // Bessel interpolation half-way between entries 82 and 83 (-5.87, -5.04, -3.9, -2.869).
    EXPECT_NEAR(DeltaT(1900.0), -4.4825625, 1e-12);
    EXPECT_NEAR(DeltaT(2000.0), 63.83, 1e-12);
}

TEST(DeltaT, EndOfTable) {
    // 2012.4 still interpolates among the last four entries (66.55, 66.62, 66.67, 66.7).
    const double f = 0.6;
    const double g = (f - 1.0) * f * 0.25;
    const double expected = 66.62 + 0.05 * f + (66.7 - 66.67 - 66.62 + 66.55) * g +
                            (g * (f - 0.5) * 2.0 / 3.0) * (3.0 * (66.62 - 66.67) + (66.7 - 66.55));
    EXPECT_NEAR(DeltaT(2012.4), expected, 1e-9);
    EXPECT_LT(DeltaT(2012.4), 66.7);
    EXPECT_EQ(DeltaT(2012.5), 66.7);
    EXPECT_EQ(DeltaT(2013.5), 66.7);
    EXPECT_EQ(DeltaT(2500.0), 66.7);
}

TEST(DeltaT, QuarterRunStartsAt1956WithoutTheSeam) {
    EXPECT_NEAR(DeltaT(1956.0), 31.34, 1e-12);
    // The yearly run ends at 32.584 (1960.5 in the yearly layout); it is not used past 1956.
    EXPECT_LT(DeltaT(1955.999), 31.34);
    EXPECT_GT(DeltaT(1955.999), 30.9);
}

TEST(DeltaT, TableSizeAndEnds) {
    EXPECT_EQ(kDeltaTTableSize, 372);
    EXPECT_EQ(kDeltaTTable[0], 0.0);
    EXPECT_EQ(kDeltaTTable[1], 0.0);
    EXPECT_EQ(kDeltaTTable[2], 5.15);
    EXPECT_EQ(kDeltaTTable[142], 32.584);
    EXPECT_EQ(kDeltaTTable[143], 30.91);
    EXPECT_EQ(kDeltaTTable[144], 31.34);
    EXPECT_EQ(kDeltaTTable[371], 66.7);
}

TEST(DeltaT, NaNGivesNoCorrection) { EXPECT_EQ(DeltaT(std::nan("")), 0.0); }

TEST(TimeScales, BesselianYear) {
    EXPECT_NEAR(BesselianYearOf(2415020.31352), 1900.0, 1e-12);
    // B2000.0 is JD 2451544.5333981.
    EXPECT_NEAR(BesselianYearOf(2451544.5333981), 2000.0, 1e-6);
    EXPECT_NEAR(BesselianYearOf(2415020.31352 + 365.242199), 1901.0, 1e-12);
}

TEST(TimeScales, TerrestrialToUniversalSubtractsDeltaT) {
    const double jd = 2451545.0;
    const double year = BesselianYearOf(jd);
    EXPECT_EQ(TerrestrialToUniversal(jd), jd - DeltaT(year) / 86400.0);
    EXPECT_NEAR((jd - TerrestrialToUniversal(jd)) * 86400.0, 63.83, 0.02);
    // Before 1820.5 nothing is subtracted.
    EXPECT_EQ(TerrestrialToUniversal(2378480.5), 2378480.5);
}

TEST(TaiMinusUtc, NoValueBefore1956) {
    double s = 99.0;
    EXPECT_EQ(TaiMinusUtc(2435473.4, s), -1);
    EXPECT_EQ(s, 0.0);
    EXPECT_EQ(TaiMinusUtc(std::nan(""), s), -1);
}

TEST(TaiMinusUtc, PiecewiseLinearFrom1956) {
    double s = 0.0;
    EXPECT_EQ(TaiMinusUtc(2435473.5, s), 0);
    EXPECT_DOUBLE_EQ(s, -0.92);
    EXPECT_EQ(TaiMinusUtc(2435477.0, s), 0);
    EXPECT_NEAR(s, -0.89, 1e-12);
    EXPECT_EQ(TaiMinusUtc(2437208.5, s), 0);
    EXPECT_NEAR(s, 1.30, 1e-12);
    EXPECT_EQ(TaiMinusUtc(2437254.5, s), 0);
    EXPECT_NEAR(s, 1.36, 1e-12);
}

TEST(TaiMinusUtc, DriftsOfThe1960s) {
    double s = 0.0;
    EXPECT_EQ(TaiMinusUtc(2437300.5, s), 0);
    EXPECT_NEAR(s, 1.422818, 1e-12);
    EXPECT_EQ(TaiMinusUtc(2437665.5, s), 0);  // row 3 from 1961-08-01
    EXPECT_NEAR(s, 1.845858, 1e-12);
    EXPECT_EQ(TaiMinusUtc(2438761.4, s), 0);  // end of row 7
    EXPECT_NEAR(s, 3.44013 - 0.1 * 0.001296, 1e-9);
    EXPECT_EQ(TaiMinusUtc(2438761.5, s), 0);  // 1965-01-01, row 8
    EXPECT_NEAR(s, 3.54013, 1e-12);
    EXPECT_EQ(TaiMinusUtc(2439126.5, s), 0);  // 1966-01-01, row 12
    EXPECT_NEAR(s, 4.31317, 1e-12);
    EXPECT_EQ(TaiMinusUtc(2441317.0, s), 0);  // last day of the drifts
    EXPECT_NEAR(s, 4.21317 + 2190.5 * 0.002592, 1e-9);
    EXPECT_EQ(TaiMinusUtc(2437400.5, s), 0);  // row 1 drifts from 1961-01-01
    EXPECT_NEAR(s, 1.422818 + 100.0 * 0.001296, 1e-12);
}

TEST(TaiMinusUtc, LeapSeconds) {
    double s = 0.0;
    EXPECT_EQ(TaiMinusUtc(2441317.5, s), 0);
    EXPECT_EQ(s, 10.0);
    EXPECT_EQ(TaiMinusUtc(2441499.5, s), 0);
    EXPECT_EQ(s, 11.0);
    EXPECT_EQ(TaiMinusUtc(2451179.4, s), 0);
    EXPECT_EQ(s, 31.0);
    EXPECT_EQ(TaiMinusUtc(2451179.5, s), 0);
    EXPECT_EQ(s, 32.0);
    // The end 2453736.6 is single precision, which reads 2453736.5.
    EXPECT_EQ(static_cast<double>(kLeapRows[35].end), 2453736.5);
    EXPECT_EQ(TaiMinusUtc(2453736.4, s), 0);
    EXPECT_EQ(s, 32.0);
    EXPECT_EQ(TaiMinusUtc(2453736.55, s), 0);
    EXPECT_EQ(s, 33.0);
    // The table ends in 2006: later leap seconds are not known to it.
    EXPECT_EQ(TaiMinusUtc(2460000.5, s), 0);
    EXPECT_EQ(s, 33.0);
}

TEST(TimeScales, UtcVariantOffsets) {
    EXPECT_EQ(UtcVariantMinusUtc(2440038.5), 0.0002);
    EXPECT_EQ(UtcVariantMinusUtc(2440050.0), 0.0002);
    EXPECT_EQ(UtcVariantMinusUtc(2440069.5), 0.0001);
    EXPECT_EQ(UtcVariantMinusUtc(2439764.5), 0.0001);
    EXPECT_EQ(UtcVariantMinusUtc(2439764.4), 0.0);
    EXPECT_EQ(UtcVariantMinusUtc(2441317.5), 0.0);
}

TEST(TimeScales, Ut2MinusUt1) {
    EXPECT_EQ(Ut2MinusUt1(2415020.4), 0.0);
    // B = 2000.0: sines vanish, cosines are 1.
    EXPECT_NEAR(Ut2MinusUt1(2451544.53), -0.012 + 0.007, 1e-9);
    // B = 2000.25: sin 2piB = 1, cos 4piB = -1.
    EXPECT_NEAR(Ut2MinusUt1(2451544.53 + 0.25 * 365.2422), 0.022 - 0.007, 1e-9);
}

// The tidal series evaluated straight from the reference table beside the sources.
double ReferenceUt1MinusUt1R(double jd) {
    std::ifstream in(testing::sharedPath("reference/ut1r_41_terms.txt"));
    const double d = jd - 2400000.5 - 51544.5;
    const double args[5] = {134.96 + 13.064993 * d, 357.53 + 0.9856 * d, 93.27 + 13.22935 * d,
                            297.85 + 12.190749 * d, 125.04 - 0.052954 * d};
    std::string line;
    double sum = 0.0;
    int rows = 0;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        int index = 0;
        int m[5] = {};
        double period = 0.0;
        double coefficient = 0.0;
        fields >> index >> m[0] >> m[1] >> m[2] >> m[3] >> m[4] >> period >> coefficient;
        double angle = 0.0;
        for (int j = 0; j < 5; ++j) angle += m[j] * args[j] / 57.2957795130823;
        sum += coefficient * 1e-4 * std::sin(angle);
        ++rows;
    }
    EXPECT_EQ(rows, 41);
    return sum;
}

TEST(TimeScales, Ut1MinusUt1RFollowsTheTidalTable) {
    EXPECT_EQ(Ut1MinusUt1R(2444970.4), 0.0);
    for (double jd : {2444970.5, 2451545.0, 2455000.25, 2458849.5}) {
        EXPECT_NEAR(Ut1MinusUt1R(jd), ReferenceUt1MinusUt1R(jd), 1e-12) << jd;
        EXPECT_LE(std::fabs(Ut1MinusUt1R(jd)), 0.0025);
    }
    EXPECT_EQ(kUt1rTerms[16].coefficient, -7760);
    EXPECT_EQ(kUt1rTerms[32].coefficient, -8260);
}

TEST(TimeScales, TdbMinusTtKeepsItsConstants) {
    const double g = (357.528015136719) * 6.28318548202515 / 360.0;
    EXPECT_DOUBLE_EQ(TdbMinusTt(2451545.0), 0.001658 * std::sin(g + 0.0167 * std::sin(g)));
    // The rate is divided by 365.25: the term repeats every 365.25*360/35999.05 days,
    // not once a year.
    const double period = 365.25 * 360.0 / 35999.05;
    for (double jd : {2451545.0, 2455000.3, 2440000.7}) {
        EXPECT_NEAR(TdbMinusTt(jd + period), TdbMinusTt(jd), 1e-9);
    }
    EXPECT_GT(std::fabs(TdbMinusTt(2451545.0 + period / 4.0) - TdbMinusTt(2451545.0)), 1e-3);
}

// A series whose values are a fifth-degree polynomial: the six-point interpolation is exact.
double Quintic(double x) { return 32.0 + 0.01 * x - 3e-4 * x * x + 2e-6 * x * x * x + 1e-8 * std::pow(x, 4) - 1e-10 * std::pow(x, 5); }

Ut1Series QuinticSeries(double first, int count) {
    Ut1Series series;
    series.firstJd = first;
    series.step = 5.0;
    for (int i = 0; i < count; ++i) series.taiMinusUt1.push_back(Quintic(i));
    return series;
}

TEST(TaiMinusUt1, SixPointInterpolationIsExactForQuintics) {
    const Ut1Series series = QuinticSeries(2451000.5, 30);
    double s = 0.0;
    for (double u : {0.0, 0.3, 1.7, 12.25, 27.9, 29.0}) {
        EXPECT_EQ(TaiMinusUt1(series, 2451000.5 + 5.0 * u, s), 0) << u;
        EXPECT_NEAR(s, Quintic(u), 1e-10) << u;
    }
}

TEST(TaiMinusUt1, OutsideTheSpanGivesItsOwnStatusAndZero) {
    const Ut1Series series = QuinticSeries(2451000.5, 30);
    double s = 5.0;
    EXPECT_EQ(TaiMinusUt1(series, 2451000.4, s), kScaleOutsideUt1Series);
    EXPECT_EQ(s, 0.0);
    EXPECT_EQ(TaiMinusUt1(series, 2451000.5 + 5.0 * 29.0 + 0.1, s), kScaleOutsideUt1Series);
    EXPECT_EQ(TaiMinusUt1(Ut1Series{}, 2451000.5, s), kScaleOutsideUt1Series);
}

TEST(TaiMinusUt1, CorrectionsBeforeUse) {
    Ut1Series flat;
    flat.firstJd = 2438000.5;
    flat.step = 10.0;
    flat.taiMinusUt1.assign(1500, 10.0);
    double s = 0.0;
    // After 1997-01-01 the values are used as they stand.
    EXPECT_EQ(TaiMinusUt1(flat, 2450449.5, s), 0);
    EXPECT_NEAR(s, 10.0, 1e-12);
    // Just before, only the second correction: at t = 2450449.5 - 365.2422 the drift is -0.03.
    const double t = 2450449.5 - 365.2422;
    const double node = (125.04 - 0.05295399948954582 * (t - 2451545.0)) * 6.283185307179586 / 360.0;
    EXPECT_EQ(TaiMinusUt1(flat, t, s), 0);
    EXPECT_NEAR(s, 10.0 + 9.999999747378752e-05 * (-0.03 - 0.2 - 1.76 * std::sin(node) - 0.04 * std::sin(2.0 * node)),
                1e-12);
    // Inside 1964 to 1979 both corrections.
    const double u = 2443745.5;
    const double node2 = (125.04 - 0.05295399948954582 * (u - 2451545.0)) * 6.283185307179586 / 360.0;
    const double first = 0.0007 * (std::sin((u - 2444048.5) * 6.283185307179586 / 365.24) +
                                   std::sin((u - 2444019.5) * 2.0 * 6.283185307179586 / 365.24));
    const double second = 9.999999747378752e-05 *
                          (0.03 * (u - 2450449.5) / 365.2422 - 0.2 - 1.76 * std::sin(node2) - 0.04 * std::sin(2.0 * node2));
    EXPECT_EQ(TaiMinusUt1(flat, u, s), 0);
    EXPECT_NEAR(s, 10.0 + first + second, 1e-12);
}

TEST(Ut1SeriesText, ReadsCommentsAndValues) {
    Ut1Series series;
    EXPECT_EQ(ReadUt1Series("# TAI-UT1, s\n2451000.5 5\n32.1 32.2 32.3\n32.4, 32.5 +32.6 # end\n32.7\n", series), 0);
    EXPECT_EQ(series.firstJd, 2451000.5);
    EXPECT_EQ(series.step, 5.0);
    ASSERT_EQ(series.taiMinusUt1.size(), 7u);
    EXPECT_EQ(series.taiMinusUt1[5], 32.6);
}

TEST(Ut1SeriesText, HostileTextIsRefused) {
    Ut1Series series;
    EXPECT_EQ(ReadUt1Series("", series), -1);
    EXPECT_EQ(ReadUt1Series("2451000.5 5 1 2 3 4 5", series), -1);  // five values
    EXPECT_EQ(ReadUt1Series("2451000.5 0 1 2 3 4 5 6", series), -1);
    EXPECT_EQ(ReadUt1Series("2451000.5 -5 1 2 3 4 5 6", series), -1);
    EXPECT_EQ(ReadUt1Series("2451000.5 5 1 2 3 4 5 six", series), -1);
    EXPECT_EQ(ReadUt1Series("2451000.5 5 1 2 3 nan 5 6", series), -1);
    EXPECT_EQ(ReadUt1Series("2451000.5 5 1 2 3 1e999 5 6", series), -1);
    EXPECT_EQ(ReadUt1Series(std::string("2451000.5 5 1 2\0 3 4 5 6", 24), series), -1);
    EXPECT_TRUE(series.taiMinusUt1.empty());
}

TEST(ConvertTimeScale, AtomicGroup) {
    const double jd = 2451544.5;
    ScaleConversion r = ConvertTimeScale(39, jd, nullptr);
    EXPECT_EQ(r.status, 0);
    EXPECT_DOUBLE_EQ(r.offsetSeconds, 32.184);
    EXPECT_DOUBLE_EQ(r.jd, jd + 32.184 / 86400.0);
    EXPECT_DOUBLE_EQ(ConvertTimeScale(93, jd, nullptr).offsetSeconds, -32.184);
    EXPECT_DOUBLE_EQ(ConvertTimeScale(36, jd, nullptr).offsetSeconds, 32.184);
    EXPECT_DOUBLE_EQ(ConvertTimeScale(69, jd, nullptr).offsetSeconds, 0.0);
    EXPECT_DOUBLE_EQ(ConvertTimeScale(43, jd, nullptr).offsetSeconds, 32.0);
    EXPECT_DOUBLE_EQ(ConvertTimeScale(34, jd, nullptr).offsetSeconds, -32.0);
    EXPECT_DOUBLE_EQ(ConvertTimeScale(49, jd, nullptr).offsetSeconds, 64.184);
    EXPECT_NEAR(ConvertTimeScale(98, jd, nullptr).offsetSeconds, TdbMinusTt(jd), 1e-12);
    // TDB - TT is read at the TT instant.
    EXPECT_NEAR(ConvertTimeScale(48, jd, nullptr).offsetSeconds, 64.184 + TdbMinusTt(jd + 64.184 / 86400.0), 1e-9);
    // Offsets pass through instants in days: a microsecond's billionth is lost on the way.
    EXPECT_NEAR(ConvertTimeScale(45, 2440050.0, nullptr).offsetSeconds, 0.0002, 1e-9);
    EXPECT_NEAR(ConvertTimeScale(54, 2440050.0, nullptr).offsetSeconds, -0.0002, 1e-9);
}

TEST(ConvertTimeScale, TaiToUtcReadsTheTableOnUtc) {
    // 40 s of TAI after the 2006 leap second are 7 s of UTC after it.
    const ScaleConversion r = ConvertTimeScale(34, 2453736.5 + 40.0 / 86400.0, nullptr);
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.offsetSeconds, -33.0);
    const ScaleConversion before = ConvertTimeScale(34, 2453736.5 + 20.0 / 86400.0, nullptr);
    EXPECT_EQ(before.offsetSeconds, -32.0);
}

TEST(ConvertTimeScale, BeforeTheTableStatusMinusOne) {
    const ScaleConversion r = ConvertTimeScale(43, 2430000.5, nullptr);
    EXPECT_EQ(r.status, -1);
    EXPECT_EQ(r.offsetSeconds, 0.0);
    EXPECT_EQ(r.jd, 2430000.5);
    EXPECT_EQ(ConvertTimeScale(94, 2430000.5, nullptr).status, -1);
    // Scales without the table still convert.
    EXPECT_EQ(ConvertTimeScale(96, 2430000.5, nullptr).status, 0);
}

TEST(ConvertTimeScale, EarthRotationGroup) {
    const double jd = 2451545.0;
    EXPECT_DOUBLE_EQ(ConvertTimeScale(12, jd, nullptr).offsetSeconds, Ut2MinusUt1(jd));
    EXPECT_DOUBLE_EQ(ConvertTimeScale(17, jd, nullptr).offsetSeconds, -Ut1MinusUt1R(jd));
    EXPECT_DOUBLE_EQ(ConvertTimeScale(71, jd, nullptr).offsetSeconds, Ut1MinusUt1R(jd));
    EXPECT_NEAR(ConvertTimeScale(72, jd, nullptr).offsetSeconds, Ut1MinusUt1R(jd) + Ut2MinusUt1(jd), 1e-9);
    EXPECT_EQ(ConvertTimeScale(72, jd, nullptr).status, 0);
}

TEST(ConvertTimeScale, BetweenGroupsThroughTheSeries) {
    const double jd = 2451545.0;
    EXPECT_EQ(ConvertTimeScale(13, jd, nullptr).status, kScaleOutsideUt1Series);
    EXPECT_EQ(ConvertTimeScale(13, jd, nullptr).offsetSeconds, 0.0);
    Ut1Series series;
    series.firstJd = 2451000.5;
    series.step = 1.0;
    series.taiMinusUt1.assign(1000, 31.645);
    ScaleConversion r = ConvertTimeScale(13, jd, &series);
    EXPECT_EQ(r.status, 0);
    EXPECT_NEAR(r.offsetSeconds, 31.645, 1e-9);
    EXPECT_NEAR(ConvertTimeScale(31, jd, &series).offsetSeconds, -31.645, 1e-9);
    EXPECT_NEAR(ConvertTimeScale(19, jd, &series).offsetSeconds, 31.645 + 32.184, 1e-9);
    EXPECT_NEAR(ConvertTimeScale(14, jd, &series).offsetSeconds, 31.645 - 32.0, 1e-9);
    EXPECT_NEAR(ConvertTimeScale(41, jd, &series).offsetSeconds, 32.0 - 31.645, 1e-9);
    EXPECT_EQ(ConvertTimeScale(13, 2460000.5, &series).status, kScaleOutsideUt1Series);
    EXPECT_EQ(ConvertTimeScale(13, 2460000.5, &series).jd, 2460000.5);
}

TEST(ConvertTimeScale, UnknownDigitsCopyTheInput) {
    for (int code : {0, 5, 10, 30, 100, 123, -13}) {
        const ScaleConversion r = ConvertTimeScale(code, 2451545.0, nullptr);
        EXPECT_EQ(r.status, kScaleUnknownCode) << code;
        EXPECT_EQ(r.jd, 2451545.0);
        EXPECT_EQ(r.offsetSeconds, 0.0);
    }
    EXPECT_EQ(ConvertTimeScale(44, 2430000.5, nullptr).status, 0);
}

}  // namespace
}  // namespace orvane
