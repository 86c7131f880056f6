// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/alternatives/alternatives_grid.h"
#include "ui/color.h"
#include "ui/view.h"

#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// The panel over a held key with the key's own letter and what may be typed in its place, one of them
/// chosen. It takes no touches by itself; whoever owns the finger tells it where that is. Main thread only.
class AlternativesRow final : public ui::View {
public:
    struct Look {
        ui::Color face;
        ui::Color text;
        ui::Color border;
        ui::Color chosenFace;
        ui::Color chosenText;
    };

    AlternativesRow() { setUserInteractionEnabled(false); }

    /// Texts as they would be typed, the key's own first; `key` and `room` in the superview's points. What
    /// was chosen stays so, if it is still there.
    void setContent(const std::vector<std::string>& texts, const Look& look, const ui::Rect& key,
                    const ui::Rect& room);

    /// From now on the finger is followed, which is at that point of the superview, on the key's own letter.
    void start(ui::Point point);

    /// A finger that stays about where it started keeps the key's own letter.
    void slideTo(ui::Point point);

    /// What is typed when the finger is lifted; nothing while it is far away.
    [[nodiscard]] std::optional<std::size_t> chosen() const { return chosen_; }
    [[nodiscard]] const std::vector<std::string>& texts() const { return texts_; }
    [[nodiscard]] const AlternativesGrid& grid() const { return grid_; }

    void draw(ui::Painter& painter) override;
    [[nodiscard]] ui::EdgeInsets drawingOutsets() const override;

private:
    void choose(std::optional<std::size_t> cell);

    AlternativesGrid grid_;
    std::vector<std::string> texts_;
    std::vector<std::string> caps_;
    Look look_;
    ui::Point startedAt_;
    bool slides_ = false;
    std::optional<std::size_t> chosen_ = 0;
};

}  // namespace vorpel
