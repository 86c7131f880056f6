// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "look.h"
#include "ui/control.h"
#include "ui/view.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>

namespace vorpel::playground {

/// What a person may try out.
enum class Choice { Field, Return, Look, Theme, Held, Language, Settings };

/// A row of keys, or two where it is narrow, that each show what is chosen and at a tap go on to the next.
class Toolbar final : public ui::View {
public:
    /// The handler is called for each tap.
    explicit Toolbar(std::function<void(Choice)> handler);

    void setValue(Choice choice, const std::string& value);
    void setLook(const Look& look);

    [[nodiscard]] static double heightFor(double width);

    /// In the toolbar's points.
    [[nodiscard]] ui::Rect frameOf(Choice choice) const { return chips_.at(indexOf(choice)).frame(); }

    void layoutSubviews() override;

private:
    class Chip final : public ui::Control {
    public:
        void draw(ui::Painter& painter) override;

        std::string caption;
        std::string value;
        Look look = LIGHT_LOOK;
    };

    static constexpr std::size_t COUNT = 7;
    static std::size_t indexOf(Choice choice) { return static_cast<std::size_t>(choice); }

    std::array<Chip, COUNT> chips_;
};

}  // namespace vorpel::playground
