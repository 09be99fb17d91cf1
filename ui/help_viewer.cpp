#include "ui/help_viewer.h"

#include <QProcess>
#include <QUrl>

#include "net/desktop_opener.h"
#include "ui/desktop_open.h"

namespace orvane {

HelpViewer::HelpViewer() : program_(qEnvironmentVariable(kOpenerEnvironment)) {}

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
    // The browser is the desktop's: it shows the guide in a tab of its own and is
    // nothing that the program could end.
    if (program_.isEmpty()) return openOnDesktop(QUrl::fromLocalFile(file));
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
