// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/key_pool.h"

namespace vorpel {

void KeyPool::reset() {
    sizeToKeyMap_.clear();
    for (const auto& view : views_) {
        sizeToKeyMap_[view->frame().size()].push_back(view.get());
        view->setHidden(true);
        // It lies on a layer of its own, and no page that comes may have a key for this view.
        view->hidePopup();
    }
}

ImageKey* KeyPool::takeOfSize(const ui::Size& size) {
    const auto found = sizeToKeyMap_.find(size);
    if (found == sizeToKeyMap_.end()) return nullptr;
    ImageKey* const view = found->second.back();
    found->second.pop_back();
    if (found->second.empty()) sizeToKeyMap_.erase(found);
    return view;
}

ImageKey* KeyPool::takeAny() {
    return sizeToKeyMap_.empty() ? nullptr : takeOfSize(sizeToKeyMap_.begin()->first);
}

ImageKey& KeyPool::add(std::unique_ptr<ImageKey> view) {
    return *views_.emplace_back(std::move(view));
}

}  // namespace vorpel
