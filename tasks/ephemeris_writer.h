#pragma once
// The lines of an ephemeris table: the header and one data line per output instant,
// for the Spherical, Rectangular and Orbital types.
//
// Numbers in scientific form are written as d.dddE+xx (one digit before the point):
// 21 columns hold an unsigned value with 15 decimals, 22 a signed one. A form
// narrower than its field is filled with blanks at the right.
#include <string>

#include "dynamics/ephemeris_line.h"
#include "dynamics/task_options.h"
#include "base/line_builder.h"
#include "tasks/ephemeris_units.h"
#include "tasks/task_texts.h"

namespace orvane {

// Both line buffers hold this many characters; the longest header fits.
inline constexpr std::size_t kLineBufferSize = 6000;

class EphemerisWriter {
public:
    EphemerisWriter(const TaskOptions& options, const TaskTexts& texts);

    // Builds the data line of `line` into lineOut and, when firstLine is set, the
    // header of the table into headerOut; otherwise headerOut is left empty.
    // lineLengthOut gets the length of the data line without trailing blanks. The
    // buffers are reused from call to call, so a table costs no allocation per line.
    void makeLine(const EphemerisLine& line, bool firstLine, std::string& headerOut, std::string& lineOut,
                  std::size_t& lineLengthOut) const;

    const TaskOptions& options() const { return options_; }
    const TaskTexts& texts() const { return texts_; }

private:
    void sphericalHeader(std::string& out) const;
    void sphericalLine(const EphemerisLine& line, std::string& out) const;
    void rectangularHeader(std::string& out) const;
    void rectangularLine(const EphemerisLine& line, std::string& out) const;
    void orbitalHeader(const EphemerisLine& line, std::string& out) const;
    void orbitalLine(const EphemerisLine& line, std::string& out) const;

    TaskOptions options_;
    TaskTexts texts_;
    UnitLabels units_;
    UnitFactors factors_;
};

// The letter of the anomaly: "M" for e below 1, "B" for e exactly 1, else "H".
const char* AnomalyLetter(double e);

// The perihelion time column of the Orbital table: the date as the date column
// writes it, or the days T - epoch when the options ask for the relative form,
// which wins over Julian dates.
std::string PerihelionColumn(const EphemerisLine& line, const TaskOptions& options);
void AppendPerihelionColumn(LineBuilder& b, const EphemerisLine& line, const TaskOptions& options);

// The class name of the osculating orbit (astro's classes, the language's names).
std::string OrbitClassText(const OrbitElements& osculating, const TaskTexts& texts);

}  // namespace orvane
