#pragma once
// Everything one paint of the orbit diagram reads, as plain values: the camera,
// the display options, a frame of blocks (see diagram_frame.h), the epoch blocks
// of the objects and the texts of the strip under the scene. The window keeps one
// and hands it to the painter; an exported picture is painted from a copy.
#include <cstdint>
#include <span>
#include <string>

#include "dynamics/task_options.h"
#include "records/record_texts.h"
#include "tasks/diagram_camera.h"
#include "tasks/diagram_frame.h"

namespace orvane {

// The check boxes of the Orbit Diagrams page in their plain sense (the settings
// keep the last three inverted: 0 shows).
struct DiagramDisplay {
    bool showCurrentOnly = true;  // "Show current orbits only"
    bool planetOrbits = true;     // "Show orbits of the planets"
    bool objectNames = true;      // "Show object names"
    bool axes = true;             // "Show axes"
};

// The lines of the text strip as they are shown.
struct DiagramStrip {
    bool integrationStatus = true;  // "Hide Integration status" hides all but the view line
    std::string name;               // "Name: 1P/Halley", or "Combined picture..."
    std::string epoch;              // "Epoch: 2024-09-07 00:00:00"
    std::string interval;           // "Time interval: ... -> ..."
    std::string status;             // "Status: Prepare..." / "Status: Ready..."
    std::string remaining;          // "Remaining time: ..."
    std::string rate;               // "Rate: x320"
};

struct DiagramScene {
    DiagramCamera camera;
    DiagramDisplay display;
    const DiagramFrame* frame = nullptr;              // nothing but the Sun and axes without one
    std::span<const IntegrationBlock> epochBlocks;    // of each object: the orbit of the record's epoch
    bool combined = false;                            // all objects, or only the current one
    int currentObject = 0;                            // index into the frame's objects
    bool rateMax = false;                             // "Rate: max": no scene, the text of waiting
    std::uint32_t background = 0xFFFFFF;              // RGB of the scene
    DiagramStrip strip;

    // The objects the scene draws: all of a combined run, else the current one.
    int firstObject() const;
    int lastObject() const;
};

// The texts of the scene and the strip from the language table.
struct DiagramTexts {
    std::array<std::string, 8> rates{"Rate: max", "Rate: x320", "Rate: x32", "Rate: x16",
                                     "Rate: x8",  "Rate: x4",   "Rate: x2",  "Rate: x1"};
    std::string ratePaused = "Rate: x0";
    std::string lat = "Lat:";
    std::string lon = "\xC2\xB0 / Lon:";
    std::string field = "\xC2\xB0 / Field:";
    std::string au = "AU";
    std::string name = "Name:";
    std::string pleaseWait = "Please wait... Computation is performed at maximum speed...";
    std::string remainingPaused = "Remaining time: Paused...";
    std::string remainingZero = "Remaining time: 0h 0m 0s";
    std::string jd = "JD";
    std::string timeInterval = "Time interval:";
    std::string timeIntervalOpen = "Time interval: ... ->";
    std::string statusPrepare = "Status: Prepare...";
    std::string statusReady = "Status: Ready...";
    std::string combinedPicture = "Combined picture...";
    std::string noName = "No name...";
    std::string epoch = "Epoch";
    // Mercury .. Pluto.
    std::array<std::string, kDiagramPlanets> planetNames{"Mercury", "Venus",  "Earth",   "Mars", "Jupiter",
                                                         "Saturn",  "Uranus", "Neptune", "Pluto"};
};

DiagramTexts loadDiagramTexts(const TextLookup& lookup);

// "Name: <name>" ("No name..." for an empty one), or "Combined picture...".
std::string DiagramNameLine(const DiagramTexts& texts, const std::string& name, bool combined);
// A body's label: its name, or "No name..." for an empty one.
const std::string& DiagramBodyName(const DiagramTexts& texts, const std::string& name);
// "Epoch: " and the date in the forms of the ephemeris tables, " JD" after a Julian date.
std::string DiagramEpochLine(const DiagramTexts& texts, double jd, const TaskOptions& options);
// "Time interval: <start> -> <end>", or "Time interval: ... ->" before an end is known.
std::string DiagramIntervalLine(const DiagramTexts& texts, double start, double end, bool endKnown,
                                const TaskOptions& options);
// The rate's label, "Rate: x0" while paused.
const std::string& DiagramRateText(const DiagramTexts& texts, int rate, bool paused);
// "Lat: 45° / Lon: 135° / Field: 10.00 AU".
std::string DiagramViewLine(const DiagramTexts& texts, const DiagramCamera& camera, int clientWidth);

}  // namespace orvane
