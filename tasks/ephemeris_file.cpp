#include "tasks/ephemeris_file.h"

#include <algorithm>

#include "base/fortran_format.h"

namespace orvane {

namespace {

constexpr std::size_t kNameWidth = 300;

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

}  // namespace

std::string EphemerisFileName(const std::string& fullName, const std::vector<std::string>& earlierNames) {
    std::string base = fullName;
    std::replace(base.begin(), base.end(), '/', '_');
    std::replace(base.begin(), base.end(), ' ', '_');
    const auto taken = [&](const std::string& name) {
        return std::find(earlierNames.begin(), earlierNames.end(), name) != earlierNames.end();
    };
    std::string name = base;
    for (int counter = 2; taken(name); ++counter) name = base + "_" + formatI(counter, 3);
    return name;
}

std::string EphemerisFilePath(const std::string& folder, const std::string& fileName) {
    if (folder.empty()) return fileName;
    if (folder.back() == '/') return folder + fileName;
    return folder + "/" + fileName;
}

std::string DashRule(std::size_t dataLineLength) { return std::string(dataLineLength + 1, '-'); }

EphemerisFile::~EphemerisFile() { close(); }

bool EphemerisFile::open(const std::string& path) {
    close();
    file_ = std::fopen(path.c_str(), "wb");
    path_ = path;
    bytes_ = 0;
    return file_ != nullptr;
}

void EphemerisFile::writeRecord(std::string_view text) {
    if (file_ == nullptr) return;
    const auto last = text.find_last_not_of(' ');
    const std::string_view kept = last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
    if (!kept.empty()) bytes_ += static_cast<long long>(std::fwrite(kept.data(), 1, kept.size(), file_));
    bytes_ += static_cast<long long>(std::fwrite("\r\n", 1, 2, file_));
}

void EphemerisFile::writeTableStart(const std::string& name, const std::string& description,
                                    std::string_view header, std::string_view firstLine) {
    std::string_view text = description;
    if (text.size() >= 4 && text.substr(text.size() - 4) == "\r\n\r\n") text.remove_suffix(4);
    const auto last = firstLine.find_last_not_of(' ');
    const std::string rule = DashRule(last == std::string_view::npos ? 0 : last + 1);
    writeRecord("");
    writeRecord("");
    writeRecord(trimmed(std::string_view(name).substr(0, kNameWidth)));
    writeRecord("");
    writeRecord("");
    writeRecord(text);
    writeRecord("");
    writeRecord("");
    writeRecord(rule);
    writeRecord(header);
    writeRecord(rule);
    writeRecord(firstLine);
}

void EphemerisFile::close() {
    if (file_ != nullptr) std::fclose(file_);
    file_ = nullptr;
}

}  // namespace orvane
