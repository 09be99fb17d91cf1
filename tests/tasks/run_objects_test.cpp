#include "tasks/run_objects.h"

#include <cmath>

#include <gtest/gtest.h>

#include "astro/calendar.h"
#include "tasks/option_rules.h"

namespace {

using namespace orvane;

OrbitRecord wild() {
    OrbitRecord r;
    r.set(Field::comet, "81");
    r.set(Field::htype, "P");
    r.set(Field::name, "Wild");
    r.set(Field::hyear, "2022");
    r.set(Field::hmonth, "12");
    r.set(Field::hday, "15.5998");
    r.set(Field::q, "1.597163");
    r.set(Field::e, "0.537361");
    r.set(Field::w, "41.5722");
    r.set(Field::Om, "136.0939");
    r.set(Field::i, "3.2373");
    r.set(Field::E_year, "2024");
    r.set(Field::E_month, "9");
    r.set(Field::E_day, "7");
    r.set(Field::A1, "0.5");
    r.set(Field::M1, "7.0");
    r.set(Field::K1, "6.0");
    return r;
}

TEST(RunObjects, RecordBecomesTheBlockOfItsEpoch) {
    RunObject object;
    std::string bad;
    ASSERT_TRUE(MakeRunObject(wild(), 2460745.5, object, bad)) << bad;
    EXPECT_EQ(object.name, "81P/Wild");
    EXPECT_EQ(object.epochBlock.time, 2460560.5);
    EXPECT_EQ(object.epochBlock.Tp, CalendarToJulian(2022, 12, 15.5998));
    EXPECT_EQ(object.epochBlock.q, 1.597163);
    EXPECT_EQ(object.epochBlock.A1, 0.5);
    EXPECT_EQ(object.block.time, object.epochBlock.time);
    EXPECT_EQ(object.targetTime, 2460745.5);
    EXPECT_EQ(object.H, 7.0);
    EXPECT_EQ(object.G, 6.0);
    EXPECT_EQ(object.H2, 0.0);
    // The state lies on the orbit: |r| = q (1 + e) / (1 + e cos v) between q and Q.
    const IntegrationBlock& b = object.epochBlock;
    const double r = std::sqrt(b.x * b.x + b.y * b.y + b.z * b.z);
    EXPECT_GT(r, 1.597163);
    EXPECT_LT(r, 1.597163 * (1.0 + 0.537361) / (1.0 - 0.537361));
}

TEST(RunObjects, WithoutEpochThePerihelionIsTheEpoch) {
    OrbitRecord r = wild();
    r.set(Field::E_year, "");
    r.set(Field::E_month, "");
    r.set(Field::E_day, "");
    RunObject object;
    std::string bad;
    ASSERT_TRUE(MakeRunObject(r, 2460745.5, object, bad));
    EXPECT_EQ(object.epochBlock.time, object.epochBlock.Tp);
}

TEST(RunObjects, BadNumbersAreRefusedWithTheirField) {
    const std::pair<Field, const char*> cases[] = {
        {Field::q, ""}, {Field::q, "1.5x"}, {Field::q, "-1"}, {Field::e, "nan"}, {Field::hmonth, "13"},
        {Field::hday, "1e999"}, {Field::i, "'; drop table elements; --"}, {Field::A2, "0..1"}, {Field::E_day, "40"},
    };
    for (const auto& [field, text] : cases) {
        OrbitRecord r = wild();
        r.set(field, text);
        RunObject object;
        std::string bad;
        EXPECT_FALSE(MakeRunObject(r, 2460745.5, object, bad)) << fieldName(field) << " = " << text;
        EXPECT_EQ(bad, fieldName(field)) << text;
    }
}

TEST(OptionRules, ListsLeaveOnlyWhatThePageAllows) {
    TaskOptions o;
    o.ephemerisType = 2;
    o.coordinateKind = 0;
    o.mainPlane = 2;
    o.referenceSystem = 2;
    o.observerPlace = 1;
    ApplyOptionRules(o);
    EXPECT_EQ(o.coordinateKind, 1);
    EXPECT_EQ(o.mainPlane, 0);
    EXPECT_EQ(o.referenceSystem, 0);
    EXPECT_EQ(o.observerPlace, 0);

    TaskOptions s;
    s.centralBody = 5;
    s.mainPlane = 2;
    s.observerPlace = 0;
    ApplyOptionRules(s);
    EXPECT_EQ(s.centralBody, 3);
    EXPECT_EQ(s.observerPlace, 1);

    TaskOptions r;
    r.ephemerisType = 1;
    r.centralBody = 5;
    ApplyOptionRules(r);
    EXPECT_EQ(r.centralBody, 5);
    EXPECT_EQ(r.observerPlace, 0);

    TaskOptions a;
    a.referenceSystem = 2;
    ApplyOptionRules(a);
    EXPECT_EQ(a.referenceSystem, 0);
    a.coordinateKind = 2;
    a.referenceSystem = 2;
    ApplyOptionRules(a);
    EXPECT_EQ(a.referenceSystem, 2);
}

TEST(OptionRules, ObserverOfTheDefaultPlace) {
    TaskOptions o;
    DeriveObserverOf(o);
    EXPECT_DOUBLE_EQ(o.latitudeDegrees, 59.0 + 46.0 / 60.0 + 19.62 / 3600.0);
    EXPECT_DOUBLE_EQ(o.longitudeDegrees, 30.0 + 19.0 / 60.0 + 38.64 / 3600.0);
    EXPECT_GT(o.observerRhoCos, 0.0);
    EXPECT_GT(o.observerRhoSin, 0.0);
    o.latitudeHemisphere = 1;
    o.longitudeHemisphere = 1;
    DeriveObserverOf(o);
    EXPECT_DOUBLE_EQ(o.latitudeDegrees, -(59.0 + 46.0 / 60.0 + 19.62 / 3600.0));
    EXPECT_DOUBLE_EQ(o.longitudeDegrees, 360.0 - (30.0 + 19.0 / 60.0 + 38.64 / 3600.0));
    EXPECT_LT(o.observerRhoSin, 0.0);
}

}  // namespace
