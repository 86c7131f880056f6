// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel {

enum class WidthSet { Ordinary = 0, Wide = 1 };
enum class FieldFamily { Text = 0, Email = 1, Url = 2 };
enum class PageMode { Letters = 0, Numbers = 1, Symbols = 2 };

/// What the return key of a page is for.
enum class ReturnFamily { Default = 0, Next = 1, Go = 2, Search = 3, Done = 4, Send = 5 };

/// The four choices that make a page. Pages are stored and led to by number:
/// 100 x width set + 10 x return family + 3 x field family + mode.
struct PageNumber {
    WidthSet width = WidthSet::Ordinary;
    ReturnFamily returnFamily = ReturnFamily::Default;
    FieldFamily field = FieldFamily::Text;
    PageMode mode = PageMode::Letters;

    [[nodiscard]] constexpr int value() const {
        return 100 * static_cast<int>(width) + 10 * static_cast<int>(returnFamily) +
               3 * static_cast<int>(field) + static_cast<int>(mode);
    }
    [[nodiscard]] constexpr bool isWide() const { return width == WidthSet::Wide; }
    [[nodiscard]] constexpr bool isLetters() const { return mode == PageMode::Letters; }
};

/// The first page of the wide set.
constexpr int FIRST_WIDE_PAGE = 100;

}  // namespace vorpel
