#include "catalogue/sql_layer.h"

#include <algorithm>

#include <sqlite3.h>

#include "catalogue/sql_functions.h"
#include "catalogue/sql_text.h"

namespace orvane {

CatalogueDb::~CatalogueDb() {
    if (handle != nullptr) {
        sql::close(*this);
    }
}

Statement::~Statement() {
    if (handle != nullptr) {
        sql::finalize(*this);
    }
}

namespace sql {

namespace {

// Overwrites `field` in place with strncpy semantics, so a row reuses the memory
// of the row before it. Only the `used` bytes of the row before can be other than
// blanks, so only those are blanked: a text column is 5000 bytes wide and most
// values are a few characters.
void copyIntoField(std::string& field, std::size_t& used, const unsigned char* text, std::size_t width) {
    if (field.size() != width) {
        field.resize(width, ' ');
        used = width;
    }
    std::size_t k = 0;
    if (text != nullptr) {
        for (; k < width && text[k] != '\0'; ++k) {
            field[k] = static_cast<char>(text[k]);
        }
    }
    const std::size_t dirty = std::min(used, width);
    if (dirty > k) field.replace(k, dirty - k, dirty - k, ' ');
    used = k;
}

void storeError(CatalogueDb& db, const char* message) {
    db.errorText = padText(message == nullptr ? "" : message, kErrorTextWidth);
}

std::string selectExpression(const ColumnProperty& column) {
    std::string_view name = trimRightText(column.name);
    std::string_view function = trimRightText(column.function);
    if (function.empty()) {
        return std::string(name);
    }
    std::string expression(function);
    expression += '(';
    expression += name;
    expression += ')';
    return std::string(trimRightText(expression));
}

}  // namespace

int open(std::string_view fileName, CatalogueDb& db) {
    if (db.handle != nullptr) {
        close(db);
    }
    db.errorText.assign(kErrorTextWidth, ' ');
    db.reserved = 0;
    const int registered = registerSqlFunctions();
    if (registered != SQLITE_OK) {
        db.lastError = registered;
        return db.lastError;
    }
    const std::string name = toSqlText(fileName);
    db.lastError = sqlite3_open(name.c_str(), &db.handle);
    return db.lastError;
}

int execute(CatalogueDb& db, std::string_view sqlText) {
    const std::string text = toSqlText(sqlText);
    db.errorText.assign(kErrorTextWidth, ' ');
    if (db.handle == nullptr) {
        db.lastError = SQLITE_MISUSE;
        return db.lastError;
    }
    char* message = nullptr;
    db.lastError = sqlite3_exec(db.handle, text.c_str(), nullptr, nullptr, &message);
    if (message != nullptr) {
        storeError(db, message);
        sqlite3_free(message);
    }
    return db.lastError;
}

int begin(CatalogueDb& db) { return execute(db, "BEGIN TRANSACTION"); }

int commit(CatalogueDb& db) { return execute(db, "COMMIT TRANSACTION"); }

int rollback(CatalogueDb& db) { return execute(db, "ROLLBACK"); }

std::string buildSelectText(std::string_view table, std::span<const ColumnProperty> columns,
                            std::string_view extraClause) {
    const std::size_t bufferLength = 120 * columns.size() + 6000;
    std::string text = "select ";
    for (std::size_t k = 0; k < columns.size(); ++k) {
        text += selectExpression(columns[k]);
        if (k + 1 < columns.size()) {
            text += ',';
        }
    }
    text += " from ";
    text += table;
    text += ' ';
    text += trimRightText(extraClause);
    if (text.size() > bufferLength) {
        text.resize(bufferLength);
    }
    return toSqlText(text);
}

int prepareSelect(CatalogueDb& db, std::string_view table, std::span<const ColumnProperty> columns,
                  Statement& statement, std::string_view extraClause) {
    if (statement.handle != nullptr) {
        finalize(statement);
    }
    statement.finished = false;
    const std::string text = buildSelectText(table, columns, extraClause);
    if (db.handle == nullptr) {
        db.lastError = SQLITE_MISUSE;
        return db.lastError;
    }
    db.lastError = sqlite3_prepare_v2(db.handle, text.c_str(), -1, &statement.handle, nullptr);
    if (db.lastError != SQLITE_OK) {
        storeError(db, sqlite3_errmsg(db.handle));
        if (statement.handle != nullptr) {
            finalize(statement);
        }
    }
    return db.lastError;
}

int nextRow(Statement& statement, std::span<ColumnProperty> columns, bool& done) {
    // SQLite would start a finished statement afresh; the loop of the caller must
    // instead stay at its end with the last row's values in place.
    const int code = statement.finished || statement.handle == nullptr ? SQLITE_MISUSE
                                                                        : sqlite3_step(statement.handle);
    if (code != SQLITE_ROW) {
        statement.finished = true;
        done = true;
        return code;
    }
    done = false;
    for (std::size_t k = 0; k < columns.size(); ++k) {
        ColumnProperty& column = columns[k];
        const int index = static_cast<int>(k);
        switch (column.valueKind) {
        case kKindInteger:
            column.intValue = sqlite3_column_int(statement.handle, index);
            break;
        case kKindFloat:
        case kKindDouble:
            column.doubleValue = sqlite3_column_double(statement.handle, index);
            break;
        case kKindText:
            copyIntoField(column.textValue, column.textUsed, sqlite3_column_text(statement.handle, index),
                          kTextValueWidth);
            break;
        default:
            break;
        }
    }
    return code;
}

int finalize(Statement& statement) {
    const int code = sqlite3_finalize(statement.handle);
    statement.handle = nullptr;
    statement.finished = true;
    return code;
}

int close(CatalogueDb& db) {
    // close_v2 lets a statement that a caller forgot to finalise release the
    // connection later instead of keeping it open for ever.
    db.lastError = sqlite3_close_v2(db.handle);
    db.handle = nullptr;
    db.reserved = 0;
    return db.lastError;
}

void setColumnType(ColumnProperty& column, std::string_view name, int typeCode, int size,
                   std::string_view function) {
    column.name = padText(name, kColumnNameWidth);
    column.valueKind = typeCode;
    std::string type;
    switch (typeCode) {
    case kKindInteger:
        type = "INT";
        break;
    case kKindFloat:
        type = "FLOAT";
        break;
    case kKindDouble:
        type = "DOUBLE";
        break;
    case kKindText:
        type = "CHAR(" + std::to_string(size) + ")";
        break;
    default:
        type = "UNKNOWN!";
        break;
    }
    column.sqlType = padText(type, kSqlTypeWidth);
    column.function = padText(function, kFunctionWidth);
}

std::int32_t getInt(const ColumnProperty& column) { return column.intValue; }

double getFloat(const ColumnProperty& column) { return column.doubleValue; }

void getText(const ColumnProperty& column, std::string& destination, std::size_t width) {
    destination = padText(column.textValue, width);
}

std::string getText(const ColumnProperty& column, std::size_t width) {
    return padText(column.textValue, width);
}

void setInt(ColumnProperty& column, std::int32_t value) { column.intValue = value; }

void setFloat(ColumnProperty& column, double value) { column.doubleValue = value; }

void setDouble(ColumnProperty& column, double value) { column.doubleValue = value; }

void setText(ColumnProperty& column, std::string_view value) {
    column.textValue = padText(value, kTextValueWidth);
    column.textUsed = kTextValueWidth;
}

int createTable(CatalogueDb& db, std::string_view table, std::span<const ColumnProperty> columns,
                std::string_view primaryKey) {
    std::string text = "create table ";
    text += table;
    text += " (";
    for (std::size_t k = 0; k < columns.size(); ++k) {
        if (k > 0) {
            text += ", ";
        }
        text += trimRightText(columns[k].name);
        text += ' ';
        text += trimRightText(columns[k].sqlType);
        if (!trimText(primaryKey).empty() && trimText(columns[k].name) == trimText(primaryKey)) {
            text += " primary key";
        }
    }
    text += ")";
    return execute(db, text);
}

int insertRow(CatalogueDb& db, std::string_view table, std::span<const ColumnProperty> columns) {
    std::string text = "insert into ";
    text += table;
    text += " values(";
    for (std::size_t k = 0; k < columns.size(); ++k) {
        text += k > 0 ? ", ?" : "?";
    }
    text += ")";
    if (db.handle == nullptr) {
        db.lastError = SQLITE_MISUSE;
        return db.lastError;
    }
    Statement statement;
    db.lastError = sqlite3_prepare_v2(db.handle, text.c_str(), -1, &statement.handle, nullptr);
    if (db.lastError != SQLITE_OK) {
        storeError(db, sqlite3_errmsg(db.handle));
        return db.lastError;
    }
    for (std::size_t k = 0; k < columns.size(); ++k) {
        const ColumnProperty& column = columns[k];
        const int index = static_cast<int>(k) + 1;
        switch (column.valueKind) {
        case kKindInteger:
            sqlite3_bind_int(statement.handle, index, column.intValue);
            break;
        case kKindFloat:
        case kKindDouble:
            sqlite3_bind_double(statement.handle, index, column.doubleValue);
            break;
        case kKindText: {
            const std::string value = toSqlText(column.textValue);
            sqlite3_bind_text(statement.handle, index, value.c_str(), static_cast<int>(value.size()),
                              SQLITE_TRANSIENT);
            break;
        }
        default:
            break;
        }
    }
    const int code = sqlite3_step(statement.handle);
    if (code != SQLITE_DONE) {
        storeError(db, sqlite3_errmsg(db.handle));
    }
    finalize(statement);
    db.lastError = code == SQLITE_DONE ? SQLITE_OK : code;
    return db.lastError;
}

int getColumnProps(CatalogueDb& db, std::string_view table, std::vector<ColumnProperty>& columns) {
    columns.clear();
    std::string text = "select * from ";
    text += table;
    if (db.handle == nullptr) {
        db.lastError = SQLITE_MISUSE;
        return db.lastError;
    }
    Statement statement;
    db.lastError = sqlite3_prepare_v2(db.handle, toSqlText(text).c_str(), -1, &statement.handle, nullptr);
    if (db.lastError != SQLITE_OK) {
        storeError(db, sqlite3_errmsg(db.handle));
        return db.lastError;
    }
    const int count = sqlite3_column_count(statement.handle);
    columns.resize(static_cast<std::size_t>(count));
    for (int k = 0; k < count; ++k) {
        ColumnProperty& column = columns[static_cast<std::size_t>(k)];
        const char* name = sqlite3_column_name(statement.handle, k);
        const char* type = sqlite3_column_decltype(statement.handle, k);
        column.name = padText(name == nullptr ? "" : name, kColumnNameWidth);
        column.sqlType = padText(type == nullptr ? "" : type, kSqlTypeWidth);
        // The padded field makes a bare "INT" read as "INT ".
        const std::string_view head = std::string_view(column.sqlType).substr(0, 4);
        if (head == "INT " || head == "INTE") {
            column.valueKind = kKindInteger;
        } else if (head == "FLOA" || head == "DOUB") {
            column.valueKind = kKindDouble;
        } else if (head == "CHAR" || head == "VARC") {
            column.valueKind = kKindText;
        }
    }
    db.lastError = finalize(statement);
    return db.lastError;
}

int deleteTable(CatalogueDb& db, std::string_view table) {
    std::string text = "DELETE TABLE ";
    text += table;
    return execute(db, text);
}

int reset(Statement& statement) {
    statement.finished = false;
    return sqlite3_reset(statement.handle);
}

int step(Statement& statement) {
    const int code = statement.handle == nullptr ? SQLITE_MISUSE : sqlite3_step(statement.handle);
    statement.finished = code != SQLITE_ROW;
    return code;
}

}  // namespace sql
}  // namespace orvane
