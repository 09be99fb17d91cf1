#include "records/field_rules.h"

#include <array>

namespace orvane {
namespace {

using F = Field;
using K = RuleKind;

constexpr ValueRange closed(double low, double high) { return {low, high, true, true, false}; }
constexpr ValueRange open(double low, double high) { return {low, high, false, false, false}; }
constexpr ValueRange rightOpen(double low, double high) { return {low, high, true, false, false}; }
constexpr ValueRange positive() { return {0, 0, false, false, true}; }
constexpr ValueRange none() { return {}; }

constexpr FieldRule number(F field, K kind, int label, int limit, ValueRange range) {
    return {field, kind, label, limit, label + 1, range};
}
constexpr FieldRule sharedSentences(F field, int label, int limit, int messages, ValueRange range) {
    return {field, K::Real, label, limit, messages, range};
}
constexpr FieldRule text(F field, int label, int limit, int message) {
    return {field, K::Text, label, limit, message, none()};
}
constexpr FieldRule choice(F field, int label, int message) {
    return {field, K::Choice, label, 0, message, none()};
}
constexpr FieldRule error(F field, F of, int label, int mustFill) {
    return {field, K::Real, label, 17, label + 1, positive(), true, of, mustFill};
}

constexpr std::array<FieldRule, 66> kRules{{
    number(F::comet, K::Integer, 1, 10, positive()),
    text(F::name, 7, 60, 8),
    text(F::des, 9, 30, 10),
    text(F::olddes, 11, 30, 10),
    choice(F::htype, 12, 13),
    number(F::E_year, K::Integer, 36, 5, closed(-3000, 3000)),
    number(F::E_month, K::Integer, 42, 2, closed(1, 12)),
    number(F::E_day, K::Integer, 50, 2, rightOpen(1, 32)),
    number(F::hyear, K::Integer, 14, 5, closed(-3000, 3000)),
    number(F::hmonth, K::Integer, 20, 2, closed(1, 12)),
    number(F::hday, K::Real, 28, 15, rightOpen(1, 32)),
    error(F::hday_err, F::hday, 229, 0),
    number(F::q, K::Real, 59, 15, open(0, 100)),
    error(F::q_err, F::q, 235, 0),
    number(F::e, K::Real, 65, 14, rightOpen(0, 10)),
    error(F::e_err, F::e, 241, 0),
    number(F::P, K::Real, 71, 6, open(0, 1000)),
    number(F::w, K::Real, 77, 16, closed(0, 360)),
    error(F::w_err, F::w, 247, 0),
    number(F::Om, K::Real, 83, 16, closed(0, 360)),
    error(F::Om_err, F::Om, 253, 0),
    number(F::i, K::Real, 89, 16, closed(0, 180)),
    error(F::i_err, F::i, 259, 0),
    number(F::A1, K::Real, 95, 16, closed(-99, 99)),
    error(F::A1_err, F::A1, 266, 265),
    sharedSentences(F::A2, 101, 16, 96, closed(-99, 99)),
    error(F::A2_err, F::A2, 273, 272),
    sharedSentences(F::A3, 102, 16, 96, closed(-99, 99)),
    error(F::A3_err, F::A3, 280, 279),
    choice(F::Astyle, 103, 104),
    number(F::NGE_DT, K::Real, 105, 17, closed(-999, 999)),
    error(F::NGE_DT_err, F::NGE_DT, 287, 286),
    number(F::DFoto, K::Real, 111, 17, open(-100000, 100000)),
    error(F::DFoto_err, F::DFoto, 294, 293),
    number(F::Obs, K::Integer, 117, 10, positive()),
    number(F::F_year, K::Integer, 123, 5, closed(-3000, 3000)),
    number(F::F_month, K::Integer, 129, 2, closed(1, 12)),
    number(F::F_day, K::Integer, 135, 2, closed(1, 31)),
    number(F::L_year, K::Integer, 141, 5, closed(-3000, 3000)),
    number(F::L_month, K::Integer, 147, 2, closed(1, 12)),
    number(F::L_day, K::Integer, 153, 2, closed(1, 31)),
    text(F::hsystem, 159, 60, 8),
    number(F::hPlan, K::Integer, 160, 10, positive()),
    text(F::SBP, 166, 60, 8),
    text(F::b_perturber, 167, 3, 168),
    text(F::f_perturber, 169, 4, 170),
    number(F::RMS, K::Real, 171, 8, rightOpen(0, 100)),
    text(F::hreference, 177, 60, 8),
    text(F::Producer, 178, 60, 8),
    number(F::Diameter, K::Real, 179, 16, open(0, 1000)),
    error(F::Diameter_err, F::Diameter, 301, 300),
    number(F::ARatio, K::Real, 185, 16, rightOpen(0, 1000)),
    error(F::ARatio_err, F::ARatio, 308, 307),
    number(F::RotP, K::Real, 191, 16, rightOpen(0, 1000)),
    error(F::RotP_err, F::RotP, 315, 314),
    number(F::Albedo, K::Real, 197, 14, closed(0, 1)),
    error(F::Albedo_err, F::Albedo, 322, 321),
    number(F::M1, K::Real, 203, 16, closed(-50, 50)),
    error(F::M1_err, F::M1, 329, 328),
    number(F::K1, K::Real, 209, 16, closed(-50, 50)),
    error(F::K1_err, F::K1, 336, 335),
    number(F::M2, K::Real, 215, 16, closed(-50, 50)),
    error(F::M2_err, F::M2, 343, 342),
    number(F::K2, K::Real, 221, 16, closed(-50, 50)),
    error(F::K2_err, F::K2, 350, 349),
    text(F::hinfo, 227, 5000, 228),
}};

constexpr bool rulesInFieldOrder() {
    for (std::size_t k = 0; k + 1 < kRules.size(); ++k) {
        if (fieldIndex(kRules[k].field) + 1 != fieldIndex(kRules[k + 1].field) &&
            kRules[k + 1].field != F::hinfo) {
            return false;
        }
    }
    return kRules.front().field == kFirstBodyField;
}
static_assert(rulesInFieldOrder());

}  // namespace

std::span<const FieldRule> fieldRules() { return kRules; }

const FieldRule* ruleOf(Field field) {
    for (const auto& rule : kRules) {
        if (rule.field == field) return &rule;
    }
    return nullptr;
}

bool isRequiredField(Field field) {
    switch (field) {
        case F::hyear: case F::hmonth: case F::hday: case F::q: case F::e: case F::w: case F::Om:
        case F::i:
            return true;
        default:
            return false;
    }
}

}  // namespace orvane
