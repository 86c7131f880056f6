// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/font_emoji_coverage.h"

#include "ui/cairo/fonts.h"

#include <pango/pangocairo.h>

namespace vorpel::ui {

namespace {

// Any: what a font has does not hang on how large it is drawn.
constexpr int SIZE = 32;

ObjectHandle<PangoFont> emojiFont() {
    PangoFontMap* const fonts = pango_cairo_font_map_get_default();
    // Another family would stand in for one that is missing.
    if (!pango_font_map_get_family(fonts, emojiFontFamily())) return nullptr;
    const ObjectHandle<PangoContext> context(pango_font_map_create_context(fonts));
    PangoFontDescription* const description = pango_font_description_new();
    pango_font_description_set_family_static(description, emojiFontFamily());
    pango_font_description_set_absolute_size(description, SIZE * PANGO_SCALE);
    ObjectHandle<PangoFont> font(pango_font_map_load_font(fonts, context.get(), description));
    pango_font_description_free(description);
    return font;
}

}  // namespace

void FontEmojiCoverage::read() const {
    if (isRead_) return;
    isRead_ = true;
    font_ = emojiFont();
    buffer_.reset(hb_buffer_create());
}

bool FontEmojiCoverage::canDraw(const std::string& emoji) const {
    read();
    if (!font_ || emoji.empty()) return false;
    hb_buffer_t* const buffer = buffer_.get();
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf8(buffer, emoji.data(), static_cast<int>(emoji.size()), 0, -1);
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(pango_font_get_hb_font(font_.get()), buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t* const glyphs = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* const positions = hb_buffer_get_glyph_positions(buffer, nullptr);
    unsigned pictures = 0;
    for (unsigned at = 0; at < count; ++at) {
        if (glyphs[at].codepoint == 0) return false;
        // A selector of a variant leaves a glyph without a width.
        if (positions[at].x_advance != 0) ++pictures;
    }
    // A sequence that the font does not know as a whole falls into its parts.
    return pictures == 1;
}

}  // namespace vorpel::ui
