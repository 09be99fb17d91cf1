#pragma once
// Sexagesimal texts of the spherical coordinates, in the two forms an ephemeris
// line carries: with blanks only for the file, with unit signs for the panel.
//   hours     I3 " " I2 " " F5.2        " 12 34 56.78"    " 12h 34m 56.78s"
//   degrees   I3 " " I2 " " F4.1        "123 45 06.7"     "123° 45' 06.7""
// Minutes and seconds get a "0" for a leading blank. A negative angle carries its
// minus sign just before the first digit of the degrees, also when they are 0
// ("-0 30 00.0" in its field of three: " -0 30 00.0").
#include <string>

#include "base/line_builder.h"
#include "tasks/task_texts.h"

namespace orvane {

struct CoordinateText {
    std::string plain;    // the file's form, blanks between the parts
    std::string symbols;  // the panel's form
};

// Right ascension in hours, 12 columns.
CoordinateText HoursText(double hours);

// An angle in degrees (longitude, azimuth, declination, latitude, altitude), 11 columns.
CoordinateText DegreesText(double degrees, const TaskTexts& texts);

// The file's forms appended to a line that is being built.
void AppendHours(LineBuilder& b, double hours);
void AppendDegrees(LineBuilder& b, double degrees);

}  // namespace orvane
