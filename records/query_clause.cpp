#include "records/query_clause.h"

#include <array>

#include "base/fixed_text.h"

namespace orvane {
namespace {

// "Less than" asks for a blank field with "~", and "Free from" asks the same as
// "Contains": the clause has always been built so.
constexpr std::array<OperatorParts, kSearchOperatorCount> kOperators = {{
    {"Greater than (>)", ">'", "'", " and", "))<>0"},
    {"Less than (<)", "<'", "'", " and", "))=0"},
    {"Equal to (=)", "='", "'", " or", "))=0"},
    {"Not equal to (/=)", "<>'", "'", " and", "))<>0"},
    {"Begins with", " like '", "%'", " or", "))=0"},
    {"Ends with", " like '%", "'", " or", "))=0"},
    {"Contains", " like '%", "%'", " or", "))=0"},
    {"Free from", " not like '%", "%'", " or", "))=0"},
}};

constexpr std::string_view kInfoDefault = "No Information Available...";

constexpr std::array<std::string_view, kQuickFieldCount> kQuickFields = {"comet", "name", "des",
                                                                         "olddes", "htype"};

constexpr std::string_view kLastAppearanceKey =
    "((case when comet='' then des else comet end)||(hyear*10000+hmonth*100+hday)) in (select "
    "(case when comet='' then des else comet end)||max(hyear*10000+hmonth*100+hday) from e_elements";
constexpr std::string_view kLastAppearanceGroup = " group by (case when comet='' then des else comet end))";

std::string doubledApostrophes(std::string_view value) {
    std::string out;
    out.reserve(value.size());
    for (const char c : value) {
        if (c == '\'') out += '\'';
        out += c;
    }
    return out;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// A decimal number as SQL reads it: sign, digits with at most one point, and an
// optional exponent. Nothing else may stand outside quotes.
bool isPlainNumber(std::string_view text) {
    std::size_t k = 0;
    if (k < text.size() && (text[k] == '+' || text[k] == '-')) ++k;
    std::size_t digits = 0;
    while (k < text.size() && isDigit(text[k])) { ++k; ++digits; }
    if (k < text.size() && text[k] == '.') {
        ++k;
        while (k < text.size() && isDigit(text[k])) { ++k; ++digits; }
    }
    if (digits == 0) return false;
    if (k < text.size() && (text[k] == 'e' || text[k] == 'E')) {
        ++k;
        if (k < text.size() && (text[k] == '+' || text[k] == '-')) ++k;
        std::size_t exponentDigits = 0;
        while (k < text.size() && isDigit(text[k])) { ++k; ++exponentDigits; }
        if (exponentDigits == 0) return false;
    }
    return k == text.size();
}

// field + head + item + tail. The calculated columns drop the quotes so that their
// values compare as numbers; a value that is not a plain number keeps its quotes
// there too, since without them it would be read as SQL.
void appendItem(std::string& out, std::string_view field, const OperatorParts& parts,
                std::string_view item) {
    out += ' ';
    out += field;
    if (isCalculatedColumn(field)) {
        const std::size_t quote = parts.head.find('\'');
        std::string literal(parts.head.substr(quote + 1));
        literal += item;
        literal += parts.tail.substr(0, parts.tail.size() - 1);
        if (isPlainNumber(literal)) {
            out += parts.head.substr(0, quote);
            out += literal;
            return;
        }
    }
    out += parts.head;
    out += item;
    out += parts.tail;
}

void appendEmptyTest(std::string& out, std::string_view field, const OperatorParts& parts) {
    out += " length(trim(";
    out += field;
    out += parts.emptyTest;
}

void appendFilter(std::string& conditions, std::string_view filter) {
    if (!conditions.empty()) conditions += " and ";
    conditions += filter;
}

std::string_view searchField(int comboIndex) {
    if (comboIndex < 1 || comboIndex > static_cast<int>(kSearchFieldCount)) return {};
    return kSearchFields[static_cast<std::size_t>(comboIndex - 1)];
}

std::string advancedConditions(const SearchForm& form) {
    std::string conditions;
    std::string_view connector;
    for (const AdvancedSearchRow& row : form.rows) {
        if (row.inUse != 1) continue;
        const std::string rowClause = buildRowClause(searchField(row.field), row.op, row.value);
        if (rowClause.empty()) continue;
        if (conditions.empty()) {
            conditions = rowClause;
        } else {
            conditions += connector;
            conditions += rowClause;
        }
        connector = row.connector == kConnectorOr ? ") or" : ") and";
    }
    if (!conditions.empty()) conditions += ')';
    return conditions;
}

std::string quickConditions(const SearchForm& form) {
    const int field = form.quick.field;
    if (field < 0 || field >= static_cast<int>(kQuickFieldCount)) return {};
    const int op = field == 0 ? kEqualTo : kContains;
    std::string conditions = buildRowClause(kQuickFields[static_cast<std::size_t>(field)], op, form.quick.value);
    if (!conditions.empty()) conditions += ')';
    return conditions;
}

}  // namespace

const OperatorParts* operatorParts(int op) {
    if (op < 1 || op > kSearchOperatorCount) return nullptr;
    return &kOperators[static_cast<std::size_t>(op - 1)];
}

bool isCalculatedColumn(std::string_view field) {
    for (std::size_t k = kFirstCalculatedSearchField - 1; k < kSearchFieldCount; ++k) {
        if (kSearchFields[k] == field) return true;
    }
    return false;
}

std::string buildRowClause(std::string_view field, int op, std::string_view value) {
    const OperatorParts* parts = operatorParts(op);
    if (field.empty() || parts == nullptr) return {};
    const std::string doubled = doubledApostrophes(cutAtNul(value));
    std::string row = " (";
    std::size_t start = 0;
    bool first = true;
    while (true) {
        const std::size_t comma = doubled.find(',', start);
        const std::string_view item =
            trimBoth(std::string_view(doubled).substr(start, comma == std::string::npos ? std::string::npos
                                                                                       : comma - start));
        if (!first) row += parts->joiner;
        first = false;
        if (item == "~" && field == "hinfo") {
            appendItem(row, field, *parts, kInfoDefault);
        } else if (item == "~") {
            appendEmptyTest(row, field, *parts);
        } else {
            appendItem(row, field, *parts, item);
        }
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return row;
}

std::string buildConditions(const SearchForm& form) {
    std::string conditions;
    if (form.advancedSearchActive == 1) {
        conditions = advancedConditions(form);
    } else if (form.quickSearchActive == 1) {
        conditions = quickConditions(form);
    }
    if (form.filters.periodicOnly == 1) appendFilter(conditions, "(comet<>'')");
    if (form.filters.myRecords == 1) {
        appendFilter(conditions, "(id>(select value from parameters where id=4))");
    }
    if (form.filters.lastUpdate == 1) {
        appendFilter(conditions,
                     "(id>(select value from parameters where id=5) and id<=(select value from parameters "
                     "where id=4))");
    }
    return conditions;
}

std::string buildQueryClause(const SearchForm& form) {
    const std::string conditions = buildConditions(form);
    if (form.filters.lastAppearance != 1) {
        return conditions.empty() ? std::string() : "where" + conditions;
    }
    std::string clause = "where ";
    if (conditions.empty()) {
        clause += kLastAppearanceKey;
    } else {
        clause += '(';
        clause += conditions;
        clause += ") and ";
        clause += kLastAppearanceKey;
        clause += " where(";
        clause += conditions;
        clause += ')';
    }
    clause += kLastAppearanceGroup;
    return clause;
}

bool queryClauseFits(std::string_view clause) { return trimBoth(clause).size() <= kMaxQueryClause; }

}  // namespace orvane
