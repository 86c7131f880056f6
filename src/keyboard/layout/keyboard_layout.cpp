// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/keyboard_layout.h"

#include "text/diagnostics.h"
#include "ui/transaction.h"

#include <algorithm>
#include <utility>

namespace vorpel {

KeyboardLayout::KeyboardLayout(const LayoutParts& parts, const Keyboard& model, ui::View& superview,
                               ui::View& popupLayer)
    : KeyFrameLayout(parts.constants, parts.screen),
      parts_(parts),
      model_(model),
      superview_(superview),
      popupLayer_(popupLayer) {}

KeyboardKey* KeyboardLayout::viewForKey(const Key& model) const {
    const auto found = modelToView_.find(&model);
    return found == modelToView_.end() ? nullptr : found->second;
}

const Key* KeyboardLayout::keyForView(const ui::View& key) const {
    const auto found = viewToModel_.find(&key);
    return found == viewToModel_.end() ? nullptr : found->second;
}

void KeyboardLayout::setLook(bool darkMode, bool solidColorMode) {
    darkMode_ = darkMode;
    solidColorMode_ = solidColorMode;
}

void KeyboardLayout::layoutKeys(int pageNum, bool uppercase, bool characterUppercase, ShiftState shiftState,
                                const Completion& completion) {
    // Keys are in their new places at once.
    ui::Transaction transaction(superview_.window(), ui::Actions::Disabled);
    if (!shouldPoolKeys() && keyPool_.views().empty()) {
        positionAllPages();
        updateKeyAppearance();
        updateKeyCaps(true, uppercase, characterUppercase, shiftState);
    }
    PageGeometry geometry;
    positionKeys(pageNum, [&](const PageGeometry& positioned) { geometry = positioned; });
    showPage(pageNum);
    if (shouldPoolKeys()) {
        updateKeyAppearance();
        updateKeyCaps(true, uppercase, characterUppercase, shiftState);
    }
    transaction.commit();
    if (completion) completion(geometry);
}

void KeyboardLayout::positionKeys(int pageNum, const Completion& completion) {
    ui::Transaction transaction(superview_.window(), ui::Actions::Disabled);
    PageGeometry geometry;
    const auto keyMap = generateKeyFrames(model_, superview_.bounds(), pageNum);
    if (keyMap) {
        std::string joined;
        for (const auto& [key, frame] : *keyMap) {
            if (!key->hasOutput()) continue;
            std::string output = key->outputForCase(false);
            if (output == "\n") continue;
            joined += output;
            geometry.keys.push_back(key);
            geometry.frames.push_back(frame);
            geometry.characters.push_back(std::move(output));
        }
        wordengine::Diagnostics::print("%s\n", joined.c_str());
        placeViews(*keyMap);
    }
    transaction.commit();
    if (completion) completion(geometry);
}

void KeyboardLayout::positionAllPages() {
    for (std::size_t page = 0; page < model_.pages.size(); ++page) {
        positionKeys(static_cast<int>(page), nullptr);
    }
}

void KeyboardLayout::placeViews(const KeyFrames& keyMap) {
    if (!shouldPoolKeys()) {
        for (const auto& [key, frame] : keyMap) {
            if (ImageKey* const view = pooledKey(*key, model_, frame)) apply(*view, *key, frame);
        }
        return;
    }
    modelToView_.clear();
    viewToModel_.clear();
    resetKeyPool();
    // First every key that finds a free view of its size, so that views change their size only when none
    // does.
    KeyFrames remaining;
    for (const auto& [key, frame] : keyMap) {
        if (ImageKey* const view = pooledKey(*key, model_, frame)) {
            apply(*view, *key, frame);
        } else {
            remaining.emplace_back(key, frame);
        }
    }
    for (const auto& [key, frame] : remaining) apply(generateKey(), *key, frame);
}

void KeyboardLayout::apply(ImageKey& view, const Key& key, const ui::Rect& frame) {
    const LayoutConstants& constants = layoutConstants();
    view.setFrame(frame);
    view.setPopupLayer(&popupLayer_, {constants.popupTotalHeight(screen().boundsWidth()),
                                      constants.popupGap(), constants.popupWidthIncrement()});
    modelToView_[&key] = &view;
    viewToModel_[&view] = &key;
}

void KeyboardLayout::showPage(int pageNum) {
    for (std::size_t page = 0; page < model_.pages.size(); ++page) {
        for (const KeyRow& row : model_.pages[page].rows) {
            for (const auto& key : row) {
                KeyboardKey* const view = viewForKey(*key);
                if (!view) continue;
                view->hidePopup();
                view->setHighlighted(false);
                view->setHidden(static_cast<int>(page) != pageNum);
            }
        }
    }
}

ImageKey* KeyboardLayout::pooledKey(const Key& key, const Keyboard& /*model*/, const ui::Rect& frame) {
    if (shouldPoolKeys()) return keyPool_.takeOfSize(frame.size());
    ImageKey*& own = nonPooledMap_[&key];
    if (!own) own = &generateKey();
    return own;
}

ImageKey& KeyboardLayout::generateKey() {
    if (ImageKey* const free = shouldPoolKeys() ? keyPool_.takeAny() : nullptr) return *free;
    ImageKey& view = keyPool_.add(createNewKey());
    superview_.addSubview(view);
    return view;
}

std::unique_ptr<ImageKey> KeyboardLayout::createNewKey() {
    return std::make_unique<ImageKey>();
}

void KeyboardLayout::resetKeyPool() {
    keyPool_.reset();
}

}  // namespace vorpel
