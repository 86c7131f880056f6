// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo_canvas.h"
#include "ui/path.h"

#include <gtest/gtest.h>

#include <numbers>

namespace vorpel::testing {
namespace {

using ui::Color;
using ui::Painter;
using ui::Path;
using ui::Rect;

TEST(CairoPainterTest, RectanglesOnPixelEdgesAndHardShadowsAreExactAtEveryScale) {
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        CairoCanvas canvas(scale);
        // Moved about in steps that do not add up exactly.
        canvas.draw([](Painter& painter) {
            for (int i = 0; i < 10; ++i) painter.translate({0.2, 0.4});
            painter.fill(Rect{10, 4, 32, 18}, Color::rgb(1, 0, 0));
        });
        EXPECT_EQ(canvas.inkBounds(), (Rect{12 * scale, 8 * scale, 32 * scale, 18 * scale})) << scale;
        EXPECT_EQ(canvas.ink(), 32 * 18 * scale * scale) << scale;

        CairoCanvas shadow(scale);
        shadow.draw([](Painter& painter) {
            painter.drawShadow(Path::rect({20, 20, 60, 40}), {Color::black(), {0, 2}, 0});
        });
        EXPECT_EQ(shadow.inkBounds(), (Rect{20 * scale, 60 * scale, 60 * scale, 2 * scale})) << scale;
        EXPECT_EQ(shadow.ink(), 60 * 2 * scale * scale) << "only beside its path";
    }
}

TEST(CairoPainterTest, RoundedPathsStrokesTurnsAndClipsCoverTheirArea) {
    constexpr double RADIUS = 9;
    CairoCanvas rounded(2);
    rounded.draw([](Painter& painter) {
        painter.fill(Path::roundedRect({10, 10, 60, 40}, RADIUS), Color::black());
    });
    const double corners = (4 - std::numbers::pi) * RADIUS * RADIUS;
    EXPECT_NEAR(rounded.ink() / 4, 60 * 40 - corners, 2);
    EXPECT_EQ(rounded.inkBounds(), (Rect{20, 20, 120, 80}));

    CairoCanvas stroked;
    stroked.draw([](Painter& painter) {
        Path line;
        line.moveTo({20, 50});
        line.lineTo({120, 50});
        painter.stroke(line, Color::black(), 4);
    });
    EXPECT_EQ(stroked.inkBounds(), (Rect{18, 48, 104, 4}));

    CairoCanvas turned;
    turned.draw([](Painter& painter) {
        painter.save();
        painter.clip(Rect{90, 50, 20, 20});
        painter.clip(Path::rect({95, 0, 50, 100}));
        painter.translate({100, 50});
        painter.rotate(std::numbers::pi / 2);
        painter.fill(Rect{0, 0, 30, 10}, Color::black());
        painter.restore();
        painter.fill(Rect{150, 50, 1, 1}, Color::black());
    });
    EXPECT_EQ(turned.inkBounds(), (Rect{95, 50, 56, 20})) << "clockwise, and clips hold until restored";
    EXPECT_EQ(turned.ink(), 5 * 20 + 1);
}

TEST(CairoPainterTest, ALayerFadesAsOne) {
    CairoCanvas canvas;
    canvas.draw([](Painter& painter) {
        painter.fill(Rect{0, 0, 40, 40}, Color::white());
        painter.beginLayer();
        painter.fill(Rect{0, 0, 20, 20}, Color::black());
        painter.fill(Rect{10, 10, 20, 20}, Color::black());
        painter.endLayer(0.5);
    });
    const std::uint32_t once = canvas.bitmap.pixel(5, 5);
    EXPECT_NEAR(double(once & 255U), 127, 1);
    EXPECT_EQ(canvas.bitmap.pixel(15, 15), once) << "where both lie, it is no darker";
    EXPECT_EQ(canvas.bitmap.pixel(35, 35), 0xffffffffU);
}

TEST(CairoShadowTest, ASoftShadowFadesOutOverItsBlur) {
    CairoCanvas canvas(3);
    canvas.draw([](Painter& painter) {
        painter.drawShadow(Path::rect({50, 20, 100, 50}), {Color::black(), {0, 0}, 4});
    });
    const int edge = 70 * 3;
    unsigned last = 255;
    for (int y = edge; y < edge + 8 * 3; ++y) {
        EXPECT_LE(canvas.alphaAt(300, y), last) << y;
        last = canvas.alphaAt(300, y);
    }
    EXPECT_EQ(last, 0U);
    EXPECT_NEAR(canvas.alphaAt(300, edge), 127.0, 12) << "half at the edge itself";
    // One deviation, half of the blur, away: 16 in a hundred.
    EXPECT_NEAR(canvas.alphaAt(300, edge + 6), 0.16 * 255, 8);
    EXPECT_EQ(canvas.alphaAt(300, edge - 1), 0U) << "nothing where the path lies";
}

TEST(CairoShadowTest, WhatIsRememberedIsDrawnAlikeElsewhere) {
    const auto shadowAt = [](double x, double y) {
        return [=](Painter& painter) {
            painter.translate({x, y});
            painter.drawShadow(Path::roundedRect({0, 0, 30, 20}, 5), {Color::black(), {1, 2}, 3});
            painter.fill(Rect{0, 0, 2, 2}, Color::black());
        };
    };
    CairoCanvas fresh(2);
    fresh.draw(shadowAt(101.5, 37));
    CairoCanvas warm(2);
    warm.draw(shadowAt(20, 20));
    const Rect first = warm.inkBounds();
    warm.bitmap = ui::Bitmap::covering({200, 100}, 2);
    warm.draw(shadowAt(101.5, 37));
    EXPECT_EQ(pixelsOf(warm.bitmap), pixelsOf(fresh.bitmap));
    EXPECT_EQ(warm.inkBounds(), first.offsetBy({81.5 * 2, 17 * 2}));
}

}  // namespace
}  // namespace vorpel::testing
