// SPDX-License-Identifier: Apache-2.0
#include "cairo_canvas.h"
#include "ui/button.h"
#include "ui/cairo/paint_window.h"
#include "ui/image_view.h"
#include "ui/label.h"
#include "ui/scroll_view.h"
#include "ui/switch.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <string>

namespace vorpel::ui {
namespace {

using vorpel::testing::CairoCanvas;
using Rects = std::vector<Rect>;

const std::string PICTURE = VORPEL_SOURCE_DIR "/data/images/gear.svg";

/// A tree that changes at random: every operation that the views of the keyboard use.
class RandomTree {
public:
    explicit RandomTree(unsigned seed) : random_(seed) {
        for (int i = 0; i < 9; ++i) grow();
    }

    View root{Rect{0, 0, SIZE.width, SIZE.height}};
    static constexpr Size SIZE{48, 48};

    void mutate() {
        const std::function<void()> operations[] = {
            [&] { pick().setFrame(randomRect()); },
            [&] { pick().setHidden(below(3) == 0); },
            [&] { pick().setAlpha(below(4) / 3.0); },
            [&] { pick().setBackgroundColor(randomColor()); },
            [&] { pick().setClipsToBounds(below(2) == 0); },
            [&] { pick().removeFromSuperview(); },
            [&] { destroyOne(); },
            [&] { grow(); },
            [&] { rearrange(); },
        };
        if (below(3) == 0) return changeLook(pick());
        operations[below(std::size(operations))]();
    }

private:
    int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    View& pick() { return *views_[static_cast<std::size_t>(below(int(views_.size())))]; }
    Rect randomRect() { return {below(80) / 2.0 - 4, below(80) / 2.0 - 4, below(50) / 2.0, below(50) / 2.0}; }
    Color randomColor() { return Color::rgb(below(5) / 4.0, below(5) / 4.0, below(5) / 4.0, below(3) / 2.0); }

    /// Much of it higher and wider than the place it gets.
    std::string randomText() {
        return std::vector<std::string>{"", "g", "Ṩ̂", "ﷺ", "xxx"}[std::size_t(below(5))];
    }

    void grow() {
        if (views_.size() > 24) return;
        const std::function<std::unique_ptr<View>()> kinds[] = {
            [&] { return std::make_unique<Label>(randomRect()); },
            [&] { return std::make_unique<Button>(randomRect()); },
            [&] { return std::make_unique<Switch>(randomRect().origin()); },
            [&] { return std::make_unique<ImageView>(randomRect()); },
            [&] { return std::make_unique<ScrollView>(randomRect()); },
        };
        auto view = kinds[below(std::size(kinds))]();
        anyParent().addSubview(*view);
        views_.push_back(std::move(view));
    }

    View& anyParent() {
        if (views_.empty() || below(3) == 0) return root;
        View& parent = pick();
        auto* const scroll = dynamic_cast<ScrollView*>(&parent);
        return scroll ? scroll->contentView() : parent;
    }

    void rearrange() {
        View& view = pick();
        View& parent = view.superview() ? *view.superview() : root;
        if (below(2) == 0) return parent.insertSubview(view, static_cast<std::size_t>(below(4)));
        parent.bringSubviewToFront(view);
    }

    void destroyOne() {
        if (views_.size() > 4) views_.erase(views_.begin() + below(int(views_.size())));
    }

    void changeLook(View& view) {
        if (auto* const image = dynamic_cast<ImageView*>(&view)) image->setImage(below(3) ? PICTURE : "");
        if (auto* const label = dynamic_cast<Label*>(&view)) {
            label->setText(randomText());
            label->setFont({below(20) + 1.0, FontWeight::Light});
            label->setWraps(below(2) == 0);
        }
        if (auto* const control = dynamic_cast<Control*>(&view)) {
            control->setHighlighted(below(2) == 0);
            control->setEnabled(below(3) != 0);
        }
        if (auto* const scroll = dynamic_cast<ScrollView*>(&view)) {
            scroll->setContentSize({double(below(60)), double(below(60))});
            scroll->setContentOffset({below(40) / 2.0, below(40) / 2.0});
        }
        if (auto* const flip = dynamic_cast<Switch*>(&view)) flip->setOn(below(2) == 0);
        if (auto* const button = dynamic_cast<Button*>(&view)) changeButton(*button);
    }

    /// One change at most, lest another hides that it is not seen.
    void changeButton(Button& button) {
        const auto state = static_cast<ControlState>(1 << below(3) >> 1);
        const int what = below(4);
        if (what == 0) button.setTitle(randomText(), state);
        if (what == 1) button.setBackgroundColor(randomColor(), state);
        if (what == 2) button.setTitleInsets({double(below(3)), 1, 1, double(below(3))});
    }

    std::mt19937 random_;
    std::vector<std::unique_ptr<View>> views_;
};

using Pixels = std::vector<std::uint32_t>;

/// By how much any component of any two pixels at the same place differs, but for those in a rectangle.
int greatestDifference(const Bitmap& picture, const Pixels& other, const Rect& except = {}) {
    int greatest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (except.contains({x + 0.5, y + 0.5})) continue;
            const std::uint32_t one = picture.pixel(x, y);
            const std::uint32_t two = other[static_cast<std::size_t>(y * picture.width() + x)];
            for (unsigned shift = 0; shift < 32; shift += 8) {
                greatest = std::max(greatest, std::abs(int(one >> shift & 255U) - int(two >> shift & 255U)));
            }
        }
    }
    return greatest;
}

TEST(Damage, PaintingOnlyTheDamageOntoTheLastFrameGivesTheWholePicture) {
    constexpr double SCALES[] = {1, 1.5, 2, 3};
    for (unsigned seed = 0; seed < 40; ++seed) {
        const double scale = SCALES[seed % std::size(SCALES)];
        platform::ManualClock clock;
        platform::RunLoop runLoop(clock);
        RandomTree tree(seed);
        Window window(runLoop);
        window.setRoot(&tree.root);
        CairoCanvas kept(scale, RandomTree::SIZE);
        CairoCanvas whole(scale, RandomTree::SIZE);
        for (int step = 0; step < 40; ++step) {
            SCOPED_TRACE(::testing::Message() << "seed " << seed << ", step " << step);
            for (unsigned change = 0; change <= seed % 3; ++change) tree.mutate();
            const Pixels before = vorpel::testing::pixelsOf(kept.bitmap);
            const Rect repainted = paintWindow(window, kept.bitmap, kept.resources);
            ASSERT_EQ(greatestDifference(kept.bitmap, before, repainted), 0) << "beside the damage";
            whole.bitmap = Bitmap::covering(RandomTree::SIZE, scale);
            whole.draw([&](Painter& painter) { tree.root.paintTree(painter, tree.root.bounds()); });
            // Blending rounds by a step or two, and by a few where the soft edges of several clips meet.
            ASSERT_LE(greatestDifference(kept.bitmap, vorpel::testing::pixelsOf(whole.bitmap)), 8);
        }
        window.setRoot(nullptr);
    }
}

class DamageTest : public UiTest {
protected:
    /// The damage that a change makes, by itself.
    template <typename Change>
    Rects damageOf(Change change) {
        frame();
        change();
        return window.damage();
    }
};

TEST_F(DamageTest, IsNoMoreThanWhatChangedOnShow) {
    View view(Rect{10, 20, 30, 40});
    View inside(Rect{20, 30, 100, 100});
    root.addSubview(view);
    view.addSubview(inside);
    view.setClipsToBounds(true);
    EXPECT_EQ(damageOf([&] { inside.setBackgroundColor(Color::white()); }), (Rects{{30, 50, 10, 10}}));
    const auto move = [&] { view.setFrame({200, 20, 30, 40}); };
    EXPECT_EQ(damageOf(move), (Rects{{10, 20, 30, 40}, {200, 20, 30, 40}}));
    EXPECT_EQ(damageOf([&] { view.setHidden(true); }), (Rects{{200, 20, 30, 40}}));
    EXPECT_EQ(damageOf([&] { view.setFrame({0, 0, 5, 5}); }), Rects{}) << "hidden all the time";
}

TEST_F(DamageTest, AsksForAFrameOnceAndAgainAfterItWasPainted) {
    int asked = 0;
    window.setDamageHandler([&] { ++asked; });
    root.setBackgroundColor(Color::white());
    root.setFrame({50, 50, 10, 10});
    EXPECT_EQ(asked, 1);
    frame();
    root.setNeedsLayout();
    EXPECT_EQ(asked, 2) << "laying out takes a frame too";
    EXPECT_TRUE(frame().drawn.empty()) << "but paints nothing when nothing moves";
    window.setDamageHandler(nullptr);
}

TEST_F(DamageTest, LaysOutBeforePaintingAndAgainWhenThatAsksForIt) {
    struct Column : View {
        using View::View;
        void layoutSubviews() override {
            for (View* const view : subviews()) view->setFrame({0, 0, bounds().width, 10});
            if (!subviews().empty()) return;
            addSubview(late);
            setNeedsLayout();
        }
        View late;
    };
    Column column(Rect{0, 0, 100, 100});
    root.addSubview(column);
    frame();
    EXPECT_EQ(column.late.frame().width, 100);
    column.setHidden(true);
    column.setFrame({10, 10, 200, 100});
    frame();
    EXPECT_EQ(column.late.frame().width, 100) << "nobody sees it";
    column.setHidden(false);
    frame();
    EXPECT_EQ(column.late.frame().width, 200);
}

}  // namespace
}  // namespace vorpel::ui
