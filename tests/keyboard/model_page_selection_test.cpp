// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/page_selection.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

constexpr int STAYS = -1;

/// What a text field starts on, by return key: default, go, google, join, next, route, search, send, yahoo,
/// done, emergency call, continue, and one that nobody knows.
constexpr int TEXT_PAGES[] = {0, 20, STAYS, 20, 10, 20, 30, 50, STAYS, 40, STAYS, STAYS, STAYS};

int expectedPage(int keyboardType, int returnType, int width) {
    const bool isNumeric = keyboardType == 2 || keyboardType == 4 || keyboardType == 5 || keyboardType == 8;
    if (isNumeric) return width + 1;
    if (TEXT_PAGES[returnType] == STAYS) return STAYS;
    const int family = keyboardType == 3 ? 6 : keyboardType == 7 ? 3 : 0;
    return width + TEXT_PAGES[returnType] + family;
}

TEST(ModelPageSelection, FollowsFieldReturnKeyAndWidth) {
    for (int keyboardType = 0; keyboardType <= 11; ++keyboardType) {
        for (int returnType = 0; returnType <= 12; ++returnType) {
            for (const WidthSet width : {WidthSet::Ordinary, WidthSet::Wide}) {
                const int wide = width == WidthSet::Wide ? 100 : 0;
                const PageSelection selection = selectPage(keyboardType, returnType, width);
                const int expected = expectedPage(keyboardType, returnType, wide);
                EXPECT_EQ(selection.page.value_or(STAYS), expected) << keyboardType << " " << returnType;
                EXPECT_EQ(selection.isNumeric, expected == wide + 1) << keyboardType << " " << returnType;
            }
        }
    }
}

}  // namespace
}  // namespace vorpel
