#include "base/line_builder.h"

#include "base/fortran_format.h"


namespace orvane {

void leadingBlankToZero(std::span<char> field) {
    if (!field.empty() && field[0] == ' ') field[0] = '0';
}

LineBuilder& LineBuilder::text(std::string_view text) {
    line_.append(text);
    return *this;
}

LineBuilder& LineBuilder::blanks(std::size_t count) {
    line_.append(count, ' ');
    return *this;
}

LineBuilder& LineBuilder::right(std::string_view text, std::size_t width) {
    if (text.size() >= width) {
        line_.append(text.substr(0, width));
    } else {
        line_.append(width - text.size(), ' ');
        line_.append(text);
    }
    return *this;
}

LineBuilder& LineBuilder::left(std::string_view text, std::size_t width) {
    const auto kept = text.substr(0, width);
    line_.append(kept);
    line_.append(width - kept.size(), ' ');
    return *this;
}

LineBuilder& LineBuilder::padFrom(std::size_t start, std::size_t width) {
    if (line_.size() < start + width) line_.resize(start + width, ' ');
    return *this;
}

LineBuilder& LineBuilder::rightAlignFrom(std::size_t start, std::size_t width) {
    if (start > line_.size()) return *this;
    const auto firstText = line_.find_first_not_of(' ', start);
    line_.erase(start, (firstText == std::string::npos ? line_.size() : firstText) - start);
    const std::size_t length = line_.size() - start;
    if (length >= width) {
        line_.resize(start + width);
    } else {
        line_.insert(start, width - length, ' ');
    }
    return *this;
}

std::span<char> LineBuilder::lastField(int w) {
    const std::size_t width = w > 0 ? static_cast<std::size_t>(w) : 0;
    return {line_.data() + line_.size() - width, width};
}

LineBuilder& LineBuilder::fieldI(long long value, int w) {
    appendI(line_, value, w);
    return *this;
}

LineBuilder& LineBuilder::fieldF(double value, int w, int d) {
    appendF(line_, value, w, d);
    return *this;
}

LineBuilder& LineBuilder::fieldE(double value, int w, int d) {
    appendE(line_, value, w, d);
    return *this;
}

LineBuilder& LineBuilder::fieldES(double value, int w, int d) {
    appendES(line_, value, w, d);
    return *this;
}

LineBuilder& LineBuilder::fieldIZero(long long value, int w) {
    appendI(line_, value, w);
    leadingBlankToZero(lastField(w));
    return *this;
}

LineBuilder& LineBuilder::fieldFZero(double value, int w, int d) {
    appendF(line_, value, w, d);
    leadingBlankToZero(lastField(w));
    return *this;
}

LineBuilder& LineBuilder::fieldITrimmed(long long value, int w) {
    const std::size_t start = line_.size();
    appendI(line_, value, w);
    const auto first = line_.find_first_not_of(' ', start);
    line_.erase(start, (first == std::string::npos ? line_.size() : first) - start);
    return *this;
}

}  // namespace orvane
