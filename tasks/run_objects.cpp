#include "tasks/run_objects.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

#include "astro/calendar.h"
#include "catalogue/brief_info.h"
#include "dynamics/calculation_run.h"

namespace orvane {

namespace {

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The number of a field; a blank field is `fallback` when one is allowed.
bool number(const OrbitRecord& record, Field field, double& value, bool required, std::string& badField,
            double fallback = 0.0) {
    const std::string text(trimmed(record.get(field)));
    if (text.empty()) {
        value = fallback;
        if (required) badField = std::string(fieldName(field));
        return !required;
    }
    char* end = nullptr;
    errno = 0;
    value = std::strtod(text.c_str(), &end);
    if (end == text.c_str() || *end != '\0' || errno == ERANGE || !std::isfinite(value)) {
        badField = std::string(fieldName(field));
        return false;
    }
    return true;
}

bool date(const OrbitRecord& record, Field year, Field month, Field day, double& jd, std::string& badField) {
    double y = 0.0, m = 0.0, d = 0.0;
    if (!number(record, year, y, true, badField) || !number(record, month, m, true, badField) ||
        !number(record, day, d, true, badField)) {
        return false;
    }
    if (std::fabs(y) > 100000.0 || m < 1.0 || m > 12.0 || d < 0.0 || d > 32.0) {
        badField = std::string(fieldName(std::fabs(y) > 100000.0 ? year : (m < 1.0 || m > 12.0) ? month : day));
        return false;
    }
    jd = CalendarToJulian(static_cast<int>(y), static_cast<int>(m), d);
    return true;
}

}  // namespace

std::string RunObjectName(const OrbitRecord& record) {
    return cometLabel(record.get(Field::comet), record.get(Field::name), record.get(Field::des),
                      record.get(Field::htype));
}

bool EpochBlock(const OrbitRecord& record, IntegrationBlock& block, std::string& badField) {
    block = IntegrationBlock{};
    double Tp = 0.0;
    if (!date(record, Field::hyear, Field::hmonth, Field::hday, Tp, badField)) return false;
    double epoch = Tp;
    if (!record.blank(Field::E_year) || !record.blank(Field::E_month) || !record.blank(Field::E_day)) {
        if (!date(record, Field::E_year, Field::E_month, Field::E_day, epoch, badField)) return false;
    }
    double q = 0.0, e = 0.0, w = 0.0, node = 0.0, i = 0.0;
    if (!number(record, Field::q, q, true, badField) || !number(record, Field::e, e, true, badField) ||
        !number(record, Field::w, w, true, badField) || !number(record, Field::Om, node, true, badField) ||
        !number(record, Field::i, i, true, badField)) {
        return false;
    }
    if (q <= 0.0 || e < 0.0) {
        badField = q <= 0.0 ? "q" : "e";
        return false;
    }
    if (!number(record, Field::A1, block.A1, false, badField) || !number(record, Field::A2, block.A2, false, badField) ||
        !number(record, Field::A3, block.A3, false, badField) ||
        !number(record, Field::NGE_DT, block.NGE_DT, false, badField)) {
        return false;
    }
    const NonGravity ng{block.A1, block.A2, block.A3, block.NGE_DT};
    block = BlockFromElements(epoch, Tp, q, e, w, node, i, ng);
    return true;
}

bool MakeRunObject(const OrbitRecord& record, double targetTime, RunObject& object, std::string& badField) {
    object = RunObject{};
    object.name = RunObjectName(record);
    if (!EpochBlock(record, object.epochBlock, badField)) return false;
    object.block = object.epochBlock;
    object.targetTime = targetTime;
    // The magnitude laws take M1, K1 of the total and M2, K2 of the nuclear magnitude.
    return number(record, Field::M1, object.H, false, badField) && number(record, Field::K1, object.G, false, badField) &&
           number(record, Field::M2, object.H2, false, badField) && number(record, Field::K2, object.G2, false, badField);
}

}  // namespace orvane
