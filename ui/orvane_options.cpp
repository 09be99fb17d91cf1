#include "ui/orvane_options.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <filesystem>

#include "app/config_file.h"
#include "language/load_language.h"
#include "net/file_checks.h"
#include "net/update_server.h"
#include "ui/echeck_window.h"
#include "ui/qt_text.h"
#include "ui/update_frame.h"

namespace orvane {
namespace {

constexpr int kWidth = 572;
constexpr int kHeight = 260;

QString o(int key) { return qtText(Section::orvOrvaneOptions, key); }

QLabel* fieldLabel(QWidget* parent, int id, QRect geometry) {
    auto* label = new QLabel(parent);
    label->setProperty("controlId", id);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setGeometry(geometry);
    return label;
}

std::string planetaryPath(const AppState& state, int choice) {
    return choice == 1 ? state.folders.de406Path : state.folders.de423Path;
}

bool fileThere(const std::string& path) {
    std::error_code ec;
    return std::filesystem::exists(path, ec);
}

}  // namespace

QStringList languageNames(const QString& folder) {
    QStringList names;
    for (const QString& file : QDir(folder).entryList({QStringLiteral("*.lng")}, QDir::Files))
        names << file.left(file.size() - 4);
    if (!names.contains(QStringLiteral("English"))) names << QStringLiteral("English");
    names.sort(Qt::CaseInsensitive);
    return names;
}

OrvaneOptions::OrvaneOptions(AppState& state, QWidget* mainWindow) : QDialog(mainWindow), state_(state) {
    setObjectName("OrvaneOptions");
    shapeModalWindow(this, mainWindow, QSize(kWidth, kHeight));

    title_ = new QLabel(this);
    title_->setProperty("controlId", 11161);
    title_->setGeometry(23, 20, kWidth - 46, 24);
    QFont bold = title_->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.2);
    title_->setFont(bold);

    updateLabel_ = fieldLabel(this, 11162, QRect(23, 60, 140, 22));
    check_ = new QCheckBox(this);
    check_->setProperty("controlId", 11157);
    check_->setGeometry(173, 60, 370, 22);
    check_->setChecked(state_.checkUpdatesAtStart == 1);

    languageLabel_ = fieldLabel(this, 11163, QRect(23, 92, 140, 22));
    language_ = new QComboBox(this);
    language_->setProperty("controlId", 720);
    language_->setGeometry(173, 92, 200, 24);
    languages_ = languageNames(QString::fromStdString(state_.folders.languageFolder));
    language_->addItems(languages_);
    QString inUse = QString::fromStdString(state_.languageName).trimmed();
    if (inUse.endsWith(QStringLiteral(".lng"), Qt::CaseInsensitive)) inUse.chop(4);
    languageIndex_ = std::max(0, static_cast<int>(languages_.indexOf(inUse)));
    if (languages_.indexOf(inUse) < 0) languageIndex_ = static_cast<int>(languages_.indexOf(QStringLiteral("English")));
    language_->setCurrentIndex(languageIndex_);

    ephemerisLabel_ = fieldLabel(this, 11164, QRect(23, 124, 140, 22));
    ephemeris_ = new QComboBox(this);
    ephemeris_->setProperty("controlId", 726);
    ephemeris_->setGeometry(173, 124, 120, 24);
    ephemeris_->addItems({o(9), o(10)});
    ephemeris_->setCurrentIndex(state_.ephemerisChoice == 1 ? 0 : 1);
    interval_ = new QLabel(this);
    interval_->setGeometry(303, 124, kWidth - 326, 24);

    serverLabel_ = fieldLabel(this, 11168, QRect(23, 156, 140, 22));
    server_ = new QLineEdit(this);
    server_->setProperty("controlId", 11169);
    server_->setGeometry(173, 156, kWidth - 196, 24);
    server_->setMaxLength(static_cast<int>(kAddressWidth));
    server_->setText(QString::fromStdString(StoredServerAddress(state_.folders.userFolder)));
    // An empty field stands for the server folder that the setup published.
    server_->setPlaceholderText(
        QString::fromStdString(DefaultServerAddress(state_.folders.commonFolder)));

    apply_ = new QPushButton(this);
    apply_->setProperty("controlId", 858);
    apply_->setGeometry(kWidth - 223, kHeight - 37, 100, 24);
    apply_->setEnabled(false);
    close_ = new QPushButton(this);
    close_->setProperty("controlId", 11160);
    close_->setGeometry(kWidth - 113, kHeight - 37, 100, 24);
    close_->setDefault(true);

    connect(check_, &QCheckBox::toggled, this, &OrvaneOptions::changed);
    connect(language_, &QComboBox::currentIndexChanged, this, &OrvaneOptions::changed);
    connect(ephemeris_, &QComboBox::currentIndexChanged, this, &OrvaneOptions::onEphemerisChosen);
    connect(server_, &QLineEdit::textEdited, this, &OrvaneOptions::changed);
    connect(apply_, &QPushButton::clicked, this, &OrvaneOptions::apply);
    connect(close_, &QPushButton::clicked, this, &QDialog::close);

    retitle();
}

void OrvaneOptions::retitle() {
    setWindowTitle(o(1));
    title_->setText(o(5));
    updateLabel_->setText(o(6));
    check_->setText(o(2));
    languageLabel_->setText(o(7));
    ephemerisLabel_->setText(o(8));
    serverLabel_->setText(o(13));
    {
        const QSignalBlocker quiet(ephemeris_);
        ephemeris_->setItemText(0, o(9));
        ephemeris_->setItemText(1, o(10));
    }
    apply_->setText(o(3));
    close_->setText(o(4));
    showInterval();
}

void OrvaneOptions::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) retitle();
}

void OrvaneOptions::changed() { apply_->setEnabled(true); }

// The span of the chosen file as its header gives it; the usual span of a file
// that is not there yet.
void OrvaneOptions::showInterval() {
    const int choice = ephemeris_->currentIndex() + 1;
    const PlanetarySpan span = CheckPlanetaryFile(planetaryPath(state_, choice));
    if (!span.readable) {
        interval_->setText(o(choice == 1 ? 11 : 12));
        return;
    }
    interval_->setText(o(14) + ' ' + QString::fromStdString(SpanDateText(span.firstJd)) + ' ' + o(15) + ' ' +
                       QString::fromStdString(SpanDateText(span.lastJd)) + ')');
}

void OrvaneOptions::onEphemerisChosen(int index) {
    const int choice = index + 1;
    changed();
    if (!fileThere(planetaryPath(state_, choice)) && !downloadPlanetaryFile(choice)) {
        // Cancelled: the box returns to the file in use.
        const QSignalBlocker quiet(ephemeris_);
        ephemeris_->setCurrentIndex(state_.ephemerisChoice == 1 ? 0 : 1);
    }
    showInterval();
}

bool OrvaneOptions::downloadPlanetaryFile(int file) {
    DEDownload window(state_, file, {}, this);
    window.exec();
    return window.installedAny();
}

void OrvaneOptions::refuseAddress(const QString& text) {
    QMessageBox::warning(this, o(1), text);
}

void OrvaneOptions::apply() {
    // An address that cannot be used is refused before anything changes.
    const std::string address = server_->text().trimmed().toStdString();
    const bool serverChanged = address != StoredServerAddress(state_.folders.userFolder);
    if (serverChanged && !address.empty() && !ValidServerAddress(address)) {
        refuseAddress(o(16));
        server_->setFocus();
        return;
    }
    const std::string config = state_.folders.userFolder + "config.dat";
    if (language_->currentIndex() != languageIndex_) {
        languageIndex_ = language_->currentIndex();
        state_.languageName = languages_.value(languageIndex_).toStdString() + ".lng";
        WriteLanguageRecord(config, state_.languageName);
        ResetLanguage();
        LoadLanguage(state_.folders.languageFolder, state_.languageName);
        retitle();
        emit languageApplied();
    }
    const int choice = ephemeris_->currentIndex() + 1;
    if (choice != state_.ephemerisChoice) {
        state_.ephemerisChoice = choice;
        emit ephemerisApplied(choice);
    }
    if (check_->isChecked() && state_.checkUpdatesAtStart == 0) {
        state_.checkUpdatesAtStart = 1;
        emit checkSwitchedOn();
    } else if (!check_->isChecked() && state_.checkUpdatesAtStart != 0) {
        state_.checkUpdatesAtStart = 0;
    }
    if (serverChanged) {
        if (!StoreServerAddress(state_.folders.userFolder, address)) {
            refuseAddress(QStringLiteral("cannot write ") +
                          QString::fromStdString(state_.folders.userFolder + kSettingsFile));
            return;
        }
        emit serverApplied();
    }
    apply_->setEnabled(false);
}

}  // namespace orvane
