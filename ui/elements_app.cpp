#include "ui/elements_app.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "app/app_state.h"
#include "ui/elements_output.h"
#include "ui/elements_page.h"
#include "ui/splitter.h"

namespace orvane {
namespace {

void paintWhite(QWidget* widget) {
    widget->setAutoFillBackground(true);
    QPalette white = widget->palette();
    white.setColor(QPalette::Window, Qt::white);
    widget->setPalette(white);
}

}  // namespace

ElementsApp::ElementsApp(AppState& state, QWidget* parent) : QWidget(parent), state_(state) {
    setObjectName("ElementsApp");
    paintWhite(this);
    workPane_ = new ElementsPage(state_, this);
    output_ = new ElementsOutput(this);
    splitter_ = new SplitterApp(this);
    connect(splitter_, &SplitterApp::moved, this, [this](int left) {
        state_.splitterPosition = left;
        relayout();
    });
}

void ElementsApp::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    relayout();
}

int ElementsApp::workPaneRight() const {
    if (state_.workPaneHidden) return 0;
    if (state_.outputPaneHidden) return width();
    return std::clamp(state_.splitterPosition, 0, std::max(0, width() - SplitterApp::kWidth));
}

void ElementsApp::relayout() {
    const int h = height();
    const bool work = state_.workPaneHidden == 0;
    const bool output = state_.outputPaneHidden == 0 || !work;  // one pane always stays
    const int right = workPaneRight();
    workPane_->setVisible(work);
    output_->setVisible(output);
    splitter_->setVisible(work && output);
    if (work && output) {
        workPane_->setGeometry(0, 0, right, h);
        splitter_->setGeometry(right, 0, SplitterApp::kWidth, h);
        output_->setGeometry(right + SplitterApp::kWidth, 0, std::max(0, width() - right - SplitterApp::kWidth), h);
    } else if (work) {
        workPane_->setGeometry(0, 0, width(), h);
    } else {
        output_->setGeometry(0, 0, width(), h);
    }
    emit layoutChanged();
}

ObservationsApp::ObservationsApp(QWidget* parent) : QWidget(parent) {
    setObjectName("ObservationsApp");
    paintWhite(this);
    auto* layout = new QVBoxLayout(this);
    auto* soon = new QLabel(QStringLiteral("COMING SOON..."), this);
    soon->setAlignment(Qt::AlignCenter);
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(18);
    font.setBold(true);
    soon->setFont(font);
    soon->setStyleSheet(QStringLiteral("color: rgb(121,139,163)"));
    layout->addWidget(soon);
}

}  // namespace orvane
