// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/key_texts.h"

#include <algorithm>

namespace vorpel {

namespace {

// The symbols page of fields that lead to a next one, forms for the most part, has the signs of the wide set.
constexpr RowException DIVISION_SIGN_ROW = {12, 0, "[ ] { } ! % ^ ÷ + ="};

constexpr RowException LATIN_EXCEPTIONS[] = {DIVISION_SIGN_ROW};
constexpr RowException ARABIC_EXCEPTIONS[] = {
    DIVISION_SIGN_ROW,
    {1, 2, "* \" ' : ؛ ! ؟"},
    {11, 2, "* \" ' : ؛ ! ؟"},
};

bool isSymbols(const PageNumber& page) {
    return page.mode == PageMode::Symbols;
}

std::string_view upperRow(const KeyTexts& texts, const PageNumber& page) {
    if (!isSymbols(page) || page.field == FieldFamily::Url) return texts.digits;
    if (page.field == FieldFamily::Email) return "` | { } ? % ^ * / '";
    return page.isWide() ? "[ ] { } ! % ^ ÷ + =" : "[ ] { } # % ^ * + =";
}

std::string_view middleRow(const KeyTexts& texts, const PageNumber& page) {
    switch (page.field) {
        case FieldFamily::Text:
            return isSymbols(page) ? texts.textSymbols : texts.textNumbers;
        case FieldFamily::Email:
            return "$ ! ~ & = # [ ]";
        case FieldFamily::Url:
            break;
    }
    return isSymbols(page) ? "* $ # ! ' ^ [ ]" : "@ & % ? , = [ ]";
}

std::string_view lowerRow(const PageNumber& page) {
    switch (page.field) {
        case FieldFamily::Text:
            return page.isWide() ? "* # ? , '" : ". , ? ! '";
        case FieldFamily::Email:
            return ". _ - +";
        case FieldFamily::Url:
            break;
    }
    return isSymbols(page) ? "~ ; ( )" : "_ : - +";
}

}  // namespace

const KeyTexts LATIN_TEXTS = {
    .letters = {"Q W E R T Y U I O P", "A S D F G H J K L", "Z X C V B N M"},
    .digits = "1 2 3 4 5 6 7 8 9 0",
    .textNumbers = "- / : ; ( ) ₹ & @ \"",
    .textSymbols = "_ \\ | ~ < > $ £ € •",
    .spaceCap = "space",
    .returnCap = "return",
    .sendCap = "Send",
    .exceptions = LATIN_EXCEPTIONS,
    .hasShift = [](const PageNumber&) { return true; },
};

// Arabic has no capitals. The text pages with a return key of their own have a shift key all the same: it
// keeps their third row in step with the Latin one.
const KeyTexts ARABIC_TEXTS = {
    .letters = {"ض ص ث ق ف غ ع ه خ ح ج", "ش س ي ب ل ا ت ن م ك ط", "ذ ء ؤ ر ى ة و ز ظ د"},
    .digits = "١ ٢ ٣ ٤ ٥ ٦ ٧ ٨ ٩ ٠",
    .textNumbers = "@ # $ ٪ & - + ) (",
    .textSymbols = "_ \\ | ~ < > $ £ ※ •",
    .spaceCap = "الفضاء",
    .returnCap = "العودة",
    .sendCap = "إرسال",
    .exceptions = ARABIC_EXCEPTIONS,
    .hasShift =
        [](const PageNumber& page) {
            return !page.isWide() && page.field == FieldFamily::Text &&
                   page.returnFamily != ReturnFamily::Default;
        },
};

std::string_view charactersOfRow(const KeyTexts& texts, const PageNumber& page, std::size_t row) {
    if (page.isLetters()) return texts.letters[row];
    const auto exception = std::ranges::find_if(texts.exceptions, [&](const RowException& candidate) {
        return candidate.page == page.value() && candidate.row == row;
    });
    if (exception != texts.exceptions.end()) return exception->texts;
    if (row == 0) return upperRow(texts, page);
    return row == 1 ? middleRow(texts, page) : lowerRow(page);
}

}  // namespace vorpel
