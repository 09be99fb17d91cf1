#include "tasks/run_messages.h"

namespace orvane {

std::string FileSizeQuestion(const TaskTexts& texts, const std::string& fileName, int limitMegabytes) {
    return texts.writingStopped + " " + fileName + " " + texts.stoppedBecause + " " +
           std::to_string(limitMegabytes) + " " + texts.tryOtherStep + "\n\n" + texts.continueWithoutFile;
}

std::string LeftSolarSystemMessage(const TaskTexts& texts, const std::string& name) {
    return texts.cometWord + " " + name + " " + texts.leftSolarSystem;
}

std::string FileOpenFailureMessage(const TaskTexts& texts, const std::string& path) {
    return texts.folderMissing + "\n" + path;
}

}  // namespace orvane
