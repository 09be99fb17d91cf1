// The calculated columns of e_elements on hand-made records.
#include <sqlite3.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "catalogue/column_tables.h"
#include "catalogue/sql_text.h"
#include "catalogue_test_support.h"

namespace orvane {
namespace {

using testing::CatalogueTest;
using testing::Fields;
using testing::insertElement;

constexpr double kGauss = 0.01720209895;
constexpr double kPi = 3.141592653589793;
constexpr double kJan1st2000 = 2451544.5;  // julianday('2000-01-01 00:00:00')

double power(double x, double y) {
    volatile double base = x;
    return std::pow(base, y);
}

// Mean anomaly before reduction, as the view computes it.
double ellipticOrHyperbolicAnomaly(double q, double e, double days) {
    return (180 / kPi) * (kGauss / power(q / std::fabs(1 - e), 1.5)) * days;
}

double reduced(double m) {
    double r = m - std::round(m / 360) * 360;
    return r < 0 ? r + 360 : r;
}

class ViewTest : public CatalogueTest {
protected:
    // A record with perihelion 2000-01-01.0 (or as given) and the given epoch.
    sqlite3_int64 add(const std::string& q, const std::string& e, const std::string& i, Fields dates) {
        Fields fields = {{"name", "test"}, {"q", q}, {"e", e}, {"i", i}};
        fields.insert(fields.end(), dates.begin(), dates.end());
        EXPECT_EQ(insertElement(db, fields), SQLITE_OK) << db.errorText;
        return value("max(id) from elements").integer;
    }

    sqlite3_int64 addAt(double q, double e, double i) {
        const sqlite3_int64 id = add("1", "0", "0", {{"hyear", "2000"}, {"hmonth", "1"}, {"hday", "1.0"}});
        sqlite3_stmt* update = nullptr;
        sqlite3_prepare_v2(db.handle, "UPDATE elements SET q = ?, e = ?, i = ? WHERE id = ?", -1, &update, nullptr);
        sqlite3_bind_double(update, 1, q);
        sqlite3_bind_double(update, 2, e);
        sqlite3_bind_double(update, 3, i);
        sqlite3_bind_int64(update, 4, id);
        EXPECT_EQ(sqlite3_step(update), SQLITE_DONE);
        sqlite3_finalize(update);
        return id;
    }

    testing::SqlValue column(const std::string& name, sqlite3_int64 id) {
        return value(name + " from e_elements where id = " + std::to_string(id));
    }

    double tisserand(sqlite3_int64 id) {
        return value("5.204/(q/(1-e))+2*sqrt(((q/(1-e))/5.204)*(1-e*e))*cos(radians(i)) from elements where id = " +
                     std::to_string(id))
            .real;
    }

    std::string classOf(sqlite3_int64 id) { return column("class_calc", id).text; }

    static Fields perihelion2000(const std::string& year, const std::string& month, const std::string& day) {
        return {{"hyear", "2000"}, {"hmonth", "1"}, {"hday", "1.0"}, {"E_year", year}, {"E_month", month},
                {"E_day", day}};
    }
};

TEST_F(ViewTest, TheViewHasTheSeventyFourColumnsInOrder) {
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db.handle, "select * from e_elements", -1, &statement, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_column_count(statement), 74);
    for (int k = 0; k < 74; ++k) {
        EXPECT_EQ(std::string_view(sqlite3_column_name(statement, k)), kElementColumns[static_cast<std::size_t>(k)].name);
    }
    sqlite3_finalize(statement);
}

TEST_F(ViewTest, AParabolaHasNoPeriodAxisOrMotionAndItsOwnMeanAnomaly) {
    const auto id = add("2.0", "1.0", "10", perihelion2000("2000", "1", "11"));
    for (const char* name : {"n_calc", "a_calc", "Q_calc", "P_calc"}) {
        EXPECT_EQ(column(name, id).text, "n/a") << name;
        EXPECT_EQ(column(name, id).type, SQLITE_TEXT) << name;
    }
    EXPECT_EQ(classOf(id), "Parabolic");
    const double parabolic = (180 / kPi) * ((kGauss / std::sqrt(2.0)) * 10.0 / power(2.0, 1.5));
    EXPECT_NEAR(column("M_calc", id).real, parabolic, 1e-12);
    EXPECT_NEAR(column("M_calc", id).real, 2.46401917, 1e-8);
}

TEST_F(ViewTest, AHyperbolaHasANegativeAxisAndAnUnreducedAnomaly) {
    const auto after = add("2.0", "1.5", "10", perihelion2000("2010", "12", "14"));
    EXPECT_EQ(column("a_calc", after).real, -4.0);
    for (const char* name : {"n_calc", "Q_calc", "P_calc"}) {
        EXPECT_EQ(column(name, after).text, "n/a") << name;
    }
    EXPECT_EQ(classOf(after), "Hyperbolic");
    const double days = 2455544.5 - kJan1st2000;  // 2010-12-14
    ASSERT_EQ(value("julianday('2010-12-14 00:00:00')").real, 2455544.5);
    const double m = ellipticOrHyperbolicAnomaly(2.0, 1.5, days);
    ASSERT_GT(m, 360.0);
    EXPECT_NEAR(column("M_calc", after).real, m, 1e-9);

    const auto before = add("2.0", "1.5", "10", perihelion2000("1989", "1", "19"));
    const double back = ellipticOrHyperbolicAnomaly(2.0, 1.5, value("julianday('1989-01-19')").real - kJan1st2000);
    ASSERT_LT(back, -360.0);
    EXPECT_NEAR(column("M_calc", before).real, back, 1e-9);
}

TEST_F(ViewTest, ABlankEpochYearMeansTheEpochIsThePerihelion) {
    const auto id = add("1.0", "0.5", "10", {{"hyear", "2000"}, {"hmonth", "1"}, {"hday", "5.25"}, {"E_year", "    "}});
    EXPECT_EQ(column("M_calc", id).real, 0.0);
    EXPECT_EQ(column("M_calc", id).type, SQLITE_FLOAT);
}

TEST_F(ViewTest, YearMinus43GoesThroughJuliandayAsMinus0043) {
    const auto id = add("1.0", "0", "10",
                        {{"hyear", "-43"}, {"hmonth", "2"}, {"hday", "19.5"}, {"E_year", "-43"}, {"E_month", "3"},
                         {"E_day", "1"}});
    EXPECT_EQ(value("julianday('-0043-03-01 00:00:00') - julianday('-0043-02-19 00:00:00')").real, 10.0);
    EXPECT_NEAR(column("M_calc", id).real, ellipticOrHyperbolicAnomaly(1.0, 0.0, 9.5), 1e-12);
}

TEST_F(ViewTest, AnEllipseIsReducedTo0Through360) {
    const auto id = add("1.0", "0", "10", perihelion2000("2001", "1", "1"));
    const double ahead = ellipticOrHyperbolicAnomaly(1.0, 0.0, 366);
    ASSERT_GT(ahead, 360.0);
    EXPECT_NEAR(column("M_calc", id).real, ahead - 360, 1e-9);
    EXPECT_NEAR(column("n_calc", id).real, (180 / kPi) * kGauss, 1e-15);
    EXPECT_EQ(column("a_calc", id).real, 1.0);
    EXPECT_EQ(column("Q_calc", id).real, 1.0);
    EXPECT_EQ(column("P_calc", id).real, 1.0);

    // Before perihelion: round(-0.27) is 0, the anomaly stays negative and 360 is added.
    const auto early = add("1.0", "0", "10", perihelion2000("1999", "9", "23"));
    const double behind = ellipticOrHyperbolicAnomaly(1.0, 0.0, -100);
    EXPECT_NEAR(column("M_calc", early).real, behind + 360, 1e-9);

    // Three turns less a little: round gives 3, the rest is negative, 360 is added.
    const auto late = add("1.0", "0", "10", perihelion2000("2002", "12", "1"));
    const double far = ellipticOrHyperbolicAnomaly(1.0, 0.0, 1065);
    EXPECT_NEAR(column("M_calc", late).real, reduced(far), 1e-9);
    EXPECT_NEAR(column("M_calc", late).real, far - 720, 1e-9);
}

TEST_F(ViewTest, AnEllipseHasItsAxisAphelionPeriodAndMotion) {
    const auto id = add("1.0", "0.5", "10", perihelion2000("2000", "1", "1"));
    EXPECT_EQ(column("a_calc", id).real, 2.0);
    EXPECT_EQ(column("Q_calc", id).real, 3.0);
    EXPECT_EQ(column("P_calc", id).real, power(2.0, 1.5));
    EXPECT_NEAR(column("n_calc", id).real, (180 / kPi) * (kGauss / power(2.0, 1.5)), 1e-15);
    EXPECT_EQ(column("M_calc", id).real, 0.0);
}

TEST_F(ViewTest, EachClassBranch) {
    EXPECT_EQ(classOf(add("1.243", "0.641", "7.04", perihelion2000("2000", "1", "1"))), "Jupiter-family");
    EXPECT_EQ(classOf(add("0.336", "0.848", "11.78", perihelion2000("2000", "1", "1"))), "Encke-type");
    EXPECT_EQ(classOf(add("8.45", "0.38", "6.9", perihelion2000("2000", "1", "1"))), "Chiron-type");
    EXPECT_EQ(classOf(add("0.3", "0.9", "170", perihelion2000("2000", "1", "1"))), "Jupiter-family*");
    EXPECT_EQ(classOf(add("0.586", "0.967", "162.2", perihelion2000("2000", "1", "1"))), "Halley-type");
    EXPECT_EQ(classOf(add("0.5", "0.99", "90", perihelion2000("2000", "1", "1"))), "No class");
}

TEST_F(ViewTest, TisserandValuesOfExactly3Or2FallThroughToThePeriod) {
    const auto three = add("5.204", "0", "0", perihelion2000("2000", "1", "1"));
    ASSERT_EQ(tisserand(three), 3.0);
    EXPECT_EQ(classOf(three), "Jupiter-family*");

    const auto two = add("2.602", "0", "90", perihelion2000("2000", "1", "1"));
    ASSERT_EQ(tisserand(two), 2.0);
    EXPECT_EQ(classOf(two), "Jupiter-family*");

    const auto aboveTwo = add("2.602", "0", "89", perihelion2000("2000", "1", "1"));
    ASSERT_GT(tisserand(aboveTwo), 2.0);
    EXPECT_EQ(classOf(aboveTwo), "Jupiter-family");
}

TEST_F(ViewTest, APeriodOfExactly20YearsFallsToNoClass) {
    // Retrograde circular orbits keep the Tisserand value below 2.
    const double a20 = 7.3680629972807736;
    ASSERT_EQ(power(a20, 1.5), 20.0);
    const auto exact = addAt(a20, 0.0, 180.0);
    ASSERT_EQ(column("P_calc", exact).real, 20.0);
    ASSERT_LT(tisserand(exact), 2.0);
    EXPECT_EQ(classOf(exact), "No class");
    EXPECT_EQ(classOf(addAt(std::nextafter(a20, 0.0), 0.0, 180.0)), "Jupiter-family*");
    EXPECT_EQ(classOf(addAt(std::nextafter(a20, 100.0), 0.0, 180.0)), "Halley-type");
}

TEST_F(ViewTest, PeriodsAround200Years) {
    // No double axis gives a period of exactly 200: the neighbours on either side
    // are Halley-type below and no class above.
    double a = std::cbrt(40000.0);
    while (power(a, 1.5) >= 200.0) {
        a = std::nextafter(a, 0.0);
    }
    while (power(std::nextafter(a, 100.0), 1.5) < 200.0) {
        a = std::nextafter(a, 100.0);
    }
    const auto below = addAt(a, 0.0, 180.0);
    const auto above = addAt(std::nextafter(a, 100.0), 0.0, 180.0);
    ASSERT_LT(column("P_calc", below).real, 200.0);
    ASSERT_GT(column("P_calc", above).real, 200.0);
    EXPECT_EQ(classOf(below), "Halley-type");
    EXPECT_EQ(classOf(above), "No class");
}

TEST_F(ViewTest, TheColumnTableReadsTheCalculatedTexts) {
    const auto id = add("2.0", "1.0", "10", perihelion2000("2000", "1", "11"));
    ColumnTables tables = buildColumnTables();
    Statement statement;
    ASSERT_EQ(sql::prepareSelect(db, "e_elements", tables.allColumns, statement, " where id=" + std::to_string(id)),
              SQLITE_OK);
    bool done = true;
    sql::nextRow(statement, tables.allColumns, done);
    ASSERT_FALSE(done);
    const auto text = [&](std::string_view name) {
        const std::size_t k = elementColumnIndex(name);
        return sql::getText(tables.allColumns[k], kElementColumns[k].width);
    };
    EXPECT_EQ(text("a_calc"), sql::padText("n/a", 17));
    EXPECT_EQ(text("P_calc"), sql::padText("n/a", 17));
    EXPECT_EQ(text("class_calc"), sql::padText("Parabolic", 30));
    EXPECT_EQ(text("e"), sql::padText("1.0", 14));
    EXPECT_EQ(text("hinfo"), sql::padText("No Information Available...", 5000));
    EXPECT_EQ(text("id"), sql::padText(std::to_string(id), 10));
}

}  // namespace
}  // namespace orvane
