#pragma once
// The About window: the program, its version, the planetary file in use with the span
// its header gives, and the libraries the program uses with their licences.
#include <QDialog>

#include "app/app_state.h"

namespace orvane {

class About : public QDialog {
    Q_OBJECT
public:
    About(const AppState& state, QWidget* mainWindow);
};

// "jplde423.dat (from 1959-12-10 to 2060-01-30)" for the file of `choice`, from its
// header; the file name alone when the file cannot be read.
QString planetaryFileLine(const AppState& state, int choice);

// One line for each library: name, version, licence.
QStringList libraryLines();

}  // namespace orvane
