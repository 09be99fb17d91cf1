#pragma once
// The language table's texts for Qt: the table holds UTF-8.
#include <QString>

#include "language/language_table.h"

namespace orvane {

inline QString qtText(Section section, int key) { return QString::fromStdString(text(section, key)); }

}  // namespace orvane
