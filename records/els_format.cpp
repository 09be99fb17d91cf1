#include "records/els_format.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <span>

#include "base/fixed_text.h"
#include "base/fortran_format.h"
#include "records/els_codes.h"
#include "records/number_text.h"

namespace orvane {
namespace {

// Where one field lies in the line, columns counted from 1.
struct Columns {
    std::size_t first;
    std::size_t last;
};

constexpr Columns kComet{1, 4};
constexpr Columns kType{5, 5};
constexpr Columns kDes{7, 18};
constexpr Columns kYear{20, 24};
constexpr Columns kMonth{26, 28};
constexpr Columns kDay{31, 38};
constexpr Columns kQ{39, 47};
constexpr Columns kE{50, 57};
constexpr Columns kP{59, 63};
constexpr Columns kW{66, 73};
constexpr Columns kOm{76, 83};
constexpr Columns kI{86, 93};
constexpr Columns kEpochYear{96, 97};
constexpr Columns kEpochCentury{20, 22};
constexpr Columns kEpochMonth{99, 101};
constexpr Columns kEpochDay{104, 105};
constexpr Columns kObs{107, 111};
constexpr Columns kFlag{112, 112};
constexpr Columns kFirstObs{114, 118};
constexpr Columns kLastObs{120, 124};
constexpr Columns kSystem{126, 126};
constexpr Columns kBriefPerturbers{128, 130};
constexpr Columns kFullPerturbers{132, 135};
constexpr Columns kPlanets{137, 137};
constexpr Columns kName{143, 172};
constexpr Columns kReference{173, 181};

// One row of the number layout: when the point stands at `point` in the text, the
// value is written with `decimals` in `width` columns, `offset` columns after the
// first of the field, so that the points align; decimals < 0 writes the rounded
// whole number.
struct NumberForm {
    std::size_t point;
    int width;
    int decimals;
    std::size_t offset;
};

// hday: point in column 33; q: 41; e: 51; P: 61; w, Om, i: 69, 79, 89.
constexpr std::array<NumberForm, 2> kDayForms{{{2, 6, 4, 1}, {3, 7, 4, 0}}};
constexpr std::array<NumberForm, 2> kQForms{{{2, 8, 6, 1}, {3, 9, 6, 0}}};
constexpr std::array<NumberForm, 1> kEForms{{{0, 8, 6, 0}}};
constexpr std::array<NumberForm, 3> kPForms{{{4, 3, -1, 1}, {2, 4, 2, 1}, {3, 5, 2, 0}}};
constexpr std::array<NumberForm, 3> kAngleForms{{{2, 6, 4, 2}, {3, 7, 4, 1}, {4, 8, 4, 0}}};

struct FieldLayout {
    Columns columns;
    std::span<const NumberForm> forms;
};

FieldLayout layoutOf(Field field) {
    switch (field) {
        case Field::hday: return {kDay, kDayForms};
        case Field::q: return {kQ, kQForms};
        case Field::e: return {kE, kEForms};
        case Field::P: return {kP, kPForms};
        case Field::w: return {kW, kAngleForms};
        case Field::Om: return {kOm, kAngleForms};
        case Field::i: return {kI, kAngleForms};
        default: return {{0, 0}, {}};
    }
}

// The place of the point in the text, counted from 1; a text without a point is a
// whole number, whose point would stand behind its last digit. A text with an
// exponent has no place of its own (0).
std::size_t pointPosition(std::string_view text) {
    if (text.find_first_of("eEdD") != std::string_view::npos) return 0;
    const auto point = text.find('.');
    return point == std::string_view::npos ? text.size() + 1 : point + 1;
}

// The point of the value's own written form, for a text whose point no row of the
// table names (an exponent form, a number wider than the table foresees).
std::size_t pointOfValue(double value) {
    std::size_t digits = 1;
    for (double whole = std::fabs(value); whole >= 10.0 && digits < 40; whole /= 10.0) ++digits;
    return digits + (value < 0 ? 1 : 0) + 1;
}

const NumberForm* formFor(std::span<const NumberForm> forms, std::size_t point) {
    if (forms.size() == 1) return &forms[0];
    for (const auto& form : forms) {
        if (form.point == point) return &form;
    }
    return nullptr;
}

const NumberForm& nearestForm(std::span<const NumberForm> forms, std::size_t point) {
    const NumberForm* nearest = &forms[0];
    for (const auto& form : forms) {
        const auto distance = [point](std::size_t p) { return p > point ? p - point : point - p; };
        if (form.decimals >= 0 && distance(form.point) < distance(nearest->point)) nearest = &form;
    }
    return *nearest;
}

void put(std::string& line, Columns columns, std::string_view text) {
    const std::size_t width = columns.last - columns.first + 1;
    line.replace(columns.first - 1, std::min(width, text.size()), text.substr(0, width));
}

void putRight(std::string& line, Columns columns, std::string_view text) {
    const std::size_t width = columns.last - columns.first + 1;
    const std::string_view kept = text.substr(0, width);
    line.replace(columns.first - 1 + (width - kept.size()), kept.size(), kept);
}

std::string_view value(const OrbitRecord& record, Field field) {
    return trimBoth(cutAtNul(record.get(field)));
}

std::string cometColumns(std::string_view comet) {
    std::int32_t number = 0;
    if (readStrictInteger(comet, number) && number >= 0 && number <= 9999) {
        std::string text = integerText(number);
        return std::string(4 - text.size(), '0') + text;
    }
    return std::string(comet.substr(0, 4));
}

std::string lastTwoOfYear(std::string_view year) {
    std::int32_t number = 0;
    if (readStrictInteger(year, number)) {
        const int lastTwo = std::abs(number % 100);
        return std::string(1, static_cast<char>('0' + lastTwo / 10)) +
               static_cast<char>('0' + lastTwo % 10);
    }
    return std::string(year.size() > 2 ? year.substr(year.size() - 2) : year);
}

}  // namespace

bool isElsPath(std::string_view path) {
    return path.ends_with(".els") || path.ends_with(".ELS");
}

void readElsLine(std::string_view line, OrbitRecord& record) {
    line = line.substr(0, kElsLineWidth);
    const auto field = [line](Columns c) { return columnField(line, c.first, c.last); };
    record.set(Field::comet, field(kComet));
    record.set(Field::htype, field(kType));
    record.set(Field::des, field(kDes));
    record.set(Field::hyear, field(kYear));
    record.set(Field::hmonth, monthFromAbbreviation(field(kMonth)));
    record.set(Field::hday, field(kDay));
    record.set(Field::q, field(kQ));
    record.set(Field::e, field(kE));
    record.set(Field::P, field(kP));
    record.set(Field::w, field(kW));
    record.set(Field::Om, field(kOm));
    record.set(Field::i, field(kI));
    // The line holds only the epoch's last two digits; its century is the one of
    // the perihelion year in the same line.
    const std::string_view epochYear = field(kEpochYear);
    if (!epochYear.empty()) {
        record.set(Field::E_year, std::string(field(kEpochCentury)) + std::string(epochYear));
    }
    record.set(Field::E_month, monthFromAbbreviation(field(kEpochMonth)));
    record.set(Field::E_day, field(kEpochDay));
    record.set(Field::Obs, field(kObs));
    if (columnText(line, kFlag.first, kFlag.last) == "*") {
        record.set(Field::A1, "0.0");
        record.set(Field::A2, "0.0");
        record.set(Field::A3, "0.0");
    }
    const UnpackedDate first = unpackDate(columnText(line, kFirstObs.first, kFirstObs.last));
    record.set(Field::F_year, first.year);
    record.set(Field::F_month, first.month);
    record.set(Field::F_day, first.day);
    const UnpackedDate last = unpackDate(columnText(line, kLastObs.first, kLastObs.last));
    record.set(Field::L_year, last.year);
    record.set(Field::L_month, last.month);
    record.set(Field::L_day, last.day);
    const std::string_view system = columnText(line, kSystem.first, kSystem.last);
    record.set(Field::hsystem, system.empty() ? std::string_view() : ephemerisLabelOfLetter(system[0]));
    record.set(Field::b_perturber, field(kBriefPerturbers));
    record.set(Field::f_perturber, field(kFullPerturbers));
    record.set(Field::hPlan, field(kPlanets));
    record.set(Field::name, field(kName));
    record.set(Field::hreference, field(kReference));
}

std::string layoutElsNumber(Field field, std::string_view text) {
    const FieldLayout layout = layoutOf(field);
    const std::size_t width = layout.columns.last - layout.columns.first + 1;
    std::string columns(layout.forms.empty() ? 0 : width, ' ');
    const std::string_view number = trimBoth(cutAtNul(text));
    double x = 0.0;
    if (layout.forms.empty() || !readStrictReal(number, x)) return columns;

    const NumberForm* form = formFor(layout.forms, pointPosition(number));
    if (form == nullptr) form = formFor(layout.forms, pointOfValue(x));
    if (form == nullptr) form = &nearestForm(layout.forms, pointOfValue(x));

    std::string written = form->decimals < 0 ? formatI(std::llround(x), form->width)
                                             : formatF(x, form->width, form->decimals);
    if (form->decimals > 0) blankTrailingZeros(written, 3);
    columns.replace(form->offset, written.size(), written);
    return columns;
}

std::string writeElsLine(const OrbitRecord& record) {
    std::string line(kElsLineWidth, ' ');
    const auto number = [&](Field field) {
        const FieldLayout layout = layoutOf(field);
        put(line, layout.columns, layoutElsNumber(field, record.get(field)));
    };
    if (!value(record, Field::comet).empty()) put(line, kComet, cometColumns(value(record, Field::comet)));
    put(line, kType, value(record, Field::htype));
    put(line, kDes, value(record, Field::des));
    putRight(line, kYear, value(record, Field::hyear));
    put(line, kMonth, abbreviationOfMonth(value(record, Field::hmonth)));
    number(Field::hday);
    number(Field::q);
    number(Field::e);
    number(Field::P);
    number(Field::w);
    number(Field::Om);
    number(Field::i);
    if (!value(record, Field::E_year).empty()) put(line, kEpochYear, lastTwoOfYear(value(record, Field::E_year)));
    put(line, kEpochMonth, abbreviationOfMonth(value(record, Field::E_month)));
    putRight(line, kEpochDay, value(record, Field::E_day));
    putRight(line, kObs, value(record, Field::Obs));
    if (!record.blank(Field::A1) || !record.blank(Field::A2) || !record.blank(Field::A3)) {
        put(line, kFlag, "*");
    }
    put(line, kFirstObs, packDate(value(record, Field::F_year), value(record, Field::F_month),
                                  value(record, Field::F_day)));
    put(line, kLastObs, packDate(value(record, Field::L_year), value(record, Field::L_month),
                                 value(record, Field::L_day)));
    put(line, kSystem, std::string(1, letterOfEphemerisLabel(record.get(Field::hsystem))));
    put(line, kBriefPerturbers, value(record, Field::b_perturber));
    put(line, kFullPerturbers, value(record, Field::f_perturber));
    put(line, kPlanets, value(record, Field::hPlan));
    put(line, kName, value(record, Field::name));
    put(line, kReference, value(record, Field::hreference));
    // A line end inside a text would split the record in two.
    for (char& c : line) {
        if (c == '\r' || c == '\n') c = ' ';
    }
    return line;
}

}  // namespace orvane
