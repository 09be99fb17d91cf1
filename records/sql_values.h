#pragma once
// The quoted values of the insert and update statements: every apostrophe doubled,
// so no value can leave its quotes, and the "\\n" of a list-format `hinfo` made a
// real line end.
#include <string>
#include <string_view>

namespace orvane {

void appendDoubled(std::string& out, std::string_view value);

// The list format carries a line end of `hinfo` as the two characters "\\n"; they
// become CR LF here.
void appendWithLineEnds(std::string& out, std::string_view info);

}  // namespace orvane
