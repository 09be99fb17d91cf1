// Drawing into a 32-bit picture: Bresenham's pixels, the dotted rhythm
// through the corners, and clipping that leaves exactly the pixels of the whole
// line that fall on the picture, and text masks blended in a colour.
#include <gtest/gtest.h>

#include <random>
#include <set>
#include <utility>
#include <vector>

#include "tasks/pixel_canvas.h"

using namespace orvane;

namespace {

constexpr std::uint32_t kInk = 0xFF123456;

struct Picture {
    int width, height, stride;
    std::vector<std::uint32_t> pixels;
    Picture(int w, int h, int s = 0)
        : width(w), height(h), stride(s ? s : w), pixels(static_cast<std::size_t>(stride * h), 0) {}
    PixelCanvas canvas() { return {pixels.data(), width, height, stride}; }
    std::set<std::pair<int, int>> inked() const {
        std::set<std::pair<int, int>> set;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < stride; ++x)
                if (pixels[static_cast<std::size_t>(y * stride + x)] == kInk) set.insert({x, y});
        return set;
    }
};

void Draw(Picture& p, std::vector<ScreenPoint> points, LineStyle style = LineStyle::Solid) {
    DrawPolyline(p.canvas(), points.data(), static_cast<int>(points.size()), kInk, style);
}

// The pixels of the whole polyline by the rule, each kept when it lies on the picture.
std::set<std::pair<int, int>> Expected(const std::vector<ScreenPoint>& points, int w, int h, bool dotted) {
    std::set<std::pair<int, int>> set;
    long long phase = 0;
    const auto keep = [&](long long x, long long y) {
        if ((!dotted || phase % 3 == 0) && x >= 0 && y >= 0 && x < w && y < h) set.insert({int(x), int(y)});
    };
    for (std::size_t k = 1; k < points.size(); ++k) {
        const long long dx = points[k].x - points[k - 1].x, dy = points[k].y - points[k - 1].y;
        const long long n = std::max(std::llabs(dx), std::llabs(dy));
        for (long long i = 0; i < n; ++i, ++phase) {
            const bool xMajor = std::llabs(dx) >= std::llabs(dy);
            const long long minorSpan = xMajor ? dy : dx;
            const long long offset = (i * 2 * std::llabs(minorSpan) + n) / (2 * n) * (minorSpan < 0 ? -1 : 1);
            const long long step = (xMajor ? dx : dy) < 0 ? -i : i;
            if (xMajor)
                keep(points[k - 1].x + step, points[k - 1].y + offset);
            else
                keep(points[k - 1].x + offset, points[k - 1].y + step);
        }
    }
    keep(points.back().x, points.back().y);
    return set;
}

}  // namespace

TEST(LineRaster, AHorizontalLineTakesBothEnds) {
    Picture p(8, 3);
    Draw(p, {{1, 1}, {5, 1}});
    EXPECT_EQ(p.inked(), (std::set<std::pair<int, int>>{{1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}}));
}

TEST(LineRaster, ShallowSlopeRoundsHalfUp) {
    Picture p(12, 5);
    Draw(p, {{0, 0}, {10, 3}});
    // y = 3 i / 10 rounded half up: 0 0 1 1 1 2 2 2 2 3 3.
    EXPECT_EQ(p.inked(), (std::set<std::pair<int, int>>{{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 1}, {5, 2},
                                                        {6, 2}, {7, 2}, {8, 2}, {9, 3}, {10, 3}}));
}

TEST(LineRaster, SteepAndBackwardLines) {
    Picture p(6, 8);
    Draw(p, {{4, 7}, {1, 0}});
    EXPECT_EQ(p.inked(), Expected({{4, 7}, {1, 0}}, 6, 8, false));
    EXPECT_EQ(p.inked().size(), 8u);
}

TEST(LineRaster, DottedOneOfThreeThroughTheCorners) {
    Picture p(10, 6);
    Draw(p, {{0, 0}, {4, 0}, {4, 4}}, LineStyle::Dotted);
    EXPECT_EQ(p.inked(), (std::set<std::pair<int, int>>{{0, 0}, {3, 0}, {4, 2}}));
    Picture q(10, 1);
    Draw(q, {{0, 0}, {9, 0}}, LineStyle::Dotted);
    EXPECT_EQ(q.inked(), (std::set<std::pair<int, int>>{{0, 0}, {3, 0}, {6, 0}, {9, 0}}));
}

TEST(LineRaster, FarPointsAreClippedToTheRowsAndColumnsOfThePicture) {
    Picture p(20, 10);
    Draw(p, {{-100000000, 5}, {100000000, 5}});
    EXPECT_EQ(p.inked().size(), 20u);
    Picture q(20, 10);
    Draw(q, {{-100000000, -100000000}, {100000000, 100000000}});
    EXPECT_EQ(q.inked(), Expected({{-1000, -1000}, {1000, 1000}}, 20, 10, false));
    EXPECT_EQ(q.inked().size(), 10u);
}

TEST(LineRaster, ClippingKeepsExactlyThePixelsOfTheWholeLine) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> far(-3000, 3000);
    for (int round = 0; round < 400; ++round) {
        std::vector<ScreenPoint> points;
        for (int k = 0; k < 4; ++k) points.push_back({far(random), far(random)});
        if (round % 3 == 0) points[1] = {far(random) % 40 + 20, far(random) % 30 + 15};  // some through the picture
        for (bool dotted : {false, true}) {
            Picture p(64, 48);
            Draw(p, points, dotted ? LineStyle::Dotted : LineStyle::Solid);
            ASSERT_EQ(p.inked(), Expected(points, 64, 48, dotted)) << round;
        }
    }
}

TEST(LineRaster, NothingBeyondTheWidthOfARow) {
    Picture p(10, 4, 16);
    Draw(p, {{-50, 2}, {60, 2}});
    for (const auto& [x, y] : p.inked()) EXPECT_LT(x, 10);
    EXPECT_EQ(p.inked().size(), 10u);
}

TEST(LineRaster, EmptyInputsDrawNothing) {
    Picture p(4, 4);
    DrawPolyline(p.canvas(), nullptr, 0, kInk, LineStyle::Solid);
    DrawPolyline({nullptr, 4, 4, 4}, nullptr, 3, kInk, LineStyle::Solid);
    std::vector<ScreenPoint> single{{2, 2}};
    Draw(p, single);
    EXPECT_EQ(p.inked(), (std::set<std::pair<int, int>>{{2, 2}}));
}

TEST(CoverageMask, FullCoveragePutsTheColourNoneLeavesThePixel) {
    Picture p(4, 2);
    p.pixels.assign(p.pixels.size(), 0xFFFFFFFF);
    const std::uint8_t mask[] = {255, 0, 128, 0, 0, 0};
    BlendMask(p.canvas(), {mask, 3, 2, 3}, 1, 0, 0xFF000000);
    EXPECT_EQ(p.pixels[0], 0xFFFFFFFFu);
    EXPECT_EQ(p.pixels[1], 0xFF000000u);
    EXPECT_EQ(p.pixels[2], 0xFFFFFFFFu);
    // 128 of 255 black over white: 255 * 127 / 255 = 127.
    EXPECT_EQ(p.pixels[3], 0xFF7F7F7Fu);
    for (std::size_t k = 4; k < p.pixels.size(); ++k) EXPECT_EQ(p.pixels[k], 0xFFFFFFFFu);
}

TEST(CoverageMask, ChannelsMixRoundedAndAlphaStays) {
    Picture p(1, 1);
    p.pixels[0] = 0x80102030;
    const std::uint8_t mask[] = {51};  // a fifth
    BlendMask(p.canvas(), {mask, 1, 1, 1}, 0, 0, 0xFFF0E0D0);
    // 0x10 + (0xF0 - 0x10) / 5 = 16 + 44.8, 32 + 38.4, 48 + 32.
    EXPECT_EQ(p.pixels[0], 0x803D4650u);
}

TEST(CoverageMask, PartsOffTheCanvasAreLeftOut) {
    Picture p(3, 3, 5);
    const std::uint8_t mask[] = {255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255};
    BlendMask(p.canvas(), {mask, 4, 4, 4}, -2, 1, kInk);
    EXPECT_EQ(p.inked(), (std::set<std::pair<int, int>>{{0, 1}, {1, 1}, {0, 2}, {1, 2}}));
    Picture q(3, 3);
    BlendMask(q.canvas(), {mask, 4, 4, 4}, 2, 2, kInk);
    EXPECT_EQ(q.inked(), (std::set<std::pair<int, int>>{{2, 2}}));
    BlendMask(q.canvas(), {mask, 4, 4, 4}, 5, -9, kInk);
    BlendMask(q.canvas(), {nullptr, 4, 4, 4}, 0, 0, kInk);
    EXPECT_EQ(q.inked().size(), 1u);
}
