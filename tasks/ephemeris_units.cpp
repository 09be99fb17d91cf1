#include "tasks/ephemeris_units.h"

#include <numbers>

namespace orvane {

namespace {

std::string inBrackets(const std::string& word) { return "(" + word + ")"; }

}  // namespace

UnitLabels MakeUnitLabels(const TaskOptions& options, const TaskTexts& texts) {
    UnitLabels labels;
    labels.distance = inBrackets(options.distanceUnitsKm ? texts.km : texts.au);
    labels.velocity = inBrackets(options.distanceUnitsKm ? texts.kmPerSecond : texts.auPerDay);
    labels.angle = inBrackets(options.angleUnitsRadians ? texts.rad : texts.deg);
    labels.rate = inBrackets(options.angleUnitsRadians ? texts.radPerDay : texts.degPerDay);
    labels.period = inBrackets(texts.year);
    return labels;
}

UnitFactors MakeUnitFactors(const TaskOptions& options) {
    UnitFactors factors;
    if (options.distanceUnitsKm) {
        factors.distance = kKilometresPerAu;
        factors.velocity = kKilometresPerAu / 86400.0;
    }
    if (options.angleUnitsRadians) factors.angle = std::numbers::pi / 180.0;
    return factors;
}

}  // namespace orvane
