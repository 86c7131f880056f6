// SPDX-License-Identifier: Apache-2.0
#include "ui/gesture_recognizer.h"

#include "ui/view.h"
#include "ui/window.h"

#include <utility>

namespace vorpel::ui {

GestureRecognizer::~GestureRecognizer() {
    leaveView();
}

void GestureRecognizer::attachTo(View& view) {
    detach();
    view_ = &view;
    view.recognizers_.push_back(this);
}

void GestureRecognizer::detach() {
    if (leaveView()) reset();
}

void GestureRecognizer::claim(Touch& touch) {
    if (Window* const window = view_ ? view_->window() : nullptr) {
        window->takeTouch(touch, *this, [](const GestureRecognizer&) { return true; });
    }
}

void GestureRecognizer::hold(Touch& touch) {
    if (Window* const window = view_ ? view_->window() : nullptr) {
        window->takeTouch(touch, *this, [](const GestureRecognizer& other) { return !other.mayClaimHeld(); });
    }
}

bool GestureRecognizer::leaveView() {
    View* const left = std::exchange(view_, nullptr);
    if (!left) return false;
    std::erase(left->recognizers_, this);
    if (Window* const window = left->window()) window->recognizerLeft(*this);
    return true;
}

}  // namespace vorpel::ui
