#pragma once
// The starter catalogue of well-known comets (Data/Starter.els), made from the
// Minor Planet Center's CometEls.txt by make_starter_catalogue. The table and the
// making live here so that the tool and its test run the same code.
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "records/els_format.h"
#include "records/mpc_elements.h"
#include "records/orbit_record.h"
#include "records/record_files.h"

namespace orvane::starter {

struct StarterComet {
    std::string_view designation;  // as the MPC line decodes: "1P", "73P-B", "C/2020 F3"
    std::string_view reason;
};

// In the order of the file.
inline constexpr std::array<StarterComet, 47> kStarterComets{{
    {"1P", "Halley: the best-known comet, returns in 2061"},
    {"2P", "Encke: shortest known period, 3.3 years; Taurids parent"},
    {"9P", "Tempel: Deep Impact's target in 2005"},
    {"12P", "Pons-Brooks: Halley-type, bright with outbursts at its 2024 return"},
    {"19P", "Borrelly: visited by Deep Space 1 in 2001"},
    {"21P", "Giacobini-Zinner: first comet visited by a spacecraft (ICE, 1985); Draconids parent"},
    {"29P", "Schwassmann-Wachmann: Centaur in a near-circular orbit with frequent outbursts"},
    {"46P", "Wirtanen: close approach to the Earth in December 2018"},
    {"67P", "Churyumov-Gerasimenko: Rosetta's comet"},
    {"73P", "Schwassmann-Wachmann: broke up in 1995, the main fragment C"},
    {"103P", "Hartley: visited by EPOXI in 2010"},
    {"109P", "Swift-Tuttle: Perseids parent, 133-year period"},
    {"C/2022 E3", "ZTF: naked-eye green comet near the Earth in February 2023"},
    {"C/2020 F3", "NEOWISE: the bright comet of July 2020"},
    {"C/2023 A3", "Tsuchinshan-ATLAS: the bright comet of October 2024"},
    {"3D", "Biela: split in 1846 and vanished; Andromedids parent"},
    {"6P", "d'Arrest: found in 1851, a regular 6.5-year returner; a name with an apostrophe"},
    {"7P", "Pons-Winnecke: June Bootids parent"},
    {"8P", "Tuttle: Ursids parent"},
    {"10P", "Tempel 2: a bright short-period comet seen at nearly every return"},
    {"13P", "Olbers: Halley-type, returned in 2024"},
    {"15P", "Finlay: repeated outbursts in 2014 and 2021"},
    {"17P", "Holmes: the great outburst of October 2007"},
    {"23P", "Brorsen-Metcalf: Halley-type, next return 2059"},
    {"26P", "Grigg-Skjellerup: Giotto's second target in 1992"},
    {"27P", "Crommelin: Halley-type with a 27-year period"},
    {"38P", "Stephan-Oterma: Halley-type, returned in 2018"},
    {"41P", "Tuttle-Giacobini-Kresak: passed the Earth in 2017 and slowed its spin"},
    {"45P", "Honda-Mrkos-Pajdusakova: passed the Earth at 0.08 AU in 2017"},
    {"55P", "Tempel-Tuttle: Leonids parent"},
    {"73P-B", "Schwassmann-Wachmann B: the fragment that passed the Earth in 2006"},
    {"81P", "Wild: Stardust brought back its dust"},
    {"96P", "Machholz: perihelion inside Mercury's orbit, seen by SOHO"},
    {"141P", "Machholz: a split short-period comet"},
    {"153P", "Ikeya-Zhang: the bright comet of spring 2002, 366-year period"},
    {"252P", "LINEAR: passed the Earth at 0.036 AU in 2016"},
    {"289P", "Blanpain: lost in 1819, found again in 2003; Phoenicids parent"},
    {"C/2014 UN271", "Bernardinelli-Bernstein: the largest nucleus known"},
    {"C/2017 K2", "PANSTARRS: active beyond the orbit of Saturn"},
    {"C/2019 Y4", "ATLAS: broke up before perihelion in 2020"},
    {"C/2019 Y4-B", "ATLAS B: a fragment with a provisional designation"},
    {"C/2020 F8", "SWAN: naked-eye comet of May 2020 that faded"},
    {"C/2021 A1", "Leonard: the bright comet of December 2021"},
    {"C/2023 H2", "Lemmon: passed the Earth in November 2023"},
    {"C/2023 P1", "Nishimura: naked-eye comet of September 2023"},
    {"C/2024 G3", "ATLAS: the bright comet of January 2025 near the Sun"},
    {"C/2024 E1", "Wierzchos: found nearly two years ahead of its perihelion at 0.57 AU in January 2026"},
}};

struct StarterResult {
    bool ok = false;
    std::string message;             // why it failed
    std::vector<std::string> notes;  // what was changed on the way
    std::size_t written = 0;
};

// The ELS line keeps only the last two digits of the epoch and takes the century
// from the perihelion year: an epoch in another century than the perihelion would
// read back a hundred years off. Such a record goes without its epoch, so that the
// program takes the perihelion time for it, as it does for any record without one.
inline bool keepEpochThroughEls(OrbitRecord& record) {
    OrbitRecord back;
    readElsLine(writeElsLine(record), back);
    if (back.get(Field::E_year) == record.get(Field::E_year)) return true;
    record.set(Field::E_year, "");
    record.set(Field::E_month, "");
    record.set(Field::E_day, "");
    return false;
}

// Reads `cometEls`, takes the comets of the table in its order and writes them to
// `out` (a *.els file).
inline StarterResult makeStarterCatalogue(const std::filesystem::path& cometEls,
                                          const std::filesystem::path& out) {
    StarterResult result;
    if (!isElsPath(out.string())) {
        result.message = "the output must be an .els file: " + out.string();
        return result;
    }
    std::ifstream in(cometEls, std::ios::binary);
    if (!in) {
        result.message = "cannot read " + cometEls.string();
        return result;
    }
    std::map<std::string, std::string, std::less<>> lines;
    for (std::string line; std::getline(in, line);) {
        if (line.ends_with('\r')) line.pop_back();
        MpcDesignation designation;
        if (decodeMpcDesignation(line, designation)) lines.emplace(designation.label, line);
    }
    std::vector<OrbitRecord> records;
    for (const StarterComet& comet : kStarterComets) {
        const auto found = lines.find(comet.designation);
        if (found == lines.end()) {
            result.message = std::string(comet.designation) + " is not in " + cometEls.string();
            return result;
        }
        OrbitRecord record;
        const MpcLineOutcome read = readMpcCometLine(found->second, record);
        if (read.status != MpcLineStatus::Ok) {
            result.message = std::string(comet.designation) + ": " + describeMpcOutcome(read);
            return result;
        }
        if (!keepEpochThroughEls(record)) {
            result.notes.push_back(std::string(comet.designation) +
                                   ": epoch left out, its century differs from the perihelion's");
        }
        records.push_back(std::move(record));
    }
    if (!writeRecordFile(out, records)) {
        result.message = "cannot write " + out.string();
        return result;
    }
    result.ok = true;
    result.written = records.size();
    return result;
}

}  // namespace orvane::starter
