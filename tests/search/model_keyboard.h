// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/geometry_file_writer.h"
#include "compiler/key_page_layout.h"
#include "proximity/proximity_info.h"
#include "search/model_costs.h"

#include <json/json.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace wordengine::testing {

/// Where a finger came down, in points from the page's top left.
struct Touch {
    int x = 0;
    int y = 0;
};

/// A typed word: letters, and where they were touched.
struct TypedWord {
    std::vector<int> codePoints, xs, ys;

    void add(char32_t letter, Touch touch) {
        codePoints.push_back(static_cast<int>(letter));
        xs.push_back(touch.x);
        ys.push_back(touch.y);
    }
};

/// The English letters page twice over: the engine's picture of it, read from the generated geometry, and
/// what the drawn frames say of distances and neighbours, worked out here by other means.
class ModelKeyboard {
public:
    using LetterCase = vorpel::compiler::LetterCase;
    using KeyFrame = vorpel::compiler::KeyFrame;

    explicit ModelKeyboard(LetterCase letterCase = LetterCase::Lower)
        : page_(vorpel::compiler::layOutKeyPage("en", 0, 375, 216)),
          letterCase_(letterCase),
          keyWidth_(static_cast<int>(std::lround(frameOf('q')->width))),
          proximityInfo_(build()) {}

    /// The engine's picture.
    const ProximityInfo* proximityInfo() const { return proximityInfo_.get(); }

    bool hasKey(char32_t smallLetter) const { return frameOf(smallLetter) != nullptr; }

    /// What the letter's key types on this page, whatever its case; 0 without a key.
    char32_t typedBy(char32_t smallLetter) const {
        if (!hasKey(smallLetter)) return 0;
        return letterCase_ == LetterCase::Upper ? smallLetter - 32 : smallLetter;
    }

    /// The middle of a key; letters without a key are typed on the middle of the page.
    Touch centre(char32_t smallLetter) const {
        const KeyFrame* const frame = frameOf(smallLetter);
        if (!frame) return {187, 108};
        return {static_cast<int>(frame->centerX()), static_cast<int>(frame->centerY())};
    }

    /// Each letter in the middle of its key.
    TypedWord touch(const std::u32string& text) const {
        TypedWord typed;
        for (const char32_t letter : text) typed.add(letter, centre(smallBaseOf(letter)));
        return typed;
    }

    /// Some point up to that many key widths from the middle of the key.
    Touch around(char32_t smallLetter, double keyWidths, std::mt19937& random) const {
        const Touch middle = centre(smallLetter);
        const int reach = static_cast<int>(keyWidths * keyWidth_);
        for (;;) {
            const int dx = static_cast<int>(random() % static_cast<uint32_t>(2 * reach + 1)) - reach;
            const int dy = static_cast<int>(random() % static_cast<uint32_t>(2 * reach + 1)) - reach;
            const Touch touch{middle.x + dx, middle.y + dy};
            const bool isOnPage = touch.x >= 0 && touch.x < 375 && touch.y >= 0 && touch.y < 216;
            if (dx * dx + dy * dy <= reach * reach && isOnPage) return touch;
        }
    }

    /// From the touch to the middle of the key, in key widths, squared.
    double squaredKeyWidths(Touch touch, char32_t smallLetter) const {
        const Touch middle = centre(smallLetter);
        const double dx = touch.x - middle.x;
        const double dy = touch.y - middle.y;
        return (dx * dx + dy * dy) / (keyWidth_ * keyWidth_);
    }

    /// Whether the key may have been meant: less than its width away, and listed for this part of the page.
    bool isNear(Touch touch, char32_t smallLetter) const {
        const KeyFrame* const frame = frameOf(smallLetter);
        if (!frame || !isListedAt(touch, *frame)) return false;
        const KeyFrame whole{0, std::round(frame->x), std::round(frame->y), std::round(frame->width),
                             std::round(frame->height)};
        return toEdge(whole, touch.x, touch.y) < keyWidth_;
    }
    bool isNearSpace(Touch touch) const { return isListedAt(touch, *frameOf(U' ')); }

private:
    std::unique_ptr<ProximityInfo> build() const {
        Json::Value file;
        std::istringstream(vorpel::compiler::geometryJson(page_, "en_US", letterCase_)) >> file;
        const auto ints = [&](const char* key) { return listOf<int>(file[key]); };
        const auto floats = [&](const char* key) { return listOf<float>(file[key]); };
        const std::vector<int> chars = ints("proximityCharsArray");
        return std::make_unique<ProximityInfo>(
            "en_US", file["keyboardMinWidth"].asInt(), file["keyboardHeight"].asInt(),
            file["gridWidth"].asInt(), file["gridHeight"].asInt(), file["mostCommonKeyWidth"].asInt(),
            file["mostCommonKeyHeight"].asInt(), chars.data(), static_cast<int>(chars.size()),
            file["keyCount"].asInt(), ints("keyXCoordinates").data(), ints("keyYCoordinates").data(),
            ints("keyWidths").data(), ints("keyHeights").data(), ints("keyCharCodes").data(),
            floats("sweetSpotCenterXs").data(), floats("sweetSpotCenterYs").data(),
            floats("sweetSpotRadii").data());
    }

    template <class T>
    static std::vector<T> listOf(const Json::Value& list) {
        std::vector<T> values;
        for (const Json::Value& value : list) values.push_back(value.as<T>());
        return values;
    }

    const KeyFrame* frameOf(char32_t smallLetter) const {
        const char32_t capital = smallLetter >= U'a' && smallLetter <= U'z' ? smallLetter - 32 : smallLetter;
        const auto key = std::find_if(page_.keys.begin(), page_.keys.end(), [&](const KeyFrame& frame) {
            return static_cast<char32_t>(frame.codePoint) == capital;
        });
        return key == page_.keys.end() ? nullptr : &*key;
    }

    static double toEdge(const KeyFrame& frame, double x, double y) {
        const double dx = std::max({frame.x - x, x - frame.x - frame.width, 0.0});
        const double dy = std::max({frame.y - y, y - frame.y - frame.height, 0.0});
        return std::hypot(dx, dy);
    }

    /// The page is cut into 32 x 16 cells; one lists the keys within 1.2 key widths of its middle.
    bool isListedAt(Touch touch, const KeyFrame& frame) const {
        constexpr int CELL_WIDTH = 12;   // 375 / 32, rounded up
        constexpr int CELL_HEIGHT = 14;  // 216 / 16, rounded up
        const double x = touch.x / CELL_WIDTH * CELL_WIDTH + CELL_WIDTH / 2.0;
        const double y = touch.y / CELL_HEIGHT * CELL_HEIGHT + CELL_HEIGHT / 2.0;
        return toEdge(frame, x, y) < 1.2 * frameOf(U'q')->width;
    }

    vorpel::compiler::KeyPage page_;
    LetterCase letterCase_;
    int keyWidth_;
    std::unique_ptr<ProximityInfo> proximityInfo_;
};

}  // namespace wordengine::testing
