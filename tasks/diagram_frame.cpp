#include "tasks/diagram_frame.h"

#include <cmath>

#include "astro/constants.h"
#include "dynamics/calculation_run.h"

namespace orvane {

PlanetBlocks PlanetBlocksAt(double jd, const BodyStatesResult& bodies) {
    PlanetBlocks blocks;
    for (int k = 0; k < kDiagramPlanets; ++k) {
        const auto& r = bodies.position[static_cast<std::size_t>(k)];
        const auto& v = bodies.velocity[static_cast<std::size_t>(k)];
        blocks[static_cast<std::size_t>(k)] = MakeIntegrationBlock(jd, {r[0], r[1], r[2], v[0], v[1], v[2]}, {});
    }
    return blocks;
}

void EclipticPosition(const IntegrationBlock& block, double& x, double& y, double& z) {
    const double c = std::cos(kObliquityJ2000);
    const double s = std::sin(kObliquityJ2000);
    x = block.x;
    y = block.y * c + block.z * s;
    z = block.z * c - block.y * s;
}

void DiagramFrameStore::Reset(const std::vector<RunObject>& objects) {
    std::lock_guard<std::mutex> lock(mutex_);
    frame_.objects.resize(objects.size());
    for (std::size_t k = 0; k < objects.size(); ++k) frame_.objects[k] = objects[k].block;
    frame_.planets = {};
    frame_.stepped = false;
    ++frame_.version;
}

void DiagramFrameStore::PublishFrame(int objectIndex, const IntegrationBlock& block, const PlanetBlocks& planets) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (objectIndex >= 0 && static_cast<std::size_t>(objectIndex) < frame_.objects.size()) {
        frame_.objects[static_cast<std::size_t>(objectIndex)] = block;
    }
    frame_.planets = planets;
    frame_.stepped = true;
    ++frame_.version;
}

void DiagramFrameStore::PublishObject(int objectIndex, const IntegrationBlock& block) {
    std::lock_guard<std::mutex> lock(mutex_);
    if (objectIndex < 0 || static_cast<std::size_t>(objectIndex) >= frame_.objects.size()) return;
    frame_.objects[static_cast<std::size_t>(objectIndex)] = block;
    ++frame_.version;
}

bool DiagramFrameStore::CopyTo(DiagramFrame& out) const {
    std::lock_guard<std::mutex> lock(mutex_);
    if (out.version == frame_.version) return false;
    out.objects.assign(frame_.objects.begin(), frame_.objects.end());
    out.planets = frame_.planets;
    out.stepped = frame_.stepped;
    out.version = frame_.version;
    return true;
}

}  // namespace orvane
