#include "tasks/text_panel.h"

#include "tasks/ephemeris_panel.h"

namespace orvane {

TextPanel::TextPanel(std::size_t objectCount) { resize(objectCount); }

void TextPanel::resize(std::size_t objectCount) {
    names_.resize(objectCount);
    lines_.resize(objectCount);
    results_.resize(objectCount);
}

void TextPanel::setName(std::size_t objectIndex, const std::string& name) {
    if (objectIndex < names_.size()) names_[objectIndex] = name;
}

void TextPanel::setEphemerisLine(std::size_t objectIndex, const EphemerisLine& line) {
    if (objectIndex < lines_.size()) lines_[objectIndex] = line;
}

void TextPanel::setApproachResults(std::size_t objectIndex, const ObjectResults& results) {
    if (objectIndex < results_.size()) results_[objectIndex] = results;
}

const ObjectResults& TextPanel::approachResults(std::size_t objectIndex) const {
    static const ObjectResults none;
    if (objectIndex >= results_.size() || !results_[objectIndex]) return none;
    return *results_[objectIndex];
}

std::string TextPanel::addEphemerisBlock(std::size_t objectIndex, const TaskOptions& options,
                                         const TaskTexts& texts) const {
    if (objectIndex >= lines_.size() || !lines_[objectIndex]) return {};
    return EphemerisPanelBlock(names_[objectIndex], *lines_[objectIndex], options, texts);
}

std::string TextPanel::addCloseApproachBlock(std::size_t objectIndex, const TaskOptions& options,
                                             const TaskTexts& texts) const {
    if (objectIndex >= results_.size() || !results_[objectIndex]) return {};
    return CloseApproachBlock(names_[objectIndex], *results_[objectIndex], options, texts);
}

namespace {

template <typename MakeBlock>
std::string joined(std::size_t count, MakeBlock makeBlock) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        std::string block = makeBlock(i);
        if (block.empty()) continue;
        if (!text.empty()) text += kBlockSeparator;
        text += block;
    }
    return text;
}

}  // namespace

std::string TextPanel::ephemerisText(const TaskOptions& options, const TaskTexts& texts) const {
    std::string text = joined(names_.size(), [&](std::size_t i) { return addEphemerisBlock(i, options, texts); });
    if (text.size() > kPanelTextLimit) text.resize(kPanelTextLimit);
    return text;
}

std::string TextPanel::closeApproachText(const TaskOptions& options, const TaskTexts& texts) const {
    return CutToPanel(joined(names_.size(), [&](std::size_t i) { return addCloseApproachBlock(i, options, texts); }));
}

}  // namespace orvane
