#include "ui/echeck_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMetaObject>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>

#include "app/app_state.h"
#include "app/config_file.h"
#include "language/language_table.h"
#include "net/update_server.h"
#include "ui/qt_text.h"

namespace orvane {
namespace {

constexpr int kWidth = 572;
constexpr int kRestHeight = 229;
constexpr int kBusyHeight = 260;

QString de(int key) { return qtText(Section::orvDEInstall, key); }
QString q(const std::string& text) { return QString::fromStdString(text); }

EphemerisInstallSettings installSettings(AppState& state, int file, const EphemerisSource& source) {
    EphemerisInstallSettings s;
    s.serverAddress = source.serverAddress.empty()
                          ? ServerAddress(state.folders.userFolder, state.folders.commonFolder)
                          : source.serverAddress;
    s.de406Path = state.folders.de406Path;
    s.de423Path = state.folders.de423Path;
    s.ephemerisChoice = state.ephemerisChoice;
    s.singleFile = file != 0;
    s.limits = source.limits;
    const std::string config = state.folders.userFolder + "config.dat";
    s.markPending = [config](int value) { WritePendingEphemerisRecord(config, value); };
    return s;
}

QLabel* label(QWidget* parent, int id, QRect geometry) {
    auto* l = new QLabel(parent);
    l->setProperty("controlId", id);
    l->setGeometry(geometry);
    return l;
}

}  // namespace

EphemerisWindow::EphemerisWindow(AppState& state, int file, EphemerisSource source, QWidget* parent)
    : QDialog(parent), state_(state), file_(file) {
    setWindowTitle(file == 0 ? QStringLiteral("Orvane - Comet Ephemeris Desk") : de(22));
    setFixedSize(kWidth, kRestHeight);
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(13);
    setFont(font);

    message_ = label(this, 8225, QRect(20, 15, 530, 20));
    caption_ = label(this, 11167, QRect(20, 45, 90, 20));
    caption_->setText(de(17));
    caption_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    de406_ = new QCheckBox(de(4), this);
    de406_->setProperty("controlId", 11165);
    de406_->setChecked(true);
    de406_->setGeometry(120, 45, 430, 20);
    de423_ = new QCheckBox(de(5), this);
    de423_->setProperty("controlId", 11166);
    de423_->setChecked(true);
    de423_->setGeometry(120, 70, 430, 20);
    line1_ = label(this, 8226, QRect(20, 105, 530, 20));
    line2_ = label(this, 8227, QRect(20, 125, 530, 40));
    line2_->setWordWrap(true);
    line2_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    bar_ = new QProgressBar(this);
    bar_->setObjectName("msctls_progress32");
    bar_->setTextVisible(false);
    bar_->hide();
    ok_ = new QPushButton(de(1), this);
    ok_->setProperty("controlId", 8229);
    ok_->setDefault(true);
    second_ = new QPushButton(this);
    second_->setProperty("controlId", 8230);
    layoutButtons();

    // DEDownload asks for one file: box 11165 names it, with its span beside it.
    if (file != 0) {
        de423_->hide();
        de406_->setText(de(file == 1 ? 4 : 5));
        interval_ = new QLabel(qtText(Section::orvOrvaneOptions, file == 1 ? 11 : 12), this);
        interval_->setGeometry(140, 68, 410, 20);
        wantDe406_ = file == 1;
        wantDe423_ = file == 2;
    }

    // While the pointer rests on a box, the second line describes that file.
    de406_->installEventFilter(this);
    de423_->installEventFilter(this);
    connect(de406_, &QCheckBox::toggled, this, [this](bool on) {
        (file_ == 2 ? wantDe423_ : wantDe406_) = on;
        updateOkEnabled();
    });
    connect(de423_, &QCheckBox::toggled, this, [this](bool on) {
        wantDe423_ = on;
        updateOkEnabled();
    });
    connect(ok_, &QPushButton::clicked, this, &EphemerisWindow::onOk);
    connect(second_, &QPushButton::clicked, this, &EphemerisWindow::onSecond);

    EphemerisInstallView& view = *this;
    install_ = std::make_unique<EphemerisInstall>(view, installSettings(state, file, source));
    apply(install_->screen());
}

EphemerisWindow::~EphemerisWindow() {
    // The worker ends before the window it reports to.
    install_.reset();
}

ECheck::ECheck(AppState& state, EphemerisSource source, QWidget* parent)
    : EphemerisWindow(state, 0, std::move(source), parent) {
    setObjectName("ECheck");
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

DEDownload::DEDownload(AppState& state, int file, EphemerisSource source, QWidget* parent)
    : EphemerisWindow(state, file == 1 ? 1 : 2, std::move(source), parent) {
    setObjectName("DEDownload");
    setWindowModality(Qt::ApplicationModal);
    if (parent) move(parent->geometry().center() - rect().center());
}

void EphemerisWindow::layoutButtons() {
    const int y = height() - 39;
    ok_->setGeometry(370, y, 85, 25);
    second_->setGeometry(465, y, 85, 25);
    bar_->setGeometry(20, y - 24, 530, 16);
}

void EphemerisWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    layoutButtons();
}

bool EphemerisWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool box = watched == de406_ || watched == de423_;
    if (box && event->type() == QEvent::Enter) {
        const bool first = watched == de406_ ? file_ != 2 : false;
        line2_->setText(de(first ? 25 : 26));
    } else if (box && event->type() == QEvent::Leave) {
        line2_->clear();
    }
    return QDialog::eventFilter(watched, event);
}

void EphemerisWindow::updateOkEnabled() { ok_->setEnabled(wantDe406_ || wantDe423_); }

void EphemerisWindow::showScreen(const EphemerisInstallScreen& screen) {
    QMetaObject::invokeMethod(this, [this, screen] { apply(screen); }, Qt::QueuedConnection);
}

void EphemerisWindow::fileInstalled(int file, int choice) {
    QMetaObject::invokeMethod(this, [this, file, choice] { markInstalled(file, choice); }, Qt::QueuedConnection);
}

void EphemerisWindow::markInstalled(int file, int choice) {
    installedAny_ = true;
    state_.ephemerisChoice = choice;
    state_.pendingEphemerisDelete = 0;
    if (file == 1) wantDe406_ = false;
    if (file == 2) wantDe423_ = false;
}

void EphemerisWindow::apply(const EphemerisInstallScreen& s) {
    shown_ = s;
    message_->setVisible(true);
    message_->setText(q(s.message));
    caption_->setVisible(s.choicesShown && file_ == 0);
    if (file_ == 0) {
        de406_->setVisible(s.choicesShown && s.de406Shown);
        de423_->setVisible(s.choicesShown && s.de423Shown);
    } else {
        const bool boxShown = s.choicesShown && (file_ == 1 ? s.de406Shown : s.de423Shown);
        de406_->setVisible(boxShown);
        interval_->setVisible(boxShown);
    }
    line1_->setText(q(s.line1));
    line2_->setText(q(s.line2));
    bar_->setVisible(s.barShown);
    bar_->setRange(0, std::max(0, s.barMaximum));
    bar_->setValue(std::min(s.barValue, std::max(0, s.barMaximum)));
    ok_->setText(q(s.okCaption));
    ok_->setEnabled(s.okEnabled && (wantDe406_ || wantDe423_));
    second_->setText(q(s.secondCaption));
}

void EphemerisWindow::onOk() {
    if (install_->busy()) return;
    // The window grows for the progress, keeping its centre line.
    if (height() != kBusyHeight) {
        const QPoint centre = geometry().center();
        setFixedSize(kWidth, kBusyHeight);
        move(centre.x() - width() / 2, centre.y() - height() / 2);
    }
    // The busy screen comes from the worker; until it arrives nothing may start a second.
    ok_->setEnabled(false);
    second_->setDefault(true);
    second_->setFocus();
    install_->start(wantDe406_, wantDe423_);
}

void EphemerisWindow::onSecond() {
    if (!install_->pressSecond()) return;
    if (installedAny_ && file_ == 0) state_.ephemerisMissing = 0;
    if (installedAny_) accept();
    else QDialog::reject();
}

void EphemerisWindow::reject() {
    // Escape and the close box leave like the second button at rest, never during a transfer.
    if (install_->busy() || !shown_.closeEntryEnabled) return;
    onSecond();
}

void EphemerisWindow::closeEvent(QCloseEvent* event) {
    if (install_->busy() || !shown_.closeEntryEnabled) {
        event->ignore();
        return;
    }
    if (installedAny_ && file_ == 0) state_.ephemerisMissing = 0;
    QDialog::closeEvent(event);
}

bool RunEphemerisCheck(AppState& state, EphemerisSource source) {
    if (state.ephemerisMissing != 1) return true;
    ECheck window(state, std::move(source));
    window.exec();
    return state.ephemerisMissing == 0;
}

}  // namespace orvane
