// The frame store between the calculation thread and the diagram's painter: every
// copy holds the blocks of one instant, and a run of frames allocates nothing.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

#include "astro/constants.h"
#include "tasks/diagram_frame.h"
#include "tasks/diagram_scene.h"

using namespace orvane;

namespace {

IntegrationBlock Filled(double value) {
    IntegrationBlock b;
    double* fields[] = {&b.time, &b.timeCalendar, &b.Tp, &b.TpCalendar, &b.q,  &b.e,  &b.P,  &b.omega,
                        &b.node, &b.i,            &b.M,  &b.n,          &b.a,  &b.Q,  &b.x,  &b.y,
                        &b.z,    &b.vx,           &b.vy, &b.vz,         &b.A1, &b.A2, &b.A3, &b.NGE_DT};
    for (double* f : fields) *f = value;
    return b;
}

bool AllFieldsAre(const IntegrationBlock& b, double value) {
    const double fields[] = {b.time, b.timeCalendar, b.Tp, b.TpCalendar, b.q,  b.e,  b.P,  b.omega,
                             b.node, b.i,            b.M,  b.n,          b.a,  b.Q,  b.x,  b.y,
                             b.z,    b.vx,           b.vy, b.vz,         b.A1, b.A2, b.A3, b.NGE_DT};
    for (double f : fields) {
        if (f != value) return false;
    }
    return true;
}

std::vector<RunObject> Objects(int n) {
    std::vector<RunObject> objects(static_cast<std::size_t>(n));
    for (int k = 0; k < n; ++k) objects[static_cast<std::size_t>(k)].block = Filled(-1.0 - k);
    return objects;
}

}  // namespace

TEST(DiagramFrameStore, BeforeTheFirstFrameNothingIsStepped) {
    DiagramFrameStore store;
    store.Reset(Objects(3));
    DiagramFrame frame;
    ASSERT_TRUE(store.CopyTo(frame));
    EXPECT_FALSE(frame.stepped);
    ASSERT_EQ(frame.objects.size(), 3u);
    EXPECT_TRUE(AllFieldsAre(frame.objects[2], -3.0));
    EXPECT_FALSE(store.CopyTo(frame)) << "nothing new";
}

TEST(DiagramFrameStore, AFrameSetsTheObjectAndThePlanets) {
    DiagramFrameStore store;
    store.Reset(Objects(3));
    PlanetBlocks planets;
    planets.fill(Filled(7.0));
    store.PublishFrame(1, Filled(5.0), planets);
    DiagramFrame frame;
    ASSERT_TRUE(store.CopyTo(frame));
    EXPECT_TRUE(frame.stepped);
    EXPECT_TRUE(AllFieldsAre(frame.objects[0], -1.0));
    EXPECT_TRUE(AllFieldsAre(frame.objects[1], 5.0));
    EXPECT_TRUE(AllFieldsAre(frame.planets[8], 7.0));
    store.PublishObject(2, Filled(9.0));
    ASSERT_TRUE(store.CopyTo(frame));
    EXPECT_TRUE(AllFieldsAre(frame.objects[2], 9.0));
    // An index out of range changes no block.
    store.PublishObject(3, Filled(1.0));
    store.PublishObject(-1, Filled(1.0));
    store.PublishFrame(7, Filled(1.0), planets);
    ASSERT_TRUE(store.CopyTo(frame));
    EXPECT_TRUE(AllFieldsAre(frame.objects[0], -1.0));
    EXPECT_TRUE(AllFieldsAre(frame.objects[2], 9.0));
}

// The run publishes while the window copies: each copy holds one frame whole,
// never a block half from one frame and half from the next.
TEST(DiagramFrameStore, EveryCopyIsOneFrameWhole) {
    DiagramFrameStore store;
    store.Reset(Objects(300));
    std::atomic<bool> done{false};
    std::thread run([&] {
        PlanetBlocks planets;
        for (int k = 1; k <= 20000; ++k) {
            planets.fill(Filled(k));
            store.PublishFrame(k % 300, Filled(k), planets);
        }
        done = true;
    });
    DiagramFrame frame;
    int copies = 0;
    for (;;) {
        const bool finished = done;
        if (!store.CopyTo(frame)) {
            if (finished) break;
            continue;
        }
        if (!frame.stepped) continue;
        ++copies;
        const double k = frame.planets[0].x;
        for (const IntegrationBlock& p : frame.planets) ASSERT_TRUE(AllFieldsAre(p, k));
        ASSERT_TRUE(AllFieldsAre(frame.objects[static_cast<std::size_t>(static_cast<int>(k) % 300)], k));
        for (const IntegrationBlock& b : frame.objects) ASSERT_TRUE(AllFieldsAre(b, b.x));
    }
    run.join();
    EXPECT_GT(copies, 0);
    store.CopyTo(frame);
    EXPECT_EQ(frame.planets[0].x, 20000.0);
}

TEST(DiagramFrame, PlanetBlocksHoldTheElementsOfTheMoment) {
    // A body at the perihelion of an orbit in the ecliptic, q = 1 AU and e = 0.0201.
    BodyStatesResult bodies;
    const double v = 1.01 * kGauss;
    const double c = std::cos(kObliquityJ2000), s = std::sin(kObliquityJ2000);
    bodies.position[2] = {1.0, 0.0, 0.0};
    bodies.velocity[2] = {0.0, v * c, v * s};
    const PlanetBlocks blocks = PlanetBlocksAt(2451545.0, bodies);
    EXPECT_EQ(blocks[2].time, 2451545.0);
    EXPECT_NEAR(blocks[2].q, 1.0, 1e-12);
    EXPECT_NEAR(blocks[2].e, 0.0201, 1e-12);
    EXPECT_NEAR(blocks[2].i, 0.0, 1e-5);
    EXPECT_EQ(blocks[2].x, 1.0);
    double x = 0, y = 0, z = 0;
    EclipticPosition(blocks[2], x, y, z);
    EXPECT_DOUBLE_EQ(x, 1.0);
    EXPECT_EQ(y, 0.0);
    EXPECT_EQ(z, 0.0);
}

TEST(DiagramFrame, EclipticPositionTurnsTheEquatorByTheObliquity) {
    IntegrationBlock b;
    b.x = 0.5;
    b.y = std::cos(kObliquityJ2000);
    b.z = std::sin(kObliquityJ2000);
    double x = 0, y = 0, z = 0;
    EclipticPosition(b, x, y, z);
    EXPECT_EQ(x, 0.5);
    EXPECT_NEAR(y, 1.0, 1e-15);
    EXPECT_NEAR(z, 0.0, 1e-15);
}

TEST(DiagramScene, TheObjectsDrawnAreAllOfACombinedRunElseTheCurrentOne) {
    DiagramFrame frame;
    frame.objects.resize(4);
    DiagramScene scene;
    EXPECT_EQ(scene.lastObject(), -1) << "no frame, no object";
    scene.frame = &frame;
    scene.currentObject = 2;
    EXPECT_EQ(scene.firstObject(), 2);
    EXPECT_EQ(scene.lastObject(), 2);
    scene.combined = true;
    EXPECT_EQ(scene.firstObject(), 0);
    EXPECT_EQ(scene.lastObject(), 3);
    scene.combined = false;
    scene.currentObject = 9;
    EXPECT_LT(scene.lastObject(), scene.firstObject());
}
