#include "ui/help_viewer.h"

#include <QProcess>

namespace orvane {

HelpViewer::HelpViewer() = default;

HelpViewer::~HelpViewer() {
    end();
    delete process_;
}

void HelpViewer::setViewer(const QString& program, const QStringList& arguments) {
    program_ = program;
    arguments_ = arguments;
}

bool HelpViewer::running() const { return process_ != nullptr && process_->state() != QProcess::NotRunning; }

bool HelpViewer::open(const QString& file) {
    if (running()) return false;
    delete process_;
    process_ = new QProcess;
    process_->start(program_, arguments_ + QStringList{file});
    return process_->waitForStarted(3000);
}

void HelpViewer::end() {
    if (!running()) return;
    process_->kill();
    process_->waitForFinished(3000);
}

}  // namespace orvane
