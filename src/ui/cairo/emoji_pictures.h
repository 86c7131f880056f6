// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/emoji_font.h"
#include "ui/cairo/handles.h"
#include "ui/cairo/recent_cache.h"

#include <cstddef>
#include <optional>
#include <string>

namespace vorpel::ui {

/// Pictures of emoji, made ready in pixels and remembered. The font is opened when the first is asked for.
/// One thread.
class EmojiPictures {
public:
    EmojiPictures() : pictures_(PICTURES_A_GENERATION) {}

    /// Of one emoji at a size of the font in pixels. Null where the font has no such picture in pixels. Valid
    /// until the next call.
    [[nodiscard]] cairo_surface_t* picture(const std::string& emoji, double size);

private:
    // Some screens of emoji; each takes about 50 kB at three pixels a point.
    static constexpr std::size_t PICTURES_A_GENERATION = 192;

    struct Key {
        std::string emoji;
        double size = 0;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };

    [[nodiscard]] SurfaceHandle make(const Key& key);

    std::optional<EmojiFont> font_;
    RecentCache<Key, SurfaceHandle, KeyHash> pictures_;
    Key wanted_;  // kept so that looking a picture up allocates nothing
};

}  // namespace vorpel::ui
