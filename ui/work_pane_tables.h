#pragma once
// The fixed tables of the work pane: its eight panels with their header ids, title
// keys and the settings that keep them open; the check boxes of the output columns;
// the filters; the sets of elements with the columns each one ticks.
#include <array>
#include <cstddef>
#include <span>

#include "app/app_state.h"
#include "language/sections.h"

namespace orvane {

inline constexpr std::size_t kPanelCount = 8;

enum class PanelKind : int {
    briefInfo,
    quickSearch,
    advancedSearch,
    filters,
    outputDetails,
    setsOfElements,
    elements,
    calculatedElements,
};

struct PanelShape {
    PanelKind kind;
    int headerId;
    int titleKey;         // section orvStartPage; Hide is titleKey + 1, Show titleKey + 2
    int AppState::*open;  // the record that keeps the panel open
};

// Top to bottom.
extern const std::array<PanelShape, kPanelCount> kPanels;

// One check box per output column, by the column's index in AppState::columnShown
// (record 27 + index).
struct ColumnBox {
    int id;
    Section section;  // orvElements or orvCalcElements
    int key;
};
ColumnBox columnBox(std::size_t column);

// The column indices of the Elements panel in the order the boxes are created, and
// of the Calculated Elements panel in the order of their ids.
std::span<const std::size_t> elementsCreationOrder();
std::span<const std::size_t> calculatedBoxOrder();

struct FilterBox {
    int id;
    int key;  // section orvFilters
    int AppState::*record;
};
extern const std::array<FilterBox, 4> kFilterBoxes;

inline constexpr int kShowErrorsBox = 765;

struct SetBox {
    int id;
    int key;  // section orvSets
    int AppState::*record;
    std::span<const std::size_t> columns;  // indices into AppState::columnShown
};
extern const std::array<SetBox, 5> kSetBoxes;

// The header ids of the eight Brief Info lines.
inline constexpr int kFirstBriefInfoLine = 883;
inline constexpr int kBriefInfoLines = 8;

// Quick search.
inline constexpr int kQuickEdit = 701;
inline constexpr int kQuickCombo = 706;

// Advanced search: field, condition, edit and connector of each row; the connector of
// every row carries the same id, and row 5 has none.
struct AdvancedRowIds {
    int field;
    int condition;
    int edit;
};
inline constexpr std::array<AdvancedRowIds, 5> kAdvancedRows{{
    {810, 811, 831}, {812, 813, 832}, {814, 815, 833}, {816, 817, 834}, {818, 819, 835}}};
inline constexpr int kConnectorId = 820;
inline constexpr int kFirstFieldKey = 2;       // "---", then the 54 fields
inline constexpr int kLastFieldKey = 56;
inline constexpr int kFirstConditionKey = 57;  // "---", then the eight operators
inline constexpr int kLastConditionKey = 65;
inline constexpr int kAndKey = 66;
inline constexpr int kOrKey = 67;

}  // namespace orvane
