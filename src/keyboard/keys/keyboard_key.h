// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/keys/key_colors.h"
#include "keyboard/keys/key_popup.h"
#include "keyboard/keys/shapes.h"
#include "ui/control.h"

#include <memory>
#include <optional>
#include <string>

namespace vorpel {

/// Where and how large a popup may be.
struct PopupMetrics {
    double totalHeight = 0;     ///< from the popup's upper edge to the key's lower edge
    double gap = 0;             ///< between the popup and its key
    double widthIncrement = 0;  ///< by how much it is wider than its key

    friend bool operator==(const PopupMetrics&, const PopupMetrics&) = default;
};

/// The face of a key: a cap or a shape on a rounded ground. It takes no touches by itself; whoever owns the
/// touches sends it control events. Main thread only.
class KeyboardKey : public ui::Control {
public:
    KeyboardKey();

    enum class CapKind { Letter, Word };

    [[nodiscard]] const std::string& text() const { return text_; }
    void setText(const std::string& text, double fontSize, CapKind kind);

    /// Not owned; null draws the text. `shapeChanged` is for a shape that looks different now.
    [[nodiscard]] Shape* shape() const { return shape_; }
    void setShape(Shape* shape);
    void shapeChanged() { setNeedsDisplay(); }

    [[nodiscard]] const KeyColors& colors() const { return colors_; }
    void setColors(const KeyColors& colors);

    /// Where popups are shown, over all keys, and how they are measured.
    void setPopupLayer(ui::View* layer, const PopupMetrics& metrics);
    virtual void showPopup();
    virtual void hidePopup();
    [[nodiscard]] bool hasPopup() const { return popup_ && popup_->superview(); }

    /// Where, in the forwarding view, the finger was lifted that last acted on the key.
    std::optional<ui::Point> touchedAtPosition;

    void draw(ui::Painter& painter) override;
    [[nodiscard]] ui::EdgeInsets drawingOutsets() const override;

protected:
    /// What is on the face, within its bounds.
    virtual void drawFace(ui::Painter& painter, const ui::Color& color);

private:
    void updatePopupLook();

    std::string text_;
    double fontSize_ = 16;
    CapKind kind_ = CapKind::Word;
    Shape* shape_ = nullptr;
    KeyColors colors_;
    PopupMetrics popupMetrics_;
    ui::View* popupLayer_ = nullptr;
    std::unique_ptr<KeyPopup> popup_;  // made when first shown
};

/// A key that may show a picture in place of its cap.
class ImageKey : public KeyboardKey {
public:
    /// A picture file; empty shows the cap or shape.
    void setImage(const std::string& path);
    [[nodiscard]] const std::string& image() const { return image_; }

protected:
    void drawFace(ui::Painter& painter, const ui::Color& color) override;

private:
    std::string image_;
};

}  // namespace vorpel
