#include "tools/cli_options.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <map>
#include <sstream>

#include "astro/calendar.h"

namespace orvane::cli {

namespace {

bool toDouble(const std::string& text, double& value) {
    if (text.empty()) return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtod(text.c_str(), &end);
    return end != text.c_str() && *end == '\0' && errno != ERANGE && std::isfinite(value);
}

bool toInt(const std::string& text, long long low, long long high, long long& value) {
    if (text.empty()) return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtoll(text.c_str(), &end, 10);
    return end != text.c_str() && *end == '\0' && errno != ERANGE && value >= low && value <= high;
}

bool toBool(const std::string& text, bool& value) {
    if (text.empty() || text == "1" || text == "on" || text == "yes") {
        value = true;
        return true;
    }
    if (text == "0" || text == "off" || text == "no") {
        value = false;
        return true;
    }
    return false;
}

// "59 46 19.62 N" or "59:46:19.62N": degrees, minutes, seconds and hemisphere.
bool place(const std::string& text, char positive, char negative, int maxDegrees, int& deg, int& min, double& sec,
           int& hemisphere) {
    std::string t = text;
    for (char& c : t) {
        if (c == ':') c = ' ';
    }
    while (!t.empty() && t.back() == ' ') t.pop_back();
    if (t.empty()) return false;
    const char last = static_cast<char>(std::toupper(static_cast<unsigned char>(t.back())));
    if (last != positive && last != negative) return false;
    hemisphere = last == negative ? 1 : 0;
    t.pop_back();
    std::istringstream in(t);
    std::string d, m, s;
    in >> d >> m >> s;
    std::string rest;
    if (in >> rest) return false;
    long long dv = 0, mv = 0;
    double sv = 0.0;
    if (!toInt(d, 0, maxDegrees, dv) || !toInt(m, 0, 59, mv) || !toDouble(s, sv) || sv < 0.0 || sv >= 60.0) {
        return false;
    }
    deg = static_cast<int>(dv);
    min = static_cast<int>(mv);
    sec = sv;
    return true;
}

using Setter = std::function<bool(const std::string& value, CliArgs& args)>;

struct Flag {
    bool takesValue;
    Setter set;
};

Setter boolFlag(bool TaskOptions::*field) {
    return [field](const std::string& v, CliArgs& a) { return toBool(v, a.options.*field); };
}

Setter choiceFlag(int TaskOptions::*field, std::initializer_list<const char*> words) {
    std::vector<std::string> list(words.begin(), words.end());
    return [field, list](const std::string& v, CliArgs& a) {
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (v == list[i]) {
                a.options.*field = static_cast<int>(i);
                return true;
            }
        }
        return false;
    };
}

Setter intFlag(int TaskOptions::*field, long long low, long long high) {
    return [field, low, high](const std::string& v, CliArgs& a) {
        long long n = 0;
        if (!toInt(v, low, high, n)) return false;
        a.options.*field = static_cast<int>(n);
        return true;
    };
}

const std::map<std::string, Flag>& flags() {
    static const std::map<std::string, Flag> table = {
        {"help", {false, [](const std::string&, CliArgs& a) { return a.help = true; }}},
        {"task", {true, [](const std::string& v, CliArgs& a) {
             if (v == "ephemerides") a.task = TaskKind::Ephemerides;
             else if (v == "close-approaches") a.task = TaskKind::CloseApproaches;
             else return false;
             return true;
         }}},
        {"database", {true, [](const std::string& v, CliArgs& a) { a.databasePath = v; return !v.empty(); }}},
        {"id", {true, [](const std::string& v, CliArgs& a) {
             long long id = 0;
             if (!toInt(v, 1, 9223372036854775807LL, id)) return false;
             a.ids.push_back(id);
             return true;
         }}},
        {"search", {true, [](const std::string& v, CliArgs& a) {
             const auto eq = v.find('=');
             if (eq == std::string::npos) return false;
             a.searchField = v.substr(0, eq);
             a.searchValue = v.substr(eq + 1);
             return (a.searchField == "des" || a.searchField == "name" || a.searchField == "comet") &&
                    !a.searchValue.empty();
         }}},
        {"els", {true, [](const std::string& v, CliArgs& a) { a.elsPath = v; return !v.empty(); }}},
        {"ephemeris", {true, [](const std::string& v, CliArgs& a) { a.ephemerisPath = v; return !v.empty(); }}},
        {"target", {true, [](const std::string& v, CliArgs& a) { return a.targetGiven = ParseEpoch(v, a.targetJd); }}},
        {"type", {true, choiceFlag(&TaskOptions::ephemerisType, {"spherical", "rectangular", "orbital"})}},
        {"position", {true, choiceFlag(&TaskOptions::coordinateKind, {"astrometric", "geometric", "apparent"})}},
        {"plane", {true, choiceFlag(&TaskOptions::mainPlane, {"equator", "ecliptic", "horizon"})}},
        {"system", {true, choiceFlag(&TaskOptions::referenceSystem, {"2000.0", "1950.0", "true"})}},
        {"centre", {true, choiceFlag(&TaskOptions::centralBody, {"sun", "mercury", "venus", "earth", "mars", "jupiter",
                                                                 "saturn", "uranus", "neptune", "pluto", "moon"})}},
        {"place", {true, choiceFlag(&TaskOptions::observerPlace, {"geocenter", "topocenter"})}},
        {"latitude", {true, [](const std::string& v, CliArgs& a) {
             TaskOptions& o = a.options;
             return place(v, 'N', 'S', 90, o.latitudeDeg, o.latitudeMin, o.latitudeSec, o.latitudeHemisphere);
         }}},
        {"longitude", {true, [](const std::string& v, CliArgs& a) {
             TaskOptions& o = a.options;
             return place(v, 'E', 'W', 360, o.longitudeDeg, o.longitudeMin, o.longitudeSec, o.longitudeHemisphere);
         }}},
        {"altitude", {true, [](const std::string& v, CliArgs& a) {
             double h = 0.0;
             if (!toDouble(v, h) || h < -500.0 || h > 9000.0) return false;
             a.options.altitude = h;
             return true;
         }}},
        {"calculate-ephemerides", {false, boolFlag(&TaskOptions::calculateEphemerides)}},
        {"single-file", {false, boolFlag(&TaskOptions::singleFile)}},
        {"step", {true, intFlag(&TaskOptions::stepSize, 1, 999)}},
        {"step-unit", {true, choiceFlag(&TaskOptions::stepUnit, {"days", "hours", "minutes"})}},
        {"save-folder", {true, [](const std::string& v, CliArgs& a) { a.options.saveFolder = v; return !v.empty(); }}},
        {"max-file-size", {true, intFlag(&TaskOptions::maxFileSize, 1, 20)}},
        {"integrate-from-epoch", {false, boolFlag(&TaskOptions::integrateFromEpoch)}},
        {"combine", {false, boolFlag(&TaskOptions::combineOrbits)}},
        {"perihelion-passages", {false, boolFlag(&TaskOptions::showPerihelionPassages)}},
        {"min-distance-each-appearance", {false, boolFlag(&TaskOptions::minDistanceEachAppearance)}},
        {"planet-size", {false, boolFlag(&TaskOptions::planetSizeCounted)}},
        {"julian-dates", {false, boolFlag(&TaskOptions::datesInJulianDays)}},
        {"hms", {false, boolFlag(&TaskOptions::showHms)}},
        {"perihelion-relative", {false, boolFlag(&TaskOptions::perihelionRelativeToEpoch)}},
        {"km", {false, boolFlag(&TaskOptions::distanceUnitsKm)}},
        {"radians", {false, boolFlag(&TaskOptions::angleUnitsRadians)}},
    };
    return table;
}

}  // namespace

bool ParseEpoch(const std::string& text, double& jd) {
    double value = 0.0;
    if (toDouble(text, value)) {
        jd = value;
        return true;
    }
    // Y-M-D with an optional fraction of the day, or Y-M-D h:m:s; the year may be negative.
    std::string t = text;
    for (char& c : t) {
        if (c == 'T') c = ' ';
    }
    const std::size_t start = (!t.empty() && t[0] == '-') ? 1 : 0;
    const auto dash1 = t.find('-', start);
    const auto dash2 = dash1 == std::string::npos ? std::string::npos : t.find('-', dash1 + 1);
    if (dash1 == std::string::npos || dash2 == std::string::npos) return false;
    const auto blank = t.find(' ', dash2);
    long long year = 0, month = 0;
    double day = 0.0;
    if (!toInt(t.substr(0, dash1), -100000, 100000, year) || !toInt(t.substr(dash1 + 1, dash2 - dash1 - 1), 1, 12, month) ||
        !toDouble(t.substr(dash2 + 1, blank == std::string::npos ? std::string::npos : blank - dash2 - 1), day) ||
        day < 0.0 || day >= 33.0) {
        return false;
    }
    if (blank != std::string::npos) {
        if (day != std::trunc(day)) return false;
        std::string hms = t.substr(blank + 1);
        for (char& c : hms) {
            if (c == ':') c = ' ';
        }
        std::istringstream in(hms);
        std::string hs, ms, ss, rest;
        in >> hs >> ms >> ss;
        long long h = 0, m = 0;
        double s = 0.0;
        if ((in >> rest) || !toInt(hs, 0, 23, h) || !toInt(ms, 0, 59, m) || !toDouble(ss, s) || s < 0.0 || s >= 60.0) {
            return false;
        }
        day += (static_cast<double>(h) * 3600.0 + static_cast<double>(m) * 60.0 + s) / 86400.0;
    }
    jd = CalendarToJulian(static_cast<int>(year), static_cast<int>(month), day);
    return true;
}

bool ParseArgs(int argc, char** argv, CliArgs& args, std::string& error) {
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (arg.rfind("--", 0) != 0) {
            error = "unexpected argument '" + arg + "'";
            return false;
        }
        arg = arg.substr(2);
        std::string value;
        bool hasValue = false;
        if (const auto eq = arg.find('='); eq != std::string::npos) {
            value = arg.substr(eq + 1);
            arg = arg.substr(0, eq);
            hasValue = true;
        }
        bool negated = false;
        auto found = flags().find(arg);
        if (found == flags().end() && arg.rfind("no-", 0) == 0) {
            found = flags().find(arg.substr(3));
            negated = found != flags().end() && !found->second.takesValue && found->first != "help";
            if (!negated) found = flags().end();
        }
        if (found == flags().end()) {
            error = "unknown option '--" + arg + "' (see --help)";
            return false;
        }
        if (found->second.takesValue && !hasValue) {
            if (i + 1 >= argc) {
                error = "option '--" + arg + "' needs a value";
                return false;
            }
            value = argv[++i];
        }
        if (negated) {
            if (hasValue) {
                error = "option '--" + arg + "' takes no value";
                return false;
            }
            value = "0";
        }
        if (!found->second.set(value, args)) {
            error = "bad value '" + value + "' for option '--" + arg + "' (see --help)";
            return false;
        }
    }
    if (args.help) return true;
    if (args.task == TaskKind::None) {
        error = "choose a task with --task=ephemerides or --task=close-approaches";
        return false;
    }
    const int sources = (args.ids.empty() ? 0 : 1) + (args.searchField.empty() ? 0 : 1) + (args.elsPath.empty() ? 0 : 1);
    if (sources != 1) {
        error = "choose the records with --id (repeatable), --search or --els, one of them";
        return false;
    }
    if (!args.targetGiven) {
        error = "give the target epoch with --target";
        return false;
    }
    return true;
}

std::string HelpText() {
    return R"(Usage: orvane-cli --task=TASK RECORDS --target=EPOCH [OPTIONS]

Runs the Ephemerides or Close Approaches task of Orvane headless: integrates each
chosen record from its epoch to the target epoch, prints the text panel and
writes the ephemeris files as the task window does.

Task and records:
  --task=ephemerides|close-approaches
  --id=N                 catalogue record by id (repeatable, in this order)
  --search=FIELD=VALUE   catalogue records whose des, name or comet holds VALUE
  --els=FILE             records of an ECS text file (*.els)
  --database=FILE        catalogue (default: orvane.db in the per-user folder)
  --ephemeris=FILE       JPL planetary file (default: jplde423.dat in the per-machine
                         folder, Orvane/ below the first entry of $XDG_DATA_DIRS)
  --target=EPOCH         target epoch, TT: a Julian date (2460000.5), Y-M-D.d
                         (2024-09-07.5) or Y-M-D h:m:s (2024-09-07 12:30:00)

Ephemerides (defaults as in a new config.dat):
  --type=spherical|rectangular|orbital            (spherical)
  --position=astrometric|geometric|apparent       (astrometric)
  --plane=equator|ecliptic|horizon                (equator)
  --system=2000.0|1950.0|true                     (2000.0)
  --centre=sun|mercury|venus|earth|mars|jupiter|saturn|uranus|neptune|pluto|moon (earth)
  --place=geocenter|topocenter                    (topocenter)
  --latitude="D M S N|S"                          ("59 46 19.62 N")
  --longitude="D M S E|W"                         ("30 19 38.64 E")
  --altitude=METRES                               (85.4)
  --calculate-ephemerides   write the ephemeris files                (off)
  --single-file             all objects in Ephemerdes.txt            (off)
  --step=1..999                                   (1)
  --step-unit=days|hours|minutes                  (days)
  --save-folder=DIR         folder of the files   (the documents folder)
  --max-file-size=1..20     MB                    (1)
  --perihelion-relative     T - epoch in the Orbital table           (off)

Close Approaches:
  --perihelion-passages            list perihelion passages           (off)
  --min-distance-each-appearance   Earth at each appearance           (off)
  --planet-size                    count from the planet's surface    (on)

Both tasks:
  --integrate-from-epoch    start from the catalogue epoch if closer  (off)
  --combine                 combine all selected orbits               (off)
                            (headless, every chosen record runs in one run either way)
  --julian-dates            dates in Julian days                      (off)
  --hms                     h:m:s in dates                            (on)
  --km                      distances in km and km/s                  (off)
  --radians                 angles in rad and rad/day                 (off)

  --help                    this text

A switch takes --name, --name=on|off|1|0, or --no-name to turn it off.
The exit status is 0 on success, 2 for a wrong command line, 1 when a file or a
record cannot be used.
)";
}

}  // namespace orvane::cli
