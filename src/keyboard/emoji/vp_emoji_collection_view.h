// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/animation.h"
#include "ui/collection_view.h"
#include "ui/collection_view_grid_layout.h"
#include "ui/label.h"

#include <memory>
#include <string>
#include <vector>

namespace vorpel {

/// Shows one emoji in the middle of itself.
class VPEmojiCollectionViewCell : public ui::CollectionViewCell {
public:
    VPEmojiCollectionViewCell();

    ui::Label label;

    /// Grows smaller and back again within a fifth of a second.
    void shrinkForAnInstant();

    void layoutSubviews() override;

protected:
    void prepareForReuse() override;

private:
    void scaleLabel(double scale);

    ui::Animation shrinking_;
};

class VPEmojiCollectionViewDelegate {
public:
    virtual ~VPEmojiCollectionViewDelegate() = default;

    /// May reload or destroy the view.
    virtual void emojiTapped(const std::string& text, VPEmojiCollectionViewCell& sender) = 0;
};

/// The emoji of one page, in a grid that scrolls up and down. Main thread only.
class VPEmojiCollectionView : public ui::View,
                              private ui::CollectionViewDataSource,
                              private ui::CollectionViewSelectionDelegate {
public:
    VPEmojiCollectionView();
    ~VPEmojiCollectionView() override;

    /// Not owned; null for none.
    VPEmojiCollectionViewDelegate* emojiDelegate = nullptr;

    [[nodiscard]] const std::vector<std::string>& emojis() const { return emojis_; }

    /// Others than before are shown from the top.
    void setEmojis(std::vector<std::string> emojis);

    /// How the emoji stand. A tap between two means the nearer.
    [[nodiscard]] ui::CollectionViewGridLayout& grid() { return grid_; }
    [[nodiscard]] ui::CollectionView& collectionView() { return collectionView_; }

    void layoutSubviews() override;

private:
    int numberOfItemsInSection(ui::CollectionView& view, int section) override;
    ui::CollectionViewCell* cellForItemAtIndexPath(ui::CollectionView& view,
                                                   const ui::IndexPath& path) override;
    void didSelectItemAtIndexPath(ui::CollectionView& view, const ui::IndexPath& path) override;

    std::vector<std::string> emojis_;
    ui::CollectionViewGridLayout grid_;
    ui::CollectionView collectionView_;
};

}  // namespace vorpel
