#pragma once
// The user's guide that Help Topics opens: HTML shipped beside the program, shown by
// the system's browser. When a program of the user's choice shows it instead
// (ORVANE_OPENER, or setViewer), that program is watched: while it runs, a second
// Help Topics does nothing, and when the program ends, a viewer still running is
// ended with it.
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
    // program of ORVANE_OPENER, else the desktop's browser.
    void setViewer(const QString& program, const QStringList& arguments = {});

    // Shows `file` unless the viewer started before still runs. True when the file
    // was handed to a viewer.
    bool open(const QString& file);

    bool running() const;

    // Ends a viewer that still runs.
    void end();

private:
    QProcess* process_ = nullptr;
    QString program_;
    QStringList arguments_;
};

}  // namespace orvane
