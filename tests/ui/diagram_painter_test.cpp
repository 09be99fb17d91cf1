// The orbit diagram's painter and its exported pictures: three scenes compared
// pixel for pixel with pictures checked by eye (tests/ui/golden/README.md), the
// checks of the view that need no picture, and BMP and PNG files read back by Qt
// and by an independent reader.
#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QProcess>
#include <QTest>

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "app/folders.h"
#include "records/els_format.h"
#include "support/temp_home.h"
#include "tasks/diagram_controls.h"
#include "tasks/run_objects.h"
#include "ui/diagram_export.h"
#include "ui/diagram_painter.h"

using namespace orvane;

namespace {

constexpr double kStarterEpoch = 2460560.5;  // 2024-09-07 0h TT, the epoch of most records of Starter.els
const QSize kWindow(800, 600);
const QRgb kYellow = qRgb(255, 242, 0);
const QRgb kOrange = qRgb(242, 101, 34);
const QRgb kPlanetAbove = qRgb(129, 129, 129);
const QRgb kPlanetBelow = qRgb(154, 154, 154);
const QRgb kAxisRed = qRgb(237, 28, 36);

// The scene's font: DejaVu Sans from its file (Debian's fonts-dejavu-core), so the
// text is drawn the same on every machine the setup made.
const QString kFontFile = QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");

QFont SceneFont() {
    static const int id = QFontDatabase::addApplicationFont(kFontFile);
    QFont font(id >= 0 ? QFontDatabase::applicationFontFamilies(id).value(0) : QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

RunObject StarterComet(const std::string& wanted, const char* eccentricity = nullptr) {
    const std::string text = testing::readFile(std::filesystem::path(ORVANE_SOURCE_DIR) / "Data" / "Starter.els");
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        OrbitRecord record;
        readElsLine(std::string_view(text).substr(start, end - start), record);
        start = end + 1;
        // The catalogue keeps the number as a number: "0002" reads back as "2".
        const std::string number(record.get(Field::comet));
        if (number.find_first_not_of(' ') != std::string::npos) {
            record.set(Field::comet, std::to_string(std::stoi(number)));
        }
        if (RunObjectName(record) != wanted) continue;
        if (eccentricity) record.set(Field::e, eccentricity);
        RunObject object;
        std::string bad;
        if (MakeRunObject(record, kStarterEpoch, object, bad)) return object;
    }
    return {};
}

// The planets of the installed planetary file at `jd`, as the run's frame hook gives them.
bool PlanetsAt(double jd, PlanetBlocks& planets) {
    Ephemeris ephemeris;
    if (ephemeris.OpenEphemerisFile(CommonFolder() + "jplde423.dat") != EphemerisStatus::Ok) return false;
    BodyStatesResult bodies;
    if (ephemeris.BodyStates(jd, bodies) != EphemerisStatus::Ok) return false;
    planets = PlanetBlocksAt(jd, bodies);
    return true;
}

// One scene with everything it points to.
struct Diagram {
    std::vector<RunObject> objects;
    DiagramFrameStore store;
    DiagramFrame frame;
    std::vector<IntegrationBlock> epochBlocks;
    DiagramScene scene;
    DiagramLabels labels;
    DiagramTexts texts;

    Diagram(std::vector<RunObject> runObjects, double jd, bool withPlanets = true) : objects(std::move(runObjects)) {
        store.Reset(objects);
        PlanetBlocks planets{};
        if (withPlanets) {
            QVERIFY2(PlanetsAt(jd, planets), "no planetary file: run scripts/setup");
            store.PublishFrame(0, objects.empty() ? IntegrationBlock{} : objects[0].block, planets);
        }
        store.CopyTo(frame);
        std::vector<std::string> names;
        for (const RunObject& o : objects) {
            epochBlocks.push_back(o.epochBlock);
            names.push_back(o.name);
        }
        labels = MakeDiagramLabels(names, texts, SceneFont());
        scene.frame = &frame;
        scene.epochBlocks = epochBlocks;
        DiagramViewArea area;
        area.clientWidth = kWindow.width();
        area.clientHeight = kWindow.height();
        HomeCamera(scene.camera, area);
        TaskOptions dates;
        const std::string name = objects.empty() ? std::string() : objects[0].name;
        scene.strip.name = DiagramNameLine(texts, name, false);
        scene.strip.epoch = DiagramEpochLine(texts, jd, dates);
        scene.strip.interval = DiagramIntervalLine(texts, jd, jd, true, dates);
        scene.strip.status = texts.statusReady;
        scene.strip.remaining = texts.remainingZero;
        scene.strip.rate = DiagramRateText(texts, 2, false);
    }

    QImage Paint(QSize size = kWindow) const {
        QImage image(size, QImage::Format_RGB32);
        paintScene(image, scene, labels);
        return image;
    }
};

QString OutputFolder() {
    const QString folder = QStringLiteral(ORVANE_BINARY_DIR "/diagram_images");
    QDir().mkpath(folder);
    return folder;
}

// Compares with the golden picture; on a difference the picture and a map of the
// differing pixels go beside the others under the build folder. With
// ORVANE_WRITE_GOLDEN set the picture becomes the golden one (to be checked by eye).
void CompareWithGolden(const QImage& image, const QString& name) {
    const QString golden = QStringLiteral(ORVANE_SOURCE_DIR "/tests/ui/golden/") + name;
    QVERIFY(image.save(OutputFolder() + "/" + name));
    if (qEnvironmentVariableIsSet("ORVANE_WRITE_GOLDEN")) {
        QVERIFY(image.save(golden));
        QSKIP("golden picture written");
    }
    const QImage expected = QImage(golden).convertToFormat(QImage::Format_RGB32);
    QVERIFY2(!expected.isNull(), qPrintable("no golden picture " + golden));
    QCOMPARE(image.size(), expected.size());
    QImage differences(image.size(), QImage::Format_RGB32);
    differences.fill(Qt::white);
    int differing = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != expected.pixel(x, y)) {
                ++differing;
                differences.setPixel(x, y, qRgb(255, 0, 0));
            }
        }
    }
    if (differing > 0) {
        differences.save(OutputFolder() + "/differences-" + name);
        QFAIL(qPrintable(QString("%1 pixels differ from %2; see %3").arg(differing).arg(golden, OutputFolder())));
    }
}

// The bounding box of the pixels of `colour` in a region.
QRect PixelsOf(const QImage& image, QRgb colour, const QRect& region) {
    QRect box;
    for (int y = region.top(); y <= region.bottom(); ++y) {
        for (int x = region.left(); x <= region.right(); ++x) {
            if (image.valid(x, y) && image.pixel(x, y) == colour) box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

// Whether the scene above the strip shows the colour anywhere.
bool Shows(const QImage& image, QRgb colour) {
    return !PixelsOf(image, colour, QRect(0, 0, image.width(), image.height() - kStripHeightShown)).isEmpty();
}

QString HeaderOf(const QString& path) {
    QProcess reader;
    reader.start(QStringLiteral("python3"), {QStringLiteral(ORVANE_SOURCE_DIR "/tests/ui/read_image_header.py"), path});
    if (!reader.waitForFinished(30000)) return QStringLiteral("reader did not finish");
    return QString::fromUtf8(reader.readAllStandardOutput()).trimmed();
}

}  // namespace

class DiagramPainterTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        QVERIFY2(QFile::exists(kFontFile), "no DejaVu Sans: run scripts/setup (fonts-dejavu-core)");
        QVERIFY(!SceneFont().family().isEmpty());
    }

    // 2P/Encke at the epoch of the starter catalogue with the inner planets.
    void enckeWithTheInnerPlanets() {
        Diagram d({StarterComet("2P/Encke")}, kStarterEpoch);
        QCOMPARE(d.objects[0].name, std::string("2P/Encke"));
        d.scene.camera.zoom = 10;
        d.scene.camera.lat = 45;
        d.scene.camera.lon = 135;
        CompareWithGolden(d.Paint(), QStringLiteral("encke_inner_planets.png"));
    }

    // 1P/Halley far out near its aphelion with all nine planets, names and axes.
    void halleyWithAllPlanets() {
        Diagram d({StarterComet("1P/Halley")}, kStarterEpoch);
        d.scene.camera.zoom = -5;
        d.scene.camera.lat = 30;
        d.scene.camera.lon = 120;
        QVERIFY(d.scene.display.axes && d.scene.display.objectNames && d.scene.display.planetOrbits);
        CompareWithGolden(d.Paint(), QStringLiteral("halley_all_planets.png"));
    }

    // C/2024 G3 made parabolic: both arms run out of the picture, one of them ends
    // on the circle of 100 AU inside it.
    void parabolaCutAtTheEdgeOfTheView() {
        Diagram d({StarterComet("C/2024 G3 (ATLAS)", "1.0")}, kStarterEpoch);
        QCOMPARE(d.objects[0].epochBlock.e, 1.0);
        d.scene.camera.zoom = -5;
        d.scene.camera.lat = 20;
        d.scene.camera.lon = 60;
        d.scene.camera.centerX = 600;
        d.scene.camera.centerY = 200;
        CompareWithGolden(d.Paint(), QStringLiteral("parabola_cut.png"));
    }

    void sunDiscAtTheCentre() {
        Diagram d({}, kStarterEpoch, false);
        d.scene.display.axes = false;
        d.scene.camera.zoom = 25;  // a disc of 0.08 x 155 = 12.4 pixels
        const QImage image = d.Paint();
        const QPoint centre(d.scene.camera.centerX, d.scene.camera.centerY);
        QCOMPARE(image.pixel(centre), kYellow);
        const QRect disc = PixelsOf(image, kYellow, image.rect()) | PixelsOf(image, kOrange, image.rect());
        QVERIFY(std::abs(disc.center().x() - centre.x()) <= 1);
        QVERIFY(std::abs(disc.center().y() - centre.y()) <= 1);
        QVERIFY(std::abs(disc.width() - 25) <= 2);
        QVERIFY(std::abs(disc.height() - 25) <= 2);
    }

    // Edge on from lon 0 the Earth's orbit is a line along the x axis; it reaches
    // 1 AU times the scale from the Sun within one pixel (r = 1.0035 AU there).
    void earthOrbitCrossesTheXAxisAt1Au() {
        const double march20 = 2460389.5;  // the Earth on the far side, away from the crossing
        for (int zoom : {10, 25}) {
            Diagram d({}, march20);
            // The Earth alone: the other planets' orbits cross the line edge on.
            for (std::size_t k = 0; k < d.frame.planets.size(); ++k) {
                if (k != 2) d.frame.planets[k] = IntegrationBlock{};
            }
            d.scene.display.axes = false;
            d.scene.display.objectNames = false;
            d.scene.camera.lat = 90;
            d.scene.camera.lon = 0;
            d.scene.camera.zoom = zoom;
            const QImage image = d.Paint();
            image.save(OutputFolder() + QString("/earth_edge_on_zoom%1.png").arg(zoom));
            const int s = PixelsPerAu(zoom);
            const int cx = d.scene.camera.centerX, cy = d.scene.camera.centerY;
            const QRect line(cx + 20, cy - 2, 400, 5);
            const QRect orbit = PixelsOf(image, kPlanetAbove, line) | PixelsOf(image, kPlanetBelow, line);
            QVERIFY2(std::abs(orbit.right() - (cx + s)) <= 1,
                     qPrintable(QString("%1 %2").arg(orbit.right()).arg(cx + s)));
            QVERIFY(std::abs(orbit.center().y() - cy) <= 1);
        }
    }

    // Encke's present position goes where the formula puts it: the white middle of
    // its mark on that pixel, the mark's outline around it.
    void cometPositionOnTheFormulasPixel() {
        Diagram d({StarterComet("2P/Encke")}, kStarterEpoch);
        d.scene.background = 0x000000;
        d.scene.display.objectNames = false;
        d.scene.display.axes = false;
        d.scene.camera.zoom = 10;
        const IntegrationBlock& b = d.objects[0].block;
        QCOMPARE(b.time, kStarterEpoch);
        // Equator to ecliptic, then the projection, written out here.
        const double eps = 0.4090928042223, deg = 57.2957795130823;
        const double x = b.x;
        const double y = b.y * std::cos(eps) + b.z * std::sin(eps);
        const double z = b.z * std::cos(eps) - b.y * std::sin(eps);
        const double L = 135 / deg, B = 45 / deg, s = 80;
        const int px = static_cast<int>(d.scene.camera.centerX + s * (x * std::cos(L) + y * std::sin(L)));
        const int py = static_cast<int>(d.scene.camera.centerY +
                                        s * ((x * std::sin(L) - y * std::cos(L)) * std::cos(B) - z * std::sin(B)));
        const QImage image = d.Paint();
        QCOMPARE(image.pixel(px, py), qRgb(255, 255, 255));
        const QRect mark = PixelsOf(image, qRgb(0, 60, 140), QRect(px - 6, py - 6, 13, 13));
        QVERIFY(!mark.isEmpty());
        QVERIFY(std::abs(mark.center().x() - px) <= 1);
        QVERIFY(std::abs(mark.center().y() - py) <= 1);
    }

    void beforeAnyStepOnlyTheSunAndTheAxes() {
        Diagram d({StarterComet("2P/Encke")}, kStarterEpoch);
        d.store.Reset(d.objects);
        d.store.CopyTo(d.frame);
        QVERIFY(!d.frame.stepped);
        const QImage image = d.Paint();
        QVERIFY(Shows(image, kYellow));
        QVERIFY(Shows(image, kAxisRed));
        QVERIFY(!Shows(image, kPlanetAbove));
        QVERIFY(!Shows(image, kPlanetBelow));
        QVERIFY(!Shows(image, qRgb(0, 94, 184)));
        QVERIFY(!Shows(image, qRgb(0, 60, 140)));
    }

    // At "Rate: max" the scene gives way to the text of waiting, and the keys do not
    // move the view.
    void atRateMaxTheTextOfWaitingShows() {
        Diagram d({StarterComet("2P/Encke")}, kStarterEpoch);
        d.scene.rateMax = true;
        d.scene.strip.rate = DiagramRateText(d.texts, 1, false);
        DiagramControls controls(d.scene.camera);
        DiagramViewArea area;
        area.clientWidth = kWindow.width();
        area.clientHeight = kWindow.height();
        area.frozen = true;
        const DiagramCamera before = d.scene.camera;
        for (DiagramKey key : {DiagramKey::Up, DiagramKey::Left, DiagramKey::Plus}) {
            QCOMPARE(controls.Key(key, false, area), DiagramAction::None);
        }
        QCOMPARE(d.scene.camera.lon, before.lon);
        const QImage image = d.Paint();
        // The text stands across the middle of the scene, in black; the rest of the
        // scene is its background alone.
        const int middle = (kWindow.height() - kStripHeightShown) / 2;
        const QRect band(0, middle - 10, kWindow.width(), 21);
        const QRect text = PixelsOf(image, qRgb(0, 0, 0), band);
        QVERIFY(text.width() > 300);
        QVERIFY(std::abs(text.center().x() - kWindow.width() / 2) <= 3);
        for (int y = 0; y < kWindow.height() - kStripHeightShown; ++y) {
            if (band.contains(0, y)) continue;
            for (int x = 0; x < kWindow.width(); ++x) QCOMPARE(image.pixel(x, y), qRgb(255, 255, 255));
        }
        image.save(OutputFolder() + "/rate_max.png");
    }

    void hiddenStatusLeavesAStripOf25Pixels() {
        Diagram d({StarterComet("2P/Encke")}, kStarterEpoch);
        d.scene.strip.integrationStatus = false;
        const QImage image = d.Paint();
        QCOMPARE(image.pixel(0, kWindow.height() - kStripHeightHidden), qRgb(230, 232, 245));
        QCOMPARE(image.pixel(0, kWindow.height() - kStripHeightHidden - 1), qRgb(255, 255, 255));
        d.scene.strip.integrationStatus = true;
        const QImage shown = d.Paint();
        QCOMPARE(shown.pixel(0, kWindow.height() - kStripHeightShown), qRgb(230, 232, 245));
        QCOMPARE(shown.pixel(0, kWindow.height() - kStripHeightShown - 1), qRgb(255, 255, 255));
        image.save(OutputFolder() + "/status_hidden.png");
    }

    // Pictures of the size asked for, as bitmap and as PNG: Qt and Python's standard
    // library read them back; the bitmap holds exactly the painted pixels.
    void exportedPicturesHaveTheSizeAskedFor() {
        Diagram d({StarterComet("2P/Encke")}, kStarterEpoch);
        testing::TempHome home;
        for (const QSize size : {QSize(643, 481), QSize(800, 600), QSize(2000, 1500)}) {
            for (const ImageFileType type : {ImageFileType::Bmp, ImageFileType::Png}) {
                ImageExport target;
                target.type = type;
                target.size = size;
                target.background = 0x102040;
                const QString kind = type == ImageFileType::Bmp ? QStringLiteral("bmp") : QStringLiteral("png");
                target.path = QString::fromStdString(home.root().string()) +
                              QString("/encke-%1x%2.%3").arg(size.width()).arg(size.height()).arg(kind);
                QCOMPARE(exportImage(target, d.scene, d.labels, kWindow), ExportStatus::Ok);
                const QImage read(target.path, kind == "bmp" ? "BMP" : "PNG");
                QCOMPARE(read.size(), size);
                const QString header = HeaderOf(target.path);
                if (type == ImageFileType::Bmp)
                    QCOMPARE(header, QString("bmp %1 %2 24 0").arg(size.width()).arg(size.height()));
                else
                    QVERIFY2(header.startsWith(QString("png %1 %2 ").arg(size.width()).arg(size.height())),
                             qPrintable(header));
                // The same picture painted here, pixel for pixel.
                QImage painted(size, QImage::Format_RGB32);
                DiagramScene picture = d.scene;
                picture.camera = CameraForPicture(d.scene.camera, kWindow.width(), kWindow.height(), size.width(),
                                                  size.height());
                picture.background = target.background;
                paintScene(painted, picture, d.labels, DiagramSurface::Picture);
                QVERIFY(read.convertToFormat(QImage::Format_RGB32) == painted);
                QCOMPARE(painted.pixel(size.width() - 1, size.height() - 1), qRgb(0x10, 0x20, 0x40));
                if (size == QSize(800, 600) && type == ImageFileType::Png) painted.save(OutputFolder() + "/export.png");
            }
        }
    }

    void exportFailuresReturnAStatus() {
        Diagram d({StarterComet("2P/Encke")}, kStarterEpoch);
        testing::TempHome home;
        ImageExport target;
        target.path = QString::fromStdString((home.root() / "no such folder" / "encke.bmp").string());
        QCOMPARE(exportImage(target, d.scene, d.labels, kWindow), ExportStatus::WriteFailed);
        QVERIFY(!QFile::exists(target.path));
        // A folder of that name cannot become a picture; it stays a folder.
        target.path = QString::fromStdString(home.root().string());
        QCOMPARE(exportImage(target, d.scene, d.labels, kWindow), ExportStatus::WriteFailed);
        QVERIFY(QFileInfo(target.path).isDir());
        // A picture larger than any memory can hold (its size in bytes does not fit).
        target.path = QString::fromStdString((home.root() / "huge.png").string());
        target.size = QSize(std::numeric_limits<int>::max(), std::numeric_limits<int>::max());
        QCOMPARE(exportImage(target, d.scene, d.labels, kWindow), ExportStatus::NoMemory);
        target.size = QSize(0, 600);
        QCOMPARE(exportImage(target, d.scene, d.labels, kWindow), ExportStatus::NoMemory);
        QVERIFY(!QFile::exists(target.path));
    }
};

QTEST_MAIN(DiagramPainterTest)
#include "diagram_painter_test.moc"
