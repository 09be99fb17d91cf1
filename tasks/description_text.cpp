#include "tasks/description_text.h"

#include <cstddef>

#include "base/line_builder.h"

namespace orvane {

namespace {

constexpr std::string_view kCrLf = "\r\n";

const std::string& entry(const auto& names, int index) {
    static const std::string none;
    if (index < 0 || static_cast<std::size_t>(index) >= names.size()) return none;
    return names[static_cast<std::size_t>(index)];
}

void appendAngle(LineBuilder& b, int degrees, int degreeWidth, int minutes, double seconds,
                 const std::string& hemisphere, const TaskTexts& texts) {
    b.fieldI(degrees, degreeWidth).text(texts.degreeSign);
    b.fieldIZero(minutes, 2).text(texts.minuteSign);
    b.fieldFZero(seconds, 5, 2).text(texts.secondSign);
    b.text(" ").text(hemisphere);
}

}  // namespace

std::string ObserverPlaceText(const TaskOptions& options, const TaskTexts& texts) {
    std::string text;
    LineBuilder b(text);
    appendAngle(b, options.latitudeDeg, 2, options.latitudeMin, options.latitudeSec,
                options.latitudeHemisphere == 1 ? texts.south : texts.north, texts);
    b.text(", ");
    appendAngle(b, options.longitudeDeg, 3, options.longitudeMin, options.longitudeSec,
                options.longitudeHemisphere == 1 ? texts.west : texts.east, texts);
    b.text(", ").fieldF(options.altitude, 6, 1).text(" ").text(texts.metresInBrackets);
    return text;
}

std::string DescriptionText(const TaskOptions& options, const TaskTexts& texts) {
    // Rectangular and Orbital tables are always geometric, whatever the page kept.
    const int position = options.ephemerisType == 0 ? options.coordinateKind : 1;
    std::string text = texts.typeLabel + " " + entry(texts.typeNames, options.ephemerisType) + " -> " +
                       entry(texts.positionNames, position) + " -> " + entry(texts.planeNames, options.mainPlane) +
                       " -> " + entry(texts.systemNames, options.referenceSystem);
    text += kCrLf;
    if (options.centralBody == 0) {
        text += texts.centreSunLine;
    } else {
        text += texts.centreLabel + " " + entry(texts.bodyNames, options.centralBody);
        if (options.observerPlace == 1) text += " -> " + ObserverPlaceText(options, texts);
    }
    text += kCrLf;
    text += kCrLf;
    return text;
}

}  // namespace orvane
