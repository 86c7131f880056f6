// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/view.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::ui {

/// What a collection view shows for an item, a header or a footer. It comes to show one after the other: what
/// it shows is set each time it is handed out.
class CollectionViewCell : public View {
public:
    /// The name of the kind of cell that it was made as.
    [[nodiscard]] const std::string& reuseIdentifier() const { return reuseIdentifier_; }

protected:
    /// About to show something else: what must not be seen there goes, and what moves by itself stops.
    virtual void prepareForReuse() {}

private:
    friend class CollectionViewCellPool;
    std::string reuseIdentifier_;
};

/// Makes cells, and keeps those that are out of use until one of their kind is wanted.
class CollectionViewCellPool {
public:
    using Factory = std::function<std::unique_ptr<CollectionViewCell>()>;

    /// Of the cells made from here on; those that are made already stay in use.
    void setFactory(const std::string& reuseIdentifier, Factory factory);

    /// @throw std::invalid_argument when the identifier has no factory, or a factory that makes nothing
    [[nodiscard]] std::unique_ptr<CollectionViewCell> take(const std::string& reuseIdentifier);

    /// One that was taken here and is in no tree any more.
    void giveBack(std::unique_ptr<CollectionViewCell> cell);

private:
    struct Kind {
        Factory factory;
        std::vector<std::unique_ptr<CollectionViewCell>> idle;
    };

    std::map<std::string, Kind> kinds_;
};

}  // namespace vorpel::ui
