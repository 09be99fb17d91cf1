#pragma once
// The blocks a diagram paint reads, and the store through which the calculation
// thread hands them to the window.
//
// The run writes an object's block and the planets' blocks on its own thread at
// each display step; the window paints on its thread whenever it likes. So the
// painter never reads the run's blocks: at each frame the run publishes copies
// into the store under its mutex, and before each paint the window copies the
// whole frame out under the same mutex. Both hold the lock for a copy of a few
// kilobytes and never while drawing or integrating, so neither waits on the
// other's work, and every paint sees the blocks of one instant.
#include <array>
#include <mutex>
#include <vector>

#include "dynamics/ephemeris.h"
#include "dynamics/run_types.h"

namespace orvane {

// Mercury to Pluto; slot 2 is the Earth.
inline constexpr int kDiagramPlanets = 9;

using PlanetBlocks = std::array<IntegrationBlock, kDiagramPlanets>;

// The planets' blocks at `jd` from their states relative to the Sun (AU, AU/day,
// equator of J2000): elements of the moment and the position, as for an object.
PlanetBlocks PlanetBlocksAt(double jd, const BodyStatesResult& bodies);

// A block's position turned from the equator to the ecliptic of J2000 (AU).
void EclipticPosition(const IntegrationBlock& block, double& x, double& y, double& z);

// One consistent copy of what the scene shows.
struct DiagramFrame {
    std::vector<IntegrationBlock> objects;  // the present block of each object of the run
    PlanetBlocks planets{};
    // False until the first frame of a run (or a first idle picture): until then
    // the scene shows the Sun and the axes only.
    bool stepped = false;
    unsigned long long version = 0;  // grows with every change
};

class DiagramFrameStore {
public:
    // Before a run, on the window thread: the objects' present blocks, nothing
    // shown until the first frame.
    void Reset(const std::vector<RunObject>& objects);
    // A frame: the object's present block and the planets at the same instant.
    // Called by the run's frame hook, or by the window for the idle scene.
    void PublishFrame(int objectIndex, const IntegrationBlock& block, const PlanetBlocks& planets);
    // An object's block alone, as its span ends; shown from the next paint.
    void PublishObject(int objectIndex, const IntegrationBlock& block);
    // Copies the frame into `out` when it changed since out.version; false when
    // `out` is already the latest. The copy reuses out's storage, so a run of
    // frames allocates nothing after the first.
    bool CopyTo(DiagramFrame& out) const;

private:
    mutable std::mutex mutex_;
    DiagramFrame frame_;
};

}  // namespace orvane
