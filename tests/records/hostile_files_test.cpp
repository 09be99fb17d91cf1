// Files and fields made to hurt: injected SQL, overlong lines, binary bytes, NULs,
// line ends of both kinds, and a hundred thousand records.
#include <gtest/gtest.h>

#include <random>

#include "records/els_format.h"
#include "records/import_export.h"
#include "records/insert_batch.h"
#include "records/list_format.h"
#include "records_test_support.h"

namespace {

using namespace orvane;
using orvane::testing::RecordingView;
using orvane::testing::TempHome;

const RecordTexts& texts() {
    static const RecordTexts t = orvane::testing::englishTexts();
    return t;
}

ImportResult importText(const TempHome& home, const std::string& db, const std::string& name,
                        const std::string& text, RecordingView& view) {
    const auto path = home.root() / name;
    orvane::testing::writeFile(path, text);
    RecordArray array;
    return importFile(path, db, array, view, texts());
}

void expectTablesIntact(const std::string& db) {
    EXPECT_EQ(orvane::testing::queryText(db, "select count(*) from sqlite_master where name in "
                                             "('elements', 'parameters', 'e_elements', 'update_elements_timeStamp')"),
              "4");
    EXPECT_EQ(orvane::testing::queryText(db, "select group_concat(value, '|') from parameters"),
              "2|00000000o.oup|Never updated...|0|0");
}

const char* kPayloads[] = {
    "x'); drop table parameters; --",
    "1'); delete from elements; update parameters set value='9",
    "' || (select group_concat(name) from sqlite_master) || '",
    "1\"; drop table elements; --",
};

TEST(Injection, EveryColumnOfAListFileKeepsItsQuotes) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    std::size_t expectedRows = 0;
    for (const Field field : tableFields()) {
        if (field == Field::htimeStamp) continue;
        for (const char* payload : kPayloads) {
            OrbitRecord r = orvane::testing::halley();
            r.set(field, payload);
            // Through the list text and its reader, then straight into the batch, as an
            // update does, so that the checks are not what stops the payload.
            RecordArray array;
            ASSERT_EQ(readRecordText(writeListLine(r) + "\n", false, array).status, FileReadStatus::Ok);
            ASSERT_EQ(array.count, 1u);
            RecordingView view;
            const InsertBatchResult result = insertRecords(db, array.records, InsertMode{}, view, texts());
            ASSERT_EQ(result.status, BatchStatus::Committed) << fieldName(field);
            expectedRows += result.inserted;
        }
    }
    expectTablesIntact(db);
    EXPECT_EQ(orvane::testing::rowCount(db), static_cast<long long>(expectedRows));
    EXPECT_GT(expectedRows, 4u * 60u);
    // Text columns hold the payload as it was written.
    EXPECT_EQ(orvane::testing::queryText(db, "select count(*) from elements where name = 'x''); drop table "
                                             "parameters; --'"),
              "1");
    EXPECT_EQ(orvane::testing::queryText(db, "select count(*) from elements where q = 'x''); drop table "
                                             "parameters; --'"),
              "1");
}

TEST(Injection, ImportOfAHostileListFileIsStoppedByTheChecks) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    std::string text;
    for (const char* payload : kPayloads) {
        OrbitRecord r;
        for (const Field field : tableFields()) r.set(field, payload);
        text += writeListLine(r) + "\n";
    }
    RecordingView view;
    const ImportResult result = importText(home, db, "hostile.txt", text, view);
    EXPECT_EQ(result.status, ImportStatus::Invalid);
    expectTablesIntact(db);
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
}

TEST(HostileFiles, TenMegabyteLineInAnElsFile) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    const std::string good = writeElsLine(orvane::testing::halley());
    RecordingView view;
    const ImportResult result =
        importText(home, db, "long.els", good + "\n" + std::string(10u << 20, '7') + "\n" + good + "\n", view);
    EXPECT_EQ(result.status, ImportStatus::Invalid);
    EXPECT_EQ(result.validation.faultRecord, 2u);
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
}

TEST(HostileFiles, TenMegabyteLineInAListFile) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    const std::string good = writeListLine(orvane::testing::halley());
    RecordingView view;
    const ImportResult result = importText(
        home, db, "long.txt", good + "\n'" + std::string(10u << 20, 'x') + "'\n" + good + "\n", view);
    EXPECT_EQ(result.status, ImportStatus::ReadFailed);
    EXPECT_EQ(result.read.status, FileReadStatus::LineTooLong);
    EXPECT_EQ(result.read.line, 2);
    EXPECT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
}

TEST(HostileFiles, BinaryBytesAndNuls) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    std::mt19937 random(20240907);
    std::string bytes(1u << 20, '\0');
    for (char& c : bytes) c = static_cast<char>(random() & 0xff);
    for (const char* name : {"noise.els", "noise.txt"}) {
        RecordingView view;
        const ImportResult result = importText(home, db, name, bytes, view);
        EXPECT_TRUE(result.status == ImportStatus::ReadFailed || result.status == ImportStatus::Invalid) << name;
        EXPECT_EQ(view.messages.size(), 1u) << name;
    }
    // NULs inside fields of a good line: each field ends at its NUL.
    std::string line = writeElsLine(orvane::testing::halley());
    line[160] = '\0';  // inside the name: "Halley" stays
    line[45] = '\0';   // behind the digits of q
    RecordingView view;
    EXPECT_EQ(importText(home, db, "nul.els", line + "\n", view).status, ImportStatus::Inserted);
    EXPECT_EQ(orvane::testing::queryText(db, "select name || '|' || q from elements"), "Halley|0.5887");
    expectTablesIntact(db);
}

TEST(HostileFiles, LineEndsOfBothKindsAndNoFinalLineEnd) {
    TempHome home;
    const std::vector<OrbitRecord> records = orvane::testing::recordsFromCometEls(3, 50);
    std::string lf, crlf;
    for (const auto& r : records) {
        lf += writeElsLine(r) + "\n";
        crlf += writeElsLine(r) + "\r\n";
    }
    const std::string noFinal = lf.substr(0, lf.size() - 1);
    std::string listCrlf;
    for (const auto& r : records) listCrlf += writeListLine(r) + "\r\n";
    const std::string listNoFinal = listCrlf.substr(0, listCrlf.size() - 2);
    const std::pair<const char*, const std::string*> files[] = {
        {"lf.els", &lf}, {"crlf.els", &crlf}, {"nofinal.els", &noFinal}, {"crlf.txt", &listCrlf},
        {"nofinal.txt", &listNoFinal}};
    std::string firstContents;
    for (const auto& [name, text] : files) {
        const std::string db = orvane::testing::freshCatalogue(home, std::string(name) + ".db");
        RecordingView view;
        const ImportResult result = importText(home, db, name, *text, view);
        ASSERT_EQ(result.status, ImportStatus::Inserted) << name;
        EXPECT_EQ(orvane::testing::rowCount(db), 3) << name;
        const std::string contents = orvane::testing::queryText(
            db, "select group_concat(comet || des || hyear || hmonth || hday || q || e || w || Om || i, ';') "
                "from elements");
        if (isElsPath(name)) {
            if (firstContents.empty()) firstContents = contents;
            EXPECT_EQ(contents, firstContents) << name;
        }
    }
}

TEST(HostileFiles, HundredThousandRecords) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    const std::string line = writeElsLine(orvane::testing::halley()) + "\n";
    std::string text;
    text.reserve(line.size() * 100000);
    for (int k = 0; k < 100000; ++k) text += line;
    RecordingView view;
    const ImportResult result = importText(home, db, "many.els", text, view);
    EXPECT_EQ(result.status, ImportStatus::Inserted);
    EXPECT_EQ(result.batch.inserted, 100000u);
    EXPECT_EQ(view.steps, 100000);
    EXPECT_EQ(orvane::testing::rowCount(db), 100000);
}

}  // namespace
