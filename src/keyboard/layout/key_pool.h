// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/keys/keyboard_key.h"
#include "ui/geometry.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace vorpel {

/// Key views, kept from page to page and handed out again by size, so that a page change makes few new ones.
class KeyPool {
public:
    /// Every view ever made, in the order of making.
    [[nodiscard]] const std::vector<std::unique_ptr<ImageKey>>& views() const { return views_; }

    /// All views are free again, and hidden with their popups.
    void reset();

    /// A free view of exactly that size, or null.
    ImageKey* takeOfSize(const ui::Size& size);

    /// Any free view, or null.
    ImageKey* takeAny();

    ImageKey& add(std::unique_ptr<ImageKey> view);

private:
    struct SizeOrder {
        bool operator()(const ui::Size& a, const ui::Size& b) const {
            return std::pair(a.width, a.height) < std::pair(b.width, b.height);
        }
    };

    std::vector<std::unique_ptr<ImageKey>> views_;
    std::map<ui::Size, std::vector<ImageKey*>, SizeOrder> sizeToKeyMap_;
};

}  // namespace vorpel
