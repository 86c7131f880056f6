// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout_stage.h"

#include <gtest/gtest.h>

#include <set>

namespace vorpel {
namespace {

using platform::UserInterfaceIdiom;
using testing::LayoutStage;

/// What a keyboard may be held in: the heights that phones and pads have, upright and sideways.
struct Form {
    double height;
    UserInterfaceIdiom idiom;
};
constexpr Form FORMS[] = {{216, UserInterfaceIdiom::Phone},
                          {226, UserInterfaceIdiom::Phone},
                          {162, UserInterfaceIdiom::Phone},
                          {264, UserInterfaceIdiom::Pad},
                          {352, UserInterfaceIdiom::Pad}};

/// A key where it lies on a page.
struct Placed {
    int page;
    const KeyRow& row;
    const Key& key;
    double width;  ///< of the view
    Form form;

    [[nodiscard]] bool isExtra() const { return row.front().get() == &key || row.back().get() == &key; }
    [[nodiscard]] bool isWide() const { return page >= FIRST_WIDE_PAGE; }
    [[nodiscard]] bool hasEmoji() const {
        return row[row.size() > 3 ? 3 : 0]->type == Key::KeyType::LaunchEmoji;
    }
};

enum class Fault { HasNoArea, LeavesTheView, OverlapsAnother };

/// Where the rules let a key have a fault. Each holds exactly: the fault is there when the condition is, and
/// on no other page. The wide set is not shown where they apply.
struct RuleException {
    const char* what;
    Fault fault;
    bool (*applies)(const Placed& placed);
};
constexpr RuleException EXCEPTIONS[] = {
    {"The extra keys of the wide set find no room on phones below 606 points and on pads: the other keys "
     "spread over the whole width.",
     Fault::HasNoArea,
     [](const Placed& placed) {
         const bool hasRoom = placed.form.idiom == UserInterfaceIdiom::Phone && placed.width >= 606;
         return placed.isWide() && placed.isExtra() && !hasRoom;
     }},
    {"The return key of a wide text page leaves the view where the bounds are upright: the emoji key has "
     "there a full width that the space key did not make room for.",
     Fault::LeavesTheView,
     [](const Placed& placed) {
         const bool isUpright = placed.width / placed.form.height < 2;
         return placed.isWide() && placed.hasEmoji() && placed.key.isReturn() && isUpright;
     }},
};

bool isExpected(Fault fault, const Placed& placed) {
    return std::ranges::any_of(EXCEPTIONS, [&](const RuleException& exception) {
        return exception.fault == fault && exception.applies(placed);
    });
}

/// Rounding to pixels that are no whole part of a point leaves traces.
constexpr double SLACK = 1e-9;

bool leaves(const ui::Rect& frame, const ui::Rect& bounds) {
    return frame.x < bounds.x - SLACK || frame.y < bounds.y - SLACK ||
           frame.right() > bounds.right() + SLACK || frame.bottom() > bounds.bottom() + SLACK;
}

bool overlaps(const KeyFrames& frames, const ui::Rect& frame, const Key* key) {
    return std::ranges::any_of(frames, [&](const auto& other) {
        return other.first != key && !other.second.isEmpty() &&
               frame.insetBy(SLACK, SLACK).intersects(other.second);
    });
}

void expectSound(const Keyboard& model, KeyFrameLayout& layout, int page, double width, const Form& form) {
    const ui::Rect bounds{0, 0, width, form.height};
    const KeyFrames frames = layout.generateKeyFrames(model, bounds, page).value();
    std::size_t next = 0;
    for (const KeyRow& row : model.pages.at(static_cast<std::size_t>(page)).rows) {
        for (const auto& key : row) {
            const ui::Rect& frame = frames.at(next++).second;
            const Placed placed{page, row, *key, width, form};
            const bool isEmpty = frame.isEmpty();
            const bool faults[] = {isEmpty, !isEmpty && leaves(frame, bounds),
                                   !isEmpty && overlaps(frames, frame, key.get())};
            for (const Fault fault : {Fault::HasNoArea, Fault::LeavesTheView, Fault::OverlapsAnother}) {
                ASSERT_EQ(faults[static_cast<int>(fault)], isExpected(fault, placed))
                    << "fault " << static_cast<int>(fault) << " page " << page << " " << width << " x "
                    << form.height << " key " << next << " at " << frame.x << " width " << frame.width;
            }
        }
    }
}

std::vector<double> manyWidths() {
    std::vector<double> widths = {360, 375, 390, 414, 428, 605, 606, 607, 667, 736, 1024};
    for (double width = 320; width <= 1024; width += 23) widths.push_back(width);
    return widths;
}

TEST(LayoutProperties, NoTwoKeysOverlapAndNoneLeavesTheView) {
    const wordengine::Diagnostics::Silence silence;
    constexpr double SCALES[] = {1, 1.5, 2, 3};
    const Keyboard models[] = {defaultKeyboard(0, 0), arabicKeyboard(0, 0)};
    std::size_t turn = 0;
    for (const double width : manyWidths()) {
        const platform::PlainScreen screen(width, 700, SCALES[turn++ % std::size(SCALES)]);
        for (const Form& form : FORMS) {
            const platform::PlainDevice device(form.idiom);
            const LayoutConstants constants(screen, device);
            for (const Keyboard& model : models) {
                KeyFrameLayout layout(constants, screen);
                for (const int page : testing::pagesWithKeys(model)) {
                    ASSERT_NO_FATAL_FAILURE(expectSound(model, layout, page, width, form));
                }
            }
        }
    }
}

/// Every point of a grid finds a key of the page that has an area, and every such key in the view is found.
void expectAllWithinReach(LayoutStage& stage, int page) {
    stage.show(page);
    const ui::Rect bounds = stage.keys.bounds();
    const std::vector<const Key*> keys = stage.keysOf(page);
    const std::set<const Key*> shown(keys.begin(), keys.end());
    const auto keyAt = [&](ui::Point point) -> const Key* {
        const ui::View* const view = stage.keys.findNearestView(point);
        return view && !view->frame().isEmpty() ? stage.layout->keyForView(*view) : nullptr;
    };
    constexpr int COLUMNS = 25;
    constexpr int ROWS = 9;
    for (int i = 0; i <= COLUMNS; ++i) {
        for (int j = 0; j <= ROWS; ++j) {
            // The far edges themselves are outside.
            const ui::Point point{i * (bounds.width - 0.01) / COLUMNS, j * (bounds.height - 0.01) / ROWS};
            ASSERT_TRUE(shown.contains(keyAt(point))) << "page " << page << " " << point.x << " " << point.y;
        }
    }
    for (const Key* const key : keys) {
        const ui::Rect frame = stage.layout->viewForKey(*key)->frame();
        const ui::Rect seen = frame.intersection(bounds);
        if (frame.isEmpty() || seen.isEmpty()) continue;
        ASSERT_EQ(keyAt(seen.center()), key) << "page " << page << " at " << frame.x << " " << frame.y;
    }
}

TEST(LayoutProperties, EveryPointFindsAKeyAndEveryKeyIsWithinReach) {
    struct {
        double width;
        Form form;
    } const sizes[] = {{320, FORMS[0]}, {375, FORMS[0]}, {414, FORMS[1]}, {568, FORMS[2]},
                       {606, FORMS[2]}, {844, FORMS[2]}, {768, FORMS[3]}, {1024, FORMS[4]}};
    for (const auto& [width, form] : sizes) {
        for (const bool isArabic : {false, true}) {
            LayoutStage stage(isArabic ? arabicKeyboard(0, 0) : defaultKeyboard(0, 0),
                              {width, 667, 2, form.idiom, "", {}});
            stage.setSize(width, form.height);
            for (const int page : testing::pagesWithKeys(stage.model)) {
                ASSERT_NO_FATAL_FAILURE(expectAllWithinReach(stage, page)) << width << " x " << form.height;
            }
        }
    }
}

}  // namespace
}  // namespace vorpel
