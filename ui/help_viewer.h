#pragma once
// The help viewer that Help Topics starts. While it runs, a second Help Topics does
// nothing; when the program ends, a viewer still running is ended with it.
#include <QString>
#include <QStringList>

class QProcess;

namespace orvane {

class HelpViewer {
public:
    HelpViewer();
    ~HelpViewer();
    HelpViewer(const HelpViewer&) = delete;
    HelpViewer& operator=(const HelpViewer&) = delete;

    // The program that shows a file; the file is its last argument. By default the
    // desktop's own opener.
    void setViewer(const QString& program, const QStringList& arguments = {});

    // Starts the viewer on `file` unless the one started before still runs. True when
    // a viewer was started.
    bool open(const QString& file);

    bool running() const;

    // Ends a viewer that still runs.
    void end();

private:
    QProcess* process_ = nullptr;
    QString program_ = QStringLiteral("xdg-open");
    QStringList arguments_;
};

}  // namespace orvane
