#include "catalogue/sql_functions.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "catalogue/sql_layer.h"
#include "catalogue_test_support.h"

namespace orvane {
namespace {

using testing::SqlValue;

constexpr double kPi = 3.141592653589793;

// The mathematics library at run time (the compiler may fold a call with a
// constant argument more exactly than the library does).
double library(double (*function)(double), double x) {
    volatile double argument = x;
    return function(argument);
}

class SqlFunctionsTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(sql::open(":memory:", db), SQLITE_OK); }
    void TearDown() override { sql::close(db); }

    SqlValue value(const std::string& expression) { return testing::evaluate(db.handle, expression); }

    double real(const std::string& expression) {
        const SqlValue v = value(expression);
        EXPECT_EQ(v.code, SQLITE_ROW) << expression << ": " << v.error;
        EXPECT_EQ(v.type, SQLITE_FLOAT) << expression;
        return v.real;
    }

    sqlite3_int64 integer(const std::string& expression) {
        const SqlValue v = value(expression);
        EXPECT_EQ(v.code, SQLITE_ROW) << expression << ": " << v.error;
        EXPECT_EQ(v.type, SQLITE_INTEGER) << expression;
        return v.integer;
    }

    void expectMathError(const std::string& expression, int error) {
        const SqlValue v = value(expression);
        EXPECT_EQ(v.code, SQLITE_ERROR) << expression;
        EXPECT_EQ(v.error, std::strerror(error)) << expression;
    }

    void expectNull(const std::string& expression) {
        const SqlValue v = value(expression);
        EXPECT_EQ(v.code, SQLITE_ROW) << expression << ": " << v.error;
        EXPECT_EQ(v.type, SQLITE_NULL) << expression;
    }

    CatalogueDb db;
};

TEST_F(SqlFunctionsTest, ANullArgumentGivesNull) {
    for (const char* name : {"sign", "square", "degrees", "radians", "floor", "sqrt", "exp", "log", "log10", "cos",
                             "sin", "tan", "cot", "acos", "asin", "atan", "cosh", "sinh", "tanh", "coth", "acosh",
                             "asinh", "atanh", "round"}) {
        expectNull(std::string(name) + "(NULL)");
    }
    expectNull("pow(2.0, NULL)");
    expectNull("pow(NULL, 2.0)");
    expectNull("round(2.5, NULL)");
}

TEST_F(SqlFunctionsTest, PiAndPow) {
    EXPECT_EQ(real("pi()"), 3.141592653589793);
    EXPECT_EQ(real("pow(2, 10)"), 1024.0);
    EXPECT_EQ(real("pow('2.5', 2)"), 6.25);
    expectMathError("pow(-8, 1.0/3)", EDOM);
    expectMathError("pow(0, -1)", ERANGE);
}

TEST_F(SqlFunctionsTest, SignKeepsTheKindOfItsArgument) {
    EXPECT_EQ(integer("sign(-5)"), -1);
    EXPECT_EQ(integer("sign(0)"), 0);
    EXPECT_EQ(integer("sign(12)"), 1);
    EXPECT_EQ(real("sign(2.5)"), 1.0);
    EXPECT_EQ(real("sign(-0.001)"), -1.0);
    const double zero = real("sign(-0.0)");
    EXPECT_EQ(zero, 0.0);
    EXPECT_FALSE(std::signbit(zero));
}

TEST_F(SqlFunctionsTest, SquareOfAnIntegerStaysInteger) {
    EXPECT_EQ(integer("square(-3)"), 9);
    EXPECT_EQ(real("square(2.5)"), 6.25);
    EXPECT_EQ(integer("square(3037000499)"), 9223372030926249001);
    // Beyond 64 bits the square goes on as a real.
    EXPECT_EQ(real("square(4000000000000)"), 1.6e25);
}

TEST_F(SqlFunctionsTest, DegreesAndRadians) {
    EXPECT_EQ(real("degrees(1)"), 1.0 * 180.0 / kPi);
    EXPECT_EQ(real("degrees(pi())"), 180.0);
    EXPECT_EQ(real("radians(90)"), 90.0 * kPi / 180.0);
    EXPECT_EQ(real("radians(180)"), kPi);
}

TEST_F(SqlFunctionsTest, FloorIsA64BitInteger) {
    EXPECT_EQ(integer("floor(2.5)"), 2);
    EXPECT_EQ(integer("floor(-2.5)"), -3);
    EXPECT_EQ(integer("floor(7)"), 7);
    EXPECT_EQ(integer("floor(9007199254740993)"), 9007199254740993);  // an integer comes back unchanged
    EXPECT_EQ(integer("floor('15.75')"), 15);
    EXPECT_EQ(value("cast(floor(15.75) as TEXT)").text, "15");
    EXPECT_EQ(integer("floor(1e300)"), std::numeric_limits<sqlite3_int64>::max());
    EXPECT_EQ(integer("floor(-1e300)"), std::numeric_limits<sqlite3_int64>::min());
}

TEST_F(SqlFunctionsTest, RootExponentialAndLogarithms) {
    EXPECT_EQ(real("sqrt(2)"), library(std::sqrt, 2.0));
    expectMathError("sqrt(-1)", EDOM);
    EXPECT_EQ(real("exp(1)"), library(std::exp, 1.0));
    expectMathError("exp(1000)", ERANGE);
    // log is the natural logarithm, not SQLite's own base-10 log.
    EXPECT_EQ(real("log(100)"), library(std::log, 100.0));
    expectMathError("log(0)", ERANGE);
    expectMathError("log(-1)", EDOM);
    // log10 is ln x / ln 10, which for 1000 falls just short of 3.
    EXPECT_EQ(real("log10(1000)"), library(std::log, 1000.0) / library(std::log, 10.0));
    EXPECT_EQ(real("log10(1000)"), 2.9999999999999996);
    expectMathError("log10(0)", ERANGE);
}

TEST_F(SqlFunctionsTest, CircularFunctions) {
    EXPECT_EQ(real("cos(1)"), library(std::cos, 1.0));
    EXPECT_EQ(real("sin(1)"), library(std::sin, 1.0));
    EXPECT_EQ(real("tan(1)"), library(std::tan, 1.0));
    EXPECT_EQ(real("cot(1)"), 1.0 / library(std::tan, 1.0));
    EXPECT_EQ(real("cot(0)"), std::numeric_limits<double>::infinity());
    expectMathError("cos(9e999)", EDOM);
    expectMathError("cot(9e999)", EDOM);
    EXPECT_EQ(real("acos(0.5)"), library(std::acos, 0.5));
    EXPECT_EQ(real("asin(0.5)"), library(std::asin, 0.5));
    EXPECT_EQ(real("atan(1)"), library(std::atan, 1.0));
    expectMathError("acos(2)", EDOM);
    expectMathError("asin(-2)", EDOM);
}

TEST_F(SqlFunctionsTest, HyperbolicFunctionsAreBuiltFromExp) {
    EXPECT_EQ(real("cosh(0)"), 1.0);
    EXPECT_EQ(real("sinh(0)"), 0.0);
    EXPECT_EQ(real("tanh(0)"), 0.0);
    EXPECT_EQ(real("coth(0)"), std::numeric_limits<double>::infinity());
    const double e = library(std::exp, 1.0);
    const double f = std::exp(-1.0);
    EXPECT_EQ(real("cosh(1)"), (e + f) / 2.0);
    EXPECT_EQ(real("sinh(1)"), (e - f) / 2.0);
    EXPECT_EQ(real("tanh(1)"), (e - f) / (e + f));
    EXPECT_EQ(real("coth(1)"), (e + f) / (e - f));
    EXPECT_NEAR(real("cosh(1)"), std::cosh(1.0), 1e-15);
    EXPECT_NEAR(real("tanh(1)"), std::tanh(1.0), 1e-15);
    // exp overflows here although the library's own tanh would give 1.
    expectMathError("tanh(1000)", ERANGE);
    expectMathError("cosh(1000)", ERANGE);
    // At infinity exp is exact, and tanh becomes inf/inf: not a number, so NULL.
    expectNull("tanh(9e999)");
    expectNull("coth(9e999)");
}

TEST_F(SqlFunctionsTest, InverseHyperbolicFunctions) {
    EXPECT_EQ(real("acosh(1)"), 0.0);
    EXPECT_EQ(real("acosh(2)"), library(std::acosh, 2.0));
    EXPECT_EQ(real("asinh(1)"), library(std::asinh, 1.0));
    EXPECT_EQ(real("atanh(0.5)"), library(std::atanh, 0.5));
    expectMathError("acosh(0.5)", EDOM);
    expectMathError("atanh(2)", EDOM);
    expectMathError("atanh(1)", ERANGE);
}

TEST_F(SqlFunctionsTest, RoundRendersHalvesAwayFromZero) {
    EXPECT_EQ(real("round(2.5)"), 3.0);
    EXPECT_EQ(real("round(-2.5)"), -3.0);
    EXPECT_EQ(real("round(0.5)"), 1.0);
    EXPECT_EQ(real("round(1.5)"), 2.0);
    EXPECT_EQ(real("round(-1.5)"), -2.0);
    EXPECT_EQ(real("round(1234.5678, 2)"), 1234.57);
    EXPECT_EQ(real("round(-1234.5678, 2)"), -1234.57);
    EXPECT_EQ(real("round(1e17)"), 1e17);
    EXPECT_EQ(real("round('7.25', 1)"), 7.3);
    const double minusZero = real("round(-0.4)");
    EXPECT_EQ(minusZero, 0.0);
    EXPECT_TRUE(std::signbit(minusZero));
}

TEST_F(SqlFunctionsTest, RoundKeepsTheOldRenderingWhereTheSystemsDiffers) {
    // The rendering adds half a unit to the double's exact value, so the double
    // just below one half and 2.675 (stored as 2.67499...) round down.
    EXPECT_EQ(real("round(0.49999999999999994)"), 0.0);
    EXPECT_EQ(real("round(2.675, 2)"), 2.67);
    // At most 16 significant digits are written, zeros after them.
    EXPECT_EQ(real("round(123456789012345678.0)"), 123456789012345600.0);
}

TEST_F(SqlFunctionsTest, RoundClampsItsDigitsTo0Through30) {
    EXPECT_EQ(real("round(2.5, -3)"), 3.0);
    EXPECT_EQ(real("round(0.123456789, 40)"), real("round(0.123456789, 30)"));
    // Sixteen significant digits, then zeros: 0.123456788999999997... becomes
    // 0.1234567889999999.
    EXPECT_DOUBLE_EQ(real("round(0.123456789, 30)"), 0.1234567889999999);
    EXPECT_NE(real("round(0.123456789, 30)"), 0.123456789);
}

TEST_F(SqlFunctionsTest, JuliandayTakesTheNegativeYearsOfTheView) {
    EXPECT_EQ(real("julianday('-0043-03-01 00:00:00')"), 1705413.5);
    EXPECT_EQ(real("julianday('2000-01-01 12:00:00')"), 2451545.0);
}

TEST(SqlFunctionsRegistration, EveryConnectionHasTheFunctions) {
    std::vector<std::thread> threads;
    std::vector<int> codes(4, -1);
    for (int k = 0; k < 4; ++k) {
        threads.emplace_back([&codes, k] { codes[static_cast<std::size_t>(k)] = sql::registerSqlFunctions(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int code : codes) {
        EXPECT_EQ(code, SQLITE_OK);
    }
    EXPECT_EQ(sql::registerSqlFunctions(), SQLITE_OK);
    // A connection opened straight through SQLite has them too.
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &raw), SQLITE_OK);
    const testing::SqlValue v = testing::evaluate(raw, "square(7), typeof(floor(2.5))");
    EXPECT_EQ(v.integer, 49);
    sqlite3_close(raw);
}

}  // namespace
}  // namespace orvane
