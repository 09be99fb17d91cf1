#include "catalogue/brief_info.h"

#include <sqlite3.h>

#include "catalogue/sql_text.h"

namespace orvane {

CatalogueParameters::CatalogueParameters() { values.fill(std::string(kParameterWidth, ' ')); }

BriefInfo::BriefInfo() { statistics.fill(std::string(kStatisticWidth, ' ')); }

namespace {

void keepFirstFailure(int& status, int code) {
    if (status == SQLITE_OK && code != SQLITE_OK) {
        status = code;
    }
}

std::vector<std::string> readLabels(CatalogueDb& db, std::vector<ColumnProperty>& columns,
                                    std::string_view clause, int& status) {
    std::vector<std::string> labels;
    Statement statement;
    keepFirstFailure(status, sql::prepareSelect(db, "elements", columns, statement, clause));
    bool done = false;
    while (true) {
        sql::nextRow(statement, columns, done);
        if (done) {
            break;
        }
        labels.push_back(cometLabel(columns[0].textValue, columns[1].textValue, columns[2].textValue,
                                    columns[3].textValue));
    }
    sql::finalize(statement);
    return labels;
}

}  // namespace

CatalogueParameters readParameters(std::string_view databasePath, ColumnTables& tables) {
    CatalogueParameters parameters;
    CatalogueDb db;
    parameters.status = sql::open(databasePath, db);
    Statement statement;
    keepFirstFailure(parameters.status, sql::prepareSelect(db, "parameters", tables.parameterValue, statement));
    bool done = false;
    for (std::string& value : parameters.values) {
        sql::nextRow(statement, tables.parameterValue, done);
        if (done) {
            break;
        }
        value = sql::getText(tables.parameterValue[0], kParameterWidth);
    }
    sql::finalize(statement);
    sql::close(db);
    return parameters;
}

BriefInfo refreshBriefInfo(std::string_view databasePath, ColumnTables& tables) {
    BriefInfo info;
    CatalogueDb db;
    info.status = sql::open(databasePath, db);

    Statement statement;
    keepFirstFailure(info.status, sql::prepareSelect(db, "elements", tables.statistics, statement));
    bool done = false;
    sql::nextRow(statement, tables.statistics, done);
    if (!done) {
        for (std::size_t k = 0; k < info.statistics.size(); ++k) {
            info.statistics[k] = sql::getText(tables.statistics[k], kStatisticWidth);
        }
    }
    sql::finalize(statement);

    info.userLabels = readLabels(db, tables.briefColumns,
                                 " where id<=(select seq from sqlite_sequence where name='elements') and "
                                 "id>(select value from parameters where id=4) order by id desc limit 3",
                                 info.status);
    info.catalogueLabels = readLabels(
        db, tables.briefColumns, " where id<=(select value from parameters where id=4) order by id desc limit 7",
        info.status);
    sql::close(db);
    return info;
}

std::string cometLabel(std::string_view comet, std::string_view name, std::string_view des,
                       std::string_view htype) {
    comet = sql::trimText(comet);
    name = sql::trimText(name);
    des = sql::trimText(des);
    htype = sql::trimText(htype);
    std::string label;
    if (comet.empty()) {
        label = htype.empty() ? std::string("?") : std::string(htype);
        label += '/';
        label += des;
        if (!name.empty()) {
            label += " (";
            label += name;
            label += ')';
        }
    } else {
        label = std::string(comet) + std::string(htype) + "/";
        label += name.empty() ? des : name;
    }
    if (!label.empty() && label.back() == '/') {
        label.pop_back();
    }
    return label;
}

std::string lastAddedLabels(const BriefInfo& info, std::size_t maxLength) {
    std::vector<std::string> labels = info.userLabels;
    labels.insert(labels.end(), info.catalogueLabels.begin(), info.catalogueLabels.end());
    std::string joined;
    for (std::size_t k = 0; k < labels.size(); ++k) {
        joined += (k > 0 ? ", " : "") + labels[k];
    }
    if (joined.size() <= maxLength) {
        return joined;
    }
    const std::string ending = ",... ";
    std::string kept;
    for (std::size_t k = 0; k < labels.size(); ++k) {
        std::string longer = kept + (k > 0 ? ", " : "") + labels[k];
        if (longer.size() + ending.size() > maxLength) {
            break;
        }
        kept = std::move(longer);
    }
    return kept + ending;
}

std::string startPageText(const std::array<std::string, 7>& briefInfoStrings, const BriefInfo& info,
                          std::size_t maxLabelsLength) {
    auto text = [&](std::size_t key) { return std::string(sql::trimText(briefInfoStrings[key - 1])); };
    auto number = [&](std::size_t index) { return std::string(sql::trimText(info.statistics[index])); };
    std::string page = text(1) + " " + number(kRecordCount) + " " + text(2) + " " + number(kCometCount) + " " +
                       text(3) + "\n";
    page += text(4) + " " + number(kNumberedCount) + "\n";
    page += text(5) + " " + number(kUnnumberedCount) + "\n";
    page += text(6) + " " + number(kUserRecordCount) + "\n";
    page += text(7) + " " + lastAddedLabels(info, maxLabelsLength);
    return page;
}

}  // namespace orvane
