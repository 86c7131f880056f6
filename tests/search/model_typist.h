// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/model_costs.h"
#include "search/model_keyboard.h"
#include "search/search_fixture.h"

#include <algorithm>
#include <random>
#include <string>

namespace wordengine::testing {

/// Types a word letter by letter, aiming as well as told, and keeps the sum of what that costs.
class ModelTypist {
public:
    /// `aim` in key widths: no touch lands farther from where it was meant to.
    ModelTypist(const ModelKeyboard& keyboard, double aim, std::mt19937& random)
        : keyboard_(keyboard), aim_(aim), random_(random) {}

    const TypedWord& typed() const { return typed_; }
    int points() const { return static_cast<int>(typed_.codePoints.size()); }
    double sum() const { return sum_; }
    Touch touchAt(int point) const {
        return {typed_.xs[static_cast<size_t>(point)], typed_.ys[static_cast<size_t>(point)]};
    }

    ModelTypist& pay(double cost) {
        sum_ += cost;
        return *this;
    }
    /// A letter that is not charged here.
    ModelTypist& hit(char32_t letter) {
        return hitAt(letter, keyboard_.around(smallBaseOf(letter), aim_, random_));
    }
    ModelTypist& hitAt(char32_t letter, Touch touch) {
        typed_.codePoints.push_back(static_cast<int>(letter));
        typed_.xs.push_back(touch.x);
        typed_.ys.push_back(touch.y);
        return *this;
    }
    /// A letter as it stands in the word: only the aim costs.
    ModelTypist& match(char32_t letter) {
        hit(smallBaseOf(letter));
        return pay(price::OF_KEY_WIDTHS * aimFactor(keyWidthsAt(points() - 1, letter)));
    }
    ModelTypist& match(const std::u32string& letters) {
        for (const char32_t letter : letters) match(letter);
        return *this;
    }
    /// Another key in the letter's place, near enough for the letter to have been meant.
    ModelTypist& missFor(char32_t letter) {
        const std::u32string near = keyboard_.neighbours(smallBaseOf(letter));
        const char32_t other = near[random_() % near.size()];
        Touch touch = keyboard_.around(other, aim_, random_);
        while (!keyboard_.isNear(touch, smallBaseOf(letter))) touch = keyboard_.centre(other);
        hitAt(other, touch);
        return pay(price::OF_KEY_WIDTHS * aimFactor(keyWidthsAt(points() - 1, letter)));
    }

    /// From the point to the letter's key, squared; a whole key width is as far as it goes.
    double keyWidthsAt(int point, char32_t letter) const {
        return std::min(1.0, keyboard_.squaredKeyWidths(touchAt(point), smallBaseOf(letter)));
    }
    /// Whether the letter is among those that a point may have meant, the one that was hit included.
    bool isListedAt(int point, char32_t letter) const {
        return typed_.codePoints[static_cast<size_t>(point)] == static_cast<int>(letter) ||
               keyboard_.isNear(touchAt(point), letter);
    }

private:
    const ModelKeyboard& keyboard_;
    double aim_;
    std::mt19937& random_;
    TypedWord typed_;
    double sum_ = 0;
};

}  // namespace wordengine::testing
