#include "catalogue/column_tables.h"

#include <string>

namespace orvane {

// K1_err is one narrower than its neighbours; the field has always been read so.
const std::array<ElementColumn, kElementColumnCount> kElementColumns = {{
    {"id", 10}, {"comet", 10}, {"name", 60}, {"des", 30},
    {"olddes", 30}, {"htype", 1}, {"E_year", 5}, {"E_month", 2},
    {"E_day", 2}, {"hyear", 5}, {"hmonth", 2}, {"hday", 15},
    {"hday_err", 17}, {"q", 15}, {"q_err", 17}, {"e", 14},
    {"e_err", 17}, {"P", 6}, {"w", 16}, {"w_err", 17},
    {"Om", 16}, {"Om_err", 17}, {"i", 16}, {"i_err", 17},
    {"A1", 16}, {"A1_err", 17}, {"A2", 16}, {"A2_err", 17},
    {"A3", 16}, {"A3_err", 17}, {"Astyle", 2}, {"NGE_DT", 17},
    {"NGE_DT_err", 17}, {"DFoto", 17}, {"DFoto_err", 17}, {"Obs", 10},
    {"F_year", 5}, {"F_month", 2}, {"F_day", 2}, {"L_year", 5},
    {"L_month", 2}, {"L_day", 2}, {"hsystem", 60}, {"hPlan", 10},
    {"SBP", 60}, {"b_perturber", 3}, {"f_perturber", 4}, {"RMS", 8},
    {"hreference", 60}, {"Producer", 60}, {"Diameter", 16}, {"Diameter_err", 17},
    {"ARatio", 16}, {"ARatio_err", 17}, {"RotP", 16}, {"RotP_err", 17},
    {"Albedo", 14}, {"Albedo_err", 17}, {"M1", 16}, {"M1_err", 17},
    {"K1", 16}, {"K1_err", 16}, {"M2", 16}, {"M2_err", 17},
    {"K2", 16}, {"K2_err", 17}, {"htimeStamp", 20}, {"hinfo", 5000},
    {"M_calc", 17}, {"n_calc", 19}, {"a_calc", 17}, {"Q_calc", 17},
    {"class_calc", 30}, {"P_calc", 17},
}};

std::size_t elementColumnIndex(std::string_view name) {
    for (std::size_t k = 0; k < kElementColumns.size(); ++k) {
        if (kElementColumns[k].name == name) {
            return k;
        }
    }
    return kElementColumnCount;
}

namespace {

// The names carry one leading blank, which separates them from the text before
// them when a select is put together.
ColumnProperty textColumn(std::string_view name, std::size_t width) {
    std::string blankFirst(1, ' ');
    blankFirst += name;
    ColumnProperty column;
    sql::setColumnType(column, blankFirst, kKindText, static_cast<int>(width));
    return column;
}

}  // namespace

ColumnTables buildColumnTables() {
    ColumnTables tables;
    tables.allColumns.reserve(kElementColumnCount);
    for (const ElementColumn& column : kElementColumns) {
        tables.allColumns.push_back(textColumn(column.name, column.width));
    }

    tables.count.resize(1);
    sql::setColumnType(tables.count[0], " count(*)", kKindInteger, 0);

    for (const std::string_view expression :
         {"count(*)", "count(distinct(case when comet='' then des else comet end))",
          "count(distinct(case when comet='' then null else comet end))",
          "count(distinct(case when comet='' then des else null end))",
          "count(case when id>(select value from parameters where id=4) then id end)"}) {
        tables.statistics.push_back(textColumn(expression, kStatisticWidth));
    }

    tables.briefColumns.push_back(textColumn("comet", 10));
    tables.briefColumns.push_back(textColumn("name", 60));
    tables.briefColumns.push_back(textColumn("des", 30));
    tables.briefColumns.push_back(textColumn("htype", 1));

    tables.parameterValue.push_back(textColumn("value", kParameterWidth));
    return tables;
}

}  // namespace orvane
