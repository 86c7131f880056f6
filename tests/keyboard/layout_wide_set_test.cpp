// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/vorpel_keyboard_view_controller.h"
#include "keyboard/model/default_keyboard.h"
#include "keyboard/model/preference_keys.h"
#include "support/deterministic_platform.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

using platform::InterfaceOrientation;
using platform::UserInterfaceIdiom;
using testing::DeterministicPlatform;

/// The keyboard that hosts embed, on a device of that size that may be turned.
class WideSetStage {
public:
    WideSetStage(double width, double height, UserInterfaceIdiom idiom)
        : platform({width, height, 2, idiom, "", {}}),
          keyboard(VorpelKeyboardViewController::create(platform.platform)) {
        platform.userDefaults.setString(preferences::LANGUAGE, preferences::ENGLISH);
        turn(InterfaceOrientation::Portrait);
    }

    /// Some hosts tell of the rotation and then lay out, some the other way round.
    void turn(InterfaceOrientation orientation, bool laysOutFirst = false) {
        platform.host.orientation = orientation;
        platform.screen.setTurned(orientation == InterfaceOrientation::Landscape);
        if (laysOutFirst) layOut();
        keyboard->didRotate();
        layOut();
    }

    void resize(double width, double height) {
        platform.screen.setSize(width, height);
        layOut();
    }

    [[nodiscard]] double extraWidth() const {
        const KeyPlane& plane = keyboard->plane();
        const Page& page = plane.model.pages.at(static_cast<std::size_t>(keyboard->currentMode()));
        return plane.layout->viewForKey(*page.rows[0].front())->frame().width;
    }

    wordengine::Diagnostics::Silence silence;
    DeterministicPlatform platform;
    std::unique_ptr<VorpelKeyboardViewController> keyboard;

private:
    void layOut() {
        const double height =
            keyboard->getheightForOrientation(platform.host.orientation, true, false, false, true);
        keyboard->view().setFrame({0, 0, platform.screen.boundsWidth(), height});
        keyboard->viewDidLayoutSubviews();
    }
};

/// What the extra keys measure at a width that nothing was laid out for before.
double freshExtraWidth(double width) {
    const wordengine::Diagnostics::Silence silence;
    const platform::PlainScreen screen(width, 375, 2);
    const platform::PlainDevice phone;
    const LayoutConstants constants(screen, phone);
    KeyFrameLayout layout(constants, screen);
    layout.generateKeyFrames(defaultKeyboard(0, 0), {0, 0, width, 162}, 100);
    return layout.otherTypeKeyWidth;
}

TEST(WideSet, IsShownOnAPhoneHeldSidewaysThatHasRoom) {
    struct {
        double width;  // upright
        double height;
        UserInterfaceIdiom idiom;
        bool isWide;
    } const devices[] = {
        {320, 568, UserInterfaceIdiom::Phone, false}, {375, 605, UserInterfaceIdiom::Phone, false},
        {375, 606, UserInterfaceIdiom::Phone, true},  {375, 667, UserInterfaceIdiom::Phone, true},
        {428, 926, UserInterfaceIdiom::Phone, true},  {768, 1024, UserInterfaceIdiom::Pad, false}};
    for (const auto& [width, height, idiom, isWide] : devices) {
        WideSetStage stage(width, height, idiom);
        EXPECT_EQ(stage.keyboard->currentMode(), 0) << height;
        stage.turn(InterfaceOrientation::Landscape);
        EXPECT_EQ(stage.keyboard->currentMode(), isWide ? 100 : 0) << height;
        stage.turn(InterfaceOrientation::Portrait);
        EXPECT_EQ(stage.keyboard->currentMode(), 0) << height;
    }
}

TEST(WideSet, IsMeasuredAnewForEachWidth) {
    for (const bool laysOutFirst : {false, true}) {
        WideSetStage stage(375, 667, UserInterfaceIdiom::Phone);
        stage.turn(InterfaceOrientation::Landscape, laysOutFirst);
        EXPECT_EQ(stage.extraWidth(), freshExtraWidth(667)) << laysOutFirst;
        for (const double width : {926.0, 606.0, 844.0}) {
            stage.resize(375, width);
            EXPECT_EQ(stage.extraWidth(), freshExtraWidth(width)) << laysOutFirst << " " << width;
        }
        stage.turn(InterfaceOrientation::Portrait, laysOutFirst);
        stage.turn(InterfaceOrientation::Landscape, laysOutFirst);
        EXPECT_EQ(stage.extraWidth(), freshExtraWidth(844)) << laysOutFirst;
    }
    EXPECT_GT(freshExtraWidth(926), freshExtraWidth(606));
    EXPECT_GT(freshExtraWidth(606), 0);
}

}  // namespace
}  // namespace vorpel
