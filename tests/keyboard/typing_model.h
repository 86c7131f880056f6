// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/model/key.h"
#include "platform/characters.h"
#include "platform/text_input_traits.h"
#include "ui/geometry.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vorpel::testing {

/// What fingers on a keyboard type, told plainly: no views, no events, no timers. It asks only which key is
/// nearest to a point of the keys' view, null outside it.
class TypingModel {
public:
    using NearestKey = std::function<const Key*(ui::Point)>;
    using KeyType = Key::KeyType;

    TypingModel(NearestKey nearestKey, bool isEmbedded) : nearestKey_(nearestKey), isEmbedded_(isEmbedded) {}

    // What the person and the host have set.
    platform::AutocapitalizationType capitals = platform::AutocapitalizationType::None;
    bool isCapitalizing = true;
    bool hasPeriodShortcut = true;

    // What has become of it.
    std::vector<std::string> text;
    std::size_t cursor = 0;
    int page = 0;
    char shift = 'd';  ///< or E, or L when locked
    int globes = 0;
    int dismissals = 0;

    [[nodiscard]] std::size_t heldKeys() const {
        return static_cast<std::size_t>(
            std::ranges::count_if(fingers_, [](const auto& finger) { return finger.second != nullptr; }));
    }
    [[nodiscard]] bool isDown(int finger) const { return fingers_.contains(finger); }

    void down(int finger, ui::Point point) {
        cancel(finger);
        const bool isRepeat =
            now_ - lastDown_ <= 0.35 && std::hypot(point.x - lastPoint_.x, point.y - lastPoint_.y) <= 22;
        lastDown_ = now_;
        lastPoint_ = point;
        const Key* const key = nearestKey_(point);
        const bool isTaken = takeFromOthers(key);
        fingers_[finger] = key;
        // Where hosts embed it, two taps count as such on one key only.
        const bool isSameKey = !isEmbedded_ || key == lastKey_;
        if (key && !isTaken) lastKey_ = key;
        if (key && !isTaken) press(*key, isRepeat && isSameKey);
    }

    void move(int finger, ui::Point point) {
        const Key* const left = fingers_.contains(finger) ? fingers_[finger] : nullptr;
        const Key* const entered = left ? nearestKey_(point) : nullptr;
        if (!entered || entered == left) return;
        abandon(*left);
        takeFromOthers(entered);
        fingers_[finger] = entered;
    }

    void up(int finger, ui::Point point) {
        if (!fingers_.contains(finger)) return;
        if (const Key* const key = fingers_[finger]) nearestKey_(point) ? release(*key) : abandon(*key);
        fingers_.erase(finger);
    }

    void cancel(int finger) {
        if (fingers_.contains(finger) && fingers_[finger]) abandon(*fingers_[finger]);
        fingers_.erase(finger);
    }

    void wait(double seconds) {
        now_ += seconds;
        // 0.5 s after the press, or 0.57 s with a word service, and then every 0.07 s.
        const double delay = isEmbedded_ ? 0.5 : 0.43;
        while (pressedBackspace_ && *pressedBackspace_ + delay + 0.07 * repeats_ <= now_ + 1e-9) {
            ++repeats_;
            erase();
        }
    }

    /// The page is laid out anew or its place taken by another.
    void layOut(int newPage) {
        page = newPage;
        letGo();
    }

    void hostSets(const std::string& newText, std::size_t newCursor, int newPage) {
        text = platform::characters(newText);
        cursor = std::min(newCursor, text.size());
        if (newPage != page) layOut(newPage);
        moveShift();
        isAfterBlank_ = false;
    }

private:
    bool takeFromOthers(const Key* key) {
        for (auto& [finger, held] : fingers_) {
            if (key && held == key) {
                held = nullptr;
                return true;
            }
        }
        return false;
    }

    void press(const Key& key, bool isRepeat) {
        if (key.type == KeyType::Backspace) {
            erase();
            pressedBackspace_ = now_;
            repeats_ = 1;
        } else if (key.type == KeyType::ModeChange && *key.toMode != page) {
            layOut(*key.toMode);
        } else if (key.type == KeyType::Shift) {
            shiftAtPress_ = shift;
            if (shift == 'd') shift = 'E';
            if (!isRepeat) return;
            isShiftDoubled_ = true;
            shift = shift == 'L' ? 'd' : 'L';
        }
    }

    void release(const Key& key) {
        if (key.type == KeyType::Backspace) pressedBackspace_.reset();
        if (key.type == KeyType::adjust_Left && cursor > 0) --cursor;
        if (key.type == KeyType::adjust_Right && cursor < text.size()) ++cursor;
        const bool movesCursor = key.type == KeyType::adjust_Left || key.type == KeyType::adjust_Right;
        if (isEmbedded_ && movesCursor) {
            moveShift();
            isAfterBlank_ = false;
        }
        if (key.type == KeyType::dismiss_Self) ++dismissals;
        if (key.type == KeyType::KeyboardChange) {
            ++globes;
            letGo();
        }
        if (key.type == KeyType::Shift) {
            if (!isShiftDoubled_ && (shiftAtPress_ == 'E' || shiftAtPress_ == 'L')) {
                shift = shift == 'd' ? 'E' : 'd';
            }
            forgetShift();
        }
        if (key.lowercaseOutput) typeKey(key);
    }

    void typeKey(const Key& key) {
        insert(shift == 'd' ? *key.lowercaseOutput : *key.uppercaseOutput);
        const bool isSecondBlank = isAfterBlank_ && key.type == KeyType::Space;
        if (hasPeriodShortcut) {
            isAfterBlank_ = !isAfterBlank_ && key.type == KeyType::Space;
            if (isSecondBlank && endsInWordAndTwoBlanks()) {
                text[cursor - 2] = ".";
            }
        }
        moveShift();
        if (isEmbedded_) shiftAtPress_ = 'd';
    }

    /// The finger is gone from the key without having acted on it.
    void abandon(const Key& key) {
        if (key.type == KeyType::Backspace) pressedBackspace_.reset();
        if (key.type == KeyType::Shift && isEmbedded_) forgetShift();
    }

    void letGo() {
        for (auto& [finger, key] : fingers_) key = nullptr;
        pressedBackspace_.reset();
        forgetShift();
    }

    void forgetShift() {
        shiftAtPress_ = 'd';
        isShiftDoubled_ = false;
    }

    void insert(const std::string& typed) {
        for (const std::string& character : platform::characters(typed)) {
            text.insert(text.begin() + static_cast<std::ptrdiff_t>(cursor++), character);
        }
    }

    void erase() {
        if (cursor > 0) text.erase(text.begin() + static_cast<std::ptrdiff_t>(--cursor));
        moveShift();
    }

    [[nodiscard]] std::string before(std::size_t distance) const {
        return distance <= cursor ? text[cursor - distance] : "";
    }
    static bool isOneOf(const std::string& character, std::string_view set) {
        return !character.empty() && set.find(character) != std::string_view::npos;
    }

    [[nodiscard]] bool endsInWordAndTwoBlanks() const {
        return before(1) == " " && before(2) == " " && cursor > 2 && !isOneOf(before(3), " \n\t.!?,");
    }

    [[nodiscard]] bool wantsCapital() const {
        using enum platform::AutocapitalizationType;
        if (!isCapitalizing || capitals == None) return false;
        if (capitals == AllCharacters || cursor == 0) return true;
        if (capitals == Words) return isOneOf(before(1), " \n\t");
        std::size_t blanks = 0;
        while (blanks < 3 && isOneOf(before(blanks + 1), " \t")) ++blanks;
        const std::string last = before(blanks + 1);
        return blanks == 3 || last.empty() || last == "\n" || (blanks > 0 && isOneOf(last, ".!?"));
    }

    void moveShift() {
        if (shift != 'L') shift = wantsCapital() ? 'E' : 'd';
    }

    NearestKey nearestKey_;
    bool isEmbedded_;
    double now_ = 0;
    const Key* lastKey_ = nullptr;
    double lastDown_ = -1;
    ui::Point lastPoint_;
    std::map<int, const Key*> fingers_;  // those that are down, with the key that each holds
    std::optional<double> pressedBackspace_;
    int repeats_ = 0;
    char shiftAtPress_ = 'd';
    bool isShiftDoubled_ = false;
    bool isAfterBlank_ = false;
};

}  // namespace vorpel::testing
