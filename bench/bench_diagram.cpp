// Speed of the orbit diagram: one repaint of a combined run of 300 comets with the
// nine planets, names and axes at 1920 x 1080, and its stages apart. Every
// allocation of the program is counted, and each benchmark reports them per frame
// ("allocs_per_frame"): the orbits and the bodies must show 0.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QPainter>

#include <atomic>
#include <cstdlib>
#include <new>
#include <random>

#include "app/folders.h"
#include "dynamics/calculation_run.h"
#include "ui/diagram_painter.h"

namespace {

std::atomic<long long> allocations{0};

}  // namespace

// Counting replacements of the global allocation functions.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }

namespace {

using namespace orvane;

constexpr double kEpoch = 2460560.5;
const QSize kSize(1920, 1080);

// 300 comets of every kind: short-period ellipses, long ones beyond the cut,
// parabolas and hyperbolas, q from 0.05 to 5 AU, in all directions.
std::vector<RunObject> Comets() {
    std::mt19937 random(20240907);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::vector<RunObject> objects(300);
    for (std::size_t k = 0; k < objects.size(); ++k) {
        const double q = 0.05 + 5.0 * unit(random) * unit(random);
        const double kinds[] = {0.2 + 0.6 * unit(random), 0.95 + 0.049 * unit(random), 1.0, 1.0 + 0.01 * unit(random)};
        const double e = kinds[k % 4];
        const double Tp = kEpoch + 2000.0 * (unit(random) - 0.5);
        const IntegrationBlock block =
            BlockFromElements(kEpoch, Tp, q, e, 360.0 * unit(random), 360.0 * unit(random), 180.0 * unit(random), {});
        objects[k].block = block;
        objects[k].epochBlock = block;
        objects[k].name = "C/2024 X" + std::to_string(k + 1) + " (Benchmark)";
    }
    return objects;
}

struct Scene {
    std::vector<RunObject> objects = Comets();
    DiagramFrameStore store;
    DiagramFrame frame;
    DiagramScene scene;
    DiagramLabels labels;
    std::vector<IntegrationBlock> epochs;
    bool ok = false;

    Scene() {
        Ephemeris ephemeris;
        if (ephemeris.OpenEphemerisFile(CommonFolder() + "jplde423.dat") != EphemerisStatus::Ok) return;
        BodyStatesResult bodies;
        if (ephemeris.BodyStates(kEpoch, bodies) != EphemerisStatus::Ok) return;
        store.Reset(objects);
        store.PublishFrame(0, objects[0].block, PlanetBlocksAt(kEpoch, bodies));
        store.CopyTo(frame);
        std::vector<std::string> names;
        for (const RunObject& o : objects) {
            names.push_back(o.name);
            epochs.push_back(o.epochBlock);
        }
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(12);
        labels = MakeDiagramLabels(names, DiagramTexts{}, font);
        scene.frame = &frame;
        scene.epochBlocks = epochs;
        scene.combined = true;
        scene.camera.centerX = kSize.width() / 2;
        scene.camera.centerY = kSize.height() / 2;
        const DiagramTexts texts;
        scene.strip.name = texts.combinedPicture;
        scene.strip.epoch = "Epoch: 2024-09-07 00:00:00";
        scene.strip.interval = "Time interval: 2024-09-07 00:00:00 -> 2025-03-16 00:00:00";
        scene.strip.status = texts.statusPrepare;
        scene.strip.remaining = "Remaining time: 0h 1m 23s";
        scene.strip.rate = texts.rates[1];
        ok = true;
    }
};

Scene& TheScene() {
    static Scene scene;
    return scene;
}

void Report(benchmark::State& state, long long before) {
    const auto frames = std::max<benchmark::IterationCount>(state.iterations(), 1);
    state.counters["allocs_per_frame"] = static_cast<double>(allocations - before) / static_cast<double>(frames);
}

Scene* ReadyScene(benchmark::State& state) {
    Scene& s = TheScene();
    if (s.ok) return &s;
    state.SkipWithError("no planetary file: run scripts/setup");
    return nullptr;
}

// Whole repaints; with `frames` each one first copies a new frame out of the
// store, as the window does at each display step.
void Repaint(benchmark::State& state, bool frames) {
    Scene* s = ReadyScene(state);
    if (!s) return;
    QImage image(kSize, QImage::Format_RGB32);
    paintScene(image, s->scene, s->labels);  // the caches of the first paint are filled once
    const PlanetBlocks planets = s->frame.planets;
    const long long before = allocations;
    int k = 0;
    for (auto _ : state) {
        if (frames) {
            s->store.PublishFrame(k++ % 300, s->objects[0].block, planets);
            s->store.CopyTo(s->frame);
        }
        paintScene(image, s->scene, s->labels);
        benchmark::DoNotOptimize(image.constBits());
    }
    Report(state, before);
}

void BM_RepaintCombined300(benchmark::State& state) { Repaint(state, false); }
BENCHMARK(BM_RepaintCombined300)->Unit(benchmark::kMillisecond);

void BM_RepaintCombined300Frames(benchmark::State& state) { Repaint(state, true); }
BENCHMARK(BM_RepaintCombined300Frames)->Unit(benchmark::kMillisecond);

template <typename Stage>
void PaintStage(benchmark::State& state, Stage stage) {
    Scene* s = ReadyScene(state);
    if (!s) return;
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    const PixelCanvas canvas = SceneCanvas(image, kSize.height());
    QPainter painter(&image);
    painter.setFont(s->labels.font);
    stage(painter, canvas, *s);
    const long long before = allocations;
    for (auto _ : state) {
        stage(painter, canvas, *s);
        benchmark::DoNotOptimize(image.constBits());
    }
    Report(state, before);
}

void BM_Orbits300AndPlanets(benchmark::State& state) {
    PaintStage(state, [](QPainter&, const PixelCanvas& canvas, Scene& s) { paintOrbits(canvas, s.scene); });
}
BENCHMARK(BM_Orbits300AndPlanets)->Unit(benchmark::kMillisecond);

void BM_Bodies309WithNames(benchmark::State& state) {
    PaintStage(state, [](QPainter& p, const PixelCanvas& canvas, Scene& s) {
        paintBodies(p, canvas, s.scene, s.labels);
    });
}
BENCHMARK(BM_Bodies309WithNames)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
