#pragma once
// The `where` clause that the search forms stand for: the rows of the advanced form
// (or the quick form), the filters, and the restriction to the last appearance of
// each comet. Every value typed into a form ends up inside quotes with its
// apostrophes doubled, or as a plain number, so no form can add SQL of its own.
#include <cstddef>
#include <string>
#include <string_view>

#include "records/search_form.h"

namespace orvane {

// The longest clause a search accepts (its trimmed length).
inline constexpr std::size_t kMaxQueryClause = 4000;

// What an operator puts round a value, between two values of a row, and in place
// of a "~" value.
struct OperatorParts {
    std::string_view label;
    std::string_view head;
    std::string_view tail;
    std::string_view joiner;
    std::string_view emptyTest;
};

// Parts of operator 1..8; nullptr for any other index.
const OperatorParts* operatorParts(int op);

// True for the six calculated columns of the view, which compare as numbers.
bool isCalculatedColumn(std::string_view field);

// One row of the advanced form, " (" + its items joined by the operator's joiner,
// without the closing ")" (which the connector to the next row, or the end of the
// conditions, supplies). Empty when the field or the operator is unknown.
std::string buildRowClause(std::string_view field, int op, std::string_view value);

// The conditions of the form in force and the filters, before "where": "" for none.
std::string buildConditions(const SearchForm& form);

// The whole clause: "" for an empty form, "where" + conditions, or the last
// appearance form of it.
std::string buildQueryClause(const SearchForm& form);

// True when the clause is within kMaxQueryClause after trimming.
bool queryClauseFits(std::string_view clause);

}  // namespace orvane
