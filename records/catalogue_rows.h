#pragma once
// Rows of the view e_elements as orbit records: each of its 74 columns goes to the
// field of the same name, `id` to the head of the record.
#include <span>
#include <string_view>

#include "catalogue/sql_layer.h"
#include "records/orbit_record.h"

namespace orvane {

// Copies a delivered row of the 74-column array of e_elements into the record.
void recordFromRow(std::span<const ColumnProperty> columns, OrbitRecord& record);

// Reads every row of e_elements (with an optional clause such as "order by id")
// into a new array. Returns the SQLite code of the select.
int loadCatalogueRecords(std::string_view databasePath, std::string_view extraClause, RecordArray& records);

}  // namespace orvane
