// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/text_layouts.h"

#include "ui/cairo/fonts.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string_view>

namespace vorpel::ui {

namespace {

// All keys of two keyboards, a full banner, and a screen of emoji.
constexpr std::size_t LINES_A_GENERATION = 512;
constexpr std::size_t PARAGRAPHS_A_GENERATION = 32;

// Rounding to Pango's units must not turn a text that fits into one that does not.
constexpr double WIDTH_TOLERANCE = 0.01;

// What a line's middle is taken from: the height of the capitals; for Arabic from the foot of its deep
// letters to the head of its tall ones; for emoji from the chin of a face to its head.
constexpr std::string_view LATIN_SAMPLE = "H";
constexpr std::string_view ARABIC_SAMPLE = "اج";
constexpr std::string_view EMOJI_SAMPLE = "😀";

// Sizes and widths that Pango's units can hold, with room to spare.
constexpr double LEAST_FONT_SIZE = 0.5;
constexpr double GREATEST_FONT_SIZE = 2000;
constexpr double GREATEST_WIDTH = 100000;

double toPoints(int units) {
    return static_cast<double>(units) / PANGO_SCALE;
}

int toUnits(double points) {
    return static_cast<int>(std::lround(points * PANGO_SCALE));
}

// Nothing is rounded to pixels, so that a line is as wide at one scale as at another.
ObjectHandle<PangoContext> makeContext(double scale) {
    // The thread's own map of fonts is shared, as reading fonts costs more than all that is done with them.
    ObjectHandle<PangoContext> context(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(context.get(), options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    // The fonts must not depend on the language that the program happens to run in.
    pango_context_set_language(context.get(), pango_language_from_string("en"));
    PangoMatrix matrix = PANGO_MATRIX_INIT;
    pango_matrix_scale(&matrix, scale, scale);
    pango_context_set_matrix(context.get(), &matrix);
    return context;
}

void setText(PangoLayout* layout, const std::string& text) {
    const auto length = static_cast<int>(text.size());
    if (g_utf8_validate(text.data(), length, nullptr)) {
        pango_layout_set_text(layout, text.data(), length);
        return;
    }
    gchar* const valid = g_utf8_make_valid(text.data(), length);
    pango_layout_set_text(layout, valid, -1);
    g_free(valid);
}

// Pango gives each of its paragraphs a line, however little room there is; line separators keep all in one.
std::string withLineSeparators(const std::string& text) {
    constexpr std::string_view SEPARATOR = "\u2028";
    std::string separated;
    for (const char byte : text) {
        if (byte == '\n') {
            separated += SEPARATOR;
        } else {
            separated += byte;
        }
    }
    return separated;
}

// At least one.
int linesWithin(PangoLayout* layout, double height) {
    PangoLayoutIter* const lines = pango_layout_get_iter(layout);
    int count = 1;
    while (pango_layout_iter_next_line(lines)) {
        PangoRectangle logical{};
        pango_layout_iter_get_line_extents(lines, nullptr, &logical);
        if (toPoints(logical.y + logical.height) > height) break;
        ++count;
    }
    pango_layout_iter_free(lines);
    return count;
}

}  // namespace

TextLayouts::TextLayouts(double scale)
    : context_(makeContext(scale)), lines_(LINES_A_GENERATION), paragraphs_(PARAGRAPHS_A_GENERATION) {}

std::size_t TextLayouts::KeyHash::operator()(const Key& key) const {
    std::size_t hash = std::hash<std::string>()(key.text);
    for (const double number : {key.font.size, key.width, key.minimumScale, key.height.value_or(0)}) {
        hash = hash * 31 + std::hash<double>()(number);
    }
    hash = hash * 31 + static_cast<std::size_t>(key.font.weight);
    return hash * 31 + static_cast<std::size_t>(key.font.face);
}

void TextLayouts::want(const std::string& text, const Font& font) {
    wanted_.text = text;
    wanted_.font = font;
    wanted_.font.size = std::clamp(font.size, LEAST_FONT_SIZE, GREATEST_FONT_SIZE);
    wanted_.width = 0;
    wanted_.minimumScale = 1;
    wanted_.height.reset();
}

const TextLine& TextLayouts::line(const std::string& text, const Font& font) {
    want(text, font);
    if (const TextLine* const known = lines_.find(wanted_)) return *known;
    return lines_.add(wanted_, measured(shape(text, wanted_.font), wanted_.font.size));
}

const TextLine& TextLayouts::fittedLine(const std::string& text, const Font& font, double width,
                                        double minimumScale) {
    const TextLine& natural = line(text, font);
    if (natural.width <= width + WIDTH_TOLERANCE) return natural;
    const double naturalWidth = natural.width;
    wanted_.width = std::clamp(width, WIDTH_TOLERANCE, GREATEST_WIDTH);
    wanted_.minimumScale = minimumScale;
    if (const TextLine* const known = lines_.find(wanted_)) return *known;
    return lines_.add(wanted_, fit(wanted_, naturalWidth));
}

TextLine TextLayouts::fit(const Key& key, double naturalWidth) const {
    const double share = std::clamp(key.width / naturalWidth, std::min(key.minimumScale, 1.0), 1.0);
    Font smaller = key.font;
    smaller.size = std::max(key.font.size * share, LEAST_FONT_SIZE);
    ObjectHandle<PangoLayout> layout = shape(key.text, smaller);
    int width = 0;
    pango_layout_get_size(layout.get(), &width, nullptr);
    // What is scaled to the very width may miss it by a unit or two, for which nothing is cut.
    if (toPoints(width) > key.width * (1 + 1e-3) + WIDTH_TOLERANCE) {
        pango_layout_set_width(layout.get(), toUnits(key.width));
        pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
    }
    return measured(std::move(layout), smaller.size);
}

const TextParagraph& TextLayouts::paragraph(const std::string& text, const Font& font, double width,
                                            std::optional<double> height) {
    want(text, font);
    wanted_.width = std::clamp(width, WIDTH_TOLERANCE, GREATEST_WIDTH);
    if (height) wanted_.height = std::clamp(*height, WIDTH_TOLERANCE, GREATEST_WIDTH);
    if (const TextParagraph* const known = paragraphs_.find(wanted_)) return *known;
    return paragraphs_.add(wanted_, breakIntoLines(wanted_));
}

TextParagraph TextLayouts::breakIntoLines(const Key& key) const {
    ObjectHandle<PangoLayout> layout = shape(withLineSeparators(key.text), key.font);
    pango_layout_set_single_paragraph_mode(layout.get(), FALSE);
    pango_layout_set_width(layout.get(), toUnits(key.width + WIDTH_TOLERANCE));
    pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
    if (key.height) {
        const int fitting = linesWithin(layout.get(), *key.height + WIDTH_TOLERANCE);
        // A number of lines, which is what a negative height is, and not a height: that one Pango guesses at.
        pango_layout_set_height(layout.get(), -fitting);
        pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
    }
    PangoRectangle logical{};
    pango_layout_get_extents(layout.get(), nullptr, &logical);
    return {std::move(layout), toPoints(logical.width), toPoints(logical.height)};
}

ObjectHandle<PangoLayout> TextLayouts::shape(const std::string& text, const Font& font) const {
    PangoFontDescription* const description = pango_font_description_new();
    pango_font_description_set_family_static(description, fontFamilyList(font.face));
    pango_font_description_set_weight(description, fontWeight(font.weight));
    pango_font_description_set_absolute_size(description, font.size * PANGO_SCALE);
    ObjectHandle<PangoLayout> layout(pango_layout_new(context_.get()));
    pango_layout_set_font_description(layout.get(), description);
    pango_font_description_free(description);
    pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    setText(layout.get(), text);
    return layout;
}

TextLine TextLayouts::measured(ObjectHandle<PangoLayout> layout, double fontSize) const {
    PangoLayoutLine* const line = pango_layout_get_line_readonly(layout.get(), 0);
    PangoRectangle logical{};
    pango_layout_line_get_extents(line, nullptr, &logical);
    const bool rightToLeft = pango_layout_line_get_resolved_direction(line) == PANGO_DIRECTION_RTL;
    return {std::move(layout), toPoints(logical.width), toPoints(logical.height), fontSize, rightToLeft};
}

double TextLayouts::baselineBelowMiddle(const TextLine& line, const Font& font) {
    MiddleHeights& heights = middleHeights_.at(static_cast<std::size_t>(font.weight));
    const auto known = [&](double& height, std::string_view sample) {
        if (height < 0) height = middleHeight(std::string(sample), font);
        return height * line.fontSize;
    };
    if (font.face == FontFace::Emoji) return known(heights.emoji, EMOJI_SAMPLE);
    return line.rightToLeft ? known(heights.arabic, ARABIC_SAMPLE) : known(heights.latin, LATIN_SAMPLE);
}

double TextLayouts::middleHeight(const std::string& sample, const Font& font) const {
    constexpr double SIZE = 100;
    const ObjectHandle<PangoLayout> layout = shape(sample, {SIZE, font.weight, font.face});
    PangoRectangle ink{};
    pango_layout_line_get_extents(pango_layout_get_line_readonly(layout.get(), 0), &ink, nullptr);
    return std::max(0.0, -toPoints(ink.y) - toPoints(ink.height) / 2) / SIZE;
}

std::vector<std::string> TextLayouts::missingFamilies() const {
    std::vector<std::string> missing;
    for (const char* const family : systemFontFamilies()) {
        if (!pango_font_map_get_family(pango_context_get_font_map(context_.get()), family))
            missing.emplace_back(family);
    }
    return missing;
}

}  // namespace vorpel::ui
