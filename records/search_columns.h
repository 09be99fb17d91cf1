#pragma once
// The columns of the result list: one slot per ticked output column, in the order
// of the column list, with its title and tip, the record fields it shows and the
// two order clauses that sort the list by it.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "records/orbit_record.h"
#include "records/search_form.h"
#include "records/search_texts.h"

namespace orvane {

struct ColumnSlot {
    int outputColumn = 0;      // index of kOutputColumns
    std::string label;         // title of the column header and of the pop-up menu item
    std::string tip;           // tip of the header
    Field field = Field::comet;
    bool hasError = false;     // errorField is shown beside it (only with showErrors)
    Field errorField = Field::comet;
    std::string sortAscending;   // " order by comet"
    std::string sortDescending;  // " order by comet desc"
};

// " order by hyear, hmonth, hday" for a column of a date group, else " order by q";
// with `descending` each column gets " desc".
std::string sortText(std::string_view column, bool descending);

// The slots of the ticked columns; empty when nothing is ticked.
std::vector<ColumnSlot> buildColumnSlots(const SearchForm& form, const SearchTexts& texts);

// The order clause of the form's sort choice, "" for none or a column not ticked.
std::string sortClause(const SearchForm& form);

}  // namespace orvane
