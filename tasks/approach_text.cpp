#include "tasks/approach_text.h"

#include <cstddef>
#include <utility>

#include "base/fortran_format.h"
#include "tasks/date_text.h"
#include "tasks/ephemeris_units.h"

namespace orvane {

namespace {

constexpr std::string_view kCrLf = "\r\n";

// The label of a listed event, or none when the options leave it out.
const std::string* labelOf(const ApproachRow& row, const TaskOptions& options, const TaskTexts& texts) {
    switch (row.kind) {
    case kApproachPerihelion:
        return options.showPerihelionPassages ? &texts.approachLabels[0] : nullptr;
    case 3:
        return options.minDistanceEachAppearance ? nullptr : &texts.approachLabels[3];
    case kApproachEarthAppearance:
        return options.minDistanceEachAppearance ? &texts.approachLabels[3] : nullptr;
    default:
        if (row.kind < 1 || row.kind > 9) return nullptr;
        return &texts.approachLabels[static_cast<std::size_t>(row.kind)];
    }
}

}  // namespace

std::string ApproachDistanceText(const ApproachRow& row, const TaskOptions& options) {
    double radiusKm = 0.0;
    if (options.planetSizeCounted && row.kind >= 0 && row.kind <= 10) {
        radiusKm = kApproachRadiusKm[static_cast<std::size_t>(row.kind)];
    }
    if (options.distanceUnitsKm) return formatF(row.distance * kKilometresPerAu - radiusKm, 15, 3);
    return formatF(row.distance - radiusKm / kKilometresPerAu, 15, 12);
}

std::string CutToPanel(std::string block) {
    if (block.size() < kPanelTextLimit) return block;
    block.resize(kPanelTextLimit);
    // Ten characters before the " : " of a label is the start of its line, counted
    // the way the panel always counted: the line end before it goes with the cut.
    const auto mark = block.rfind(" : ");
    const std::size_t keep = (mark != std::string::npos && mark + 1 >= 10) ? mark + 1 - 10 : kPanelTextLimit;
    block.resize(keep);
    block += "...";
    return block;
}

std::string CloseApproachBlock(const std::string& name, const ObjectResults& results, const TaskOptions& options,
                               const TaskTexts& texts) {
    std::string text = texts.closeApproachesOf + " " + name + ":";
    text.append(kCrLf).append(kCrLf);
    if (results.intervalState == 1) {
        text.append(texts.noInterval).append(kCrLf);
        return text;
    }
    const std::string unit = options.distanceUnitsKm ? texts.km : texts.au;
    bool listed = false;
    for (auto row = results.rows.rbegin(); row != results.rows.rend(); ++row) {
        const std::string* label = labelOf(*row, options, texts);
        if (label == nullptr) continue;
        listed = true;
        text.append(*label)
            .append(ApproachDateText(row->time, options.datesInJulianDays, options.showHms, texts))
            .append(" -> ")
            .append(ApproachDistanceText(*row, options))
            .append(" (")
            .append(unit)
            .append(")")
            .append(kCrLf);
        if (text.size() >= kPanelTextLimit) break;
    }
    if (!listed) text.append(texts.noCloseApproaches).append(kCrLf);
    return CutToPanel(std::move(text));
}

}  // namespace orvane
