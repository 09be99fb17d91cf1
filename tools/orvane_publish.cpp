// orvane-publish: builds or refreshes an update server folder that any static HTTP
// server can serve (or that the program reads as a file:// address).
//
//   orvane-publish --server=FOLDER [--version=X.YY] [--package=FILE.deb]
//                  [--de406=FILE] [--de423=FILE]
//
//   FOLDER/orvane/index.html                       the product's home page
//   FOLDER/orvane/files/versinfo.lst               the newest program version
//   FOLDER/orvane/files/orvane-setup.deb           the program's package (--package)
//   FOLDER/orvane/files/orvane-setup.deb.sha256    its SHA-256, as sha256sum writes it
//   FOLDER/orvane/OrvaneData/Ephemerides/          jplde406.dat, jplde423.dat (--de406, --de423)
//   FOLDER/orvane/OrvaneData/Elements/             the catalogue releases
//
// A planetary file is published only when the program's reader opens it and reads its
// first and last records. Every file is written under a temporary name and renamed,
// so a client never reads half a file; what is not named again stays as it was.
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "net/file_checks.h"
#include "net/local_file.h"
#include "net/program_version.h"
#include "net/update_server.h"

namespace fs = std::filesystem;
using namespace orvane;

namespace {

struct Options {
    std::string server;
    std::optional<std::string> version;
    std::string package;
    std::string de406;
    std::string de423;
};

constexpr const char* kUsage =
    "usage: orvane-publish --server=FOLDER [--version=X.YY] [--package=FILE.deb]\n"
    "                      [--de406=FILE] [--de423=FILE]\n"
    "Builds or refreshes the update server folder FOLDER; serve it with any static\n"
    "HTTP server, e.g.  python3 -m http.server --directory FOLDER 8080\n";

bool parse(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        auto value = [&](std::string_view flag, auto& target) {
            if (arg.substr(0, flag.size()) != flag) return false;
            target = std::string(arg.substr(flag.size()));
            return true;
        };
        std::string version;
        if (value("--server=", options.server) || value("--package=", options.package) ||
            value("--de406=", options.de406) || value("--de423=", options.de423))
            continue;
        if (value("--version=", version)) {
            options.version = version;
            continue;
        }
        std::fprintf(stderr, "orvane-publish: unknown option '%s'\n%s", argv[i], kUsage);
        return false;
    }
    if (options.server.empty()) {
        std::fprintf(stderr, "orvane-publish: give the server folder\n%s", kUsage);
        return false;
    }
    return true;
}

bool fail(const std::string& message) {
    std::fprintf(stderr, "orvane-publish: %s\n", message.c_str());
    return false;
}

bool write(const fs::path& path, const std::string& bytes) {
    std::string detail;
    return WriteFileReplacing(path.string(), bytes, detail) || fail(detail);
}

bool copy(const std::string& from, const fs::path& to) {
    std::string detail;
    return CopyFileReplacing(from, to.string(), detail) || fail(detail);
}

bool publishPlanetaryFile(const std::string& source, const char* name, const fs::path& folder,
                          std::vector<std::string>& notes) {
    const PlanetarySpan span = CheckPlanetaryFile(source);
    if (!span.readable) return fail(source + " is not a planetary file that Orvane can read");
    if (!copy(source, folder / name)) return false;
    notes.push_back(std::string(name) + ": " + SpanDateText(span.firstJd) + " to " + SpanDateText(span.lastJd));
    return true;
}

// A Debian package is an ar archive whose first member is debian-binary.
bool debianPackage(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string head(21, '\0');
    in.read(head.data(), 21);
    return in.gcount() == 21 && head == "!<arch>\ndebian-binary";
}

bool publishPackage(const std::string& package, const fs::path& files, std::vector<std::string>& notes) {
    if (!debianPackage(package)) return fail(package + " is not a Debian package");
    const std::string digest = Sha256OfFile(package);
    if (digest.empty()) return fail("cannot read " + package);
    if (!copy(package, files / kPackageFile)) return false;
    // The checksum comes second: a client that meets the new package with the old
    // checksum refuses it and tries again later.
    if (!write(files / (std::string(kPackageFile) + kChecksumSuffix), digest + "  " + kPackageFile + "\n"))
        return false;
    notes.push_back(std::string(kPackageFile) + ": SHA-256 " + digest);
    return true;
}

std::string homePage(const fs::path& root, const std::string& version) {
    std::string items;
    std::error_code ec;
    for (const char* folder : {"files", "OrvaneData/Ephemerides", "OrvaneData/Elements"}) {
        for (fs::directory_iterator it(root / folder, ec), end; !ec && it != end; it.increment(ec)) {
            const std::string name = it->path().filename().string();
            if (name.find(".part-") != std::string::npos) continue;
            items += "<li><a href=\"" + std::string(folder) + "/" + name + "\">" + folder + "/" + name + "</a> (" +
                     std::to_string(it->file_size(ec)) + " bytes)</li>\n";
        }
    }
    return "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
           "<title>Orvane - Comet Ephemeris Desk</title></head>\n<body>\n"
           "<h1>Orvane - Comet Ephemeris Desk</h1>\n"
           "<p>This is an update server of Orvane. The newest program version here is " +
           version +
           ". Orvane fetches its planetary files, its updates and the catalogue releases from here; "
           "set its address in Tools &gt; Options &gt; Update server.</p>\n<ul>\n" +
           items + "</ul>\n</body></html>\n";
}

bool publish(const Options& options) {
    const fs::path root = fs::path(options.server) / "orvane";
    const fs::path files = root / "files";
    const fs::path ephemerides = root / "OrvaneData" / "Ephemerides";
    std::error_code ec;
    for (const fs::path& folder : {files, ephemerides, root / "OrvaneData" / "Elements"}) {
        fs::create_directories(folder, ec);
        if (ec) return fail("cannot create " + folder.string() + ": " + ec.message());
    }
    std::vector<std::string> notes;
    if (!options.de406.empty() && !publishPlanetaryFile(options.de406, "jplde406.dat", ephemerides, notes))
        return false;
    if (!options.de423.empty() && !publishPlanetaryFile(options.de423, "jplde423.dat", ephemerides, notes))
        return false;
    if (!options.package.empty() && !publishPackage(options.package, files, notes)) return false;

    // The version: the one given, else the one published before, else this program's.
    const fs::path versionFile = files / kVersionFile;
    float version = kProgramVersion;
    if (options.version) {
        if (!ParseVersion(*options.version, version) || version < 0.0f) return fail("'" + *options.version + "' is no version number");
        if (!write(versionFile, VersionText(version) + "\n")) return false;
    } else if (!fs::exists(versionFile, ec)) {
        if (!write(versionFile, VersionText(version) + "\n")) return false;
    } else {
        ReadVersionFile(versionFile.string(), version);
    }
    notes.push_back(std::string(kVersionFile) + ": " + VersionText(version));
    if (!write(root / "index.html", homePage(root, VersionText(version)))) return false;

    std::printf("Published the update server in %s\n", fs::absolute(options.server).c_str());
    for (const std::string& note : notes) std::printf("  %s\n", note.c_str());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) return 2;
    return publish(options) ? 0 : 1;
}
