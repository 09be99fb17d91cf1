#include "records/search_columns.h"

#include <array>

namespace orvane {
namespace {

// A date is kept in three columns; sorting by any of them sorts by the whole date.
constexpr std::array<std::array<std::string_view, 3>, 4> kDateGroups = {{
    {"E_year", "E_month", "E_day"},
    {"hyear", "hmonth", "hday"},
    {"F_year", "F_month", "F_day"},
    {"L_year", "L_month", "L_day"},
}};

const std::array<std::string_view, 3>* dateGroupOf(std::string_view column) {
    for (const auto& group : kDateGroups) {
        for (const std::string_view member : group) {
            if (member == column) return &group;
        }
    }
    return nullptr;
}

}  // namespace

std::string sortText(std::string_view column, bool descending) {
    std::string text = " order by ";
    const auto* group = dateGroupOf(column);
    if (group == nullptr) {
        text += column;
        if (descending) text += " desc";
        return text;
    }
    for (std::size_t k = 0; k < group->size(); ++k) {
        if (k > 0) text += ", ";
        text += (*group)[k];
        if (descending) text += " desc";
    }
    return text;
}

std::vector<ColumnSlot> buildColumnSlots(const SearchForm& form, const SearchTexts& texts) {
    std::vector<ColumnSlot> slots;
    for (std::size_t c = 0; c < kOutputColumnCount; ++c) {
        if (form.columnShown[c] != 1) continue;
        const std::string_view name = kOutputColumns[c];
        ColumnSlot slot;
        slot.outputColumn = static_cast<int>(c);
        slot.label = texts.listView[3 + 2 * c];
        slot.tip = texts.listView[4 + 2 * c];
        fieldByName(name, slot.field);
        if (form.showErrors == 1) {
            slot.hasError = fieldByName(std::string(name) + "_err", slot.errorField);
        }
        slot.sortAscending = sortText(name, false);
        slot.sortDescending = sortText(name, true);
        slots.push_back(std::move(slot));
    }
    return slots;
}

std::string sortClause(const SearchForm& form) {
    const int c = form.sort.column;
    if (c < 0 || c >= static_cast<int>(kOutputColumnCount)) return {};
    if (form.columnShown[static_cast<std::size_t>(c)] != 1) return {};
    return sortText(kOutputColumns[static_cast<std::size_t>(c)], form.sort.ascending != 1);
}

}  // namespace orvane
