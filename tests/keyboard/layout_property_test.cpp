// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/key_frame_layout.h"
#include "keyboard/model/default_keyboard.h"
#include "keyboard/model/page_number.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorpel {
namespace {

using platform::UserInterfaceIdiom;

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
                for (std::size_t page = 0; page < model.pages.size(); ++page) {
                    if (model.pages[page].rows.empty()) continue;
                    ASSERT_NO_FATAL_FAILURE(expectSound(model, layout, static_cast<int>(page), width, form));
                }
            }
        }
    }
}

}  // namespace
}  // namespace vorpel
