// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/handles.h"
#include "ui/cairo/recent_cache.h"
#include "ui/font.h"

#include <array>
#include <cstddef>
#include <pango/pangocairo.h>
#include <string>
#include <vector>

namespace vorpel::ui {

/// One shaped line of text; measures in points, the same at every scale.
struct TextLine {
    ObjectHandle<PangoLayout> layout;
    double width = 0;
    double height = 0;
    /// The size the line is set in: that of its font, or less where it was made to fit.
    double fontSize = 0;
    bool rightToLeft = false;
};

/// Shapes text, and remembers the lines of late: shaping costs far more than drawing. One thread.
class TextLayouts {
public:
    /// Pixels a point, of the surfaces that the lines are drawn on.
    explicit TextLayouts(double scale);

    /// The line at its full size. Valid until the next call.
    [[nodiscard]] const TextLine& line(const std::string& text, const Font& font);

    /// The line made smaller, down to `minimumScale` of its size, and then shortened with an ellipsis, until
    /// it is no wider than `width`. Valid until the next call.
    [[nodiscard]] const TextLine& fittedLine(const std::string& text, const Font& font, double width,
                                             double minimumScale);

    /// How far below the middle of a rectangle the line's baseline lies, so that capitals are in the middle
    /// and all lines of one script and size share a baseline.
    [[nodiscard]] double baselineBelowMiddle(const TextLine& line, FontWeight weight);

    /// Families of the system font that are not installed; others stand in for them.
    [[nodiscard]] std::vector<std::string> missingFamilies() const;

private:
    struct Key {
        std::string text;
        Font font;
        double width = 0;  ///< 0: as wide as it is
        double minimumScale = 1;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    /// Shares of the font's size; less than 0 until they are measured.
    struct MiddleHeights {
        double latin = -1;
        double arabic = -1;
    };

    [[nodiscard]] ObjectHandle<PangoLayout> shape(const std::string& text, const Font& font) const;
    [[nodiscard]] TextLine measured(ObjectHandle<PangoLayout> layout, double fontSize) const;
    [[nodiscard]] TextLine fit(const Key& key, double naturalWidth) const;
    [[nodiscard]] double middleHeight(const std::string& sample, FontWeight weight) const;

    ObjectHandle<PangoContext> context_;
    RecentCache<Key, TextLine, KeyHash> lines_;
    std::array<MiddleHeights, 3> middleHeights_;
    Key wanted_;  // kept so that looking a line up allocates nothing
};

}  // namespace vorpel::ui
