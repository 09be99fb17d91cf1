#include "ui/orvane_update.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMetaObject>
#include <QProgressBar>
#include <QPushButton>

#include "ui/qt_text.h"

namespace orvane {
namespace {

constexpr int kWidth = 572;
constexpr int kHeight = 260;

QString q(const std::string& text) { return QString::fromStdString(text); }

QLabel* line(QWidget* parent, int id, int y, int width) {
    auto* label = new QLabel(parent);
    label->setProperty("controlId", id);
    label->setGeometry(23, y, width, 21);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

}  // namespace

OrvaneUpdate::OrvaneUpdate(ProgramUpdateSettings settings, QWidget* mainWindow)
    : UpdateWindowFrame(mainWindow, QSize(kWidth, kHeight)) {
    setObjectName("OrvaneUpdate");
    setWindowTitle(qtText(Section::orvUpdate, 1));
    title_ = line(this, 8218, 23, kWidth - 253);
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    current_ = line(this, 8219, 83, kWidth - 46);
    available_ = line(this, 8220, 113, kWidth - 46);
    status_ = line(this, 8221, 143, kWidth - 46);
    bar_ = new QProgressBar(this);
    bar_->setObjectName("msctls_progress32");
    bar_->setGeometry(23, 143, kWidth - 46, 21);
    bar_->setTextVisible(false);
    bar_->hide();
    updateButton_ = new QPushButton(qtText(Section::orvUpdate, 2), this);
    updateButton_->setProperty("controlId", 8222);
    updateButton_->setGeometry(kWidth - 223, kHeight - 37, 100, 24);
    close_ = new QPushButton(this);
    close_->setProperty("controlId", 8223);
    close_->setGeometry(kWidth - 113, kHeight - 37, 100, 24);
    connect(updateButton_, &QPushButton::clicked, this, [this] { update_->pressUpdate(); });
    connect(close_, &QPushButton::clicked, this, &OrvaneUpdate::onClose);
    connect(this, &QDialog::finished, this, &OrvaneUpdate::closed);

    ProgramUpdateView& view = *this;
    update_ = std::make_unique<ProgramUpdate>(view, std::move(settings));
    apply(update_->screen());
    update_->startCheck();
}

OrvaneUpdate::~OrvaneUpdate() {
    // The worker ends before the window it reports to.
    update_.reset();
    if (waitCursor_) QApplication::restoreOverrideCursor();
}

void OrvaneUpdate::showScreen(const ProgramUpdateScreen& screen) {
    QMetaObject::invokeMethod(this, [this, screen] { apply(screen); }, Qt::QueuedConnection);
}

void OrvaneUpdate::apply(const ProgramUpdateScreen& s) {
    shown_ = s;
    title_->setText(q(s.title));
    current_->setText(q(s.currentLine));
    available_->setText(q(s.availableLine));
    status_->setText(q(s.status));
    status_->setVisible(s.statusShown);
    // A new version waiting for the user shows in red.
    QPalette palette = status_->palette();
    palette.setColor(QPalette::WindowText, s.updateEnabled ? QColor(158, 11, 15) : QColor(Qt::black));
    status_->setPalette(palette);
    bar_->setVisible(!s.statusShown);
    bar_->setRange(0, std::max(0, s.barMaximum));
    bar_->setValue(std::min(s.barValue, std::max(0, s.barMaximum)));
    updateButton_->setEnabled(s.updateEnabled);
    close_->setText(q(s.closeCaption));
    close_->setEnabled(s.closeEnabled);
    QPushButton* preferred = s.updateDefault ? updateButton_ : close_;
    QPushButton* other = s.updateDefault ? close_ : updateButton_;
    other->setDefault(false);
    preferred->setDefault(true);
    if (preferred->isEnabled()) preferred->setFocus();
    if (s.waitCursor != waitCursor_) {
        waitCursor_ = s.waitCursor;
        if (waitCursor_)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    }
}

void OrvaneUpdate::onClose() {
    if (update_->pressClose()) close();
}

bool OrvaneUpdate::atRest() const { return update_->mayClose() && shown_.closeEntryEnabled; }

void OrvaneUpdate::reject() {
    // Escape and the close box leave only at rest.
    if (atRest()) QDialog::reject();
}

void OrvaneUpdate::closeEvent(QCloseEvent* event) {
    if (!atRest()) {
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

}  // namespace orvane
