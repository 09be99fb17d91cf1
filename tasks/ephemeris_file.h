#pragma once
// The ephemeris text files: their names, and the writing of one object's table
// with its preamble and rules. Records end in CR LF and lose their trailing blanks.
#include <cstdio>
#include <string>
#include <vector>

namespace orvane {

// The one file of a run that writes all objects to a single file.
inline constexpr const char* kSingleEphemerisFile = "Ephemerdes.txt";

// The file name (without folder) of an object's own file: its full name with each
// "/" and blank made "_", then, while an earlier object of the run took that name,
// "_" and a counter I3 from 2 ("Name_  2"), and ".txt".
std::string EphemerisFileName(const std::string& fullName, const std::vector<std::string>& earlierNames);

// The folder and the name joined with one separator.
std::string EphemerisFilePath(const std::string& folder, const std::string& fileName);

// The dashes above and below the header: one more than the first data line's length.
std::string DashRule(std::size_t dataLineLength);

class EphemerisFile {
public:
    EphemerisFile() = default;
    ~EphemerisFile();
    EphemerisFile(const EphemerisFile&) = delete;
    EphemerisFile& operator=(const EphemerisFile&) = delete;

    // Creates the file (an existing one is replaced). False when it cannot be made.
    bool open(const std::string& path);
    bool isOpen() const { return file_ != nullptr; }
    const std::string& path() const { return path_; }

    // One record: the text without its trailing blanks, then CR LF.
    void writeRecord(std::string_view text);
    // The preamble of an object's table, written with its first data line: two
    // empty records, the name (300 characters at most, trimmed), two empty records,
    // the description without its closing CR LF CR LF, two empty records, the rule,
    // the header, the rule, the line.
    void writeTableStart(const std::string& name, const std::string& description, std::string_view header,
                         std::string_view firstLine);
    // Size of the file in bytes as it stands.
    long long bytes() const { return bytes_; }
    void close();

private:
    std::FILE* file_ = nullptr;
    std::string path_;
    long long bytes_ = 0;
};

}  // namespace orvane
