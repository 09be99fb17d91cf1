#include "ui/desktop_open.h"

#include <QDesktopServices>
#include <QProcess>

#include "net/desktop_opener.h"

namespace orvane {

bool openOnDesktop(const QUrl& url) {
    if (!url.isValid() || url.isEmpty()) return false;
    if (qEnvironmentVariableIsSet(kOpenerEnvironment))
        return QProcess::startDetached(qEnvironmentVariable(kOpenerEnvironment),
                                       {url.isLocalFile() ? url.toLocalFile() : url.toString()});
    return QDesktopServices::openUrl(url);
}

}  // namespace orvane
