#pragma once
// The records a calculation run works on and the rows it leaves: the present
// state of each object, its close approaches and perihelion passages.
#include <string>
#include <vector>

#include "dynamics/nongrav.h"

namespace orvane {

// One event of a run. Kind 0 is a perihelion passage, 1 to 9 a planet, 10 the
// smallest distance to the Earth at one appearance.
struct ApproachRow {
    double distance = 0.0;  // AU, centre to centre
    double time = 0.0;      // Julian date, TT
    int kind = 0;
};

inline constexpr int kApproachPerihelion = 0;
inline constexpr int kApproachEarthAppearance = 10;

// The 22 numbers of an object's present time, held together: the run starts
// from them and leaves its end state in them. The calendar dates are numbers
// year * 10000 + month * 100 + day with the day's fraction (see CalendarNumber).
struct IntegrationBlock {
    double time = 0.0;  // Julian date, TT
    double timeCalendar = 0.0;
    double Tp = 0.0;
    double TpCalendar = 0.0;
    double q = 0.0, e = 0.0, P = 0.0;
    double omega = 0.0, node = 0.0, i = 0.0;  // degrees, ecliptic J2000
    double M = 0.0, n = 0.0, a = 0.0, Q = 0.0;
    double x = 0.0, y = 0.0, z = 0.0;  // AU, heliocentric, equator J2000
    double vx = 0.0, vy = 0.0, vz = 0.0;
    double A1 = 0.0, A2 = 0.0, A3 = 0.0, NGE_DT = 0.0;
};

// The numbers of one orbit record that a run needs, filled by the caller from
// the catalogue record so that the dynamics do not read record texts.
struct RunObject {
    std::string name;             // full name, trimmed
    IntegrationBlock epochBlock;  // state at the catalogue epoch
    IntegrationBlock block;       // present state: the start of the next run
    double targetTime = 0.0;      // Julian date, TT: where the run takes the object
    // Magnitude parameters: H, G' of the total and H2, G2 of the nuclear
    // magnitude; a 0 slope takes the default of its law.
    double H = 0.0, G = 0.0, H2 = 0.0, G2 = 0.0;
    // Set by the run when it started from the other block ("Integrate from the
    // epoch (if closer)"); the header may say so.
    bool startedFromOtherBlock = false;
};

}  // namespace orvane
