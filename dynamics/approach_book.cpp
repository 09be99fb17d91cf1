#include "dynamics/approach_book.h"

namespace orvane {

double ZoneEnter(int body) {
    if (body == 3) return 0.5;
    if (body >= 5) return 2.0;
    return 0.1;
}

double ZoneLeave(int body) {
    if (body == 3) return 1.0;
    if (body >= 5) return 2.5;
    return 0.5;
}

ApproachBook::ApproachBook(ForceModel& force, std::vector<ApproachRow>& rows)
    : force_(force), rows_(rows) {}

void ApproachBook::Start(int dir, double border) {
    dir_ = dir;
    border_ = border;
    appearanceOpen_ = true;
    appearanceRowOpen_ = false;
    for (ApproachZone& z : zones_) z = ApproachZone{};
}

void ApproachBook::SetAppearanceBorder(double border, double now) {
    border_ = border;
    appearanceOpen_ = dir_ * (now - border) <= 0.0;
}

OrbitSnapshot ApproachBook::Snapshot() const {
    const StateVector& s = force_.referenceState();
    return {{s.x, s.y, s.z}, {s.vx, s.vy, s.vz}, force_.referenceEpoch(), force_.lastStep()};
}

void ApproachBook::AddRefinedRow(const OrbitSnapshot& snapshot, int body, int kind) {
    const ClosestApproach c =
        force_.RefineClosestApproach(snapshot.t0, snapshot.lastStep, snapshot.r, snapshot.v, body);
    rows_.push_back({c.dMin, c.tMin + force_.runEpoch(), kind});
}

void ApproachBook::WatchDistance(int body, double delta, double t) {
    if (body < 1 || body > 9) return;
    ApproachZone& z = zones_[static_cast<std::size_t>(body)];
    if (!z.inside) {
        if (delta <= ZoneEnter(body)) {
            z.inside = true;
            ++z.entries;
            z.passages.push_back({delta, t, Snapshot()});
        }
    } else if (delta > ZoneLeave(body)) {
        z.inside = false;
        AddRefinedRow(z.passages.back().snapshot, body, body);
    } else if (delta < z.passages.back().distance) {
        z.passages.back() = {delta, t, Snapshot()};
    }
    if (body == 3) WatchAppearance(delta, t);
}

void ApproachBook::WatchAppearance(double delta, double t) {
    if (!appearanceRowOpen_) {
        appearanceRowOpen_ = true;
        appearance_ = {delta, t, Snapshot()};
        return;
    }
    const bool passed = dir_ * (t + force_.runEpoch() - border_) > 0.0;
    if (!appearanceOpen_) return;
    if (!passed) {
        if (delta < appearance_.distance) appearance_ = {delta, t, Snapshot()};
        return;
    }
    AddRefinedRow(appearance_.snapshot, 3, kApproachEarthAppearance);
    appearanceRowOpen_ = false;
    appearanceOpen_ = false;
}

}  // namespace orvane
