#include "ui/about_window.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

#include <sqlite3.h>

#include "net/file_checks.h"
#include "net/http_fetch.h"
#include "net/program_version.h"
#include "ui/qt_text.h"
#include "ui/update_frame.h"

namespace orvane {
namespace {

constexpr int kWidth = 572;
constexpr int kHeight = 290;

QString a(int key) { return qtText(Section::orvAbout, key); }

QLabel* line(QWidget* parent, int key, int y) {
    auto* label = new QLabel(parent);
    label->setProperty("textKey", key);
    label->setGeometry(23, y, kWidth - 46, 20);
    return label;
}

}  // namespace

QString planetaryFileLine(const AppState& state, int choice) {
    const std::string path = choice == 1 ? state.folders.de406Path : state.folders.de423Path;
    const QString name = choice == 1 ? QStringLiteral("jplde406.dat") : QStringLiteral("jplde423.dat");
    const PlanetarySpan span = CheckPlanetaryFile(path);
    if (!span.readable) return name;
    return name + QStringLiteral(" (") + a(9) + ' ' + QString::fromStdString(SpanDateText(span.firstJd)) + ' ' +
           a(10) + ' ' + QString::fromStdString(SpanDateText(span.lastJd)) + ')';
}

QStringList libraryLines() {
    return {
        QStringLiteral("Qt %1 - GNU LGPL 3").arg(QString::fromLatin1(qVersion())),
        QStringLiteral("SQLite %1 - public domain").arg(QString::fromLatin1(sqlite3_libversion())),
        QStringLiteral("%1 - curl licence (MIT/X style)").arg(QString::fromStdString(TransferLibraryVersion())),
        QStringLiteral("%1 - Apache licence 2.0").arg(QString::fromStdString(ChecksumLibraryVersion())),
        QStringLiteral("GCC libquadmath and libstdc++ - GNU LGPL 2.1 / GPL 3 with the GCC runtime library exception"),
        QStringLiteral("JPL planetary and lunar ephemerides - NASA/JPL, free of charge"),
    };
}

About::About(const AppState& state, QWidget* mainWindow) : QDialog(mainWindow) {
    setObjectName("About");
    shapeModalWindow(this, mainWindow, QSize(kWidth, kHeight));
    setWindowTitle(a(1));

    QLabel* title = line(this, 2, 14);
    title->setText(a(2));
    QFont bold = title->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.2);
    title->setFont(bold);
    line(this, 3, 42)->setText(a(3) + ' ' + QString::fromStdString(VersionText(kProgramVersion)));
    line(this, 8, 60)->setText(a(8) + ' ' + planetaryFileLine(state, state.ephemerisChoice));
    line(this, 4, 78)->setText(a(4));
    line(this, 5, 96)->setText(a(5));
    line(this, 6, 114)->setText(a(6));
    line(this, 11, 136)->setText(a(11));
    auto* libraries = new QPlainTextEdit(this);
    libraries->setObjectName("Libraries");
    libraries->setReadOnly(true);
    libraries->setPlainText(libraryLines().join('\n'));
    libraries->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    libraries->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    libraries->setGeometry(23, 157, kWidth - 46, 88);
    auto* ok = new QPushButton(a(7), this);
    ok->setDefault(true);
    ok->setGeometry(kWidth - 113, kHeight - 37, 100, 24);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace orvane
