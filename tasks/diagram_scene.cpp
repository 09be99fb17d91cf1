#include "tasks/diagram_scene.h"

#include <algorithm>
#include <cstdio>

#include "tasks/date_text.h"

namespace orvane {

int DiagramScene::firstObject() const { return combined ? 0 : currentObject; }

int DiagramScene::lastObject() const {
    if (!frame) return -1;
    const int count = static_cast<int>(frame->objects.size());
    return combined ? count - 1 : std::min(currentObject, count - 1);
}

DiagramTexts loadDiagramTexts(const TextLookup& lookup) {
    DiagramTexts t;
    const auto orbits = [&](int key) { return lookup("orvOrbits", key); };
    for (std::size_t k = 0; k < t.rates.size(); ++k) t.rates[k] = orbits(static_cast<int>(k) + 1);
    t.lat = orbits(9);
    t.lon = orbits(10);
    t.field = orbits(11);
    t.au = orbits(12);
    t.name = orbits(13);
    t.pleaseWait = orbits(14);
    t.remainingPaused = orbits(15);
    t.ratePaused = orbits(16);
    t.jd = orbits(17);
    t.timeInterval = orbits(18);
    t.statusPrepare = orbits(19);
    t.remainingZero = orbits(20);
    t.timeIntervalOpen = orbits(21);
    t.statusReady = orbits(22);
    const auto edit = [&](int key) { return lookup("orvEdit", key); };
    t.combinedPicture = edit(23);
    t.noName = edit(88);
    t.epoch = edit(91);
    for (std::size_t k = 0; k < t.planetNames.size(); ++k) {
        t.planetNames[k] = lookup("orvPlanets", static_cast<int>(k) + 2);
    }
    return t;
}

const std::string& DiagramBodyName(const DiagramTexts& texts, const std::string& name) {
    return name.empty() ? texts.noName : name;
}

std::string DiagramNameLine(const DiagramTexts& texts, const std::string& name, bool combined) {
    if (combined) return texts.combinedPicture;
    return texts.name + " " + DiagramBodyName(texts, name);
}

namespace {

std::string ShownDate(const DiagramTexts& texts, double jd, const TaskOptions& options) {
    std::string text = DateText(jd, options.datesInJulianDays, options.showHms);
    const std::size_t first = text.find_first_not_of(' ');
    text.erase(0, first == std::string::npos ? text.size() : first);
    if (options.datesInJulianDays) text += " " + texts.jd;
    return text;
}

}  // namespace

std::string DiagramEpochLine(const DiagramTexts& texts, double jd, const TaskOptions& options) {
    return texts.epoch + ": " + ShownDate(texts, jd, options);
}

std::string DiagramIntervalLine(const DiagramTexts& texts, double start, double end, bool endKnown,
                                const TaskOptions& options) {
    if (!endKnown) return texts.timeIntervalOpen;
    return texts.timeInterval + " " + ShownDate(texts, start, options) + " -> " + ShownDate(texts, end, options);
}

const std::string& DiagramRateText(const DiagramTexts& texts, int rate, bool paused) {
    if (paused) return texts.ratePaused;
    return texts.rates[static_cast<std::size_t>(std::clamp(rate, 1, 8) - 1)];
}

std::string DiagramViewLine(const DiagramTexts& texts, const DiagramCamera& camera, int clientWidth) {
    char lat[32], lon[32], field[32];
    std::snprintf(lat, sizeof lat, "%.0f", camera.lat);
    std::snprintf(lon, sizeof lon, "%.0f", camera.lon);
    std::snprintf(field, sizeof field, "%.2f", DiagramField(clientWidth, camera.zoom));
    return texts.lat + " " + lat + texts.lon + " " + lon + texts.field + " " + field + " " + texts.au;
}

}  // namespace orvane
