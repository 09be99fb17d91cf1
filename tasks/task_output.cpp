#include "tasks/task_output.h"

#include <cmath>

#include "tasks/description_text.h"

namespace orvane {

TaskOutput::TaskOutput(const TaskOptions& options, const TaskTexts& texts, std::size_t objectCount)
    : writer_(options, texts), panel_(objectCount) {
    header_.reserve(kLineBufferSize);
    line_.reserve(kLineBufferSize);
}

bool TaskOutput::writingFiles() const { return writer_.options().calculateEphemerides && !stopped_ && fileOk_; }

bool TaskOutput::openFileFor(const std::string& name) {
    const TaskOptions& o = writer_.options();
    std::string fileName;
    if (o.singleFile) {
        if (file_.isOpen()) return true;
        fileName = kSingleEphemerisFile;
    } else {
        const std::string stem = EphemerisFileName(name, usedNames_);
        usedNames_.push_back(stem);
        fileName = stem + ".txt";
    }
    const std::string path = EphemerisFilePath(o.saveFolder, fileName);
    if (!file_.open(path)) {
        fileOk_ = false;
        failedFile_ = path;
        return false;
    }
    filesWritten_.push_back(path);
    return true;
}

bool TaskOutput::EmitEphemerisHeader(int objectIndex, const RunObject& object, const EphemerisLine& first) {
    const auto index = static_cast<std::size_t>(objectIndex);
    panel_.setName(index, object.name);
    panel_.setEphemerisLine(index, first);
    if (!writingFiles()) return true;
    if (!openFileFor(object.name)) return false;
    std::size_t length = 0;
    writer_.makeLine(first, true, header_, line_, length);
    rule_ = DashRule(length);
    file_.writeTableStart(object.name, DescriptionText(writer_.options(), writer_.texts()), header_,
                          std::string_view(line_).substr(0, length));
    return true;
}

void TaskOutput::EmitEphemerisLine(int objectIndex, const RunObject& object, const EphemerisLine& line) {
    const auto index = static_cast<std::size_t>(objectIndex);
    panel_.setName(index, object.name);
    panel_.setEphemerisLine(index, line);
    if (!writingFiles() || !file_.isOpen()) return;
    std::size_t length = 0;
    writer_.makeLine(line, false, header_, line_, length);
    file_.writeRecord(std::string_view(line_).substr(0, length));
}

void TaskOutput::EmitEphemerisTrailer(int, const RunObject&) {
    if (!writingFiles() || !file_.isOpen()) return;
    file_.writeRecord(rule_);
    if (!writer_.options().singleFile) file_.close();
}

long long TaskOutput::EphemerisFileBytes() { return file_.isOpen() ? file_.bytes() : 0; }

void TaskOutput::StopEphemerisFile() {
    if (file_.isOpen()) {
        file_.writeRecord(rule_);
        file_.close();
    }
    stopped_ = true;
}

void TaskOutput::EmitApproachRows(int objectIndex, const RunObject& object, const std::vector<ApproachRow>& rows) {
    const auto index = static_cast<std::size_t>(objectIndex);
    panel_.setName(index, object.name);
    ObjectResults results = panel_.approachResults(index);
    results.rows = rows;
    panel_.setApproachResults(index, results);
}

void TaskOutput::markIntervals(const std::vector<RunObject>& objects) {
    for (std::size_t i = 0; i < objects.size() && i < panel_.objectCount(); ++i) {
        panel_.setName(i, objects[i].name);
        ObjectResults results;
        results.intervalState = NoIntervalToSearch(objects[i]) ? 1 : 0;
        panel_.setApproachResults(i, results);
    }
}

bool NoIntervalToSearch(const RunObject& object) {
    return std::fabs(object.targetTime - object.block.time) < kEpochTolerance;
}

void TaskOutput::closeFiles() { file_.close(); }

std::string TaskOutput::currentFileName() const {
    if (!file_.isOpen()) return {};
    const auto slash = file_.path().find_last_of('/');
    return slash == std::string::npos ? file_.path() : file_.path().substr(slash + 1);
}

}  // namespace orvane
