// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/emoji_font.h"

#include "ui/cairo/fonts.h"

#include <algorithm>
#include <cmath>
#include <fontconfig/fontconfig.h>

namespace vorpel::ui {

namespace {

struct ReleaseFontconfig {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};

/// The fonts of that family alone: nothing stands in for one that is missing.
std::unique_ptr<FcFontSet, ReleaseFontconfig> fontsOf(const char* family) {
    const std::unique_ptr<FcPattern, ReleaseFontconfig> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    const std::unique_ptr<FcObjectSet, ReleaseFontconfig> objects(
        FcObjectSetBuild(FC_FILE, FC_INDEX, nullptr));
    return std::unique_ptr<FcFontSet, ReleaseFontconfig>(FcFontList(nullptr, pattern.get(), objects.get()));
}

int scaled(unsigned pixels, double scale) {
    return std::max(1, static_cast<int>(std::lround(pixels * scale)));
}

}  // namespace

EmojiFont::EmojiFont() : buffer_(hb_buffer_create()) {
    const auto fonts = fontsOf(emojiFontFamily());
    if (!fonts || fonts->nfont == 0) return;
    FcChar8* path = nullptr;
    int index = 0;
    if (FcPatternGetString(fonts->fonts[0], FC_FILE, 0, &path) != FcResultMatch) return;
    FcPatternGetInteger(fonts->fonts[0], FC_INDEX, 0, &index);
    open(reinterpret_cast<const char*>(path), index);
}

void EmojiFont::open(const char* path, int index) {
    hb_blob_t* const blob = hb_blob_create_from_file_or_fail(path);
    if (!blob) return;
    hb_face_t* const shapes = hb_face_create(blob, static_cast<unsigned>(index));
    hb_blob_destroy(blob);
    font_.reset(hb_font_create(shapes));
    hb_face_destroy(shapes);
    // Some fonts have a picture for flags of which they have none; no country is called ZZ.
    unknownFlag_ = shape("🇿🇿");
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0) return;
    library_.reset(library);
    FT_Face face = nullptr;
    if (FT_New_Face(library, path, index, &face) != 0) return;
    Owner<FT_Face> owned(face);
    if (FT_HAS_FIXED_SIZES(face) && FT_HAS_COLOR(face) && FT_Select_Size(face, 0) == 0) {
        face_ = std::move(owned);
    }
}

std::optional<unsigned> EmojiFont::glyphOf(const std::string& emoji) const {
    const auto glyph = font_ && !emoji.empty() ? shape(emoji) : std::nullopt;
    return glyph == unknownFlag_ ? std::nullopt : glyph;
}

/// The one glyph that the text becomes; nothing where it becomes none or several.
std::optional<unsigned> EmojiFont::shape(const std::string& text) const {
    hb_buffer_t* const buffer = buffer_.get();
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf8(buffer, text.data(), static_cast<int>(text.size()), 0, -1);
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(font_.get(), buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t* const glyphs = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t* const positions = hb_buffer_get_glyph_positions(buffer, nullptr);
    std::optional<unsigned> picture;
    for (unsigned at = 0; at < count; ++at) {
        // A selector of a variant leaves a glyph without a width.
        if (glyphs[at].codepoint != 0 && positions[at].x_advance == 0) continue;
        // A sequence that the font does not know as a whole falls into its parts.
        if (glyphs[at].codepoint == 0 || picture) return std::nullopt;
        picture = glyphs[at].codepoint;
    }
    return picture;
}

SurfaceHandle EmojiFont::picture(unsigned glyph, double size) const {
    if (!face_ || FT_Load_Glyph(face_.get(), glyph, FT_LOAD_COLOR) != 0) return nullptr;
    const FT_Bitmap& bitmap = face_->glyph->bitmap;
    if (bitmap.pixel_mode != FT_PIXEL_MODE_BGRA || bitmap.width == 0 || bitmap.rows == 0) return nullptr;
    const SurfaceHandle source(cairo_image_surface_create_for_data(
        bitmap.buffer, CAIRO_FORMAT_ARGB32, static_cast<int>(bitmap.width), static_cast<int>(bitmap.rows),
        bitmap.pitch));
    const double scale = size / face_->size->metrics.y_ppem;
    const int width = scaled(bitmap.width, scale);
    const int height = scaled(bitmap.rows, scale);
    SurfaceHandle picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    const ContextHandle context(cairo_create(picture.get()));
    cairo_scale(context.get(), static_cast<double>(width) / bitmap.width,
                static_cast<double>(height) / bitmap.rows);
    cairo_set_source_surface(context.get(), source.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_GOOD);
    cairo_paint(context.get());
    return cairo_status(context.get()) == CAIRO_STATUS_SUCCESS ? std::move(picture) : nullptr;
}

}  // namespace vorpel::ui
