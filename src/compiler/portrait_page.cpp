// SPDX-License-Identifier: Apache-2.0
#include "compiler/portrait_page.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string_view>

namespace vorpel::compiler {

namespace {

constexpr double SCREEN_SCALE = 2;
constexpr double KEY_GAP = 6;
constexpr double KEY_GAP_COMPRESSED = 5;
constexpr double UNCOMPRESSED_FROM_WIDTH = 350;
constexpr std::size_t COMPRESSED_FROM_KEYS = 11;
constexpr int STANDARD_KEYS = 10;
constexpr int LEAST_STANDARD_KEYS_BETWEEN_SIDES = 7;
constexpr double SIDE_KEY_SLOPE = 1;
constexpr double SIDE_KEY_OFFSET = -14;
constexpr double LEFT_AREA_RATIO = 0.25;
constexpr double RIGHT_AREA_RATIO = 0.24;
constexpr double THIRD_KEY_RATIO = 0.765;

double rounded(double measure) {
    return std::round(measure * SCREEN_SCALE) / SCREEN_SCALE;
}

/// Edges and gaps of a page; they step with its width.
struct Margins {
    double sideEdge;
    double topEdge;
    double rowGap;
    double lastRowGap;

    static Margins forWidth(double width) {
        const double lastRowGap = width == 320 ? 15 : width == 375 ? 11 : 9.5;
        if (width < 350) return {3, 12, 15, lastRowGap};
        if (width < 400) return {3, 8, 11, lastRowGap};
        return {4, 8, 10, lastRowGap};
    }
};

double keyGap(double width, std::size_t keyCount) {
    const bool compressed = keyCount >= COMPRESSED_FROM_KEYS && width < UNCOMPRESSED_FROM_WIDTH;
    return compressed ? KEY_GAP_COMPRESSED : KEY_GAP;
}

/// The band that one row fills.
struct RowBand {
    double x;
    double y;
    double width;
    double height;
};

/// A key's left edge and width within its row.
struct Span {
    double x;
    double width;
};

using Spans = std::vector<Span>;

/// Keys of one width in the middle of the band; the gap shrinks before the keys do.
Spans layOutCharacterRow(const KeyRow& row, const RowBand& band, double keyWidth, double gap) {
    const auto count = static_cast<double>(row.size());
    double sideSpace = (band.width - (count * keyWidth + (count - 1) * gap)) / 2;
    if (sideSpace < 0) {
        sideSpace = 0;
        gap = (band.width - count * keyWidth) / (count - 1);
    }
    Spans spans;
    double origin = band.x + sideSpace;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const double right = band.x + band.width;
        const bool sticksOut = rounded(origin) + keyWidth > right;
        spans.push_back({sticksOut ? rounded(right - keyWidth) : rounded(origin), keyWidth});
        origin += keyWidth + gap;
    }
    return spans;
}

/// A wider key at each end and characters between them.
Spans layOutRowWithSides(const KeyRow& row, const RowBand& band, double keyWidth, double gap) {
    const auto inner = static_cast<double>(row.size() - 2);
    const double edge = Margins::forWidth(band.width).sideEdge;
    const double standardGap = keyGap(band.width, STANDARD_KEYS);
    const double standardKeyWidth =
        (band.width - 2 * edge - standardGap * (STANDARD_KEYS - 1)) / STANDARD_KEYS;
    const double standardWidth = standardKeyWidth * LEAST_STANDARD_KEYS_BETWEEN_SIDES +
                                 standardGap * (LEAST_STANDARD_KEYS_BETWEEN_SIDES - 1);
    const double currentWidth = inner * keyWidth + (inner - 1) * gap;
    const bool isStandard = currentWidth < standardWidth;
    const double width = isStandard ? standardWidth : currentWidth;
    const double innerKeyWidth = (width - (inner - 1) * (isStandard ? standardGap : gap)) / inner;
    const double sideSpace = (band.width - width) / 2;
    const double sideWidth = rounded(std::max(sideSpace * SIDE_KEY_SLOPE + SIDE_KEY_OFFSET, keyWidth));
    const double sideGap = sideSpace - sideWidth;

    Spans spans;
    double origin = band.x;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const bool isLast = i + 1 == row.size();
        if (isLast) origin += sideGap;
        const bool isSide = i == 0 || isLast;
        spans.push_back({rounded(origin), isSide ? sideWidth : innerKeyWidth});
        origin += spans.back().width;
        if (i == 0) origin += sideGap;
        // The step uses the page's own gap even where the keys were sized with the standard one.
        if (!isSide && i + 2 != row.size()) origin += gap;
    }
    return spans;
}

/// Special keys on both sides of the space key, which takes the rest.
Spans layOutSpaceRow(const KeyRow& row, const RowBand& band) {
    const auto space = std::find_if(row.begin(), row.end(),
                                    [](const RowKey& key) { return key.kind == RowKey::Kind::Space; });
    const auto before = static_cast<std::size_t>(space - row.begin());
    const auto after = static_cast<double>(row.end() - space) - 1;
    double leftArea = band.width * LEFT_AREA_RATIO;
    const double rightArea = band.width * RIGHT_AREA_RATIO;
    const double leftWidth = rounded((leftArea - KEY_GAP) / 2);
    const double rightWidth = rounded((rightArea - KEY_GAP * (after - 1)) / after);
    const double thirdWidth = leftWidth * THIRD_KEY_RATIO;
    if (before == 3) leftArea += KEY_GAP + thirdWidth;
    const double spaceWidth = rounded(band.width - leftArea - rightArea - 2 * KEY_GAP);

    Spans spans;
    double origin = band.x;
    for (std::size_t i = 0; i < row.size(); ++i) {
        double width = i < before ? leftWidth : rightWidth;
        if (i == before) width = spaceWidth;
        if (before == 3 && i == 2) width = thirdWidth;
        spans.push_back({rounded(origin), width});
        origin += width + KEY_GAP;
    }
    return spans;
}

Spans layOutRow(const KeyRow& row, const RowBand& band, double keyWidth, double gap) {
    const auto isCharacter = [&](std::size_t i) { return row[i].kind == RowKey::Kind::Character; };
    if (isCharacter(0)) return layOutCharacterRow(row, band, keyWidth, gap);
    if (row.size() >= 3 && isCharacter(1)) return layOutRowWithSides(row, band, keyWidth, gap);
    return layOutSpaceRow(row, band);
}

KeyRow charactersOf(const std::u32string& text) {
    KeyRow row;
    for (const char32_t character : text) {
        row.push_back({RowKey::Kind::Character, static_cast<int>(character)});
    }
    return row;
}

/// Page keys, the keyboard switch and the emoji key, then space and return.
KeyRow bottomRow() {
    const RowKey special;
    return {special, special, special, {RowKey::Kind::Space, ' '}, special};
}

struct HeldKey {
    const char* language;
    char32_t key;
    std::u32string_view letters;
};

constexpr HeldKey HELD_KEYS[] = {{"ar", U'ا', U"أإآ"}};

}  // namespace

std::vector<KeyRow> letterRows(const std::string& language) {
    if (language == "en") {
        KeyRow third = charactersOf(U"ZXCVBNM");
        third.insert(third.begin(), RowKey{});
        third.push_back(RowKey{});
        return {charactersOf(U"QWERTYUIOP"), charactersOf(U"ASDFGHJKL"), third, bottomRow()};
    }
    if (language == "ar") {
        KeyRow third = charactersOf(U"ذءؤرىةوزظد");
        third.push_back(RowKey{});
        return {charactersOf(U"ضصثقفغعهخحج"), charactersOf(U"شسيبلاتنمكط"), third, bottomRow()};
    }
    throw std::invalid_argument("no letters page for the language \"" + language + "\"");
}

KeyPage layOutPortraitPage(const std::vector<KeyRow>& rows, double width, double height) {
    std::size_t mostKeys = 0;
    for (const KeyRow& row : rows) mostKeys = std::max(mostKeys, row.size());
    const Margins margins = Margins::forWidth(width);
    const auto rowCount = static_cast<double>(rows.size());
    const double rowGapTotal = (rowCount - 2) * margins.rowGap + margins.lastRowGap;
    const double gap = keyGap(width, mostKeys);
    const double keyHeight =
        rounded((height - (margins.sideEdge + margins.topEdge + rowGapTotal)) / rowCount);
    const auto keys = static_cast<double>(mostKeys);
    const double keyWidth = rounded((width - (2 * margins.sideEdge + gap * (keys - 1))) / keys);
    if (!(keyHeight >= 1 && keyWidth >= 1)) throw std::invalid_argument("the page is too small for its keys");

    KeyPage page{width, height, {}};
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const auto index = static_cast<double>(r);
        const double gapsAbove = r + 1 == rows.size() ? rowGapTotal : index * margins.rowGap;
        const RowBand band{rounded(margins.sideEdge),
                           rounded(margins.topEdge + index * keyHeight + gapsAbove),
                           rounded(width - 2 * margins.sideEdge), rounded(keyHeight)};
        const Spans spans = layOutRow(rows[r], band, keyWidth, gap);
        for (std::size_t i = 0; i < spans.size(); ++i) {
            if (rows[r][i].kind == RowKey::Kind::Special) continue;
            page.keys.push_back({rows[r][i].codePoint, spans[i].x, band.y, spans[i].width, band.height});
        }
    }
    return page;
}

void addHeldLetters(const std::string& language, KeyPage* page) {
    for (const HeldKey& held : HELD_KEYS) {
        if (language != held.language) continue;
        const auto key = std::ranges::find(page->keys, static_cast<int>(held.key), &KeyFrame::codePoint);
        if (key == page->keys.end()) continue;
        KeyFrame frame = *key;
        for (const char32_t letter : held.letters) {
            frame.codePoint = static_cast<int>(letter);
            page->keys.push_back(frame);
        }
    }
}

}  // namespace vorpel::compiler
