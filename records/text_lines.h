#pragma once
// The lines of a text file read whole into memory.
#include <cstddef>
#include <string_view>

namespace orvane {

// Calls `line(index, content)` for every line of the text, counting from 0, a CR
// before the LF taken off; a last line without a line end counts, an empty rest
// behind the last LF does not. Returns the number of lines.
template <typename Line>
std::size_t forEachLine(std::string_view text, Line&& line) {
    std::size_t count = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        const auto lf = text.find('\n', start);
        const std::size_t end = lf == std::string_view::npos ? text.size() : lf;
        std::string_view content = text.substr(start, end - start);
        if (content.ends_with('\r')) content.remove_suffix(1);
        line(count++, content);
        start = end + 1;
    }
    return count;
}

}  // namespace orvane
