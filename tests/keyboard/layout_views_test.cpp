// SPDX-License-Identifier: Apache-2.0
#include "keyboard/keys/shapes.h"
#include "keyboard/layout_stage.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/hex_color.h"
#include "keyboard/trace_capture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <set>

namespace vorpel {
namespace {

using KeyType = Key::KeyType;
using testing::LayoutStage;
using testing::Pooling;

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

class LayoutViewsTest : public ::testing::TestWithParam<Pooling> {};
INSTANTIATE_TEST_SUITE_P(Pooling, LayoutViewsTest, ::testing::Values(Pooling::On, Pooling::Off));

TEST_P(LayoutViewsTest, FollowRandomChangesOfPageAndSize) {
    constexpr ui::Size SIZES[] = {{320, 216}, {375, 216}, {667, 162}, {844, 162}};
    LayoutStage stage(arabicKeyboard(0, 0), {}, GetParam());
    const std::vector<int> pages = testing::pagesWithKeys(stage.model);
    std::size_t keysInAll = 0;
    for (const int page : pages) keysInAll += stage.keysOf(page).size();
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
        ASSERT_EQ(stage.keys.subviews().size(), GetParam() == Pooling::On ? mostKeys : keysInAll);
    }
}

TEST_P(LayoutViewsTest, NoPopupAndNoHighlightOutlastsAPage) {
    LayoutStage stage(defaultKeyboard(0, 0), {}, GetParam());
    for (const int next : {6, 8, 9, 0, 100}) {
        stage.show(0);
        for (const Key* const key : stage.keysOf(0)) {
            stage.layout->viewForKey(*key)->showPopup();
            stage.layout->viewForKey(*key)->setHighlighted(true);
        }
        EXPECT_GE(stage.popups.subviews().size(), 26U);
        stage.show(next);
        EXPECT_TRUE(stage.popups.subviews().empty()) << next;
        for (const Key* const key : stage.keysOf(next)) {
            EXPECT_FALSE(stage.layout->viewForKey(*key)->isHighlighted());
        }
    }
}

TEST_P(LayoutViewsTest, BoundsWithoutSizeChangeNothing) {
    LayoutStage stage(defaultKeyboard(0, 0), {}, GetParam());
    stage.setSize(375, 0);
    stage.show(0);
    EXPECT_TRUE(stage.keys.subviews().empty());
    stage.setSize(375, 216);
    stage.show(0);
    expectShown(stage, 0);
    const ui::Rect before = stage.layout->viewForKey(*stage.keysOf(0)[0])->frame();
    stage.setSize(320, 0);
    std::size_t handed = 1;
    stage.layout->layoutKeys(0, false, false, ShiftState::Disabled,
                             [&](const PageGeometry& geometry) { handed = geometry.keys.size(); });
    EXPECT_EQ(handed, 0U);
    EXPECT_EQ(stage.layout->viewForKey(*stage.keysOf(0)[0])->frame(), before);
}

// A view is measured anew only when none of its size is free.
TEST(LayoutPool, ViewsOfTheRightSizeComeFirst) {
    LayoutStage stage(defaultKeyboard(0, 0), {});
    stage.show(0);
    std::map<const ui::View*, ui::Size> before;
    for (const ui::View* const view : stage.keys.subviews()) before[view] = view->frame().size();
    stage.show(6);
    std::multiset<std::pair<double, double>> free;
    for (const auto& [view, size] : before) free.emplace(size.width, size.height);
    std::size_t fitting = 0;
    std::size_t kept = 0;
    for (const Key* const key : stage.keysOf(6)) {
        const KeyboardKey* const view = stage.layout->viewForKey(*key);
        const ui::Size size = view->frame().size();
        const auto found = free.find({size.width, size.height});
        if (found != free.end()) {
            free.erase(found);
            ++fitting;
        }
        if (before.contains(view) && before[view] == size) ++kept;
    }
    EXPECT_GT(fitting, 20U);
    EXPECT_EQ(kept, fitting);
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
            ASSERT_EQ(geometry.keys.size(), geometry.frames.size());
            ASSERT_EQ(geometry.keys.size(), geometry.characters.size());
            for (std::size_t i = 0; i < geometry.keys.size(); ++i) {
                handed[geometry.keys[i]] = geometry.characters[i];
                EXPECT_EQ(stage.layout->viewForKey(*geometry.keys[i])->frame(), geometry.frames[i]);
            }
        });
        EXPECT_EQ(handed, expected) << page;
    }
}

TEST(LayoutGeometry, IsToldInOneLine) {
    LayoutStage stage(defaultKeyboard(0, 0), {});
    stage.silence.reset();
    const testing::TraceCapture trace;
    stage.show(3);
    std::string lines = trace.text();
    const std::string head = "check width 375\n";
    ASSERT_EQ(lines.substr(0, head.size()), head);
    lines.erase(0, head.size());
    std::ranges::sort(lines);
    EXPECT_EQ(lines, "\n .@abcdefghijklmnopqrstuvwxyz");
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

TEST(LayoutFaces, CharactersMayStayCapitalsWhileOtherCapsDoNot) {
    LayoutStage stage(defaultKeyboard(0, 0), {});
    stage.show(0);
    const Key* const q = stage.keysOf(0).front();
    struct {
        bool uppercase;
        bool characterUppercase;
        const char* cap;
    } const cases[] = {{false, true, "Q"}, {true, false, "q"}, {true, true, "Q"}, {false, false, "q"}};
    for (const auto& [uppercase, characterUppercase, cap] : cases) {
        stage.layout->updateKeyCaps(false, uppercase, characterUppercase, ShiftState::Disabled);
        EXPECT_EQ(stage.layout->viewForKey(*q)->text(), cap);
    }
}

/// The face of a key at rest, by its kind.
ui::Color expectedFace(const GlobalColors& colors, const Key& key, bool dark, bool solid) {
    if (key.isCharacter() || key.isSpace()) return colors.regularKey(dark, solid);
    // A return key that does more than end a line stands out.
    const bool standsOut = key.isReturn() && key.type != KeyType::Return;
    return standsOut ? colors.returnKeySolidBlueColor() : colors.specialKey(dark, solid);
}

TEST_P(LayoutViewsTest, ColoursAreThoseOfTheLook) {
    LayoutStage stage(defaultKeyboard(0, 0), {}, GetParam());
    const GlobalColors& colors = stage.colors;
    for (const bool dark : {false, true}) {
        for (const bool solid : {false, true}) {
            for (const int page : {0, 24, 130, 140, 156}) {
                stage.show(page);
                stage.layout->setLook(dark, solid);
                stage.layout->updateKeyAppearance();
                for (const Key* const key : stage.keysOf(page)) {
                    const KeyColors& shown = stage.layout->viewForKey(*key)->colors();
                    EXPECT_EQ(shown.face, expectedFace(colors, *key, dark, solid)) << page;
                    EXPECT_EQ(shown.popup, colors.popup(dark, solid));
                    EXPECT_EQ(shown.under, dark ? colors.darkModeUnderColor() : colors.lightModeUnderColor());
                    if (key->type == KeyType::Shift && dark) {
                        EXPECT_EQ(shown.faceDown, colors.darkModeShiftKeyDown());
                    }
                    if (!key->isReturn()) {
                        EXPECT_EQ(shown.text,
                                  dark ? colors.darkModeTextColor() : colors.lightModeTextColor());
                    }
                }
            }
        }
    }
}

TEST(LayoutTheme, ColoursAllKeysWhileItIsOn) {
    LayoutStage stage(defaultKeyboard(0, 0), {});
    auto& stored = stage.platform.userDefaults;
    const std::pair<const char*, const char*> theme[] = {{preferences::KEY_COLOR, "#102030"},
                                                         {preferences::KEY_TEXT_COLOR, "#F0F1F2"},
                                                         {preferences::KEY_BORDER_COLOR, "#405060"},
                                                         {preferences::KEY_UNDER_LINE_COLOR, "#708090"}};
    for (const auto& [key, color] : theme) stored.setString(key, color);
    stage.show(150);
    const KeyColors plain = stage.layout->viewForKey(*stage.keysOf(150)[0])->colors();
    EXPECT_EQ(plain.face, stage.colors.specialKey(false, false));
    stored.setBool(preferences::IS_KEYBOARD_THEME, true);
    stage.layout->updateKeyAppearance();
    for (const Key* const key : stage.keysOf(150)) {
        const KeyColors& shown = stage.layout->viewForKey(*key)->colors();
        EXPECT_EQ(shown.face, hexStringToUIColor("#102030"));
        EXPECT_EQ(shown.text, hexStringToUIColor("#F0F1F2"));
        EXPECT_EQ(shown.border, hexStringToUIColor("#405060"));
        EXPECT_EQ(shown.under, hexStringToUIColor("#708090"));
    }
    // What the theme does not say stays as it was; without the theme all does.
    stored.removeObject(preferences::KEY_BORDER_COLOR);
    stage.layout->updateKeyAppearance();
    EXPECT_EQ(stage.layout->viewForKey(*stage.keysOf(150)[0])->colors().border, plain.border);
    stored.setBool(preferences::IS_KEYBOARD_THEME, false);
    stage.layout->updateKeyAppearance();
    EXPECT_EQ(stage.layout->viewForKey(*stage.keysOf(150)[0])->colors(), plain);
}

}  // namespace
}  // namespace vorpel
