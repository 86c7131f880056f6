// SPDX-License-Identifier: Apache-2.0
#include "platform/clock.h"
#include "platform/run_loop.h"
#include "ui/cairo/paint_window.h"
#include "ui/cairo_canvas.h"
#include "ui/path.h"
#include "ui/view.h"
#include "ui/window.h"

#include <gtest/gtest.h>

#include <deque>
#include <random>
#include <string>

namespace vorpel::testing {
namespace {

using ui::Bitmap;
using ui::Color;
using ui::Rect;

constexpr ui::Size SIZE{180, 90};
constexpr std::uint32_t STRANGE = 0xff123456U;

/// Like a key: round, letting its shadow out of its bounds, with a letter.
class ShadedView : public ui::View {
public:
    using View::View;
    std::string text = "g";

    [[nodiscard]] ui::EdgeInsets drawingOutsets() const override { return {8, 8, 10, 8}; }
    void draw(ui::Painter& painter) override {
        const ui::Path path = ui::Path::roundedRect(bounds(), 5);
        painter.drawShadow(path, {Color::black(0.4), {0, 1}, 4});
        painter.fill(path, backgroundColor());
        painter.drawText(text, bounds(), {.font = {15}, .minimumScale = 0.3});
    }
};

/// A few views, some inside others, at places that lie on no pixel.
class RepaintTest : public ::testing::Test {
protected:
    RepaintTest() {
        root_.setBackgroundColor(Color::rgb(0.8, 0.9, 1, 0.7));
        root_.addSubview(box_);
        box_.setClipsToBounds(true);
        box_.setBackgroundColor(Color::rgb(0, 0.5, 0, 0.5));
        for (int i = 0; i < 7; ++i) {
            ShadedView& view = views_.emplace_back(Rect{7.3 + 21.1 * i, 11.7 + 5.3 * (i % 3), 18.4, 25.9});
            view.setBackgroundColor(Color::rgb(1, 1, 1, i % 2 ? 0.6 : 1));
            (i < 3 ? static_cast<View&>(box_) : root_).addSubview(view);
        }
        window_.setRoot(&root_);
    }

    using View = ui::View;

    void changeSomething() {
        ShadedView& view = views_.at(random_() % views_.size());
        const auto amount = [this] { return double(random_() % 1000) / 1000; };
        switch (random_() % 5) {
            case 0:
                view.setFrame({amount() * 150, amount() * 60, 5 + amount() * 40, 5 + amount() * 40});
                break;
            case 1:
                view.setAlpha(amount());
                break;
            case 2:
                view.setHidden(!view.isHidden());
                break;
            case 3:
                view.setBackgroundColor(Color::rgb(amount(), amount(), amount(), amount()));
                break;
            default:
                box_.setFrame({amount() * 50, amount() * 20, 60 + amount() * 50, 30 + amount() * 30});
        }
    }

    Bitmap freshPicture(double scale) {
        ui::DrawingResources resources(scale);
        Bitmap bitmap = Bitmap::covering(SIZE, scale);
        window_.damageAll();
        paintWindow(window_, bitmap, resources);
        return bitmap;
    }

    platform::ManualClock clock_;
    platform::RunLoop loop_{clock_};
    ui::Window window_{loop_};
    View root_{Rect{0, 0, SIZE.width, SIZE.height}};
    View box_{Rect{9.7, 3.2, 70.9, 50.1}};
    std::deque<ShadedView> views_;
    std::minstd_rand random_{7};
};

TEST_F(RepaintTest, RepaintingWhatChangedMakesTheWholePicture) {
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        ui::DrawingResources resources(scale);
        Bitmap bitmap = Bitmap::covering(SIZE, scale);
        window_.damageAll();
        for (int i = 0; i < 60; ++i) {
            for (unsigned changes = random_() % 4; changes > 0; --changes) changeSomething();
            paintWindow(window_, bitmap, resources);
            // Blending rounds by one step or other, depending on where in memory a row begins.
            ASSERT_LE(greatestDifference(bitmap, freshPicture(scale)), 2)
                << "scale " << scale << ", step " << i;
        }
    }
}

TEST_F(RepaintTest, NothingBesideTheDamageIsTouched) {
    for (const double scale : {1.0, 1.5, 3.0}) {
        freshPicture(scale);
        ui::DrawingResources resources(scale);
        Bitmap bitmap = Bitmap::covering(SIZE, scale);
        EXPECT_TRUE(paintWindow(window_, bitmap, resources).isEmpty()) << "without damage nothing is";
        const ui::ContextHandle context(cairo_create(bitmap.surface()));
        cairo_set_source_rgb(context.get(), 0x12 / 255.0, 0x34 / 255.0, 0x56 / 255.0);
        cairo_paint(context.get());
        views_[4].setNeedsDisplay();
        const Rect repainted = paintWindow(window_, bitmap, resources);
        EXPECT_LT(repainted.width, (18.4 + 8 + 8) * scale + 2);
        EXPECT_FALSE(repainted.isEmpty());
        for (int y = 0; y < bitmap.height(); ++y) {
            for (int x = 0; x < bitmap.width(); ++x) {
                if (repainted.contains({x + 0.5, y + 0.5})) continue;
                ASSERT_EQ(bitmap.pixel(x, y), STRANGE) << x << ' ' << y;
            }
        }
    }
}

}  // namespace
}  // namespace vorpel::testing
