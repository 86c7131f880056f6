// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/page_selection.h"

#include "platform/text_input_traits.h"

namespace vorpel {

namespace {

using platform::KeyboardType;
using platform::ReturnKeyType;

bool isNumericType(KeyboardType type) {
    return type == KeyboardType::NumbersAndPunctuation || type == KeyboardType::NumberPad ||
           type == KeyboardType::PhonePad || type == KeyboardType::DecimalPad;
}

FieldFamily familyOf(KeyboardType type) {
    if (type == KeyboardType::Url) return FieldFamily::Url;
    return type == KeyboardType::EmailAddress ? FieldFamily::Email : FieldFamily::Text;
}

std::optional<ReturnFamily> familyOf(ReturnKeyType type) {
    switch (type) {
        case ReturnKeyType::Default:
            return ReturnFamily::Default;
        case ReturnKeyType::Next:
            return ReturnFamily::Next;
        case ReturnKeyType::Search:
            return ReturnFamily::Search;
        case ReturnKeyType::Send:
            return ReturnFamily::Send;
        case ReturnKeyType::Done:
            return ReturnFamily::Done;
        case ReturnKeyType::Go:
        case ReturnKeyType::Join:
        case ReturnKeyType::Route:
            return ReturnFamily::Go;
        default:
            return std::nullopt;
    }
}

}  // namespace

PageSelection selectPage(int keyboardType, int returnType, WidthSet width) {
    const auto type = static_cast<KeyboardType>(keyboardType);
    PageNumber page{.width = width};
    if (isNumericType(type)) {
        page.mode = PageMode::Numbers;
        return {page.value(), true};
    }
    const auto returnFamily = familyOf(static_cast<ReturnKeyType>(returnType));
    if (!returnFamily) return {};
    page.field = familyOf(type);
    page.returnFamily = *returnFamily;
    return {page.value(), false};
}

}  // namespace vorpel
