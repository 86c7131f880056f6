// SPDX-License-Identifier: Apache-2.0
#include "ui/collection_view_cell.h"

#include <stdexcept>
#include <utility>

namespace vorpel::ui {

void CollectionViewCellPool::setFactory(const std::string& reuseIdentifier, Factory factory) {
    kinds_[reuseIdentifier].factory = std::move(factory);
}

std::unique_ptr<CollectionViewCell> CollectionViewCellPool::take(const std::string& reuseIdentifier) {
    const auto found = kinds_.find(reuseIdentifier);
    if (found == kinds_.end() || !found->second.factory) {
        throw std::invalid_argument("no cell is registered as \"" + reuseIdentifier + "\"");
    }
    std::vector<std::unique_ptr<CollectionViewCell>>& idle = found->second.idle;
    if (idle.empty()) {
        std::unique_ptr<CollectionViewCell> made = found->second.factory();
        if (!made) throw std::invalid_argument("nothing is made of cells \"" + reuseIdentifier + "\"");
        made->reuseIdentifier_ = reuseIdentifier;
        return made;
    }
    std::unique_ptr<CollectionViewCell> cell = std::move(idle.back());
    idle.pop_back();
    cell->prepareForReuse();
    return cell;
}

void CollectionViewCellPool::giveBack(std::unique_ptr<CollectionViewCell> cell) {
    kinds_.at(cell->reuseIdentifier()).idle.push_back(std::move(cell));
}

}  // namespace vorpel::ui
