// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/forwarding_view.h"
#include "keyboard/keys/shapes.h"
#include "keyboard/layout/keyboard_layout.h"
#include "keyboard/model/default_keyboard.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/hex_color.h"
#include "support/deterministic_platform.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <set>

namespace vorpel {
namespace {

using KeyType = Key::KeyType;

/// A layout that may give each key a view of its own.
class SwitchedLayout final : public KeyboardLayout {
public:
    SwitchedLayout(const LayoutParts& parts, const Keyboard& model, ui::View& superview, ui::View& popups,
                   bool pools)
        : KeyboardLayout(parts, model, superview, popups), pools_(pools) {}

    [[nodiscard]] bool shouldPoolKeys() const override { return pools_; }

private:
    bool pools_;
};

/// The keys of one language on a screen, without a controller.
class LayoutStage {
public:
    LayoutStage(Keyboard keyboard, const testing::PlatformShape& shape, bool pools = true)
        : platform(shape), model(std::move(keyboard)) {
        wordengine::Diagnostics::setStream(nullptr);
        layout = std::make_unique<SwitchedLayout>(
            LayoutParts{constants, colors, platform.screen, platform.bundle, platform.userDefaults}, model,
            keys, popups, pools);
        setSize(shape.width, 216);
    }

    /// The keys', and with them the screen's width.
    void setSize(double width, double height) {
        platform.screen.setSize(width, platform.screen.boundsHeight());
        keys.setFrame({0, 0, width, height});
        popups.setFrame({0, 0, width, height});
    }

    void show(int page, ShiftState state = ShiftState::Disabled) {
        const bool isUpper = uppercase(state);
        layout->layoutKeys(page, isUpper, isUpper, state, nullptr);
    }

    [[nodiscard]] std::vector<const Key*> keysOf(int page) const {
        std::vector<const Key*> all;
        for (const KeyRow& row : model.pages.at(static_cast<std::size_t>(page)).rows) {
            for (const auto& key : row) all.push_back(key.get());
        }
        return all;
    }

    testing::DeterministicPlatform platform;
    LayoutConstants constants{platform.screen, platform.device};
    GlobalColors colors;
    Keyboard model;
    ui::View popups;
    ForwardingView keys{platform.runLoop, platform.notificationCenter};
    std::unique_ptr<SwitchedLayout> layout;
};

const testing::PlatformShape WITH_IMAGES = {
    375, 667, 2, platform::UserInterfaceIdiom::Phone, "", {VORPEL_SOURCE_DIR "/data/images"}};

/// Every key of the page has one view of its own, visible, at its frame; nothing else is visible.
void expectShown(LayoutStage& stage, int page) {
    KeyFrameLayout geometry(stage.constants, stage.platform.screen);
    geometry.otherTypeKeyWidth = stage.layout->otherTypeKeyWidth;
    const auto frames = geometry.generateKeyFrames(stage.model, stage.keys.bounds(), page);
    std::set<const ui::View*> expected;
    for (const auto& [key, frame] : frames.value()) {
        const KeyboardKey* const view = stage.layout->viewForKey(*key);
        ASSERT_TRUE(view);
        ASSERT_EQ(view->frame(), frame);
        ASSERT_EQ(stage.layout->keyForView(*view), key);
        ASSERT_TRUE(expected.insert(view).second) << "two keys share a view";
    }
    std::set<const ui::View*> visible;
    for (const ui::View* const view : stage.keys.subviews()) {
        if (!view->isHidden()) visible.insert(view);
    }
    ASSERT_EQ(visible, expected);
}

class LayoutViewsTest : public ::testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(Pooling, LayoutViewsTest, ::testing::Values(true, false));

TEST_P(LayoutViewsTest, FollowRandomChangesOfPageAndSize) {
    constexpr ui::Size SIZES[] = {{320, 216}, {375, 216}, {667, 162}, {844, 162}};
    LayoutStage stage(arabicKeyboard(0, 0), {}, GetParam());
    std::vector<int> pages;
    std::size_t keysInAll = 0;
    for (int page = 0; page < 159; ++page) {
        const std::size_t count = stage.keysOf(page).size();
        if (count > 0) pages.push_back(page);
        keysInAll += count;
    }
    std::mt19937 random(4);  // NOLINT(cert-msc51-cpp): the same run each time
    std::size_t mostKeys = 0;
    for (int turn = 0; turn < 300; ++turn) {
        const int page = pages[random() % pages.size()];
        if (random() % 4 == 0) {
            const ui::Size size = SIZES[random() % std::size(SIZES)];
            stage.setSize(size.width, size.height);
        }
        stage.show(page);
        mostKeys = std::max(mostKeys, stage.keysOf(page).size());
        ASSERT_NO_FATAL_FAILURE(expectShown(stage, page)) << "turn " << turn << " page " << page;
        ASSERT_EQ(stage.keys.subviews().size(), GetParam() ? mostKeys : keysInAll);
    }
}

TEST(LayoutGeometry, IsOfTheKeysThatTypeButForReturn) {
    LayoutStage stage(defaultKeyboard(0, 0), {});
    for (const int page : {0, 5, 8, 152}) {
        std::map<const Key*, std::string> expected;
        for (const Key* const key : stage.keysOf(page)) {
            if (key->hasOutput() && !key->isReturn()) expected[key] = key->outputForCase(false);
        }
        std::map<const Key*, std::string> handed;
        stage.layout->layoutKeys(page, true, true, ShiftState::Enabled, [&](const PageGeometry& geometry) {
            for (std::size_t i = 0; i < geometry.keys.size(); ++i) {
                handed[geometry.keys[i]] = geometry.characters.at(i);
                EXPECT_EQ(stage.layout->viewForKey(*geometry.keys[i])->frame(), geometry.frames.at(i));
            }
        });
        EXPECT_EQ(handed, expected) << page;
    }
}

TEST(LayoutFaces, ShowImageShapeOrCapByTypeAndShift) {
    struct {
        KeyType type;
        const char* image;
    } const images[] = {{KeyType::Return_Search, "search_keyboard"},
                        {KeyType::Return_Done, "done"},
                        {KeyType::Return_Send, "send"},
                        {KeyType::LaunchEmoji, "emoji-dark"},
                        {KeyType::dismiss_Self, "closekeyboard"}};
    LayoutStage stage(defaultKeyboard(0, 0), WITH_IMAGES);
    for (const ShiftState state : {ShiftState::Disabled, ShiftState::Enabled, ShiftState::Locked}) {
        for (const int page : {0, 30, 40, 50, 1, 6, 100, 152}) {
            stage.show(page, state);
            for (const Key* const key : stage.keysOf(page)) {
                const auto& view = static_cast<ImageKey&>(*stage.layout->viewForKey(*key));
                const auto* const found =
                    std::ranges::find(images, key->type, [](const auto& i) { return i.type; });
                const std::string image = found == std::end(images) ? "" : found->image;
                EXPECT_EQ(std::filesystem::path(view.image()).stem(), image) << page;
                const auto* const shift = dynamic_cast<const ShiftShape*>(view.shape());
                const bool isBackspace = dynamic_cast<const BackspaceShape*>(view.shape());
                const bool isGlobe = dynamic_cast<const GlobeShape*>(view.shape());
                EXPECT_EQ(shift != nullptr, key->type == KeyType::Shift);
                EXPECT_EQ(isBackspace, key->type == KeyType::Backspace);
                EXPECT_EQ(isGlobe, key->type == KeyType::KeyboardChange);
                EXPECT_EQ(view.text(), key->keyCapForCase(uppercase(state)));
                EXPECT_EQ(view.isHighlighted(), shift && uppercase(state));
                EXPECT_EQ(shift && shift->withLock(), shift && state == ShiftState::Locked);
            }
        }
    }
}

/// The face of a key at rest, by its kind.
ui::Color expectedFace(const GlobalColors& colors, const Key& key, bool dark) {
    // A return key that does more than end a line stands out.
    if (key.isReturn() && key.type != KeyType::Return) return colors.returnKeySolidBlueColor();
    if (key.isCharacter() || key.isSpace()) {
        return dark ? colors.darkModeRegularKey() : colors.lightModeRegularKey();
    }
    return dark ? colors.darkModeSpecialKey() : colors.lightModeSpecialKey();
}

TEST(LayoutFaces, HaveTheColoursOfTheLook) {
    LayoutStage stage(defaultKeyboard(0, 0), {});
    const GlobalColors& colors = stage.colors;
    for (const bool dark : {false, true}) {
        for (const int page : {0, 24, 130, 140, 156}) {
            stage.show(page);
            stage.layout->setLook(dark, false);
            stage.layout->updateKeyAppearance();
            for (const Key* const key : stage.keysOf(page)) {
                const KeyColors& shown = stage.layout->viewForKey(*key)->colors();
                EXPECT_EQ(shown.face, expectedFace(colors, *key, dark)) << page;
                EXPECT_EQ(shown.popup, dark ? colors.darkModePopup() : colors.lightModePopup());
                EXPECT_EQ(shown.under, dark ? colors.darkModeUnderColor() : colors.lightModeUnderColor());
                if (key->type == KeyType::Shift && dark) {
                    EXPECT_EQ(shown.faceDown, colors.darkModeShiftKeyDown());
                }
                if (!key->isReturn()) {
                    EXPECT_EQ(shown.text, dark ? colors.darkModeTextColor() : colors.lightModeTextColor());
                }
            }
        }
    }
}

TEST(LayoutTheme, ColoursAllKeysWhileItIsOn) {
    LayoutStage stage(defaultKeyboard(0, 0), {});
    auto& stored = stage.platform.userDefaults;
    stored.setString(preferences::KEY_COLOR, "#102030");
    stored.setString(preferences::KEY_TEXT_COLOR, "#F0F1F2");
    stored.setString(preferences::KEY_BORDER_COLOR, "#405060");
    stored.setString(preferences::KEY_UNDER_LINE_COLOR, "#708090");
    stage.show(150);
    const KeyColors plain = stage.layout->viewForKey(*stage.keysOf(150)[0])->colors();
    stored.setBool(preferences::IS_KEYBOARD_THEME, true);
    stage.layout->updateKeyAppearance();
    for (const Key* const key : stage.keysOf(150)) {
        const KeyColors& shown = stage.layout->viewForKey(*key)->colors();
        const ui::Color color = hexStringToUIColor("#102030");
        const bool isLetter = key->isCharacter() || key->type == Key::KeyType::Space;
        EXPECT_EQ(shown.face, isLetter ? color : color.withAlpha(0.5));
        EXPECT_EQ(shown.popup, color);
        EXPECT_EQ(shown.text, hexStringToUIColor("#F0F1F2"));
        EXPECT_EQ(shown.border, hexStringToUIColor("#405060"));
        EXPECT_EQ(shown.under, hexStringToUIColor("#708090"));
    }
    stored.setBool(preferences::IS_KEYBOARD_THEME, false);
    stage.layout->updateKeyAppearance();
    EXPECT_EQ(stage.layout->viewForKey(*stage.keysOf(150)[0])->colors(), plain);
}

}  // namespace
}  // namespace vorpel
