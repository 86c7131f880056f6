// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/emoji_pictures.h"

#include <functional>

namespace vorpel::ui {

std::size_t EmojiPictures::KeyHash::operator()(const Key& key) const {
    return std::hash<std::string>()(key.emoji) * 31 + std::hash<double>()(key.size);
}

cairo_surface_t* EmojiPictures::picture(const std::string& emoji, double size) {
    wanted_.emoji = emoji;
    wanted_.size = size;
    if (const SurfaceHandle* const known = pictures_.find(wanted_)) return known->get();
    return pictures_.add(wanted_, make(wanted_)).get();
}

SurfaceHandle EmojiPictures::make(const Key& key) {
    if (!font_) font_.emplace();
    const auto glyph = font_->glyphOf(key.emoji);
    return glyph ? font_->picture(*glyph, key.size) : nullptr;
}

}  // namespace vorpel::ui
