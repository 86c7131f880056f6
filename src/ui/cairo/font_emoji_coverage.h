// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/emoji_coverage.h"
#include "ui/cairo/handles.h"

#include <pango/pango.h>

#include <hb.h>
#include <memory>
#include <string>

namespace vorpel::ui {

/// What the emoji font that text is drawn with has pictures of. The font is read when it is first asked;
/// after that a whole page of emoji can be asked about at once. Without that font nothing can be drawn.
class FontEmojiCoverage final : public platform::EmojiCoverage {
public:
    [[nodiscard]] bool canDraw(const std::string& emoji) const override;

private:
    struct BufferDeleter {
        void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
    };

    void read() const;

    mutable bool isRead_ = false;
    mutable ObjectHandle<PangoFont> font_;  // null where the family is not installed
    mutable std::unique_ptr<hb_buffer_t, BufferDeleter> buffer_;
};

}  // namespace vorpel::ui
