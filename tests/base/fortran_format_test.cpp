#include "base/fortran_format.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>

namespace {

using namespace orvane;

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(FortranFormat, IntegerRightAlignedOrStars) {
    EXPECT_EQ(formatI(5, 2), " 5");
    EXPECT_EQ(formatI(-5, 2), "-5");
    EXPECT_EQ(formatI(-5, 1), "*");
    EXPECT_EQ(formatI(100, 2), "**");
    EXPECT_EQ(formatI(0, 3), "  0");
    EXPECT_EQ(formatI(2, 3), "  2");  // the counter of a repeated file name
    EXPECT_EQ(formatI(2460000, 7), "2460000");
    EXPECT_EQ(formatI(std::numeric_limits<long long>::min(), 20), "-9223372036854775808");
    EXPECT_EQ(formatI(std::numeric_limits<long long>::min(), 19), "*******************");
}

TEST(FortranFormat, FixedDropsTheZeroOnlyWhenItMustGo) {
    EXPECT_EQ(formatF(-0.5, 6, 4), "-.5000");
    EXPECT_EQ(formatF(-0.5, 7, 4), "-0.5000");
    EXPECT_EQ(formatF(0.5, 5, 4), ".5000");
    EXPECT_EQ(formatF(0.5, 4, 4), "****");
    EXPECT_EQ(formatF(0.0, 3, 2), ".00");
    EXPECT_EQ(formatF(0.0, 4, 2), "0.00");
    // With no decimals the zero stays: a lone point is never written.
    EXPECT_EQ(formatF(0.0, 2, 0), "0.");
    EXPECT_EQ(formatF(0.0, 1, 0), "*");
    EXPECT_EQ(formatF(0.4, 2, 0), "0.");
    EXPECT_EQ(formatF(-0.4, 3, 0), "-0.");
    EXPECT_EQ(formatF(-0.4, 2, 0), "**");
}

TEST(FortranFormat, FixedRoundsTheExactBinaryValueHalfToEven) {
    EXPECT_EQ(formatF(0.125, 5, 2), " 0.12");
    EXPECT_EQ(formatF(0.375, 5, 2), " 0.38");
    EXPECT_EQ(formatF(0.25, 4, 1), " 0.2");
    EXPECT_EQ(formatF(2.5, 3, 0), " 2.");
    EXPECT_EQ(formatF(3.5, 3, 0), " 4.");
    // 0.15 and 0.35 are both slightly below themselves in binary.
    EXPECT_EQ(formatF(0.15, 4, 1), " 0.1");
    EXPECT_EQ(formatF(0.35, 4, 1), " 0.3");
    EXPECT_EQ(formatF(9.996, 5, 2), "10.00");
    EXPECT_EQ(formatF(9.996, 4, 2), "****");
}

TEST(FortranFormat, NegativeZeroAndValuesRoundingToZeroKeepTheirSign) {
    EXPECT_EQ(formatF(-0.0, 5, 2), "-0.00");
    EXPECT_EQ(formatF(-0.001, 5, 2), "-0.00");
    EXPECT_EQ(formatF(-0.001, 4, 2), "-.00");
    EXPECT_EQ(formatE(-0.0, 22, 15), "-0.000000000000000E+00");
    EXPECT_EQ(formatE(0.0, 22, 15), " 0.000000000000000E+00");
}

TEST(FortranFormat, ExponentForm) {
    EXPECT_EQ(formatE(12.5, 21, 15), "0.125000000000000E+02");
    EXPECT_EQ(formatE(-12.5, 21, 15), "-.125000000000000E+02");
    EXPECT_EQ(formatE(12.5, 22, 15), " 0.125000000000000E+02");
    EXPECT_EQ(formatE(-12.5, 22, 15), "-0.125000000000000E+02");
    EXPECT_EQ(formatE(12.5, 20, 15), ".125000000000000E+02");
    EXPECT_EQ(formatE(-12.5, 20, 15), "********************");
    EXPECT_EQ(formatE(0.125, 10, 2), "  0.12E+00");
    EXPECT_EQ(formatE(1.0, 12, 4), "  0.1000E+01");
}

TEST(FortranFormat, ThreeDigitExponentsDropTheLetter) {
    EXPECT_EQ(formatE(1e100, 10, 3), " 0.100+101");
    EXPECT_EQ(formatE(1e-100, 10, 3), " 0.100E-99");
    EXPECT_EQ(formatE(1e-300, 10, 3), " 0.100-299");
    EXPECT_EQ(formatE(9.9996e99, 10, 3), " 0.100+101");
    EXPECT_EQ(formatE(9.9996e-100, 10, 3), " 0.100E-98");
    EXPECT_EQ(formatES(1e100, 10, 3), " 1.000+100");
}

TEST(FortranFormat, ExponentFormNeedsADecimal) {
    // gfortran refuses E with no decimals; a field of asterisks is the safe answer.
    EXPECT_EQ(formatE(12.5, 6, 0), "******");
    EXPECT_EQ(formatES(12.5, 6, 0), "1.E+01");
}

TEST(FortranFormat, ScientificFormHasOneDigitBeforeThePoint) {
    // 21 columns hold an unsigned value of 15 decimals, a signed one needs 22.
    EXPECT_EQ(formatES(1.234567890123456, 21, 15), "1.234567890123456E+00");
    EXPECT_EQ(formatES(12.5, 21, 15), "1.250000000000000E+01");
    EXPECT_EQ(formatES(-12.5, 21, 15), "*********************");
    EXPECT_EQ(formatES(-12.5, 22, 15), "-1.250000000000000E+01");
}

TEST(FortranFormat, NotANumberAndInfinity) {
    EXPECT_EQ(formatF(kInf, 3, 1), "Inf");
    EXPECT_EQ(formatF(kInf, 4, 1), " Inf");
    EXPECT_EQ(formatF(kInf, 8, 1), "Infinity");
    EXPECT_EQ(formatF(kInf, 9, 1), " Infinity");
    EXPECT_EQ(formatF(-kInf, 3, 1), "***");
    EXPECT_EQ(formatF(-kInf, 4, 1), "-Inf");
    EXPECT_EQ(formatF(-kInf, 8, 1), "    -Inf");
    EXPECT_EQ(formatF(-kInf, 9, 1), "-Infinity");
    EXPECT_EQ(formatE(kInf, 12, 3), "    Infinity");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(formatF(nan, 1, 0), "*");
    EXPECT_EQ(formatF(nan, 2, 1), "**");
    EXPECT_EQ(formatF(nan, 3, 1), "NaN");
    EXPECT_EQ(formatF(nan, 8, 1), "     NaN");
    EXPECT_EQ(formatE(-nan, 8, 1), "     NaN");
}

TEST(FortranFormat, HugeValuesAndWidthsGiveStarsNotOverflows) {
    EXPECT_EQ(formatF(1.7976931348623157e308, 30, 3), std::string(30, '*'));
    EXPECT_EQ(formatF(1e20, 10, 4), "**********");
    EXPECT_EQ(formatF(5e-324, 8, 4), "  0.0000");
    EXPECT_EQ(formatE(5e-324, 12, 4), "  0.4941-323");
    EXPECT_EQ(formatF(1.0, kMaxFieldWidth + 1, 2), std::string(kMaxFieldWidth + 1, '*'));
    EXPECT_EQ(formatF(1.0, 5, -1), "*****");
    EXPECT_EQ(formatF(1.0, 0, 0), "");
    EXPECT_EQ(formatI(1, -3), "");
    const std::string wide = formatF(-1.5, kMaxFieldWidth, 200);
    ASSERT_EQ(wide.size(), static_cast<std::size_t>(kMaxFieldWidth));
    EXPECT_EQ(wide.substr(kMaxFieldWidth - 203), "-1.5" + std::string(199, '0'));
}

TEST(FortranFormat, PutWritesExactlyTheFieldIntoTheCallersBuffer) {
    std::array<char, 12> buffer;
    buffer.fill('#');
    putF(std::span<char>(buffer.data() + 1, 10), 12.3456, 4);
    EXPECT_EQ(std::string(buffer.data(), buffer.size()), "#   12.3456#");
    putE(std::span<char>(buffer.data() + 1, 10), -12.3456, 3);
    EXPECT_EQ(std::string(buffer.data(), buffer.size()), "#-0.123E+02#");
    putI(std::span<char>(buffer.data() + 1, 10), 42);
    EXPECT_EQ(std::string(buffer.data(), buffer.size()), "#        42#");
}

TEST(FortranFormat, AppendGrowsTheCallersString) {
    std::string line = "q =";
    appendF(line, 0.586, 16, 12);
    appendI(line, 7, 3);
    appendE(line, 1.5, 10, 3);
    EXPECT_EQ(line, "q =  0.586000000000  7 0.150E+01");
}

// The number forms of the ephemeris and close-approach tables.
TEST(FortranFormat, FormsOfTheTaskTables) {
    EXPECT_EQ(formatF(12.3456789, 10, 4), "   12.3457");   // rates
    EXPECT_EQ(formatF(-0.00004, 10, 4), "   -0.0000");
    EXPECT_EQ(formatF(11.5, 5, 2), "11.50");              // magnitudes
    EXPECT_EQ(formatF(123.45678, 8, 4), "123.4568");      // elongation
    EXPECT_EQ(formatF(1.2345678901234, 15, 12), " 1.234567890123");  // distance in AU
    EXPECT_EQ(formatF(-0.0000123, 15, 12), "-0.000012300000");       // below the surface
    EXPECT_EQ(formatF(384400.1234, 15, 3), "     384400.123");       // distance in km
    EXPECT_EQ(formatF(2460000.5, 17, 8), " 2460000.50000000");       // JD
    EXPECT_EQ(formatF(2460000.5, 16, 8), "2460000.50000000");
    EXPECT_EQ(formatF(85.4, 6, 1), "  85.4");                        // altitude
    EXPECT_EQ(formatF(19.62, 5, 2), "19.62");                        // seconds of arc
    EXPECT_EQ(formatF(0.995, 14, 12), "0.995000000000");             // e around the Sun
    EXPECT_EQ(formatF(-12.5, 8, 3), " -12.500");
    EXPECT_EQ(formatF(29.785, 7, 3), " 29.785");
    EXPECT_EQ(formatE(1.234567890123456, 21, 15), "0.123456789012346E+01");
    EXPECT_EQ(formatE(-0.0123456789012345, 22, 15), "-0.123456789012345E-01");
}

}  // namespace
