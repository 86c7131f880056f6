// SPDX-License-Identifier: Apache-2.0
#include "event_translation.h"

#include <gtest/gtest.h>

#include <optional>

namespace vorpel::playground {

namespace {

using Phase = Touched::Phase;

/// Events as SDL makes them, for a window of 400 x 800 points, each two units wide.
class EventTranslationTest : public ::testing::Test {
protected:
    EventTranslationTest() { translation.setMeasures({400, 800}, 2); }

    std::optional<InputEvent> mouse(SDL_EventType type, int x, int y, Uint8 button = SDL_BUTTON_LEFT,
                                    Uint32 source = 0) {
        SDL_Event event{};
        event.type = type;
        if (type == SDL_MOUSEMOTION) {
            event.motion.which = source;
            event.motion.x = x;
            event.motion.y = y;
        } else {
            event.button.which = source;
            event.button.button = button;
            event.button.x = x;
            event.button.y = y;
        }
        return translation.translate(event);
    }

    std::optional<InputEvent> finger(SDL_EventType type, SDL_FingerID id, float x, float y,
                                     SDL_TouchID device = 7) {
        SDL_Event event{};
        event.type = type;
        event.tfinger.touchId = device;
        event.tfinger.fingerId = id;
        event.tfinger.x = x;
        event.tfinger.y = y;
        return translation.translate(event);
    }

    static constexpr SDL_TouchID TOUCHPAD = 9;
    EventTranslation translation{[](SDL_TouchID device) { return device != TOUCHPAD; }};
};

void expectTouch(const std::optional<InputEvent>& event, Phase phase, ui::Point point) {
    ASSERT_TRUE(event && std::holds_alternative<Touched>(*event));
    EXPECT_EQ(std::get<Touched>(*event).phase, phase);
    EXPECT_EQ(std::get<Touched>(*event).point, point);
}

int fingerOf(const std::optional<InputEvent>& event) {
    return std::get<Touched>(event.value()).finger;
}

TEST_F(EventTranslationTest, TheMouseIsAFingerWhileItsFirstButtonIsHeld) {
    expectTouch(mouse(SDL_MOUSEBUTTONDOWN, 20, 30), Phase::Down, {10, 15});
    EXPECT_FALSE(mouse(SDL_MOUSEBUTTONDOWN, 20, 30, SDL_BUTTON_RIGHT));
    expectTouch(mouse(SDL_MOUSEMOTION, 40, -2), Phase::Moved, {20, -1});
    EXPECT_FALSE(mouse(SDL_MOUSEBUTTONUP, 20, 30, SDL_BUTTON_RIGHT));
    expectTouch(mouse(SDL_MOUSEBUTTONUP, 50, 60), Phase::Up, {25, 30});
    EXPECT_FALSE(mouse(SDL_MOUSEMOTION, 10, 10));
}

TEST_F(EventTranslationTest, FingersAreToldApartFromDownToUp) {
    const auto first = finger(SDL_FINGERDOWN, 1, 0.5F, 0.25F);
    expectTouch(first, Phase::Down, {200, 200});
    const auto second = finger(SDL_FINGERDOWN, 2, 0, 1);
    EXPECT_NE(fingerOf(first), fingerOf(second));
    expectTouch(finger(SDL_FINGERMOTION, 1, 0.75F, 0.25F), Phase::Moved, {300, 200});
    const auto up = finger(SDL_FINGERUP, 1, 0.75F, 0.25F);
    expectTouch(up, Phase::Up, {300, 200});
    EXPECT_EQ(fingerOf(up), fingerOf(first));
    EXPECT_EQ(fingerOf(finger(SDL_FINGERUP, 2, 0, 1)), fingerOf(second));
    // Systems give the same number to the next finger.
    EXPECT_NE(fingerOf(finger(SDL_FINGERDOWN, 1, 0, 0)), fingerOf(first));
}

TEST_F(EventTranslationTest, ATouchThatIsReportedAsAMouseTooIsOneTouch) {
    EXPECT_TRUE(finger(SDL_FINGERDOWN, 1, 0, 0));
    EXPECT_FALSE(mouse(SDL_MOUSEBUTTONDOWN, 0, 0, SDL_BUTTON_LEFT, SDL_TOUCH_MOUSEID));
    EXPECT_FALSE(finger(SDL_FINGERDOWN, 1, 0, 0, SDL_MOUSE_TOUCHID));
    EXPECT_FALSE(finger(SDL_FINGERDOWN, 1, 0, 0, TOUCHPAD)) << "it moves the pointer";
}

TEST_F(EventTranslationTest, AWindowThatGoesAwayTakesItsTouchesAlong) {
    EXPECT_TRUE(mouse(SDL_MOUSEBUTTONDOWN, 0, 0));
    EXPECT_TRUE(finger(SDL_FINGERDOWN, 1, 0, 0));
    SDL_Event lost{};
    lost.type = SDL_WINDOWEVENT;
    lost.window.event = SDL_WINDOWEVENT_FOCUS_LOST;
    const auto event = translation.translate(lost);
    EXPECT_TRUE(event && std::holds_alternative<TouchesLost>(*event));
    EXPECT_FALSE(mouse(SDL_MOUSEBUTTONUP, 0, 0));
    EXPECT_FALSE(finger(SDL_FINGERUP, 1, 0, 0));
}

}  // namespace

}  // namespace vorpel::playground
