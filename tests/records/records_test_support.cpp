#include "records_test_support.h"

#include <sstream>

#include "base/fixed_text.h"

namespace orvane::testing {
namespace {

std::string mpcField(std::string_view line, std::size_t first, std::size_t last) {
    return std::string(columnField(line, first, last));
}

std::string withoutLeadingZeros(std::string text) {
    const auto first = text.find_first_not_of('0');
    return first == std::string::npos ? "0" : text.substr(first);
}

// "C/2020 F3 (NEOWISE)" -> des "2020 F3", name "NEOWISE"; "1P/Halley" -> name "Halley".
void splitName(const std::string& full, bool numbered, OrbitRecord& record) {
    const auto slash = full.find('/');
    const std::string rest = slash == std::string::npos ? full : full.substr(slash + 1);
    if (numbered) {
        record.set(Field::name, rest);
        return;
    }
    const auto bracket = rest.find(" (");
    if (bracket == std::string::npos) {
        record.set(Field::des, rest);
        return;
    }
    record.set(Field::des, rest.substr(0, bracket));
    const auto close = rest.find(')', bracket);
    record.set(Field::name, rest.substr(bracket + 2, close == std::string::npos ? std::string::npos
                                                                                : close - bracket - 2));
}

}  // namespace

std::vector<OrbitRecord> recordsFromCometEls(std::size_t count, std::size_t stride) {
    std::istringstream in(readFile(sharedPath("reference/CometEls.txt")));
    std::vector<OrbitRecord> records;
    std::string line;
    std::size_t seen = 0;
    const char* systems[] = {"JPL DE405", "JPL DE403", "", "JPL DE200", "JPL DE245"};
    while (records.size() < count && std::getline(in, line)) {
        const std::string type = mpcField(line, 5, 5);
        if (type != "C" && type != "P" && type != "D") continue;
        if (seen++ % stride != 0) continue;
        OrbitRecord r;
        const std::size_t k = records.size();
        const std::string number = mpcField(line, 1, 4);
        if (!number.empty()) r.set(Field::comet, withoutLeadingZeros(number));
        r.set(Field::htype, type);
        splitName(mpcField(line, 103, 158), !number.empty(), r);
        r.set(Field::hyear, mpcField(line, 15, 18));
        r.set(Field::hmonth, withoutLeadingZeros(mpcField(line, 20, 21)));
        r.set(Field::hday, mpcField(line, 23, 29));
        r.set(Field::q, mpcField(line, 31, 39));
        r.set(Field::e, mpcField(line, 42, 49));
        r.set(Field::w, mpcField(line, 52, 59));
        r.set(Field::Om, mpcField(line, 62, 69));
        r.set(Field::i, mpcField(line, 72, 79));
        const std::string epoch = mpcField(line, 82, 89);
        if (epoch.size() == 8) {
            r.set(Field::E_year, epoch.substr(0, 4));
            r.set(Field::E_month, withoutLeadingZeros(epoch.substr(4, 2)));
            r.set(Field::E_day, withoutLeadingZeros(epoch.substr(6, 2)));
        }
        r.set(Field::hreference, mpcField(line, 160, 168));
        // Invented values for the columns that the MPC line does not carry.
        r.set(Field::Obs, std::to_string(40 + 37 * k));
        r.set(Field::F_year, std::to_string(1990 + k % 30));
        r.set(Field::F_month, std::to_string(1 + k % 12));
        r.set(Field::F_day, std::to_string(1 + (k * 7) % 28));
        r.set(Field::L_year, std::to_string(2020 + k % 5));
        r.set(Field::L_month, std::to_string(1 + (k * 5) % 12));
        r.set(Field::L_day, std::to_string(10 + k % 19));
        r.set(Field::hsystem, systems[k % 5]);
        r.set(Field::b_perturber, k % 2 == 0 ? "M-v" : "");
        r.set(Field::f_perturber, k % 2 == 0 ? "38h" : "0000");
        r.set(Field::hPlan, std::to_string(1 + k % 9));
        if (k % 3 == 0) {
            r.set(Field::A1, "0.0");
            r.set(Field::A2, "0.0");
            r.set(Field::A3, "0.0");
        }
        if (k % 4 == 1) {
            r.set(Field::P, k % 8 == 1 ? "5.43" : "13.25");
        } else if (k % 4 == 2) {
            r.set(Field::P, "120.");
        }
        records.push_back(r);
    }
    return records;
}

}  // namespace orvane::testing
