// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/cairo/handles.h"
#include "ui/cairo/recent_cache.h"
#include "ui/font.h"

#include <pango/pangocairo.h>

#include <array>
#include <cstddef>
#include <optional>
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

/// Text set in lines; measures in points, the same at every scale.
struct TextParagraph {
    ObjectHandle<PangoLayout> layout;
    double width = 0;  ///< of its widest line
    double height = 0;
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

    /// The text in lines of at most that width; where they take more than `height`, the last for which there
    /// is room ends in an ellipsis. Without a height all are there. Valid until the next call.
    [[nodiscard]] const TextParagraph& paragraph(const std::string& text, const Font& font, double width,
                                                 std::optional<double> height = {});

    /// How far below the middle of a rectangle the line's baseline lies, so that capitals, or emoji, are in
    /// the middle and all lines of one script and size share a baseline.
    [[nodiscard]] double baselineBelowMiddle(const TextLine& line, const Font& font);

    /// Families of the system font that are not installed; others stand in for them.
    [[nodiscard]] std::vector<std::string> missingFamilies() const;

private:
    struct Key {
        std::string text;
        Font font;
        double width = 0;  ///< 0: as wide as it is
        double minimumScale = 1;
        std::optional<double> height{};  ///< of a paragraph
        friend bool operator==(const Key&, const Key&) = default;
    };
    void want(const std::string& text, const Font& font);
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    /// Shares of the font's size; less than 0 until they are measured.
    struct MiddleHeights {
        double latin = -1;
        double arabic = -1;
        double emoji = -1;
    };

    [[nodiscard]] ObjectHandle<PangoLayout> shape(const std::string& text, const Font& font) const;
    [[nodiscard]] TextLine measured(ObjectHandle<PangoLayout> layout, double fontSize) const;
    [[nodiscard]] TextParagraph breakIntoLines(const Key& key) const;
    [[nodiscard]] TextLine fit(const Key& key, double naturalWidth) const;
    [[nodiscard]] double middleHeight(const std::string& sample, const Font& font) const;

    ObjectHandle<PangoContext> context_;
    RecentCache<Key, TextLine, KeyHash> lines_;
    RecentCache<Key, TextParagraph, KeyHash> paragraphs_;
    std::array<MiddleHeights, 3> middleHeights_;
    Key wanted_;  // kept so that looking a line up allocates nothing
};

}  // namespace vorpel::ui
