#include "records/mpc_elements.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <span>
#include <system_error>

#include "base/fixed_text.h"
#include "base/fortran_format.h"
#include "records/number_text.h"
#include "records/validation.h"
#include "records/text_lines.h"

namespace orvane {
namespace {

struct Columns {
    std::size_t first;
    std::size_t last;
};

constexpr Columns kNumber{1, 4};
constexpr Columns kType{5, 5};
constexpr Columns kPacked{6, 12};
constexpr Columns kNumberedFragment{11, 12};
constexpr Columns kYear{15, 18};
constexpr Columns kMonth{20, 21};
constexpr Columns kDay{23, 29};
constexpr Columns kQ{31, 39};
constexpr Columns kE{42, 49};
constexpr Columns kW{52, 59};
constexpr Columns kOm{62, 69};
constexpr Columns kI{72, 79};
constexpr Columns kEpoch{82, 89};
constexpr Columns kH{92, 95};
constexpr Columns kG{97, 100};
constexpr Columns kName{103, 158};
constexpr Columns kReference{160, kMpcLineLimit};

std::string_view field(std::string_view line, Columns c) { return columnField(line, c.first, c.last); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isLower(char c) { return c >= 'a' && c <= 'z'; }

bool allDigits(std::string_view text) {
    if (text.empty()) return false;
    for (const char c : text) {
        if (!isDigit(c)) return false;
    }
    return true;
}

// A whole number written with leading zeros ("0073", "09"), as its plain decimal.
std::string withoutLeadingZeros(std::string_view digits) {
    const auto first = digits.find_first_not_of('0');
    return first == std::string_view::npos ? std::string("0") : std::string(digits.substr(first));
}

std::string upper(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (isLower(c)) c = static_cast<char>(c - 'a' + 'A');
    }
    return out;
}

// The century letters of MPC's packed years: "A" 10 to "L" 21.
bool centuryOfLetter(char letter, int& century) {
    if (letter < 'A' || letter > 'L') return false;
    century = 10 + (letter - 'A');
    return true;
}

// "J95O010" -> "1995 O1", "K19Y04b" -> "2019 Y4-B", "J98V24S" -> "1998 VS24",
// "K10W00K" -> "2010 WK". The order number is two characters: a digit, or a letter
// standing for 10 ("A") to 61 ("z"), then a digit. The last character is "0" for a
// comet's own designation, a lower-case fragment letter, or the second letter of a
// designation of the asteroid form.
bool unpackProvisional(std::string_view packed, std::string& des, std::string& fragment) {
    if (packed.size() != 7) return false;
    int century = 0;
    if (!centuryOfLetter(packed[0], century) || !isDigit(packed[1]) || !isDigit(packed[2])) return false;
    const char halfMonth = packed[3];
    if (!isUpper(halfMonth) || halfMonth == 'I' || halfMonth == 'Z') return false;
    int tens = 0;
    const char high = packed[4];
    if (isDigit(high)) {
        tens = high - '0';
    } else if (isUpper(high)) {
        tens = 10 + (high - 'A');
    } else if (isLower(high)) {
        tens = 36 + (high - 'a');
    } else {
        return false;
    }
    if (!isDigit(packed[5])) return false;
    const int order = tens * 10 + (packed[5] - '0');
    const char last = packed[6];
    des = integerText(century) + std::string(packed.substr(1, 2)) + " " + halfMonth;
    fragment.clear();
    if (isUpper(last)) {
        des += last;
        if (order > 0) des += integerText(order);
        return true;
    }
    if (order == 0) return false;
    des += integerText(order);
    if (last == '0') return true;
    if (!isLower(last)) return false;
    fragment = upper(std::string_view(&last, 1));
    des += "-" + fragment;
    return true;
}

// The fragment letters of a numbered comet in columns 11-12: one or two lower-case
// letters, right-adjusted.
bool numberedFragment(std::string_view line, std::string& fragment) {
    const std::string_view letters = field(line, kNumberedFragment);
    fragment.clear();
    if (letters.empty()) return true;
    for (const char c : letters) {
        if (!isLower(c)) return false;
    }
    fragment = upper(letters);
    return true;
}

bool hasControlCharacter(std::string_view line) {
    for (const char c : line) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7f) return true;
    }
    return false;
}

// The name column behind the designation: the text after the first "/" for a
// numbered comet ("Halley" of "1P/Halley"), the text in the closing brackets for
// the others ("NEOWISE" of "C/2020 F3 (NEOWISE)").
std::string nameOf(std::string_view column, bool numbered) {
    if (numbered) {
        const auto slash = column.find('/');
        return slash == std::string_view::npos ? std::string() : std::string(trimBoth(column.substr(slash + 1)));
    }
    if (!column.ends_with(')')) return {};
    const auto open = column.rfind('(');
    if (open == std::string_view::npos) return {};
    return std::string(trimBoth(column.substr(open + 1, column.size() - open - 2)));
}

// A fragment of a numbered comet shares its number and name with the others; its
// letters behind the name give it a label of its own.
std::string fragmentName(std::string name, std::string_view fragment) {
    if (fragment.empty()) return name;
    const std::string suffix = " " + std::string(fragment);
    if (name.ends_with(suffix) || name.empty()) return name;
    return name + suffix;
}

// The epoch: YYYYMMDD, or a packed date of five characters ("K2497": 2024-09-07;
// month "1" to "9", "A" to "C", day "1" to "9", "A" to "V").
bool unpackEpoch(std::string_view epoch, std::string& year, std::string& month, std::string& day) {
    if (epoch.size() == 8 && allDigits(epoch)) {
        year = withoutLeadingZeros(epoch.substr(0, 4));
        month = withoutLeadingZeros(epoch.substr(4, 2));
        day = withoutLeadingZeros(epoch.substr(6, 2));
        return true;
    }
    int century = 0;
    if (epoch.size() != 5 || !centuryOfLetter(epoch[0], century) || !isDigit(epoch[1]) || !isDigit(epoch[2])) {
        return false;
    }
    const auto code = [](char c, char lastLetter) {
        if (c >= '1' && c <= '9') return c - '0';
        if (c >= 'A' && c <= lastLetter) return 10 + (c - 'A');
        return -1;
    };
    const int m = code(epoch[3], 'C');
    const int d = code(epoch[4], 'V');
    if (m < 0 || d < 0) return false;
    year = integerText(century) + std::string(epoch.substr(1, 2));
    month = integerText(m);
    day = integerText(d);
    return true;
}

// K1 = 2.5 G, written with one decimal more than G had and trailing zeros blanked,
// so that "4.0" gives "10.0" and "3.2" gives "8.0".
std::string slopeFactor(std::string_view g) {
    double value = 0.0;
    readStrictReal(g, value);
    const auto point = g.find('.');
    const int decimals = point == std::string_view::npos ? 1 : static_cast<int>(g.size() - point);
    std::string text = formatF(2.5 * value, 24, decimals < 1 ? 1 : (decimals > 6 ? 6 : decimals));
    blankTrailingZeros(text, 6);
    return std::string(trimBoth(text));
}

MpcLineOutcome outcome(MpcLineStatus status, Field f = Field::listWork1) { return {status, f, 0}; }

struct NumberColumn {
    Columns columns;
    Field field;
    bool integer;
    bool required;
};

constexpr std::array<NumberColumn, 10> kNumbers{{
    {kYear, Field::hyear, true, true},
    {kMonth, Field::hmonth, true, true},
    {kDay, Field::hday, false, true},
    {kQ, Field::q, false, true},
    {kE, Field::e, false, true},
    {kW, Field::w, false, true},
    {kOm, Field::Om, false, true},
    {kI, Field::i, false, true},
    {kH, Field::M1, false, false},
    {kG, Field::K1, false, false},
}};

MpcLineOutcome checkNumbers(std::string_view line) {
    for (const NumberColumn& column : kNumbers) {
        const std::string_view text = field(line, column.columns);
        if (text.empty()) {
            if (column.required) return outcome(MpcLineStatus::MissingValue, column.field);
            continue;
        }
        std::int32_t whole = 0;
        double real = 0.0;
        const bool ok = column.integer ? readStrictInteger(text, whole) : readStrictReal(text, real);
        if (!ok) return outcome(MpcLineStatus::BadNumber, column.field);
    }
    return outcome(MpcLineStatus::Ok);
}

MpcLineOutcome fillRecord(std::string_view line, const MpcDesignation& designation, OrbitRecord& out) {
    out.set(Field::comet, designation.comet);
    out.set(Field::htype, designation.type);
    out.set(Field::des, designation.des);
    out.set(Field::name, fragmentName(nameOf(field(line, kName), !designation.comet.empty()),
                                      designation.comet.empty() ? std::string_view() : designation.fragment));
    out.set(Field::hyear, field(line, kYear));
    out.set(Field::hmonth, withoutLeadingZeros(field(line, kMonth)));
    out.set(Field::hday, field(line, kDay));
    out.set(Field::q, field(line, kQ));
    out.set(Field::e, field(line, kE));
    out.set(Field::w, field(line, kW));
    out.set(Field::Om, field(line, kOm));
    out.set(Field::i, field(line, kI));
    const std::string_view epoch = field(line, kEpoch);
    if (!epoch.empty()) {
        std::string year, month, day;
        if (!unpackEpoch(epoch, year, month, day)) return outcome(MpcLineStatus::BadNumber, Field::E_year);
        out.set(Field::E_year, year);
        out.set(Field::E_month, month);
        out.set(Field::E_day, day);
    }
    out.set(Field::M1, field(line, kH));
    if (!field(line, kG).empty()) out.set(Field::K1, slopeFactor(field(line, kG)));
    out.set(Field::hreference, field(line, kReference));
    out.set(Field::Producer, kMpcProducer);
    return outcome(MpcLineStatus::Ok);
}

std::string_view statusText(MpcLineStatus status) {
    switch (status) {
        case MpcLineStatus::Ok: return "read";
        case MpcLineStatus::Blank: return "blank line";
        case MpcLineStatus::TooShort: return "line ends before the inclination (column 79)";
        case MpcLineStatus::TooLong: return "line longer than 219 characters";
        case MpcLineStatus::BadCharacter: return "control character in the line";
        case MpcLineStatus::BadDesignation: return "number or designation (columns 1-12) do not decode";
        case MpcLineStatus::UnsupportedType: return "orbit type is not C, P or D";
        case MpcLineStatus::MissingValue: return "is blank";
        case MpcLineStatus::BadNumber: return "is not a number";
        case MpcLineStatus::Invalid: return "fails the record checks";
    }
    return "";
}


}  // namespace

bool decodeMpcDesignation(std::string_view line, MpcDesignation& designation) {
    designation = MpcDesignation{};
    const std::string_view number = field(line, kNumber);
    const std::string_view type = columnText(line, kType.first, kType.last);
    if (type.size() != 1 || !isUpper(type[0])) return false;
    MpcDesignation d;
    d.type = std::string(type);
    if (!number.empty()) {
        if (number.size() != 4 || !allDigits(number) || number == "0000") return false;
        // A numbered comet has its designation columns blank but for the letters of
        // a fragment.
        if (!field(line, {kPacked.first, kNumberedFragment.first - 1}).empty()) return false;
        if (!numberedFragment(line, d.fragment)) return false;
        d.comet = withoutLeadingZeros(number);
        d.label = d.comet + d.type;
        if (!d.fragment.empty()) {
            d.label += "-" + d.fragment;
            d.des = d.label;
        }
    } else {
        if (!unpackProvisional(field(line, kPacked), d.des, d.fragment)) return false;
        d.label = d.type + "/" + d.des;
    }
    designation = std::move(d);
    return true;
}

MpcLineOutcome readMpcCometLine(std::string_view line, OrbitRecord& out) {
    out.clear();
    if (line.size() > kMpcLineLimit) return outcome(MpcLineStatus::TooLong);
    if (hasControlCharacter(line)) return outcome(MpcLineStatus::BadCharacter);
    if (isBlank(line)) return outcome(MpcLineStatus::Blank);
    if (line.size() < kMpcLastElementColumn) return outcome(MpcLineStatus::TooShort);
    MpcDesignation designation;
    if (!decodeMpcDesignation(line, designation)) return outcome(MpcLineStatus::BadDesignation);
    if (designation.type != "C" && designation.type != "P" && designation.type != "D") {
        return outcome(MpcLineStatus::UnsupportedType, Field::htype);
    }
    MpcLineOutcome result = checkNumbers(line);
    if (result.status == MpcLineStatus::Ok) result = fillRecord(line, designation, out);
    if (result.status == MpcLineStatus::Ok) {
        // The checks normalise what they accept; the record keeps the line's text.
        std::array<OrbitRecord, 1> copy{out};
        static const RecordTexts texts;
        const ValidationResult checked = validateRecords(std::span<OrbitRecord>(copy), texts);
        if (checked.faultKind != 0) result = outcome(MpcLineStatus::Invalid, checked.focusField);
    }
    if (result.status != MpcLineStatus::Ok) out.clear();
    return result;
}

std::string describeMpcOutcome(const MpcLineOutcome& outcome) {
    std::string text;
    if (outcome.line != 0) text = "line " + std::to_string(outcome.line) + ": ";
    if (outcome.field != Field::listWork1) text += std::string(fieldName(outcome.field)) + " ";
    text += statusText(outcome.status);
    return text;
}

MpcFileResult readMpcCometText(std::string_view text, RecordArray& records) {
    MpcFileResult result;
    // Only a line of a record's length can be one, so a file of empty lines does
    // not make an array of empty records.
    std::size_t candidates = 0;
    forEachLine(text, [&](std::size_t, std::string_view line) {
        if (line.size() >= kMpcLastElementColumn && line.size() <= kMpcLineLimit) ++candidates;
    });
    records.reset(candidates);
    OrbitRecord scratch;
    forEachLine(text, [&](std::size_t index, std::string_view line) {
        const std::size_t number = index + 1;
        MpcLineOutcome read = readMpcCometLine(line, scratch);
        read.line = number;
        switch (read.status) {
            case MpcLineStatus::Ok: records.records[result.read++] = scratch; break;
            case MpcLineStatus::Blank: ++result.blank; break;
            default:
                ++result.skipped;
                if (result.rejected.size() < kMpcRejectedListLimit) result.rejected.push_back(read);
                break;
        }
    });
    records.records.resize(result.read);
    records.count = result.read;
    return result;
}

MpcFileResult readMpcCometFile(const std::filesystem::path& file, RecordArray& records) {
    records.reset(0);
    MpcFileResult result;
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        result.status = FileReadStatus::CannotOpen;
        return result;
    }
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) {
        result.status = FileReadStatus::CannotOpen;
        return result;
    }
    if (size > kRecordFileLimit) {
        result.status = FileReadStatus::TooLarge;
        return result;
    }
    std::ifstream in(file, std::ios::binary);
    std::string text(static_cast<std::size_t>(size), '\0');
    if (in) in.read(text.data(), static_cast<std::streamsize>(size));
    if (!in && !in.eof()) {
        result.status = FileReadStatus::CannotOpen;
        return result;
    }
    text.resize(static_cast<std::size_t>(in.gcount()));
    return readMpcCometText(text, records);
}

MpcImportResult importMpcFile(const std::filesystem::path& file, std::string_view databasePath,
                              RecordArray& importArray, BatchView& view, const RecordTexts& texts,
                              const BatchClock& clock) {
    MpcImportResult result;
    view.setStatus(texts.readingElements);
    view.showProgress(0);
    result.file = readMpcCometFile(file, importArray);
    const FileReadResult read{result.file.status, 0};
    if (result.file.status != FileReadStatus::Ok || importArray.count == 0) {
        refuseUnreadableFile(view, texts);
        result.import.status = ImportStatus::ReadFailed;
        result.import.read = read;
        return result;
    }
    view.hideProgress();
    result.import = insertImportedRecords(databasePath, importArray, read, view, texts, clock);
    return result;
}

}  // namespace orvane
