#pragma once
// One orbit record in memory: every field is a text, a number stays in the text
// that its source wrote, and a field that is all blanks has no value.
//
// The record keeps the layout of a catalogue row: a head of three fields (two work
// fields of the result list, then `id`), the 65 body fields in the order of the
// table columns, `htimeStamp`, `hinfo`, and the six calculated columns of the view.
// Each field has a fixed width (70, `hinfo` 5010); a longer text is cut there.
//
// The fields are stored back to back without their padding, so that an import of a
// hundred thousand records does not hold a gigabyte of blanks: a text handed in is
// cut at the width of its field and loses its trailing blanks; leading blanks and
// any other bytes (also NULs) stay as they came.
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

enum class Field : int {
    // head
    listWork1, listWork2, id,
    // body, in the order of the columns of table `elements`
    comet, name, des, olddes, htype, E_year, E_month, E_day, hyear, hmonth, hday, hday_err,
    q, q_err, e, e_err, P, w, w_err, Om, Om_err, i, i_err, A1, A1_err, A2, A2_err, A3, A3_err,
    Astyle, NGE_DT, NGE_DT_err, DFoto, DFoto_err, Obs, F_year, F_month, F_day, L_year, L_month,
    L_day, hsystem, hPlan, SBP, b_perturber, f_perturber, RMS, hreference, Producer, Diameter,
    Diameter_err, ARatio, ARatio_err, RotP, RotP_err, Albedo, Albedo_err, M1, M1_err, K1, K1_err,
    M2, M2_err, K2, K2_err,
    // tail
    htimeStamp, hinfo,
    // calculated columns of the view e_elements
    class_calc, M_calc, n_calc, P_calc, Q_calc, a_calc,
};

inline constexpr std::size_t kFieldCount = 76;
inline constexpr std::size_t kBodyFieldCount = 65;
inline constexpr std::size_t kFieldWidth = 70;
inline constexpr std::size_t kInfoWidth = 5010;

constexpr int fieldIndex(Field field) { return static_cast<int>(field); }
constexpr Field fieldAt(int index) { return static_cast<Field>(index); }

inline constexpr Field kFirstBodyField = Field::comet;
inline constexpr Field kLastBodyField = Field::K2_err;

// Width of the field: 70, or 5010 for `hinfo`.
constexpr std::size_t fieldWidth(Field field) {
    return field == Field::hinfo ? kInfoWidth : kFieldWidth;
}

// The column name of the field as the catalogue and the view name it ("comet",
// "E_year", "class_calc"); the two work fields have no column and give "".
std::string_view fieldName(Field field);

// The field of a column name, or false when no field has that name.
bool fieldByName(std::string_view name, Field& field);

// The columns that an insert statement can fill, in table order: the 65 body
// fields, `htimeStamp`, `hinfo`.
std::span<const Field> tableFields();

class OrbitRecord {
public:
    OrbitRecord();

    // The stored text: cut at the width, without trailing blanks ("" for no value).
    std::string_view get(Field field) const;
    // Stores `text` cut at the field's width, its trailing blanks dropped.
    void set(Field field, std::string_view text);
    // The field as a blank-padded text of its full width.
    std::string padded(Field field) const;
    // True when the field holds nothing but blanks before its first NUL.
    bool blank(Field field) const;
    // Every field blank again.
    void clear();

    friend bool operator==(const OrbitRecord&, const OrbitRecord&) = default;

private:
    std::string text_;
    std::array<std::uint16_t, kFieldCount + 1> start_{};
};

// An array of records with the count kept beside it, as a batch hands it on.
struct RecordArray {
    std::vector<OrbitRecord> records;
    std::size_t count = 0;

    // Frees the old records and makes `n` blank ones.
    void reset(std::size_t n);
};

}  // namespace orvane
