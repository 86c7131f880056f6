// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/emoji_coverage.h"
#include "ui/cairo/emoji_font.h"

#include <optional>
#include <string>

namespace vorpel::ui {

/// What the emoji font that text is drawn with has pictures of. The font is opened when it is first asked;
/// after that a whole page of emoji can be asked about at once.
class FontEmojiCoverage final : public platform::EmojiCoverage {
public:
    [[nodiscard]] bool canDraw(const std::string& emoji) const override {
        if (!font_) font_.emplace();
        return font_->glyphOf(emoji).has_value();
    }

private:
    mutable std::optional<EmojiFont> font_;
};

}  // namespace vorpel::ui
