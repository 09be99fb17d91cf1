#pragma once
// The shape of the language table: 26 sections in the order in which a language
// file is read and the table is laid out, each with its count of keys and the width
// of its entries. Keys are numbered from 1 to the count; a key's number is its place
// in the section.
//
// Width is counted in characters. An entry holds at most width - 1 characters,
// because the text always had to leave room for its terminating NUL.
#include <array>
#include <cstddef>
#include <string_view>

namespace orvane {

// Named exactly as the sections of a language file.
enum class Section : int {
    orvMenu,
    orvToolBar,
    orvTab,
    orvStartPage,
    orvBriefInfo,
    orvQuickSearch,
    orvAdvSearch,
    orvFilters,
    orvOutDetails,
    orvSets,
    orvElements,
    orvCalcElements,
    orvStatus,
    orvListView,
    orvAbout,
    orvUpdate,
    orvOrvaneOptions,
    orvEdit,
    orvOrbits,
    orvPlanets,
    orvElementsOptions,
    orvErrors,
    orvElementsUpdate,
    orvDEInstall,
    orvWnd,
    orvCoSystem,
};

struct SectionShape {
    std::string_view name;
    int keys;
    int width;
};

inline constexpr std::size_t kSectionCount = 26;

inline constexpr std::array<SectionShape, kSectionCount> kSectionShapes{{
    {"orvMenu", 45, 50},
    {"orvToolBar", 21, 50},
    {"orvTab", 2, 20},
    {"orvStartPage", 24, 50},
    {"orvBriefInfo", 7, 90},
    {"orvQuickSearch", 6, 50},
    {"orvAdvSearch", 67, 50},
    {"orvFilters", 5, 50},
    {"orvOutDetails", 2, 50},
    {"orvSets", 6, 50},
    {"orvElements", 48, 70},
    {"orvCalcElements", 7, 70},
    {"orvStatus", 27, 50},
    {"orvListView", 108, 70},
    {"orvAbout", 11, 90},
    {"orvUpdate", 29, 90},
    {"orvOrvaneOptions", 16, 90},
    {"orvEdit", 167, 90},
    {"orvOrbits", 37, 200},
    {"orvPlanets", 12, 20},
    {"orvElementsOptions", 83, 200},
    {"orvErrors", 355, 200},
    {"orvElementsUpdate", 33, 200},
    {"orvDEInstall", 27, 200},
    {"orvWnd", 9, 200},
    {"orvCoSystem", 52, 90},
}};

// Every section in table order, for loops over the whole table.
inline constexpr std::array<Section, kSectionCount> kAllSections = [] {
    std::array<Section, kSectionCount> all{};
    for (std::size_t i = 0; i < kSectionCount; ++i) all[i] = static_cast<Section>(i);
    return all;
}();

constexpr bool isValidSection(Section section) {
    const int index = static_cast<int>(section);
    return index >= 0 && static_cast<std::size_t>(index) < kSectionCount;
}

// Callers pass a valid section; an invalid one answers an empty shape.
constexpr SectionShape shapeOf(Section section) {
    return isValidSection(section) ? kSectionShapes[static_cast<std::size_t>(section)] : SectionShape{};
}

constexpr std::string_view sectionName(Section section) { return shapeOf(section).name; }
constexpr int keyCount(Section section) { return shapeOf(section).keys; }
constexpr int widthOf(Section section) { return shapeOf(section).width; }

constexpr bool isValidKey(Section section, int key) { return key >= 1 && key <= keyCount(section); }

// Number of texts in the whole table.
inline constexpr int kTotalKeys = [] {
    int total = 0;
    for (const auto& shape : kSectionShapes) total += shape.keys;
    return total;
}();

}  // namespace orvane
