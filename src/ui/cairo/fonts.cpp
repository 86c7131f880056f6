// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/fonts.h"

#include <array>
#include <string>
#include <vector>

namespace vorpel::ui {

namespace {

// The first is the face of the letters, for its true light weight; Noto Sans, its sibling, has signs such as
// the rupee and the reference mark. Arabic is named before any font that happens to have it too.
constexpr std::array FAMILIES{"Open Sans",      "Noto Sans",          "Noto Sans Arabic",
                              "Noto Sans Math", "Noto Sans Symbols2", "Noto Sans Symbols"};

// Pango finds it by itself for what is an emoji. Among the families above it would also take the digits and
// the number sign, which are the beginnings of some.
constexpr const char* EMOJI_FAMILY = "Noto Color Emoji";

std::string joinFamilies() {
    std::string list;
    for (const char* const family : FAMILIES) {
        if (!list.empty()) list += ',';
        list += family;
    }
    return list;
}

}  // namespace

std::vector<const char*> systemFontFamilies() {
    std::vector<const char*> families(FAMILIES.begin(), FAMILIES.end());
    families.push_back(EMOJI_FAMILY);
    return families;
}

const char* emojiFontFamily() {
    return EMOJI_FAMILY;
}

const char* fontFamilyList(FontFace face) {
    static const std::string LIST = joinFamilies();
    return face == FontFace::Emoji ? EMOJI_FAMILY : LIST.c_str();
}

PangoWeight fontWeight(FontWeight weight) {
    switch (weight) {
        case FontWeight::Light:
            return PANGO_WEIGHT_LIGHT;
        case FontWeight::Medium:
            // The face has no medium; a request for one would be answered with the regular.
            return PANGO_WEIGHT_SEMIBOLD;
        case FontWeight::Regular:
            break;
    }
    return PANGO_WEIGHT_NORMAL;
}

}  // namespace vorpel::ui
