// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/default_keyboard.h"

#include "keyboard/model/key_texts.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vorpel {

namespace {

using KeyType = Key::KeyType;

/// What the mode keys of a page lead to, where they do not stay in its group: from the symbols of the wide
/// "send" pages one lands among the "search" pages.
struct ModeException {
    int page;
    int rowTwoTarget;
    int rowThreeTarget;
};
constexpr ModeException STRAY_MODE_KEYS = {152, 131, 130};

// With two signs beside it the key of these e-mail pages is too narrow for the word.
constexpr int RETURN_SIGN_PAGES[] = {3, 4, 5};

// The text pages whose bottom row has no full stop.
constexpr int PAGES_WITHOUT_PERIOD[] = {0, 1, 2, 50};

template <std::size_t N>
bool isOneOf(int page, const int (&pages)[N]) {
    for (const int candidate : pages) {
        if (candidate == page) return true;
    }
    return false;
}

std::unique_ptr<Key> plainKey(KeyType type) {
    return std::make_unique<Key>(type);
}

std::unique_ptr<Key> letterKey(KeyType type, std::string_view text) {
    auto key = plainKey(type);
    key->setLetter(text);
    return key;
}

std::unique_ptr<Key> extraKey(std::string_view text) {
    return letterKey(KeyType::Other, text);
}

std::unique_ptr<Key> adjustKey(KeyType type, const char* sign) {
    auto key = plainKey(type);
    key->lowercaseKeyCap = key->uppercaseKeyCap = sign;
    return key;
}

std::unique_ptr<Key> modeKey(const char* cap, int target) {
    auto key = plainKey(KeyType::ModeChange);
    key->uppercaseKeyCap = cap;
    key->toMode = target;
    return key;
}

std::unique_ptr<Key> spaceKey(std::string_view cap) {
    auto key = plainKey(KeyType::Space);
    key->uppercaseKeyCap = cap;
    key->uppercaseOutput = key->lowercaseOutput = " ";
    return key;
}

/// Fills the pages of one language, one after another.
class PageBuilder {
public:
    PageBuilder(Keyboard& keyboard, const KeyTexts& texts, const PageNumber& page)
        : keyboard_(keyboard), texts_(texts), page_(page), number_(page.value()) {}

    void build() {
        buildUpperRows();
        buildLowerRow();
        buildBottomRow();
    }

private:
    void add(std::size_t row, std::unique_ptr<Key> key) {
        keyboard_.addKey(std::move(key), row, static_cast<std::size_t>(number_));
    }

    void addCharacters(std::size_t row) {
        const bool isText = page_.isLetters() && page_.field == FieldFamily::Text;
        const KeyType type = isText ? KeyType::Character : KeyType::SpecialCharacter;
        std::string_view texts = charactersOfRow(texts_, page_, row);
        while (!texts.empty()) {
            const std::size_t end = std::min(texts.find(' '), texts.size());
            add(row, letterKey(type, texts.substr(0, end)));
            texts.remove_prefix(std::min(end + 1, texts.size()));
        }
    }

    void addWide(std::size_t row, std::unique_ptr<Key> key) {
        if (page_.isWide()) add(row, std::move(key));
    }

    void buildUpperRows() {
        addWide(0, adjustKey(KeyType::adjust_Left, "❮"));
        addCharacters(0);
        addWide(0, adjustKey(KeyType::adjust_Right, "❯"));
        addWide(1, extraKey("#"));
        addCharacters(1);
        addWide(1, extraKey("?"));
    }

    void buildLowerRow() {
        const bool strays = number_ == STRAY_MODE_KEYS.page;
        addWide(2, extraKey("@"));
        if (page_.mode == PageMode::Numbers) {
            add(2, modeKey("#+=", number_ + 1));
        } else if (page_.mode == PageMode::Symbols) {
            add(2, modeKey("123", strays ? STRAY_MODE_KEYS.rowTwoTarget : number_ - 1));
        } else if (texts_.hasShift(page_)) {
            add(2, plainKey(KeyType::Shift));
        }
        addCharacters(2);
        add(2, plainKey(KeyType::Backspace));
        addWide(2, extraKey("!"));
    }

    void buildBottomRow() {
        const bool strays = number_ == STRAY_MODE_KEYS.page;
        const int letters = number_ - static_cast<int>(page_.mode);
        addWide(3, extraKey("*"));
        add(3, page_.isLetters() ? modeKey("123", number_ + 1)
                                 : modeKey("ABC", strays ? STRAY_MODE_KEYS.rowThreeTarget : letters));
        add(3, plainKey(KeyType::KeyboardChange));
        addFieldKeys();
        add(3, returnKey());
        addWide(3, plainKey(KeyType::dismiss_Self));
    }

    void addFieldKeys() {
        switch (page_.field) {
            case FieldFamily::Text:
                add(3, plainKey(KeyType::LaunchEmoji));
                add(3, spaceKey(texts_.spaceCap));
                if (!isOneOf(number_, PAGES_WITHOUT_PERIOD)) add(3, letterKey(KeyType::Character, "."));
                break;
            case FieldFamily::Email:
                add(3, spaceKey(texts_.spaceCap));
                add(3, letterKey(KeyType::Character, "@"));
                add(3, letterKey(KeyType::Character, "."));
                break;
            case FieldFamily::Url:
                for (const char* text : {".", "/", ".com"}) {
                    add(3, letterKey(KeyType::SpecialCharacter, text));
                }
                break;
        }
    }

    std::unique_ptr<Key> returnKey() {
        const auto make = [](KeyType type, std::optional<std::string> cap) {
            auto key = plainKey(type);
            key->uppercaseKeyCap = std::move(cap);
            key->uppercaseOutput = key->lowercaseOutput = "\n";
            return key;
        };
        switch (page_.returnFamily) {
            case ReturnFamily::Default:
                break;
            case ReturnFamily::Next:
                return make(KeyType::Return, "➔");
            case ReturnFamily::Go:
                return make(KeyType::Return_II, "➔");
            case ReturnFamily::Search:
                return make(KeyType::Return_Search, std::nullopt);
            case ReturnFamily::Done:
                return make(KeyType::Return_Done, std::nullopt);
            case ReturnFamily::Send:
                return make(KeyType::Return_Send, std::string(texts_.sendCap));
        }
        const bool bySign = isOneOf(number_, RETURN_SIGN_PAGES);
        return make(KeyType::Return, bySign ? "↲" : std::string(texts_.returnCap));
    }

    Keyboard& keyboard_;
    const KeyTexts& texts_;
    PageNumber page_;
    int number_;
};

Keyboard buildKeyboard(const KeyTexts& texts) {
    Keyboard keyboard;
    for (const WidthSet width : {WidthSet::Ordinary, WidthSet::Wide}) {
        for (int family = 0; family <= static_cast<int>(ReturnFamily::Send); ++family) {
            for (const FieldFamily field : {FieldFamily::Text, FieldFamily::Email, FieldFamily::Url}) {
                for (const PageMode mode : {PageMode::Letters, PageMode::Numbers, PageMode::Symbols}) {
                    const PageNumber page{width, static_cast<ReturnFamily>(family), field, mode};
                    PageBuilder(keyboard, texts, page).build();
                }
            }
        }
    }
    return keyboard;
}

}  // namespace

Keyboard defaultKeyboard(int /*keyboardType*/, int /*returnKeyType*/) {
    return buildKeyboard(LATIN_TEXTS);
}

Keyboard arabicKeyboard(int /*keyboardType*/, int /*returnKeyType*/) {
    return buildKeyboard(ARABIC_TEXTS);
}

}  // namespace vorpel
