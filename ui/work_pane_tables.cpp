#include "ui/work_pane_tables.h"

namespace orvane {
namespace {

constexpr std::size_t kFirstCalculated = 47;  // M_calc, record 74

// Records 74..79 are M_calc, n_calc, a_calc, Q_calc, class_calc, P_calc; their boxes
// carry the ids 7049, 7050, 7053, 7052, 7048, 7051 and the keys of orvCalcElements.
constexpr std::array<int, 6> kCalculatedIds{7049, 7050, 7053, 7052, 7048, 7051};
constexpr std::array<int, 6> kCalculatedKeys{2, 3, 4, 5, 6, 7};

// Box 7030 is created right after 7023.
constexpr std::array<std::size_t, 47> kElementsCreation = [] {
    std::array<std::size_t, 47> order{};
    std::size_t n = 0;
    for (std::size_t c = 0; c <= 22; ++c) order[n++] = c;
    order[n++] = 29;
    for (std::size_t c = 23; c <= 28; ++c) order[n++] = c;
    for (std::size_t c = 30; c <= 46; ++c) order[n++] = c;
    return order;
}();

// class, Mean anomaly, Average motion, Orbital period, Aphelion distance, Semi-major axis.
constexpr std::array<std::size_t, 6> kCalculatedOrder{51, 47, 48, 52, 50, 49};

constexpr std::array<std::size_t, 53> kAllColumns = [] {
    std::array<std::size_t, 53> all{};
    for (std::size_t c = 0; c < all.size(); ++c) all[c] = c;
    return all;
}();
// Records 27-29, 31-43, 50-58, 60, 61, 63.
constexpr std::array<std::size_t, 28> kEcsColumns{0,  1,  2,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14,
                                                  15, 16, 23, 24, 25, 26, 27, 28, 29, 30, 31, 33, 34, 36};
// Records 35-39, 41-43.
constexpr std::array<std::size_t, 8> kOrbitalColumns{8, 9, 10, 11, 12, 14, 15, 16};
// Records 32-34.
constexpr std::array<std::size_t, 3> kEpochColumns{5, 6, 7};
// Records 74-79.
constexpr std::array<std::size_t, 6> kCalculatedColumns{47, 48, 49, 50, 51, 52};

}  // namespace

const std::array<PanelShape, kPanelCount> kPanels{{
    {PanelKind::briefInfo, 874, 1, &AppState::briefInfoOpen},
    {PanelKind::quickSearch, 879, 4, &AppState::quickSearchOpen},
    {PanelKind::advancedSearch, 873, 7, &AppState::advancedSearchOpen},
    {PanelKind::filters, 875, 10, &AppState::filtersOpen},
    {PanelKind::outputDetails, 880, 13, &AppState::outputDetailsOpen},
    {PanelKind::setsOfElements, 876, 16, &AppState::setsOpen},
    {PanelKind::elements, 877, 19, &AppState::elementsOpen},
    {PanelKind::calculatedElements, 878, 22, &AppState::calcElementsOpen},
}};

ColumnBox columnBox(std::size_t column) {
    if (column < kFirstCalculated)
        return {7001 + static_cast<int>(column), Section::orvElements, static_cast<int>(column) + 2};
    const std::size_t k = column - kFirstCalculated;
    if (k < kCalculatedIds.size()) return {kCalculatedIds[k], Section::orvCalcElements, kCalculatedKeys[k]};
    return {0, Section::orvElements, 0};
}

std::span<const std::size_t> elementsCreationOrder() { return kElementsCreation; }
std::span<const std::size_t> calculatedBoxOrder() { return kCalculatedOrder; }

const std::array<FilterBox, 4> kFilterBoxes{{
    {762, 2, &AppState::filterPeriodicOnly},
    {703, 3, &AppState::filterLastAppearance},
    {763, 4, &AppState::filterMyRecords},
    {764, 5, &AppState::filterLastUpdate},
}};

const std::array<SetBox, 5> kSetBoxes{{
    {713, 2, &AppState::setAll, kAllColumns},
    {714, 3, &AppState::setEcs, kEcsColumns},
    {715, 4, &AppState::setOrbital, kOrbitalColumns},
    {717, 5, &AppState::setEpoch, kEpochColumns},
    {760, 6, &AppState::setCalculated, kCalculatedColumns},
}};

}  // namespace orvane
