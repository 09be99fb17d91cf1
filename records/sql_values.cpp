#include "records/sql_values.h"

namespace orvane {

void appendDoubled(std::string& out, std::string_view value) {
    for (const char c : value) {
        if (c == '\'') out += '\'';
        out += c;
    }
}

void appendWithLineEnds(std::string& out, std::string_view info) {
    for (std::size_t k = 0; k < info.size(); ++k) {
        if (info[k] == '\\' && k + 1 < info.size() && info[k + 1] == 'n') {
            out += "\r\n";
            ++k;
        } else {
            out += info[k];
        }
    }
}

}  // namespace orvane
