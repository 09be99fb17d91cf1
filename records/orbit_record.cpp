#include "records/orbit_record.h"

#include "base/fixed_text.h"

namespace orvane {
namespace {

constexpr std::array<std::string_view, kFieldCount> kNames{
    "", "", "id",
    "comet", "name", "des", "olddes", "htype", "E_year", "E_month", "E_day", "hyear", "hmonth",
    "hday", "hday_err", "q", "q_err", "e", "e_err", "P", "w", "w_err", "Om", "Om_err", "i",
    "i_err", "A1", "A1_err", "A2", "A2_err", "A3", "A3_err", "Astyle", "NGE_DT", "NGE_DT_err",
    "DFoto", "DFoto_err", "Obs", "F_year", "F_month", "F_day", "L_year", "L_month", "L_day",
    "hsystem", "hPlan", "SBP", "b_perturber", "f_perturber", "RMS", "hreference", "Producer",
    "Diameter", "Diameter_err", "ARatio", "ARatio_err", "RotP", "RotP_err", "Albedo",
    "Albedo_err", "M1", "M1_err", "K1", "K1_err", "M2", "M2_err", "K2", "K2_err",
    "htimeStamp", "hinfo",
    "class_calc", "M_calc", "n_calc", "P_calc", "Q_calc", "a_calc",
};

constexpr std::array<Field, kBodyFieldCount + 2> makeTableFields() {
    std::array<Field, kBodyFieldCount + 2> fields{};
    for (std::size_t k = 0; k < kBodyFieldCount + 2; ++k) {
        fields[k] = fieldAt(fieldIndex(kFirstBodyField) + static_cast<int>(k));
    }
    return fields;
}

constexpr std::array<Field, kBodyFieldCount + 2> kTableFields = makeTableFields();

static_assert(fieldIndex(Field::a_calc) + 1 == static_cast<int>(kFieldCount));
static_assert(fieldIndex(Field::K2_err) - fieldIndex(Field::comet) + 1 == kBodyFieldCount);
static_assert(kTableFields.back() == Field::hinfo);

}  // namespace

std::string_view fieldName(Field field) {
    return kNames[static_cast<std::size_t>(fieldIndex(field))];
}

bool fieldByName(std::string_view name, Field& field) {
    if (name.empty()) return false;
    for (std::size_t k = 0; k < kFieldCount; ++k) {
        if (kNames[k] == name) {
            field = fieldAt(static_cast<int>(k));
            return true;
        }
    }
    return false;
}

std::span<const Field> tableFields() { return kTableFields; }

OrbitRecord::OrbitRecord() = default;

std::string_view OrbitRecord::get(Field field) const {
    const auto k = static_cast<std::size_t>(fieldIndex(field));
    return std::string_view(text_).substr(start_[k], start_[k + 1] - start_[k]);
}

void OrbitRecord::set(Field field, std::string_view text) {
    const auto k = static_cast<std::size_t>(fieldIndex(field));
    const std::string_view value = trimRight(text.substr(0, fieldWidth(field)));
    const std::size_t oldLength = start_[k + 1] - start_[k];
    text_.replace(start_[k], oldLength, value);
    const auto shift = static_cast<long>(value.size()) - static_cast<long>(oldLength);
    for (std::size_t j = k + 1; j < start_.size(); ++j) {
        start_[j] = static_cast<std::uint16_t>(static_cast<long>(start_[j]) + shift);
    }
}

std::string OrbitRecord::padded(Field field) const {
    std::string out(get(field));
    out.resize(fieldWidth(field), ' ');
    return out;
}

bool OrbitRecord::blank(Field field) const { return isBlank(get(field)); }

void OrbitRecord::clear() {
    text_.clear();
    start_.fill(0);
}

void RecordArray::reset(std::size_t n) {
    std::vector<OrbitRecord>().swap(records);
    records.resize(n);
    count = n;
}

}  // namespace orvane
