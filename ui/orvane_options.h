#pragma once
// The program's own options, OrvaneOptions: the automatic update check, the language,
// the planetary file in use and the address of the update server. A change enables
// Apply; Apply sets what changed. Choosing a planetary file that is not there opens
// DEDownload for it at once.
#include <QDialog>
#include <QStringList>

#include "app/app_state.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace orvane {

// The names of the language files in `folder` without ".lng", "English" always among
// them, in alphabetical order.
QStringList languageNames(const QString& folder);

class OrvaneOptions : public QDialog {
    Q_OBJECT
public:
    OrvaneOptions(AppState& state, QWidget* mainWindow);

    QPushButton* applyButton() const { return apply_; }

signals:
    // The language in use changed: every window takes the new texts.
    void languageApplied();
    // The planetary file in use changed.
    void ephemerisApplied(int choice);
    // The automatic check was switched on: one check starts.
    void checkSwitchedOn();
    // The address of the update server changed.
    void serverApplied();

protected:
    // Opens DEDownload for `file` (1 or 2) over this window; true when it arrived.
    virtual bool downloadPlanetaryFile(int file);
    // The message of an address that cannot be used.
    virtual void refuseAddress(const QString& text);
    void changeEvent(QEvent* event) override;

private:
    void retitle();
    void showInterval();
    void onEphemerisChosen(int index);
    void apply();
    void changed();

    AppState& state_;
    QStringList languages_;
    int languageIndex_ = 0;
    QCheckBox* check_ = nullptr;
    QComboBox* language_ = nullptr;
    QComboBox* ephemeris_ = nullptr;
    QLineEdit* server_ = nullptr;
    QLabel* title_ = nullptr;
    QLabel* updateLabel_ = nullptr;
    QLabel* languageLabel_ = nullptr;
    QLabel* ephemerisLabel_ = nullptr;
    QLabel* serverLabel_ = nullptr;
    QLabel* interval_ = nullptr;
    QPushButton* apply_ = nullptr;
    QPushButton* close_ = nullptr;
};

}  // namespace orvane
