#pragma once
// Shared pieces of the catalogue tests: a fresh catalogue in a temporary home,
// one-value queries, and rows put into `elements` by column name.
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "catalogue/schema.h"
#include "catalogue/sql_layer.h"
#include "support/temp_home.h"

namespace orvane::testing {

// The outcome of "select <expression>" as SQLite gives it.
struct SqlValue {
    int code = SQLITE_OK;  // SQLITE_ROW when a value came, the error code otherwise
    int type = SQLITE_NULL;
    sqlite3_int64 integer = 0;
    double real = 0.0;
    std::string text;
    std::string error;
};

inline SqlValue evaluate(sqlite3* db, const std::string& expression) {
    SqlValue value;
    sqlite3_stmt* statement = nullptr;
    const std::string text = "select " + expression;
    value.code = sqlite3_prepare_v2(db, text.c_str(), -1, &statement, nullptr);
    if (value.code != SQLITE_OK) {
        value.error = sqlite3_errmsg(db);
        return value;
    }
    value.code = sqlite3_step(statement);
    if (value.code == SQLITE_ROW) {
        value.type = sqlite3_column_type(statement, 0);
        value.integer = sqlite3_column_int64(statement, 0);
        value.real = sqlite3_column_double(statement, 0);
        const unsigned char* t = sqlite3_column_text(statement, 0);
        value.text = t == nullptr ? "" : reinterpret_cast<const char*>(t);
    } else {
        value.error = sqlite3_errmsg(db);
    }
    sqlite3_finalize(statement);
    return value;
}

inline std::string quoted(const std::string& text) {
    std::string out = "'";
    for (char c : text) {
        out += c;
        if (c == '\'') {
            out += '\'';
        }
    }
    return out + "'";
}

using Fields = std::vector<std::pair<std::string, std::string>>;

// Inserts one row with the given columns as texts, as the program stores them.
inline int insertElement(CatalogueDb& db, const Fields& fields) {
    std::string names;
    std::string values;
    for (const auto& [name, value] : fields) {
        names += (names.empty() ? "" : ", ") + name;
        values += (values.empty() ? "" : ", ") + quoted(value);
    }
    return sql::execute(db, "INSERT INTO elements(" + names + ") VALUES(" + values + ");");
}

// A new catalogue file in a temporary home, open on `db`. The schema is made once
// per suite and copied, and the test connection does not wait for the disk: the
// tests are about what SQLite computes, not about durability.
class CatalogueTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        templateHome = new TempHome();
        templatePath = templateHome->root() / "template.db";
        CatalogueDb maker;
        ASSERT_EQ(sql::open(templatePath.string(), maker), SQLITE_OK);
        ASSERT_EQ(sql::execute(maker, "PRAGMA synchronous = OFF"), SQLITE_OK);
        ASSERT_EQ(createCatalogueSchema(maker), SQLITE_OK);
        sql::close(maker);
    }
    static void TearDownTestSuite() {
        delete templateHome;
        templateHome = nullptr;
    }

    void SetUp() override {
        ASSERT_NE(templateHome, nullptr);
        path = (home.root() / "orvane.db").string();
        std::filesystem::copy_file(templatePath, path);
        ASSERT_EQ(sql::open(path, db), SQLITE_OK);
        ASSERT_EQ(sql::execute(db, "PRAGMA synchronous = OFF"), SQLITE_OK);
    }
    void TearDown() override { sql::close(db); }

    static inline TempHome* templateHome = nullptr;
    static inline std::filesystem::path templatePath;

    SqlValue value(const std::string& expression) { return evaluate(db.handle, expression); }

    TempHome home;
    std::string path;
    CatalogueDb db;
};

}  // namespace orvane::testing
