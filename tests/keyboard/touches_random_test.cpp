// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"
#include "typing_model.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace vorpel {
namespace {

using platform::InterfaceOrientation;
using testing::Kind;
using testing::Stage;
using testing::TypingModel;

constexpr int FINGERS = 5;
constexpr const char* TEXTS[] = {"", "hi", "hi ", "Hi. ", "one two\n", "1,", "👍🏽", "tab\t", "no. 7!"};

/// Several random fingers on a keyboard, and the plain model under the same fingers.
class RandomFingers {
public:
    RandomFingers(unsigned seed, Kind kind)
        : random_(seed),
          stage_({.kind = kind}),
          model_([this](ui::Point point) { return nearestKey(point); }, kind == Kind::Embedded) {
        hostSets();
    }

    void play(int steps) {
        for (int step = 1; step <= steps; ++step) {
            takeStep();
            expectSame();
            if (step % 400 == 0) rest();
            if (::testing::Test::HasFailure()) {
                ADD_FAILURE() << "at step " << step;
                return;
            }
        }
        rest();
        EXPECT_EQ(stage_.platform.host.advances, model_.globes);
        EXPECT_EQ(stage_.platform.host.dismissals, model_.dismissals);
    }

private:
    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    double upTo(double end) { return std::uniform_real_distribution<double>(0, end)(random_); }

    /// By the frames alone. Those of the model's page, so that a wrong page does not go unseen.
    const Key* nearestKey(ui::Point point) {
        const ui::Rect frame = stage_.keys().frame();
        if (!frame.contains(point)) return nullptr;
        const Key* nearest = nullptr;
        double least = std::numeric_limits<double>::max();
        for (const KeyRow& row : stage_.controller->plane().model.pages[pageIndex()].rows) {
            for (const auto& key : row) {
                const ui::Rect rect = stage_.controller->plane().layout->viewForKey(*key)->frame();
                if (rect.isEmpty()) continue;  // found no room
                const ui::Point at = point - frame.origin();
                const double dx = std::max({rect.x - at.x, 0.0, at.x - rect.right()});
                const double dy = std::max({rect.y - at.y, 0.0, at.y - rect.bottom()});
                if (dx * dx + dy * dy >= least) continue;
                least = dx * dx + dy * dy;
                nearest = key.get();
            }
        }
        return nearest;
    }

    [[nodiscard]] std::size_t pageIndex() const { return static_cast<std::size_t>(model_.page); }

    ui::Point randomPoint() {
        const ui::Rect all = stage_.controller->view().frame();
        if (below(10) < 2) return {upTo(all.width), upTo(all.height)};
        if (below(10) == 0) return {upTo(all.width + 40) - 20, below(2) ? -upTo(20) : all.height + upTo(20)};
        const auto& rows = stage_.controller->plane().model.pages[pageIndex()].rows;
        const KeyRow& row = rows[static_cast<std::size_t>(below(static_cast<int>(rows.size())))];
        const auto& key = row[static_cast<std::size_t>(below(static_cast<int>(row.size())))];
        // The keys of the machines come up more often than the letters between them.
        const bool isPlain = key->isCharacter() && below(2) == 0;
        const Key& chosen = isPlain ? *row.front() : *key;
        const ui::Point center = stage_.controller->plane().layout->viewForKey(chosen)->frame().center() +
                                 stage_.keys().frame().origin();
        return center + ui::Point{upTo(24) - 12, upTo(24) - 12};
    }

    int fingerThatIs(bool down) {
        const int first = below(FINGERS);
        for (int i = 0; i < FINGERS; ++i) {
            if (model_.isDown((first + i) % FINGERS) == down) return (first + i) % FINGERS;
        }
        return first;
    }

    void takeStep() {
        if (below(3) > 0) wait(below(20) == 0 ? upTo(1) : upTo(0.08));
        const int kind = below(1000);
        if (kind < 350) {
            down(below(30) == 0 ? below(FINGERS) : fingerThatIs(false));
        } else if (kind < 600) {
            move(fingerThatIs(true));
        } else if (kind < 920) {
            up(fingerThatIs(true));
        } else if (kind < 960) {
            cancel(fingerThatIs(true));
        } else {
            disturb();
        }
    }

    void wait(double seconds) {
        stage_.advance(seconds);
        model_.wait(seconds);
    }

    void down(int finger) {
        const ui::Point point = below(4) == 0 ? lastDown_ : randomPoint();
        lastDown_ = places_[finger] = point;
        model_.down(finger, point);
        stage_.down(finger, point);
    }

    void move(int finger) {
        const ui::Point near = places_[finger] + ui::Point{upTo(20) - 10, upTo(20) - 10};
        const ui::Point point = places_[finger] = below(2) ? near : randomPoint();
        model_.move(finger, point);
        stage_.move(finger, point);
    }

    void up(int finger) {
        const ui::Point point = below(8) == 0 ? randomPoint() : places_[finger];
        model_.up(finger, point);
        stage_.up(finger, point);
    }

    void cancel(int finger) {
        model_.cancel(finger);
        stage_.cancel(finger);
    }

    void disturb() {
        const int kind = below(40);
        if (kind < 12) {
            hostSets();
        } else if (kind < 16) {
            rotate();
        } else if (kind == 16) {
            model_.layOut(model_.page);
            stage_.controller->changeKeyboardLanguage(below(2) ? "ar" : "en");
        } else if (kind < 20) {
            model_.isCapitalizing = below(4) > 0;
            stage_.controller->changeKeyboardSetting(VorpelIMESettings::AUTO_CAPITALIZATION,
                                                     model_.isCapitalizing);
        } else if (kind < 23) {
            model_.hasPeriodShortcut = below(4) > 0;
            stage_.platform.userDefaults.setBool(preferences::kPeriodShortcut, model_.hasPeriodShortcut);
        } else if (kind < 25) {
            stage_.controller->changeKeyboardSetting(VorpelIMESettings::KEYPAD_CLICK_SOUND, below(2) == 0);
        } else {
            stage_.platform.settle();
        }
    }

    void hostSets() {
        if (below(3) == 0) {
            constexpr platform::KeyboardType FIELDS[] = {
                platform::KeyboardType::Default, platform::KeyboardType::Url,
                platform::KeyboardType::EmailAddress, platform::KeyboardType::NumberPad};
            constexpr platform::ReturnKeyType RETURNS[] = {platform::ReturnKeyType::Default,
                                                           platform::ReturnKeyType::Next,
                                                           platform::ReturnKeyType::Send};
            field_ = below(4);
            return_ = below(3);
            model_.capitals = static_cast<platform::AutocapitalizationType>(below(4));
            stage_.setTraits(FIELDS[field_], RETURNS[return_], model_.capitals);
        }
        const std::string text = TEXTS[below(static_cast<int>(std::size(TEXTS)))];
        const auto cursor = static_cast<std::size_t>(below(2) ? 100 : below(4));
        model_.hostSets(text, cursor, pageOfField());
        stage_.field().setText(text);
        stage_.field().setCursor(cursor);
        stage_.controller->textDidChange();
    }

    void rotate() {
        isLandscape_ = !isLandscape_;
        model_.layOut(pageOfField());
        stage_.rotate(isLandscape_ ? InterfaceOrientation::Landscape : InterfaceOrientation::Portrait);
    }

    [[nodiscard]] int pageOfField() const {
        constexpr int FIELD_PAGES[] = {0, 6, 3};
        constexpr int RETURN_PAGES[] = {0, 10, 50};
        const int page = field_ == 3 ? 1 : FIELD_PAGES[field_] + RETURN_PAGES[return_];
        return page + (isLandscape_ ? 100 : 0);
    }

    void expectSame() {
        std::string text;
        for (const std::string& character : model_.text) text += character;
        EXPECT_EQ(stage_.text(), text);
        EXPECT_EQ(stage_.field().cursor(), model_.cursor);
        EXPECT_EQ(stage_.controller->currentMode(), model_.page);
        EXPECT_EQ("dEL"[static_cast<int>(stage_.controller->shiftState())], model_.shift);
        EXPECT_EQ(stage_.keys().ownedTouchCount(), model_.heldKeys());
    }

    /// All fingers are lifted, and a while later nothing may be left of them.
    void rest() {
        for (int finger = 0; finger < FINGERS; ++finger) {
            below(2) ? up(finger) : cancel(finger);
        }
        wait(1);
        expectSame();
        EXPECT_EQ(stage_.window.touchCount(), 0U);
        EXPECT_EQ(stage_.keys().ownedTouchCount(), 0U);
        EXPECT_EQ(stage_.timers(), 0U);
        EXPECT_EQ(stage_.popups(), 0U);
        EXPECT_TRUE(stage_.highlighted().empty());
        for (ui::View* const view : stage_.keys().subviews()) {
            const Key* const key = stage_.controller->plane().layout->keyForView(*view);
            if (!key || key->type != Key::KeyType::Shift || view->isHidden()) continue;
            EXPECT_EQ(static_cast<KeyboardKey*>(view)->isHighlighted(), model_.shift != 'd');
        }
    }

    std::mt19937 random_;
    Stage stage_;
    TypingModel model_;
    std::map<int, ui::Point> places_;
    ui::Point lastDown_;
    bool isLandscape_ = false;
    int field_ = 0;
    int return_ = 0;
};

TEST(RandomTouches, LeaveNothingBehindAndTypeWhatAPlainModelTypes) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        for (const Kind kind : {Kind::Embedded, Kind::Plain}) {
            SCOPED_TRACE((kind == Kind::Plain ? "plain, seed " : "embedded, seed ") + std::to_string(seed));
            RandomFingers(seed, kind).play(12500);
        }
    }
}

}  // namespace
}  // namespace vorpel
