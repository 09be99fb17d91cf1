#include "records/validation.h"

#include <gtest/gtest.h>

#include "records/field_rules.h"
#include "records_test_support.h"

namespace {

using namespace orvane;

const RecordTexts& texts() {
    static const RecordTexts t = orvane::testing::englishTexts();
    return t;
}

ValidationResult judge(OrbitRecord& record) {
    return validateRecords(std::span<OrbitRecord>(&record, 1), texts());
}

ValidationResult judgeWith(Field field, std::string_view value) {
    OrbitRecord r = orvane::testing::halley();
    r.set(field, value);
    return judge(r);
}

std::string messageFor(Field field, std::string_view value) { return judgeWith(field, value).message; }

TEST(Validation, AGoodRecordPasses) {
    OrbitRecord r = orvane::testing::halley();
    const ValidationResult result = judge(r);
    EXPECT_EQ(result.faultRecord, 0u);
    EXPECT_EQ(result.faultKind, 0);
    EXPECT_EQ(validationMessageText(result, texts(), true), "");
}

TEST(Validation, CometNumberTextTests) {
    EXPECT_EQ(messageFor(Field::comet, "12 3"), "- Periodic comet number should not contain spaces.");
    EXPECT_EQ(messageFor(Field::comet, "12,"), "- Periodic comet number should not contain commas.");
    EXPECT_EQ(messageFor(Field::comet, "-4"), "- Periodic comet number must be positive.");
    EXPECT_EQ(messageFor(Field::comet, "0"), "- Periodic comet number must be positive.");
    EXPECT_EQ(messageFor(Field::comet, "12345678901"),
              "- Periodic comet number should not exceed 10 significant characters.");
    EXPECT_EQ(messageFor(Field::comet, "1.5"), "- Periodic comet number must be an integer.");
    EXPECT_EQ(messageFor(Field::comet, "9999999999"), "- Periodic comet number must be an integer.");
    const ValidationResult result = judgeWith(Field::comet, "12 3");
    EXPECT_EQ(result.faultKind, kFaultValue);
    EXPECT_EQ(result.fieldLabel, "\"periodic comet number\"");
    EXPECT_EQ(result.focusField, Field::comet);
}

TEST(Validation, TheFourTextTestsRunInOrder) {
    // Spaces before length, length before commas, commas before the read.
    EXPECT_EQ(messageFor(Field::q, "1 ,2345678901234567"), "- Perihelion distance value should not contain spaces.");
    EXPECT_EQ(messageFor(Field::q, "1,23456789012345"),
              "- Perihelion distance value should not exceed 15 significant characters.");
    EXPECT_EQ(messageFor(Field::q, "1,x"), "- Perihelion distance value should not contain commas.");
    EXPECT_EQ(messageFor(Field::q, "abc"), "- Perihelion distance value should be a real type.");
    EXPECT_EQ(messageFor(Field::q, "200"), "- Perihelion distance value should be in the range (0; 100) AU.");
    // A leading blank stands before the end of the value.
    EXPECT_EQ(messageFor(Field::q, " 0.5"), "- Perihelion distance value should not contain spaces.");
    EXPECT_EQ(messageFor(Field::hyear, "20x4"), "- Year of perihelion passage value must be an integer.");
}

TEST(Validation, EccentricityAndDistanceBounds) {
    EXPECT_EQ(messageFor(Field::e, "10"), "- Orbital eccentricity value should be in the range [0; 10).");
    EXPECT_EQ(messageFor(Field::e, "9.5"), "");
    EXPECT_EQ(messageFor(Field::e, "0"), "");
    EXPECT_EQ(messageFor(Field::q, "0"), "- Perihelion distance value should be in the range (0; 100) AU.");
    EXPECT_EQ(messageFor(Field::q, "99.99"), "");
}

TEST(Validation, RangesOfTheOtherNumbers) {
    EXPECT_EQ(messageFor(Field::P, "1000"), "- Orbital period value should be in the range (0; 1000) years.");
    EXPECT_EQ(messageFor(Field::w, "360"), "");
    EXPECT_EQ(messageFor(Field::w, "360.01"),
              "- Argument of perihelion value should be in the range from 0 to 360 deg.");
    EXPECT_EQ(messageFor(Field::i, "180.5"),
              "- Inclination to ecliptic value should be in the range from 0 to 180 deg.");
    EXPECT_EQ(messageFor(Field::A2, "99.5"),
              "- Non-grav. parameter value should be in the range from -99 to 99*10e-8 AU/day^2.");
    EXPECT_EQ(judgeWith(Field::A2, "99.5").fieldLabel, "\"non-grav. transverse acceleration parameter\"");
    EXPECT_EQ(messageFor(Field::DFoto, "-100000"),
              "- Center-of-light/mass offset value should be in the range (-100000; 100000) km.");
    EXPECT_EQ(messageFor(Field::Albedo, "1"), "");
    EXPECT_EQ(messageFor(Field::Albedo, "1.01"), "- Geometric albedo value should be in the range from 0 to 1.");
    EXPECT_EQ(messageFor(Field::RMS, "100"), "- RMS of orbit fit value should be in the range [0; 100) arcsec.");
    EXPECT_EQ(messageFor(Field::F_day, "31"), "");
    EXPECT_EQ(messageFor(Field::F_day, "32"), "- Day of first observation value should be in the range [1; 31].");
    EXPECT_EQ(messageFor(Field::hPlan, "0"), "- Number of perturbing planets must be positive.");
    EXPECT_EQ(messageFor(Field::Obs, "-1"), "- Number of observations used in solution must be positive.");
}

TEST(Validation, TextsAndChoices) {
    EXPECT_EQ(messageFor(Field::name, std::string(61, 'x')), "- The length of this field is limited to 60 characters.");
    EXPECT_EQ(messageFor(Field::name, std::string(60, 'x')), "");
    EXPECT_EQ(messageFor(Field::name, "It's a name, with blanks"), "");
    EXPECT_EQ(messageFor(Field::b_perturber, "M-vx"), "- The length of this field is limited to 3 characters.");
    EXPECT_EQ(messageFor(Field::htype, "X"), "- Orbit should be C, P or D type.");
    EXPECT_EQ(messageFor(Field::htype, "D"), "");
    EXPECT_EQ(messageFor(Field::Astyle, "III"), "- Non-grav. parameters style should be I or II type.");
    EXPECT_EQ(messageFor(Field::Astyle, "II"), "");
    EXPECT_EQ(messageFor(Field::hinfo, std::string(5001, 'x')),
              "- The length of this field is limited to 5000 characters.");
}

TEST(Validation, ErrorsNeedTheirValue) {
    EXPECT_EQ(messageFor(Field::RotP_err, "0.5"), "- Rotation period value must be filled in this case.");
    EXPECT_EQ(judgeWith(Field::RotP_err, "0.5").focusField, Field::RotP);
    EXPECT_EQ(messageFor(Field::q_err, "-0.1"), "- Perihelion distance error must be positive.");
    EXPECT_EQ(messageFor(Field::q_err, "0.0001"), "");
    EXPECT_EQ(messageFor(Field::q_err, "1 e"), "- Perihelion distance error value should not contain spaces.");
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::A1, "1.5");
    r.set(Field::A1_err, "x");
    EXPECT_EQ(judge(r).message, "- Non-grav. radial acceleration parameter error value should be a real type.");
}

TEST(Validation, RequiredFieldIsKind2) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::q, "");
    const ValidationResult result = judge(r);
    EXPECT_EQ(result.faultKind, kFaultRequired);
    EXPECT_EQ(result.fieldLabel, "\"perihelion distance\"");
    EXPECT_EQ(validationMessageText(result, texts(), true),
              "One or more strings contains are incorrect.\r\nRequired field is empty!\r\nSuggestions:\r\n"
              "Fill the \"perihelion distance\" field at 1 record.");
}

TEST(Validation, OnlyHyearFilledFailsAtHmonth) {
    OrbitRecord r;
    r.set(Field::hyear, "2000");
    const ValidationResult result = judge(r);
    EXPECT_EQ(result.faultKind, kFaultRequired);
    EXPECT_EQ(result.fieldLabel, "\"month of perihelion passage\"");
    EXPECT_EQ(result.focusField, Field::hmonth);
}

TEST(Validation, EpochYearWithoutMonthIsKind3) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::E_month, "");
    const ValidationResult result = judge(r);
    EXPECT_EQ(result.faultKind, kFaultIncompleteDate);
    EXPECT_EQ(result.fieldLabel, "\"date of the epoch\"");
    EXPECT_EQ(validationMessageText(result, texts(), true),
              "One or more strings contains are incorrect.\r\nRequired field is empty!\r\nSuggestions:\r\n"
              "Fill the all \"date of the epoch\" fields at 1 record.");
    // A blank epoch is allowed.
    OrbitRecord none = orvane::testing::halley();
    none.set(Field::E_year, "");
    none.set(Field::E_month, "");
    none.set(Field::E_day, "");
    EXPECT_EQ(judge(none).faultKind, 0);
}

TEST(Validation, FormatErrorMessageNamesFieldAndRecord) {
    std::vector<OrbitRecord> batch(3, orvane::testing::halley());
    batch[2].set(Field::q, "0");
    const ValidationResult result = validateRecords(batch, texts());
    EXPECT_EQ(result.faultRecord, 3u);
    EXPECT_EQ(validationMessageText(result, texts(), true),
              "One or more strings contains are incorrect.\r\nElements format error! \"perihelion distance\" at 3 "
              "record.\r\nSuggestions:\r\n- Perihelion distance value should be in the range (0; 100) AU.");
    EXPECT_EQ(validationMessageText(result, texts(), false),
              "Elements format error!\r\nSuggestions:\r\n- Perihelion distance value should be in the range (0; 100) AU.");
}

TEST(Validation, StopsAtTheFirstFaultyRecord) {
    std::vector<OrbitRecord> batch(4, orvane::testing::halley());
    batch[1].set(Field::e, "10");
    batch[3].set(Field::q, "");
    EXPECT_EQ(validateRecords(batch, texts()).faultRecord, 2u);
}

TEST(Validation, CalendarLimitsOfThePerihelion) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::hyear, "3000");
    r.set(Field::hmonth, "4");
    r.set(Field::hday, "1");
    EXPECT_EQ(judge(r).message, "- In this case, month of perihelion passage value should be less then 4.");
    r.set(Field::hmonth, "3");
    r.set(Field::hday, "3.5");
    EXPECT_EQ(judge(r).message, "- In this case, day of perihelion passage value should be less then 3.");
    EXPECT_EQ(judge(r).fieldLabel, "\"day of perihelion passage\"");
    r.set(Field::hday, "3.0");
    EXPECT_EQ(judge(r).faultKind, 0);
    r.set(Field::hyear, "-3000");
    r.set(Field::hmonth, "1");
    r.set(Field::hday, "25");
    EXPECT_EQ(judge(r).message, "- In this case, month of perihelion passage value should be greater then 1.");
    r.set(Field::hmonth, "2");
    r.set(Field::hday, "21.9");
    EXPECT_EQ(judge(r).message, "- In this case, day of perihelion passage value should be greater then 21.");
    r.set(Field::hmonth, "2");
    r.set(Field::hday, "22");
    EXPECT_EQ(judge(r).faultKind, 0);
}

TEST(Validation, CalendarLimitsOfTheEpochKeepTheirSentences) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::E_year, "3000");
    r.set(Field::E_month, "4");
    r.set(Field::E_day, "1");
    EXPECT_EQ(judge(r).message, "- In this case, month of the epoch value should be less then 4.");
    r.set(Field::E_month, "3");
    r.set(Field::E_day, "4");
    // The test stops at day 3; its sentence says "less then 4".
    EXPECT_EQ(judge(r).message, "- In this case, day of the epoch value should be less then 4.");
    r.set(Field::E_day, "3");
    EXPECT_EQ(judge(r).faultKind, 0);
    r.set(Field::E_year, "-3000");
    r.set(Field::E_month, "1");
    r.set(Field::E_day, "30");
    EXPECT_EQ(judge(r).message, "- In this case, month of the epoch value should be greater then 1.");
    r.set(Field::E_month, "2");
    r.set(Field::E_day, "21");
    EXPECT_EQ(judge(r).message, "- In this case, day of the epoch value should be greater then 21.");
}

TEST(Validation, Day31Point5OfFebruaryMovesIntoMarch) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::hyear, "2001");
    r.set(Field::hmonth, "2");
    r.set(Field::hday, "31.5");
    ASSERT_EQ(judge(r).faultKind, 0);
    EXPECT_EQ(r.get(Field::hyear), "2001");
    EXPECT_EQ(r.get(Field::hmonth), "3");
    EXPECT_EQ(r.get(Field::hday), "3.5");
}

TEST(Validation, DatesAreNormalisedThroughTheCalendar) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::hyear, "1582");
    r.set(Field::hmonth, "10");
    r.set(Field::hday, "10.25");
    r.set(Field::E_year, "2000");
    r.set(Field::E_month, "02");
    r.set(Field::E_day, "30");
    r.set(Field::F_year, "1999");
    r.set(Field::F_month, "12");
    r.set(Field::F_day, "31");
    r.set(Field::L_year, "2023");
    r.set(Field::L_month, "2");
    r.set(Field::L_day, "29");
    ASSERT_EQ(judge(r).faultKind, 0);
    EXPECT_EQ(r.get(Field::hmonth), "10");
    EXPECT_EQ(r.get(Field::hday), "15.25");  // the dropped days become October 15
    EXPECT_EQ(r.get(Field::E_month), "3");
    EXPECT_EQ(r.get(Field::E_day), "1");
    EXPECT_EQ(r.get(Field::F_day), "31");
    EXPECT_EQ(r.get(Field::L_month), "3");
    EXPECT_EQ(r.get(Field::L_day), "1");
}

TEST(Validation, DayFractionKeepsItsDigits) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::hday, "07.123456789012");
    ASSERT_EQ(judge(r).faultKind, 0);
    EXPECT_EQ(r.get(Field::hday), "7.123456789012");
    r.set(Field::hday, "2.55e1");
    ASSERT_EQ(judge(r).faultKind, 0);
    EXPECT_EQ(r.get(Field::hday), "25.5");
    r.set(Field::hday, "12");
    ASSERT_EQ(judge(r).faultKind, 0);
    EXPECT_EQ(r.get(Field::hday), "12");
}

TEST(Validation, IncompleteObservationDateIsJudgedPartByPart) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::F_year, "2000");
    r.set(Field::F_day, "30");
    ASSERT_EQ(judge(r).faultKind, 0);
    EXPECT_EQ(r.get(Field::F_day), "30");
    EXPECT_TRUE(r.blank(Field::F_month));
}

TEST(Validation, FieldsAreCutAtANul) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::q, std::string("0.5\0junk", 8));
    EXPECT_EQ(judge(r).faultKind, 0);
}

TEST(Validation, EveryRuleHasItsSentences) {
    for (const FieldRule& rule : fieldRules()) {
        EXPECT_FALSE(texts().error(rule.labelKey).empty()) << fieldName(rule.field);
        EXPECT_EQ(texts().error(rule.labelKey).front(), '"') << fieldName(rule.field);
        EXPECT_FALSE(texts().error(rule.messageKey).empty()) << fieldName(rule.field);
        if (rule.kind == RuleKind::Integer || rule.kind == RuleKind::Real) {
            EXPECT_NE(texts().error(rule.messageKey).find("spaces"), std::string::npos) << fieldName(rule.field);
            EXPECT_NE(texts().error(rule.messageKey + 1).find("exceed " + std::to_string(rule.limit)),
                      std::string::npos) << fieldName(rule.field);
            EXPECT_NE(texts().error(rule.messageKey + 2).find("commas"), std::string::npos) << fieldName(rule.field);
        }
    }
}

}  // namespace
