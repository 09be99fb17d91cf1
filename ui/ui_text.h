#pragma once
// Texts of the windows bound to their place in the language table, so that a change
// of language sets every text again from the table without a list per window.
// A bound object keeps its section and key as properties; `retitleTexts` walks a
// window and its children (actions of menus included) and sets each text anew.
#include <QString>

#include "language/sections.h"

class QObject;

namespace orvane {

// Sets the text of a QAction, QAbstractButton, QLabel, QMenu or QLineEdit
// (placeholder) from the table and remembers where it came from.
void bindText(QObject* object, Section section, int key);

// The same for the tool tip.
void bindTip(QObject* object, Section section, int key);

// Marks an object with its control id.
void setControlId(QObject* object, int id);

// Sets all bound texts and tips of `root` and its descendants again.
void retitleTexts(QObject* root);

}  // namespace orvane
