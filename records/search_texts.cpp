#include "records/search_texts.h"

namespace orvane {

std::string SearchTexts::resultText(long long count) const {
    if (count <= 0) return noMatches;
    return searchResults + " " + std::to_string(count) + " " + matchesFound;
}

SearchTexts loadSearchTexts(const TextLookup& lookup) {
    SearchTexts texts;
    texts.records = loadRecordTexts(lookup);
    const auto status = [&lookup](int key) { return lookup("orvStatus", key); };
    texts.searchInProgress = status(12);
    texts.tooLongQuery = status(14);
    texts.noMatches = status(15);
    texts.noColumns = status(16);
    texts.searchResults = status(23);
    texts.matchesFound = status(24);
    texts.deletingRecords = status(26);
    texts.editingRecords = status(27);
    for (std::size_t key = 1; key <= kListViewTextCount; ++key) {
        texts.listView[key] = lookup("orvListView", static_cast<int>(key));
    }
    return texts;
}

}  // namespace orvane
