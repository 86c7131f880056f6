// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel {

/// Ways in which the keyboard that hosts embed may serve a person better than by the plain rules. All are
/// off unless asked for.
struct TypingOptions {
    /// One blank behind a corrected word, not the correction's and the key's; a sign goes to the word before
    /// a blank that the keyboard put in, and a space key right behind that blank adds none.
    bool smartSpacing = false;

    /// Where a key was touched reaches the word service, for each letter of the word.
    bool touchPoints = false;

    /// A backspace right behind a correction brings the typed word back, which is then left alone.
    bool undoOnBackspace = false;

    /// Words end at line ends, tabs and Arabic marks too, and an apostrophe between letters is part of the
    /// word; the previous word of a sentence is found behind several separators. A single capital is no
    /// shout.
    bool naturalWords = false;

    /// No word is shown twice, and none outlasts what it was for.
    bool distinctLabels = false;

    /// A letter key that is held offers what no page has.
    bool alternatives = false;

    [[nodiscard]] static constexpr TypingOptions all() {
        return {.smartSpacing = true,
                .touchPoints = true,
                .undoOnBackspace = true,
                .naturalWords = true,
                .distinctLabels = true,
                .alternatives = true};
    }
};

}  // namespace vorpel
