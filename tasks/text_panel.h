#pragma once
// The two text panels of a task: the ephemeris blocks and the close-approach
// blocks of the objects of a run, in the order of selection. The blocks keep what
// they were built from, so a change of the display options rebuilds the texts
// without a new run.
#include <optional>
#include <string>
#include <vector>

#include "dynamics/ephemeris_line.h"
#include "dynamics/task_options.h"
#include "tasks/approach_text.h"
#include "tasks/task_texts.h"

namespace orvane {

// Between the blocks of two objects: CR LF, 69 dashes and "<", two CR LF.
inline constexpr std::string_view kBlockSeparator =
    "\r\n---------------------------------------------------------------------<\r\n\r\n";

class TextPanel {
public:
    explicit TextPanel(std::size_t objectCount = 0);

    void resize(std::size_t objectCount);
    std::size_t objectCount() const { return names_.size(); }

    // The state of an object that its blocks are built from.
    void setName(std::size_t objectIndex, const std::string& name);
    void setEphemerisLine(std::size_t objectIndex, const EphemerisLine& line);
    void setApproachResults(std::size_t objectIndex, const ObjectResults& results);
    const ObjectResults& approachResults(std::size_t objectIndex) const;

    // The block of one object; empty when the object has no values of that kind.
    std::string addEphemerisBlock(std::size_t objectIndex, const TaskOptions& options, const TaskTexts& texts) const;
    std::string addCloseApproachBlock(std::size_t objectIndex, const TaskOptions& options,
                                      const TaskTexts& texts) const;

    // All blocks joined by the separator; the ephemeris text is cut at the panel's
    // length, the close-approach text as its blocks are cut.
    std::string ephemerisText(const TaskOptions& options, const TaskTexts& texts) const;
    std::string closeApproachText(const TaskOptions& options, const TaskTexts& texts) const;

private:
    std::vector<std::string> names_;
    std::vector<std::optional<EphemerisLine>> lines_;
    std::vector<std::optional<ObjectResults>> results_;
};

}  // namespace orvane
