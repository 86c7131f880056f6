// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/handles.h"

#include <freetype/freetype.h>
#include <hb.h>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

namespace vorpel::ui {

/// The file of the emoji font: which emoji have a picture in it, and those pictures. To
/// draw one for the first time by way of the text library takes several times as long. One thread.
class EmojiFont {
public:
    /// Opens the installed font. Without one nothing has a picture.
    EmojiFont();

    /// The number of the picture that shows all of the text, UTF-8; nothing where there is no such one, or
    /// several would stand side by side.
    [[nodiscard]] std::optional<unsigned> glyphOf(const std::string& emoji) const;

    /// The picture at a size of the font in pixels; it is somewhat wider and higher than that. Null where the
    /// font does not hold its pictures as pixels.
    [[nodiscard]] SurfaceHandle picture(unsigned glyph, double size) const;

private:
    struct Release {
        void operator()(FT_Library library) const { FT_Done_FreeType(library); }
        void operator()(FT_Face face) const { FT_Done_Face(face); }
        void operator()(hb_font_t* font) const { hb_font_destroy(font); }
        void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
    };
    template <typename Pointer>
    using Owner = std::unique_ptr<std::remove_pointer_t<Pointer>, Release>;

    void open(const char* path, int index);
    [[nodiscard]] std::optional<unsigned> shape(const std::string& text) const;

    std::optional<unsigned> unknownFlag_;
    Owner<FT_Library> library_;
    Owner<FT_Face> face_;     // null where its pictures are no pixels
    Owner<hb_font_t*> font_;  // null where it is not installed
    Owner<hb_buffer_t*> buffer_;
};

}  // namespace vorpel::ui
