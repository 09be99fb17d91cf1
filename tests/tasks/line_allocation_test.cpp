// The data lines of an ephemeris table are built in the writer's own buffers: once
// they have grown to the longest line, writing a line asks the heap for nothing.
// Counted here by replacing the global operator new of this test program.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

#include "task_test_support.h"
#include "tasks/ephemeris_writer.h"

namespace {
std::atomic<long long> allocations{0};
}  // namespace

// GCC reads free() in a replaced operator delete as a mismatch with new; here
// both sides are malloc and free.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return ::operator new(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
#pragma GCC diagnostic pop

namespace {

using namespace orvane;

EphemerisLine sampleLine(double jd) {
    EphemerisLine l;
    l.jd = jd;
    l.firstCoordinate = 12.0 + 34.0 / 60.0 + 56.64 / 3600.0;
    l.secondCoordinate = -5.5;
    l.firstRate = 1.23456;
    l.secondRate = -0.5;
    l.nuclearMagnitude = 12.3456;
    l.elongation = 95.5;
    l.phase = 30.25;
    l.distance = 1.5;
    l.distanceRate = -0.0125;
    l.position = {1.0, -2.0, 0.5, 0.01, -0.02, 0.0};
    l.centreDistance = 2.5;
    l.speed = 0.0223606797749979;
    l.moid = 0.125;
    l.osculating = {jd + 40.5, 1.2, 0.6, 1500.0, 10.0, 20.0, 5.0, 350.0, 0.2, 3.0, 4.8};
    return l;
}

// Allocations of 100 data lines after a first line that opened the table.
long long allocationsOfLines(const TaskOptions& options) {
    const EphemerisWriter writer(options, orvane::testing::englishTaskTexts());
    std::string header, line;
    std::size_t length = 0;
    writer.makeLine(sampleLine(2451545.0), true, header, line, length);
    const long long before = allocations.load();
    for (int i = 1; i <= 100; ++i) writer.makeLine(sampleLine(2451545.0 + i * 0.37), false, header, line, length);
    return allocations.load() - before;
}

TEST(EphemerisLineBuffers, CountingWorks) {
    const long long before = allocations.load();
    auto* text = new std::string(100, 'x');
    delete text;
    EXPECT_GE(allocations.load() - before, 2);
}

TEST(EphemerisLineBuffers, NoLineOfAnyTypeAllocates) {
    for (int type = 0; type <= 2; ++type) {
        for (int plane = 0; plane <= 2; ++plane) {
            for (const bool julian : {false, true}) {
                for (const bool hms : {false, true}) {
                    TaskOptions o;
                    o.ephemerisType = type;
                    o.mainPlane = plane;
                    o.datesInJulianDays = julian;
                    o.showHms = hms;
                    o.perihelionRelativeToEpoch = plane == 1;
                    EXPECT_EQ(allocationsOfLines(o), 0)
                        << "type " << type << " plane " << plane << " JD " << julian << " hms " << hms;
                }
            }
        }
    }
}

}  // namespace
