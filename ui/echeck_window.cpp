#include "ui/echeck_window.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QGuiApplication>
#include <QScreen>

#include "app/app_state.h"
#include "language/language_table.h"
#include "ui/qt_text.h"

namespace orvane {
namespace {

QString install(int key) { return qtText(Section::orvDEInstall, key); }

}  // namespace

ECheck::ECheck(AppState& state, Installer installer, QWidget* parent)
    : QDialog(parent), state_(state), installer_(std::move(installer)) {
    setObjectName("ECheck");
    setWindowTitle(QStringLiteral("Orvane - Comet Ephemeris Desk"));
    setFixedSize(572, 229);
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(13);
    setFont(font);

    message_ = new QLabel(install(3), this);
    message_->setProperty("controlId", 8225);
    message_->setGeometry(20, 15, 530, 20);
    caption_ = new QLabel(install(17), this);
    caption_->setProperty("controlId", 11167);
    caption_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    caption_->setGeometry(20, 45, 90, 20);
    de406_ = new QCheckBox(install(4), this);
    de406_->setProperty("controlId", 11165);
    de406_->setChecked(true);
    de406_->setGeometry(120, 45, 430, 20);
    de423_ = new QCheckBox(install(5), this);
    de423_->setProperty("controlId", 11166);
    de423_->setChecked(true);
    de423_->setGeometry(120, 70, 430, 20);
    line1_ = new QLabel(this);
    line1_->setProperty("controlId", 8226);
    line1_->setGeometry(20, 105, 530, 20);
    line2_ = new QLabel(this);
    line2_->setProperty("controlId", 8227);
    line2_->setWordWrap(true);
    line2_->setGeometry(20, 125, 530, 40);
    bar_ = new QProgressBar(this);
    bar_->setGeometry(20, 165, 530, 16);
    bar_->hide();
    ok_ = new QPushButton(install(1), this);
    ok_->setProperty("controlId", 8229);
    ok_->setDefault(true);
    ok_->setGeometry(370, 190, 85, 25);
    exit_ = new QPushButton(install(2), this);
    exit_->setProperty("controlId", 8230);
    exit_->setGeometry(465, 190, 85, 25);

    // While the pointer rests on a box, the second line describes that file.
    de406_->installEventFilter(this);
    de423_->installEventFilter(this);
    connect(de406_, &QCheckBox::toggled, this, [this](bool on) { wantDe406_ = on; updateOkEnabled(); });
    connect(de423_, &QCheckBox::toggled, this, [this](bool on) { wantDe423_ = on; updateOkEnabled(); });
    connect(ok_, &QPushButton::clicked, this, &ECheck::onOk);
    connect(exit_, &QPushButton::clicked, this, &ECheck::onExit);

    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

bool ECheck::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter) {
        if (watched == de406_) line2_->setText(install(25));
        if (watched == de423_) line2_->setText(install(26));
    } else if (event->type() == QEvent::Leave && (watched == de406_ || watched == de423_)) {
        line2_->clear();
    }
    return QDialog::eventFilter(watched, event);
}

void ECheck::updateOkEnabled() { ok_->setEnabled(wantDe406_ || wantDe423_); }

void ECheck::markInstalled(int choice) {
    installedAny_ = true;
    state_.ephemerisChoice = choice;
    (choice == 1 ? de406_ : de423_)->hide();
    (choice == 1 ? wantDe406_ : wantDe423_) = false;
}

void ECheck::showInstallationError(int textKey) {
    line1_->setText(install(18));
    line2_->setText(install(textKey));
    ok_->setText(install(24));
    ok_->setEnabled(true);
    exit_->setText(install(installedAny_ ? 21 : 2));
}

void ECheck::onOk() {
    if (!installer_ || !installer_(*this, wantDe406_, wantDe423_)) showInstallationError(8);
}

void ECheck::onExit() {
    if (installedAny_) state_.ephemerisMissing = 0;
    accept();
}

void ECheck::closeEvent(QCloseEvent* event) {
    if (installedAny_) state_.ephemerisMissing = 0;
    QDialog::closeEvent(event);
}

bool RunEphemerisCheck(AppState& state, ECheck::Installer installer) {
    if (state.ephemerisMissing != 1) return true;
    ECheck window(state, std::move(installer));
    window.exec();
    return state.ephemerisMissing == 0;
}

}  // namespace orvane
