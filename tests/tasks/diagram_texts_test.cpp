// The texts of the diagram's strip and of its exported pictures, from the language
// table, and the picture size in pixels, cm and inch.
#include <gtest/gtest.h>

#include "language/language_table.h"
#include "tasks/diagram_scene.h"
#include "tasks/image_size.h"

using namespace orvane;

namespace {

DiagramTexts EnglishDiagramTexts() {
    static const LanguageTable table;
    return loadDiagramTexts([](std::string_view section, int key) -> std::string {
        for (Section s : kAllSections) {
            if (sectionName(s) == section) return table.text(s, key);
        }
        return {};
    });
}

TaskOptions Dates(bool julian, bool hms) {
    TaskOptions o;
    o.datesInJulianDays = julian;
    o.showHms = hms;
    return o;
}

}  // namespace

TEST(DiagramTexts, TheTableHoldsTheBuiltInTexts) {
    const DiagramTexts table = EnglishDiagramTexts();
    const DiagramTexts builtIn;
    EXPECT_EQ(table.rates, builtIn.rates);
    EXPECT_EQ(table.ratePaused, "Rate: x0");
    EXPECT_EQ(table.lat, builtIn.lat);
    EXPECT_EQ(table.lon, "\xC2\xB0 / Lon:");
    EXPECT_EQ(table.field, "\xC2\xB0 / Field:");
    EXPECT_EQ(table.au, "AU");
    EXPECT_EQ(table.name, "Name:");
    EXPECT_EQ(table.pleaseWait, "Please wait... Computation is performed at maximum speed...");
    EXPECT_EQ(table.remainingPaused, "Remaining time: Paused...");
    EXPECT_EQ(table.remainingZero, "Remaining time: 0h 0m 0s");
    EXPECT_EQ(table.jd, "JD");
    EXPECT_EQ(table.timeInterval, "Time interval:");
    EXPECT_EQ(table.timeIntervalOpen, "Time interval: ... ->");
    EXPECT_EQ(table.statusPrepare, "Status: Prepare...");
    EXPECT_EQ(table.statusReady, "Status: Ready...");
    EXPECT_EQ(table.combinedPicture, "Combined picture...");
    EXPECT_EQ(table.noName, "No name...");
    EXPECT_EQ(table.epoch, "Epoch");
    EXPECT_EQ(table.planetNames, builtIn.planetNames);
    EXPECT_EQ(table.planetNames[0], "Mercury");
    EXPECT_EQ(table.planetNames[8], "Pluto");
}

TEST(DiagramTexts, NameLineOrCombinedPicture) {
    const DiagramTexts t;
    EXPECT_EQ(DiagramNameLine(t, "1P/Halley", false), "Name: 1P/Halley");
    EXPECT_EQ(DiagramNameLine(t, "", false), "Name: No name...");
    EXPECT_EQ(DiagramNameLine(t, "1P/Halley", true), "Combined picture...");
    EXPECT_EQ(DiagramBodyName(t, ""), "No name...");
    EXPECT_EQ(DiagramBodyName(t, "2P/Encke"), "2P/Encke");
}

TEST(DiagramTexts, EpochLineInTheDateFormsOfTheTables) {
    const DiagramTexts t;
    EXPECT_EQ(DiagramEpochLine(t, 2460560.5, Dates(false, true)), "Epoch: 2024-09-07 00:00:00");
    EXPECT_EQ(DiagramEpochLine(t, 2460560.75, Dates(false, false)), "Epoch: 2024-09-07.25000000");
    EXPECT_EQ(DiagramEpochLine(t, 2460560.75, Dates(true, false)), "Epoch: 2460560.75000000 JD");
    EXPECT_EQ(DiagramEpochLine(t, 2460560.75, Dates(true, true)), "Epoch: 2460560 18:00:00 JD");
}

TEST(DiagramTexts, IntervalFromStartToEndOrOpen) {
    const DiagramTexts t;
    EXPECT_EQ(DiagramIntervalLine(t, 2460560.5, 2460750.5, true, Dates(false, true)),
              "Time interval: 2024-09-07 00:00:00 -> 2025-03-16 00:00:00");
    EXPECT_EQ(DiagramIntervalLine(t, 2460560.5, 0.0, false, Dates(false, true)), "Time interval: ... ->");
}

TEST(DiagramTexts, RateLabelsAndThePausedRate) {
    const DiagramTexts t;
    EXPECT_EQ(DiagramRateText(t, 1, false), "Rate: max");
    EXPECT_EQ(DiagramRateText(t, 2, false), "Rate: x320");
    EXPECT_EQ(DiagramRateText(t, 8, false), "Rate: x1");
    EXPECT_EQ(DiagramRateText(t, 5, true), "Rate: x0");
}

TEST(DiagramTexts, ViewLineWithLatLonAndField) {
    const DiagramTexts t;
    DiagramCamera c;
    c.zoom = 10;
    EXPECT_EQ(DiagramViewLine(t, c, 800), "Lat: 45\xC2\xB0 / Lon: 135\xC2\xB0 / Field: 10.00 AU");
    c.lat = 0;
    c.lon = -269;
    c.zoom = 25;
    EXPECT_EQ(DiagramViewLine(t, c, 800), "Lat: 0\xC2\xB0 / Lon: -269\xC2\xB0 / Field: 5.16 AU");
}

TEST(ImageSize, PixelsAt72AnInch) {
    EXPECT_EQ(ImageSizeText(800, ImageUnit::Pixels), "800");
    EXPECT_EQ(ImageSizeText(800, ImageUnit::Cm), "28.22");
    EXPECT_EQ(ImageSizeText(800, ImageUnit::Inch), "11.11");
    EXPECT_EQ(ImageSizeText(600, ImageUnit::Cm), "21.17");
    EXPECT_EQ(ImageSizeText(600, ImageUnit::Inch), "8.33");
    EXPECT_DOUBLE_EQ(PixelsToUnit(72, ImageUnit::Inch), 1.0);
    EXPECT_DOUBLE_EQ(PixelsToUnit(72, ImageUnit::Cm), 2.54);
    EXPECT_DOUBLE_EQ(PixelsToUnit(72, ImageUnit::Pixels), 72.0);
}

// The limits of the fields in each unit are the pixel limits converted.
TEST(ImageSize, TheFieldLimitsAreThePixelLimitsConverted) {
    EXPECT_EQ(ImageSizeText(400, ImageUnit::Cm), "14.11");
    EXPECT_EQ(ImageSizeText(2000, ImageUnit::Cm), "70.56");
    EXPECT_EQ(ImageSizeText(400, ImageUnit::Inch), "5.56");
    EXPECT_EQ(ImageSizeText(2000, ImageUnit::Inch), "27.78");
    EXPECT_EQ(ImageSizeText(300, ImageUnit::Cm), "10.58");
    EXPECT_EQ(ImageSizeText(1500, ImageUnit::Cm), "52.92");
    EXPECT_EQ(ImageSizeText(300, ImageUnit::Inch), "4.17");
    EXPECT_EQ(ImageSizeText(1500, ImageUnit::Inch), "20.83");
}

TEST(ImageSize, BackToPixelsToTheNearestPixel) {
    EXPECT_EQ(UnitToPixels(14.11, ImageUnit::Cm), 400);
    EXPECT_EQ(UnitToPixels(70.56, ImageUnit::Cm), 2000);
    EXPECT_EQ(UnitToPixels(10.58, ImageUnit::Cm), 300);
    EXPECT_EQ(UnitToPixels(52.92, ImageUnit::Cm), 1500);
    EXPECT_EQ(UnitToPixels(5.56, ImageUnit::Inch), 400);
    EXPECT_EQ(UnitToPixels(27.78, ImageUnit::Inch), 2000);
    EXPECT_EQ(UnitToPixels(4.17, ImageUnit::Inch), 300);
    EXPECT_EQ(UnitToPixels(20.83, ImageUnit::Inch), 1500);
    EXPECT_EQ(UnitToPixels(2.54, ImageUnit::Cm), 72);
    EXPECT_EQ(UnitToPixels(640, ImageUnit::Pixels), 640);
    // Every size of the fields comes back to itself through its text.
    for (int pixels = 300; pixels <= 2000; ++pixels) {
        for (ImageUnit unit : {ImageUnit::Cm, ImageUnit::Inch}) {
            EXPECT_EQ(UnitToPixels(std::stod(ImageSizeText(pixels, unit)), unit), pixels);
        }
    }
    EXPECT_EQ(UnitToPixels(1e300, ImageUnit::Inch), 0);
}
