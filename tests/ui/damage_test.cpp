// SPDX-License-Identifier: Apache-2.0
#include "pixel_painter.h"
#include "ui/button.h"
#include "ui/image_view.h"
#include "ui/label.h"
#include "ui/scroll_view.h"
#include "ui/switch.h"
#include "ui_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>

namespace vorpel::ui {
namespace {

using Rects = std::vector<Rect>;

/// Draws a margin around itself, as wide as it is told.
class HaloView : public View {
public:
    using View::View;

    void setHalo(double width) {
        if (width == halo_) return;
        setNeedsDisplay();
        halo_ = width;
        setNeedsDisplay();
    }
    [[nodiscard]] EdgeInsets drawingOutsets() const override { return {halo_, halo_, halo_, halo_}; }
    void draw(Painter& painter) override {
        painter.fill(bounds().insetBy(-halo_, -halo_), Color::rgb(0.2, 0.4, 0.1, 0.5));
        View::draw(painter);
    }

private:
    double halo_ = 0;
};

/// A tree that changes at random: every operation that the views of the keyboard use.
class RandomTree {
public:
    explicit RandomTree(unsigned seed) : random_(seed) {
        for (int i = 0; i < 9; ++i) grow();
    }

    View root{Rect{0, 0, SIDE, SIDE}};
    static constexpr int SIDE = 48;

    void mutate() {
        switch (below(13)) {
            case 0:
                return pick().setFrame(randomRect());
            case 1:
                return pick().setHidden(below(3) == 0);
            case 2:
                return pick().setAlpha(below(4) / 3.0);
            case 3:
                return pick().setBackgroundColor(randomColor());
            case 4:
                return pick().setClipsToBounds(below(2) == 0);
            case 5:
                return pick().removeFromSuperview();
            case 6:
                return destroyOne();
            case 7:
                return grow();
            case 8:
                return rearrange();
            default:
                return changeLook(pick());
        }
    }

private:
    int below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    View& pick() { return *views_[static_cast<std::size_t>(below(int(views_.size())))]; }
    Rect randomRect() { return {below(80) / 2.0 - 4, below(80) / 2.0 - 4, below(50) / 2.0, below(50) / 2.0}; }
    Color randomColor() { return Color::rgb(below(5) / 4.0, below(5) / 4.0, below(5) / 4.0, below(3) / 2.0); }
    std::string randomText() { return std::string(static_cast<std::size_t>(below(4)), 'x'); }

    void grow() {
        if (views_.size() > 24) return;
        std::unique_ptr<View> view;
        switch (below(6)) {
            case 0:
                view = std::make_unique<Label>(randomRect());
                break;
            case 1:
                view = std::make_unique<Button>(randomRect());
                break;
            case 2:
                view = std::make_unique<Switch>(randomRect().origin());
                break;
            case 3:
                view = std::make_unique<ImageView>(randomRect());
                break;
            case 4:
                view = std::make_unique<ScrollView>(randomRect());
                break;
            default:
                view = std::make_unique<HaloView>(randomRect());
        }
        parentFor(*view).addSubview(*view);
        views_.push_back(std::move(view));
    }

    /// A view that is neither the given one nor inside it.
    View& parentFor(const View& view) {
        if (views_.empty() || below(3) == 0) return root;
        View& parent = pick();
        for (const View* up = &parent; up; up = up->superview()) {
            if (up == &view) return root;
        }
        if (auto* const scroll = dynamic_cast<ScrollView*>(&parent)) return scroll->contentView();
        return parent;
    }

    void rearrange() {
        View& view = pick();
        View& parent = parentFor(view);
        if (below(2) == 0) return parent.insertSubview(view, static_cast<std::size_t>(below(4)));
        if (view.superview()) view.superview()->bringSubviewToFront(view);
    }

    void destroyOne() {
        if (views_.size() > 4) views_.erase(views_.begin() + below(int(views_.size())));
    }

    void changeLook(View& view) {
        if (auto* const halo = dynamic_cast<HaloView*>(&view)) halo->setHalo(below(4) * 1.5);
        if (auto* const image = dynamic_cast<ImageView*>(&view)) image->setImage(randomText());
        if (auto* const label = dynamic_cast<Label*>(&view)) {
            label->setText(randomText());
            label->setFont({below(20) + 1.0, FontWeight::Light});
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

    void changeButton(Button& button) {
        const auto state = static_cast<ControlState>(1 << below(3) >> 1);
        button.setTitle(randomText(), state);
        button.setBackgroundColor(randomColor(), state);
        button.setTitleInsets({double(below(3)), 1, 1, double(below(3))});
    }

    std::mt19937 random_;
    std::vector<std::unique_ptr<View>> views_;
};

TEST(Damage, PaintingOnlyTheDamageOntoTheLastFrameGivesTheWholePicture) {
    constexpr int SIDE = RandomTree::SIDE;
    for (unsigned seed = 0; seed < 40; ++seed) {
        platform::ManualClock clock;
        platform::RunLoop runLoop(clock);
        RandomTree tree(seed);
        Window window(runLoop);
        window.setRoot(&tree.root);
        PixelPainter kept(SIDE, SIDE);
        for (int step = 0; step < 40; ++step) {
            for (unsigned change = 0; change <= seed % 3; ++change) tree.mutate();
            window.paint(kept);
            PixelPainter whole(SIDE, SIDE);
            tree.root.paintTree(whole, tree.root.bounds());
            double worst = 0;
            for (int i = 0; i < SIDE * SIDE; ++i) {
                const int x = i % SIDE;
                const int y = i / SIDE;
                worst = std::max(worst, kept.at(x, y).distanceTo(whole.at(x, y)));
            }
            ASSERT_LT(worst, 1e-9) << "seed " << seed << ", step " << step;
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

TEST_F(DamageTest, ASetterDamagesWhatItChangesAndNothingWhenItChangesNothing) {
    View view(Rect{10, 20, 30, 40});
    root.addSubview(view);
    EXPECT_EQ(damageOf([&] { view.setBackgroundColor(Color::white()); }), (Rects{{10, 20, 30, 40}}));
    EXPECT_EQ(damageOf([&] {
                  view.setFrame({200, 20, 30, 40});
              }),
              (Rects{{10, 20, 30, 40}, {200, 20, 30, 40}}));
    EXPECT_EQ(damageOf([&] { view.setHidden(true); }), (Rects{{200, 20, 30, 40}}));
    EXPECT_EQ(damageOf([&] { view.setFrame({0, 0, 5, 5}); }), Rects{}) << "hidden all the time";
    EXPECT_EQ(damageOf([&] { view.setHidden(false); }), (Rects{{0, 0, 5, 5}}));
    EXPECT_EQ(damageOf([&] {
                  view.setHidden(false);
                  view.setAlpha(1);
                  view.setFrame({0, 0, 5, 5});
                  view.setBackgroundColor(Color::white());
                  view.setClipsToBounds(false);
                  root.bringSubviewToFront(view);
              }),
              Rects{});
    EXPECT_FALSE(window.needsPaint());
}

TEST_F(DamageTest, StaysInsideTheViewThatClips) {
    View clipping(Rect{100, 100, 50, 50});
    clipping.setClipsToBounds(true);
    View inside(Rect{40, 40, 100, 100});
    root.addSubview(clipping);
    clipping.addSubview(inside);
    EXPECT_EQ(damageOf([&] { inside.setBackgroundColor(Color::white()); }), (Rects{{140, 140, 10, 10}}));
    EXPECT_EQ(damageOf([&] { inside.setFrame({60, 60, 10, 10}); }), (Rects{{140, 140, 10, 10}}));
    EXPECT_EQ(damageOf([&] { inside.setBackgroundColor(Color::black()); }), Rects{});
}

TEST_F(DamageTest, WidgetsPaintOnlyWhenTheyLookDifferent) {
    Label label(Rect{10, 10, 100, 20});
    Button button(Rect{10, 50, 100, 20});
    Switch flip(Point{10, 100});
    for (View* const view : std::initializer_list<View*>{&label, &button, &flip}) root.addSubview(*view);
    label.setText("word");
    button.setTitle("word");
    button.setTitleColor(Color::white(), ControlState::Selected);
    EXPECT_EQ(damageOf([&] {
                  label.setText("word");
                  label.setFont(label.font());
                  label.setTextAlignment(label.textAlignment());
                  button.setTitle("word");
                  button.setTitle("pressed", ControlState::Highlighted);
                  button.setBackgroundColor(Color::white(), ControlState::Disabled);
                  flip.setOn(false);
                  flip.setOnTintColor(Color::white());
              }),
              Rects{});
    EXPECT_EQ(damageOf([&] { button.setSelected(true); }), (Rects{{10, 50, 100, 20}}));
    EXPECT_EQ(damageOf([&] { button.setTitle("other"); }), (Rects{{10, 50, 100, 20}}));
    EXPECT_EQ(damageOf([&] { label.setText("words"); }).size(), 1U);
    EXPECT_EQ(damageOf([&] { flip.setOn(true); }).size(), 1U);
}

TEST_F(DamageTest, AsksForAFrameOnceAndAgainAfterItWasPainted) {
    int asked = 0;
    window.setDamageHandler([&] { ++asked; });
    View view(Rect{0, 0, 10, 10});
    root.addSubview(view);
    view.setBackgroundColor(Color::white());
    view.setFrame({50, 50, 10, 10});
    EXPECT_EQ(asked, 1);
    frame();
    EXPECT_EQ(asked, 1);
    view.setNeedsLayout();
    EXPECT_EQ(asked, 2) << "laying out takes a frame too";
    EXPECT_TRUE(frame().drawn.empty()) << "but paints nothing when nothing moves";
    EXPECT_FALSE(window.needsPaint());
}

TEST_F(DamageTest, LaysOutBeforePaintingAndAgainWhenThatAsksForIt) {
    struct Column : View {
        using View::View;
        void layoutSubviews() override {
            ++layouts;
            double y = 0;
            for (View* const view : subviews()) {
                view->setFrame({0, y, bounds().width, 10});
                y += 10;
            }
            if (!subviews().empty()) return;
            addSubview(late);
            setNeedsLayout();
        }
        int layouts = 0;
        View late;
    };
    Column column(Rect{0, 0, 100, 100});
    root.addSubview(column);
    frame();
    EXPECT_EQ(column.late.frame(), (Rect{0, 0, 100, 10}));
    const int before = column.layouts;
    frame();
    column.setFrame({10, 10, 100, 100});
    frame();
    EXPECT_EQ(column.layouts, before) << "moved, not resized";
    column.setFrame({10, 10, 200, 100});
    frame();
    EXPECT_EQ(column.layouts, before + 1);
    EXPECT_EQ(column.late.frame().width, 200);
}

TEST_F(DamageTest, ManyPlacesBecomeFewRectanglesThatHoldThemAll) {
    Rects wanted;
    for (int i = 0; i < 30; ++i) {
        const Rect rect{(i * 37) % 300 + 0.0, (i * 53) % 220 + 0.0, 3, 3};
        root.setNeedsDisplay(rect);
        wanted.push_back(rect);
    }
    EXPECT_LE(window.damage().size(), 8U);
    for (const Rect& rect : wanted) {
        EXPECT_TRUE(std::ranges::any_of(window.damage(),
                                        [&](const Rect& held) { return held.intersection(rect) == rect; }));
    }
}

}  // namespace
}  // namespace vorpel::ui
