#pragma once
// The English texts of the language table for the task texts, as the program
// reads them, and ephemeris lines with plain values.
#include <string>

#include "tasks/task_texts.h"
#include "language/language_table.h"

namespace orvane::testing {

inline TaskTexts englishTaskTexts() {
    static const LanguageTable table;
    return loadTaskTexts([](std::string_view section, int key) -> std::string {
        for (Section s : kAllSections) {
            if (sectionName(s) == section) return table.text(s, key);
        }
        return {};
    });
}

}  // namespace orvane::testing
