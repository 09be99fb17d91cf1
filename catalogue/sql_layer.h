#pragma once
// The thin layer through which all catalogue work reaches SQLite. Callers think in
// fixed-width blank-padded texts and in arrays of typed columns: a connection is
// opened by file name, statements are given as text, `select` statements are built
// from an array of ColumnProperty and every row is delivered into that same array.
//
// Every operation leaves its SQLite result code in CatalogueDb::lastError (or
// returns it) and never shows a message; a failed select is a loop of no rows.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace orvane {

inline constexpr std::size_t kErrorTextWidth = 80;
inline constexpr std::size_t kColumnNameWidth = 1000;
inline constexpr std::size_t kSqlTypeWidth = 40;
inline constexpr std::size_t kFunctionWidth = 40;
inline constexpr std::size_t kTextValueWidth = 5000;

// valueKind of a ColumnProperty.
inline constexpr int kKindInteger = 1;
inline constexpr int kKindFloat = 2;
inline constexpr int kKindDouble = 3;
inline constexpr int kKindText = 4;

// One connection. Closing (or destroying) it releases the SQLite handle.
struct CatalogueDb {
    sqlite3* handle = nullptr;
    int reserved = 0;
    int lastError = 0;
    std::string errorText = std::string(kErrorTextWidth, ' ');

    CatalogueDb() = default;
    ~CatalogueDb();
    CatalogueDb(const CatalogueDb&) = delete;
    CatalogueDb& operator=(const CatalogueDb&) = delete;
};

// One column of a statement; a row is an array of these. All texts are blank
// padded to their widths; textValue always holds exactly kTextValueWidth bytes.
struct ColumnProperty {
    std::string name = std::string(kColumnNameWidth, ' ');
    std::string sqlType = std::string(kSqlTypeWidth, ' ');
    std::string function = std::string(kFunctionWidth, ' ');
    int valueKind = 0;
    std::int32_t intValue = 0;
    double doubleValue = 0.0;
    std::string textValue = std::string(kTextValueWidth, ' ');
    // The bytes at the start of textValue that may differ from blanks; the rest are
    // blanks. A row read into the column blanks only what the row before used, and
    // readers of the text need not look further.
    std::size_t textUsed = kTextValueWidth;
};

// A prepared statement. `finished` is set once a step gave no row: the loop is
// over and later steps must not start the statement again.
struct Statement {
    sqlite3_stmt* handle = nullptr;
    bool finished = false;

    Statement() = default;
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
};

namespace sql {

// --- operations the program uses ---------------------------------------------
int open(std::string_view fileName, CatalogueDb& db);
int execute(CatalogueDb& db, std::string_view sqlText);
int begin(CatalogueDb& db);
int commit(CatalogueDb& db);
// "select" + the columns' expressions + " from " + table + " " + extra clause,
// built in a buffer of 120 bytes per column plus 6000 (a longer text is cut).
int prepareSelect(CatalogueDb& db, std::string_view table, std::span<const ColumnProperty> columns,
                  Statement& statement, std::string_view extraClause = {});
// Steps once; on a row sets done to false and delivers the row into `columns`,
// otherwise sets done to true and leaves the values in place. Returns the step code.
int nextRow(Statement& statement, std::span<ColumnProperty> columns, bool& done);
int finalize(Statement& statement);
int close(CatalogueDb& db);
void setColumnType(ColumnProperty& column, std::string_view name, int typeCode, int size,
                   std::string_view function = {});
std::int32_t getInt(const ColumnProperty& column);
// textValue blank padded or cut to `width` bytes.
void getText(const ColumnProperty& column, std::string& destination, std::size_t width);
std::string getText(const ColumnProperty& column, std::size_t width);

// --- kept for completeness of the layer; no feature of the program calls them --
int rollback(CatalogueDb& db);
int createTable(CatalogueDb& db, std::string_view table, std::span<const ColumnProperty> columns,
                std::string_view primaryKey = {});
int insertRow(CatalogueDb& db, std::string_view table, std::span<const ColumnProperty> columns);
int getColumnProps(CatalogueDb& db, std::string_view table, std::vector<ColumnProperty>& columns);
// Writes "DELETE TABLE " + name, which SQLite rejects: the table stays as it is.
int deleteTable(CatalogueDb& db, std::string_view table);
void setInt(ColumnProperty& column, std::int32_t value);
void setFloat(ColumnProperty& column, double value);
void setDouble(ColumnProperty& column, double value);
void setText(ColumnProperty& column, std::string_view value);
double getFloat(const ColumnProperty& column);
int reset(Statement& statement);
int step(Statement& statement);

// The text prepareSelect hands to SQLite (also useful to look at in tests).
std::string buildSelectText(std::string_view table, std::span<const ColumnProperty> columns,
                            std::string_view extraClause = {});

}  // namespace sql
}  // namespace orvane
