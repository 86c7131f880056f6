// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"
#include "ui/font.h"
#include "ui/geometry.h"

#include <string>

namespace vorpel::ui {

class Path;

/// A soft edge of darkness under a shape.
struct Shadow {
    Color color;
    Point offset;
    double blur = 0;  ///< points; 0 is a hard edge
};

/// How a run of text is set into its rectangle: in one line, on the middle of the rectangle's height.
struct TextStyle {
    Font font;
    Color color = Color::black();
    TextAlignment alignment = TextAlignment::Center;
    /// Text wider than the rectangle is set smaller, down to this share of the font's size; what is still too
    /// wide ends in an ellipsis. 1 keeps the size.
    double minimumScale = 1;
};

/// What views draw with. All measures are points of the view that is being drawn; the painter knows the
/// scale. One thread.
class Painter {
public:
    virtual ~Painter() = default;

    /// From here to `restore` what is drawn stays within the pixels that the rectangle touches, which are
    /// emptied first: a pixel that is painted in part only would show a seam.
    ///
    /// @return the rectangle around those pixels; all that meets it must be drawn
    virtual Rect beginRepaint(const Rect& damage) {
        clip(damage);
        return damage;
    }

    virtual void save() = 0;
    virtual void restore() = 0;
    virtual void translate(Point by) = 0;

    /// Turns what follows about the current origin; radians, clockwise.
    virtual void rotate(double angle) = 0;
    virtual void clip(const Rect& rect) = 0;
    virtual void clip(const Path& path) = 0;

    /// From here to `endLayer` all is drawn together and then laid over the rest with that alpha.
    virtual void beginLayer() = 0;
    virtual void endLayer(double alpha) = 0;

    virtual void fill(const Rect& rect, const Color& color) = 0;
    virtual void fill(const Path& path, const Color& color) = 0;
    virtual void stroke(const Path& path, const Color& color, double width) = 0;

    /// The shadow of the path alone; it does not show where the path itself lies.
    virtual void drawShadow(const Path& path, const Shadow& shadow) = 0;

    /// The picture file (SVG or PNG) fitted into the rectangle, its shape kept; in one colour when that is
    /// not clear. A file that cannot be read draws nothing and is told once.
    virtual void drawImage(const std::string& path, const Rect& rect, const Color& tint) = 0;

    virtual void drawText(const std::string& text, const Rect& rect, const TextStyle& style) = 0;

    /// The size of one line of the text.
    [[nodiscard]] virtual Size measureText(const std::string& text, const Font& font) = 0;

    /// Text in as many lines as it takes, from the rectangle's upper edge downwards: broken between words,
    /// within a word that is wider than the rectangle, and at each line feed. Where the height has no room
    /// for a further line the last one ends in an ellipsis; one line is always drawn. The style's minimum
    /// scale is passed over.
    virtual void drawParagraph(const std::string& text, const Rect& rect, const TextStyle& style) = 0;

    /// The size of the text in lines no wider than `width`: drawn into a rectangle of that width and the
    /// height returned here, it is whole. An empty text has no height.
    [[nodiscard]] virtual Size measureParagraph(const std::string& text, double width, const Font& font) = 0;
};

}  // namespace vorpel::ui
