#include "tasks/ephemeris_file.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "support/temp_home.h"
#include "task_test_support.h"
#include "tasks/description_text.h"
#include "tasks/ephemeris_writer.h"
#include "tasks/run_messages.h"
#include "tasks/task_output.h"

namespace {

using namespace orvane;
using orvane::testing::readFile;

constexpr double kJ2000 = 2451545.0;

using QuietOutput = SilentTaskOutput;

EphemerisLine lineAt(double jd) {
    EphemerisLine l;
    l.jd = jd;
    l.position = {1.0, 2.0, 3.0, 0.1, 0.2, 0.3};
    l.centreDistance = 3.75;
    l.speed = 0.375;
    l.moid = 0.5;
    return l;
}

TaskOptions rectangularFileOptions(const std::filesystem::path& folder) {
    TaskOptions o;
    o.ephemerisType = 1;
    o.centralBody = 0;
    o.calculateEphemerides = true;
    o.saveFolder = folder.string();
    return o;
}

RunObject named(const std::string& name) {
    RunObject object;
    object.name = name;
    return object;
}

TEST(EphemerisFileName, SlashesAndBlanksBecomeUnderscores) {
    EXPECT_EQ(EphemerisFileName("C/2010 A1", {}), "C_2010_A1");
    EXPECT_EQ(EphemerisFilePath("/tmp/out", "C_2010_A1.txt"), "/tmp/out/C_2010_A1.txt");
    EXPECT_EQ(EphemerisFilePath("/tmp/out/", "C_2010_A1.txt"), "/tmp/out/C_2010_A1.txt");
}

TEST(EphemerisFileName, RepeatedNamesGetTheThreeColumnCounter) {
    EXPECT_EQ(EphemerisFileName("Name", {"Name"}), "Name_  2");
    EXPECT_EQ(EphemerisFileName("Name", {"Name", "Name_  2"}), "Name_  3");
    EXPECT_EQ(EphemerisFileName("Name", {"Other"}), "Name");
}

TEST(EphemerisFile, OneObjectsTableWithPreambleRulesAndCrLf) {
    orvane::testing::TempHome home;
    const TaskTexts texts = orvane::testing::englishTaskTexts();
    const TaskOptions o = rectangularFileOptions(home.root());
    {
        QuietOutput out(o, texts, 1);
        const RunObject object = named("C/2010 A1 (Test)  ");
        out.EmitEphemerisHeader(0, object, lineAt(kJ2000));
        out.EmitEphemerisLine(0, object, lineAt(kJ2000 + 1.0));
        out.EmitEphemerisTrailer(0, object);
        out.EndRun();
        ASSERT_EQ(out.filesWritten().size(), 1u);
        EXPECT_EQ(out.filesWritten()[0], (home.root() / "C_2010_A1_(Test)__.txt").string());
    }
    std::string header, first, second;
    std::size_t firstLength = 0, secondLength = 0;
    const EphemerisWriter writer(o, texts);
    writer.makeLine(lineAt(kJ2000), true, header, first, firstLength);
    writer.makeLine(lineAt(kJ2000 + 1.0), false, header, second, secondLength);
    std::string firstHeader;
    writer.makeLine(lineAt(kJ2000), true, firstHeader, first, firstLength);
    const std::string rule(firstLength + 1, '-');
    EXPECT_EQ(firstLength, 22u + 6u * 24u + 3u * 23u - 2u);
    const std::string expected = "\r\n\r\nC/2010 A1 (Test)\r\n\r\n\r\n"
                                 "Type      : Rectangular -> Geometric -> Equator -> 2000.0\r\n"
                                 "Center    : Sun\r\n\r\n\r\n" +
                                 rule + "\r\n" + firstHeader + "\r\n" + rule + "\r\n" + first.substr(0, firstLength) +
                                 "\r\n" + second.substr(0, secondLength) + "\r\n" + rule + "\r\n";
    EXPECT_EQ(readFile(home.root() / "C_2010_A1_(Test)__.txt"), expected);
}

TEST(EphemerisFile, TwoRecordsWithTheSameNameWriteTwoFiles) {
    orvane::testing::TempHome home;
    const TaskOptions o = rectangularFileOptions(home.root());
    QuietOutput out(o, orvane::testing::englishTaskTexts(), 2);
    for (int i = 0; i < 2; ++i) {
        out.EmitEphemerisHeader(i, named("Name"), lineAt(kJ2000));
        out.EmitEphemerisTrailer(i, named("Name"));
    }
    out.EndRun();
    EXPECT_TRUE(std::filesystem::exists(home.root() / "Name.txt"));
    EXPECT_TRUE(std::filesystem::exists(home.root() / "Name_  2.txt"));
}

TEST(EphemerisFile, SingleFileHoldsEveryObject) {
    orvane::testing::TempHome home;
    TaskOptions o = rectangularFileOptions(home.root());
    o.singleFile = true;
    QuietOutput out(o, orvane::testing::englishTaskTexts(), 2);
    out.EmitEphemerisHeader(0, named("A"), lineAt(kJ2000));
    out.EmitEphemerisTrailer(0, named("A"));
    EXPECT_EQ(out.currentFileName(), "Ephemerdes.txt");
    out.EmitEphemerisHeader(1, named("B"), lineAt(kJ2000));
    out.EmitEphemerisTrailer(1, named("B"));
    const long long bytes = out.EphemerisFileBytes();
    out.EndRun();
    EXPECT_EQ(out.EphemerisFileBytes(), 0);
    const std::string text = readFile(home.root() / "Ephemerdes.txt");
    EXPECT_EQ(static_cast<long long>(text.size()), bytes);
    EXPECT_NE(text.find("\r\n\r\nA\r\n\r\n\r\n"), std::string::npos);
    EXPECT_NE(text.find("\r\n\r\nB\r\n\r\n\r\n"), std::string::npos);
    EXPECT_EQ(out.filesWritten().size(), 1u);
}

TEST(EphemerisFile, StoppedFileGetsItsClosingRuleAndNoMoreLines) {
    orvane::testing::TempHome home;
    const TaskOptions o = rectangularFileOptions(home.root());
    QuietOutput out(o, orvane::testing::englishTaskTexts(), 1);
    out.EmitEphemerisHeader(0, named("A"), lineAt(kJ2000));
    out.StopEphemerisFile();
    out.EmitEphemerisLine(0, named("A"), lineAt(kJ2000 + 1.0));
    out.EmitEphemerisTrailer(0, named("A"));
    out.EndRun();
    const std::string text = readFile(home.root() / "A.txt");
    const std::size_t ruleLength = 22u + 6u * 24u + 3u * 23u - 1u;
    EXPECT_EQ(text.substr(text.size() - ruleLength - 2), std::string(ruleLength, '-') + "\r\n");
    EXPECT_EQ(text.find("2000-01-02"), std::string::npos);
}

TEST(EphemerisFile, NoFileWithoutCalculateEphemeridesButThePanelFollows) {
    orvane::testing::TempHome home;
    TaskOptions o = rectangularFileOptions(home.root());
    o.calculateEphemerides = false;
    QuietOutput out(o, orvane::testing::englishTaskTexts(), 1);
    out.EmitEphemerisHeader(0, named("A"), lineAt(kJ2000));
    out.EmitEphemerisLine(0, named("A"), lineAt(kJ2000 + 1.0));
    out.EmitEphemerisTrailer(0, named("A"));
    out.EndRun();
    EXPECT_FALSE(std::filesystem::exists(home.root() / "A.txt"));
    EXPECT_NE(out.panel().ephemerisText(o, out.texts()).find("Epoch     : 2000-01-02 12:00:00"), std::string::npos);
}

TEST(EphemerisFile, MissingFolderIsReportedNotFatal) {
    orvane::testing::TempHome home;
    const TaskOptions o = rectangularFileOptions(home.root() / "no" / "such");
    QuietOutput out(o, orvane::testing::englishTaskTexts(), 1);
    out.EmitEphemerisHeader(0, named("A"), lineAt(kJ2000));
    EXPECT_FALSE(out.fileOk());
    out.EmitEphemerisLine(0, named("A"), lineAt(kJ2000 + 1.0));
    out.EndRun();
    EXPECT_TRUE(out.filesWritten().empty());
}

TEST(RunMessages, FileSizeQuestionAndLeftComet) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    EXPECT_EQ(FileSizeQuestion(t, "Ephemerdes.txt", 2),
              "Writing the ephemeris data to a file Ephemerdes.txt is stopped because the file size exceeds 2 MB. "
              "Try to change the step-size or the interval of integration.\n\n"
              "Continue integration without writing data to a file?");
    EXPECT_EQ(LeftSolarSystemMessage(t, "C/1980 E1 (Bowell)"), "Comet C/1980 E1 (Bowell) has left the Solar System!");
}

TEST(TaskTexts, DefaultsAreTheLanguageTablesEnglish) {
    const TaskTexts fromTable = orvane::testing::englishTaskTexts();
    const TaskTexts built;
    EXPECT_EQ(fromTable.typeNames, built.typeNames);
    EXPECT_EQ(fromTable.bodyNames, built.bodyNames);
    EXPECT_EQ(fromTable.approachLabels, built.approachLabels);
    EXPECT_EQ(fromTable.classNames, built.classNames);
    EXPECT_EQ(fromTable.centreSunLine, built.centreSunLine);
    EXPECT_EQ(fromTable.noCloseApproaches, built.noCloseApproaches);
    EXPECT_EQ(fromTable.arcsecPerHourShort, built.arcsecPerHourShort);
    EXPECT_EQ(fromTable.leftSolarSystem, built.leftSolarSystem);
    EXPECT_EQ(fromTable.degreeSign, built.degreeSign);
}

}  // namespace

namespace {

TEST(EphemerisFile, AFolderThatDoesNotExistFailsTheHeaderAndNamesThePath) {
    orvane::testing::TempHome home;
    const TaskTexts texts = orvane::testing::englishTaskTexts();
    const TaskOptions o = rectangularFileOptions(home.root() / "missing");
    QuietOutput out(o, texts, 1);
    EXPECT_FALSE(out.EmitEphemerisHeader(0, named("C/2010 A1"), lineAt(kJ2000)));
    EXPECT_FALSE(out.fileOk());
    const std::string path = (home.root() / "missing" / "C_2010_A1.txt").string();
    EXPECT_EQ(out.failedFile(), path);
    EXPECT_EQ(FileOpenFailureMessage(texts, out.failedFile()),
              "Specified folder does not exist, or an invalid path was entered!\n" + path);
    EXPECT_EQ(texts.errorTitle, "Error!");
    EXPECT_TRUE(out.filesWritten().empty());
}

TEST(EphemerisFile, WithoutFilesTheHeaderAlwaysSucceeds) {
    orvane::testing::TempHome home;
    const TaskTexts texts = orvane::testing::englishTaskTexts();
    TaskOptions o = rectangularFileOptions(home.root() / "missing");
    o.calculateEphemerides = false;
    QuietOutput out(o, texts, 1);
    EXPECT_TRUE(out.EmitEphemerisHeader(0, named("C/2010 A1"), lineAt(kJ2000)));
    EXPECT_TRUE(out.failedFile().empty());
}

}  // namespace
