// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/emoji_lists.h"

#include "platform/characters.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace vorpel {

namespace {

constexpr std::string_view FACES_AND_PEOPLE =
    "💤 👹 👺 💀 👻 👽 👏 👐 👄 🙂 🙄 🤔 🤗 😷 😸 😹 😺 😻 😼 😽 "
    "😾 😿 🙀 🙈 🙉 🙊 👾 👿 💩 👋 👌 👍 👎 👊 ✊ ✋ ✌️ 👈 👉 "
    "👆 👇 ☝️ 🙌 🙏 👏 ❤️ 💪 💅 👂 👃 👀 👅 🙅 🙆 🙇 🙋 🙍 🙎 "
    "💁 👶 👦 👧 👨 👩 👴 👵 👱 👮 👷 💂 👸 👼 🎅 👰 👳 💃 👯 👫 "
    "👪 👕 👗 👠 👒 👑 🎩 💄 👛 👜 💼 🌂 👓 💍";

// By the countries' English names, but for the last two; as their codes of two letters.
constexpr std::string_view COUNTRIES =
    "AF AX AL DZ AS AD AO AI AQ AG AR AM AW AU AT AZ BS BH BD BB BY BE BZ BJ BM BT BO BA BW BR IO VG BN "
    "BG BF BI KH CM CA CV BQ KY CF TD CL CN CX CC CO KM CG CD CK CR CI HR CU CW CY CZ DK DJ DM DO EC EG "
    "SV GQ ER EE SZ ET FK FO FJ FI FR GF PF TF GA GM GE DE GH GI GR GL GD GP GU GT GG GN GW GY HT HN HK "
    "HU IS IN ID IR IQ IE IM IL IT JM JP JE JO KZ KE KI KW KG LA LV LB LS LR LY LI LT LU MO MG MW MY MV "
    "ML MT MH MQ MR MU YT MX FM MD MC MN ME MS MA MZ MM NA NR NP NL NC NZ NI NE NG NU NF KP MK MP NO OM "
    "PK PW PS PA PG PY PE PH PN PL PT PR QA RE RO RU RW BL SH KN LC MF PM VC WS SM ST SA SN RS SC SL SG "
    "SX SK SI SB SO ZA GS KR SS ES LK SD SR SJ SE CH SY TW TJ TZ TH TL TG TK TO TT TN TR TM TC TV UM VI "
    "UG UA AE GB US UY UZ VU VA WF EH YE ZM ZW VN VE";

/// The sign that stands for a capital letter in a flag.
std::string regionalIndicator(char letter) {
    constexpr char32_t FIRST = 0x1F1E6;
    return platform::toUtf8(FIRST + static_cast<char32_t>(letter - 'A'));
}

std::vector<std::string> words(std::string_view text) {
    std::vector<std::string> found;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        found.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return found;
}

}  // namespace

std::vector<std::string> facesAndPeople() {
    return words(FACES_AND_PEOPLE);
}

std::vector<std::string> countryFlags() {
    std::vector<std::string> flags = words(COUNTRIES);
    for (std::string& flag : flags) flag = regionalIndicator(flag[0]) + regionalIndicator(flag[1]);
    return flags;
}

}  // namespace vorpel
