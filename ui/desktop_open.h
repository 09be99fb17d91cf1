#pragma once
// Opens an address or a file on the desktop: the user's guide, the home page. The
// program named by ORVANE_OPENER takes it when that variable is set (tests record
// what they are given), else the desktop's own handler through QDesktopServices.
#include <QUrl>

namespace orvane {

// True when the opener or the desktop took the address.
bool openOnDesktop(const QUrl& url);

}  // namespace orvane
