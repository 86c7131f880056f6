// SPDX-License-Identifier: Apache-2.0
#include "keyboard/theme/hex_color.h"

#include <charconv>

namespace vorpel {

namespace {

constexpr ui::Color GREY = ui::Color::rgb(0.5, 0.5, 0.5);
constexpr std::string_view WHITE_SPACE = " \t\n\r\f\v";

std::string_view stripped(std::string_view text) {
    const std::size_t first = text.find_first_not_of(WHITE_SPACE);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(WHITE_SPACE) - first + 1);
}

}  // namespace

ui::Color hexStringToUIColor(std::string_view hex) {
    std::string_view digits = stripped(hex);
    if (digits.starts_with('#')) digits.remove_prefix(1);
    unsigned value = 0;
    const char* const end = digits.data() + digits.size();
    const auto parsed = std::from_chars(digits.data(), end, value, 16);
    if (digits.size() != 6 || parsed.ec != std::errc() || parsed.ptr != end) return GREY;
    return ui::Color::rgb(((value >> 16U) & 0xFFU) / 255.0, ((value >> 8U) & 0xFFU) / 255.0,
                          (value & 0xFFU) / 255.0);
}

}  // namespace vorpel
