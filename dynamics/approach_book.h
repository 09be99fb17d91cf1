#pragma once
// The close-approach book of a run: a zone for each of the planets 1 to 9,
// entered and left at fixed distances, with the closest distance inside
// refined when the comet leaves; and for the Earth besides, the smallest
// distance of each appearance, closed at the border near aphelion. It hears
// the distance of every place the integrator tries.
#include <array>
#include <vector>

#include "dynamics/force_model.h"
#include "dynamics/run_types.h"

namespace orvane {

// Distances (AU) at which a zone is entered (<=) and left (>), by body 1 to 9.
double ZoneEnter(int body);
double ZoneLeave(int body);

// Half a tropical year in days: P years times this is half a revolution.
inline constexpr double kHalfTropicalYear = 182.6210995;

// The reference orbit at the smallest distance so far, and the step size of
// that moment: the refinement starts from it.
struct OrbitSnapshot {
    Vector3 r{};
    Vector3 v{};
    double t0 = 0.0;  // days since the run's start epoch
    double lastStep = 1.0;
};

// One passage through a zone or one appearance: smallest distance so far,
// its time (days since the start epoch) and the snapshot of that moment.
struct ZonePassage {
    double distance = 0.0;
    double time = 0.0;
    OrbitSnapshot snapshot;
};

struct ApproachZone {
    bool inside = false;
    int entries = 0;
    std::vector<ZonePassage> passages;
};

class ApproachBook : public CloseApproachHook {
public:
    // `rows` is the object's growing array; the force model gives the
    // snapshots, the start epoch and the refinement.
    ApproachBook(ForceModel& force, std::vector<ApproachRow>& rows);

    // Direction of the run (+1, -1) and the first appearance border (Julian
    // date); opens the appearance.
    void Start(int dir, double border);
    // The row of a finished perihelion passage sets the next border and opens
    // the appearance again, at the Julian date `now`. A border already behind
    // (a hyperbola's, which is its perihelion) leaves the appearance closed:
    // such an orbit has one appearance.
    void SetAppearanceBorder(double border, double now);

    void WatchDistance(int body, double delta, double t) override;

    const ApproachZone& zone(int body) const { return zones_[static_cast<std::size_t>(body)]; }
    bool appearanceOpen() const { return appearanceOpen_; }
    bool appearanceRowOpen() const { return appearanceRowOpen_; }
    const ZonePassage& appearance() const { return appearance_; }
    double border() const { return border_; }

private:
    OrbitSnapshot Snapshot() const;
    void AddRefinedRow(const OrbitSnapshot& snapshot, int body, int kind);
    void WatchAppearance(double delta, double t);

    ForceModel& force_;
    std::vector<ApproachRow>& rows_;
    std::array<ApproachZone, 10> zones_{};  // index = body, 0 unused
    int dir_ = 1;
    double border_ = 0.0;
    bool appearanceOpen_ = false;
    bool appearanceRowOpen_ = false;
    ZonePassage appearance_;
};

}  // namespace orvane
