// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/layout/global_colors.h"
#include "keyboard/layout/key_frame_layout.h"
#include "keyboard/layout/key_pool.h"
#include "keyboard/model/shift_state.h"
#include "platform/bundle.h"
#include "platform/user_defaults.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace vorpel {

/// What a layout is made with; all of it must outlive the layout.
struct LayoutParts {
    const LayoutConstants& constants;
    const GlobalColors& colors;
    const platform::Screen& screen;
    const platform::Bundle& bundle;
    const platform::UserDefaults& userDefaults;
};

/// The signs that keys have in place of a cap.
enum class ShapeClass { Shift, Backspace, Globe, ChevronLeft, ChevronRight, Arrow, Return };

/// The geometry of the page on show; the three lists are parallel, in no order that may be relied on.
struct PageGeometry {
    std::vector<const Key*> keys;
    std::vector<ui::Rect> frames;
    std::vector<std::string> characters;
};

/// Puts the keys of a page on show: a view for each, at its frame, with its face. Main thread only. The
/// model, the superview and the popup layer must outlive it.
class KeyboardLayout : public KeyFrameLayout {
public:
    using Completion = std::function<void(const PageGeometry&)>;

    /// The key views become subviews of `superview`, popups of `popupLayer`.
    KeyboardLayout(const LayoutParts& parts, const Keyboard& model, ui::View& superview,
                   ui::View& popupLayer);

    /// Views go from key to key as pages change. Turned off, each key of every page has a view of its own.
    [[nodiscard]] virtual bool shouldPoolKeys() const { return true; }

    /// The view of a key of the page on show, or null; and the other way round.
    [[nodiscard]] virtual KeyboardKey* viewForKey(const Key& model) const;
    [[nodiscard]] virtual const Key* keyForView(const ui::View& key) const;

    /// The model's keys with their views.
    [[nodiscard]] const std::unordered_map<const Key*, ImageKey*>& modelToView() const {
        return modelToView_;
    }

    [[nodiscard]] bool darkMode() const { return darkMode_; }
    [[nodiscard]] bool solidColorMode() const { return solidColorMode_; }
    void setLook(bool darkMode, bool solidColorMode);

    /// Shows a page: frames, views, faces. The completion is handed the keys that type, without the return
    /// keys.
    virtual void layoutKeys(int pageNum, bool uppercase, bool characterUppercase, ShiftState shiftState,
                            const Completion& completion);
    virtual void positionKeys(int pageNum, const Completion& completion);

    virtual void updateKeyAppearance();

    /// `fullReset` also gives each key its image or shape.
    virtual void updateKeyCaps(bool fullReset, bool uppercase, bool characterUppercase,
                               ShiftState shiftState);
    virtual void updateKeyCap(ImageKey& key, const Key& model, bool fullReset, bool uppercase,
                              bool characterUppercase, ShiftState shiftState);
    virtual void updateKeyCapText(ImageKey& key, const Key& model, bool uppercase, bool characterUppercase);
    virtual void setAppearanceForKey(ImageKey& key, const Key& model, bool darkMode, bool solidColorMode);
    virtual void setAppearanceForOtherKey(ImageKey& key, const Key& model, bool darkMode,
                                          bool solidColorMode);

protected:
    virtual ImageKey* pooledKey(const Key& key, const Keyboard& model, const ui::Rect& frame);
    virtual ImageKey& generateKey();
    virtual std::unique_ptr<ImageKey> createNewKey();
    virtual void resetKeyPool();

    /// The one shape of its class that all keys share.
    virtual Shape* getShape(ShapeClass shapeClass);

private:
    enum class KeyRole { Letter, Special };

    void apply(ImageKey& view, const Key& key, const ui::Rect& frame);
    void placeViews(const KeyFrames& keyMap);
    void positionAllPages();
    void showPage(int pageNum);
    [[nodiscard]] std::string imageFor(Key::KeyType type) const;
    [[nodiscard]] KeyColors builtInColors(bool darkMode, bool solidColorMode) const;
    void applyTheme(KeyColors& colors, KeyRole role) const;

    LayoutParts parts_;
    const Keyboard& model_;
    ui::View& superview_;
    ui::View& popupLayer_;
    bool darkMode_ = false;
    bool solidColorMode_ = false;
    KeyPool keyPool_;
    std::unordered_map<const Key*, ImageKey*> modelToView_;
    std::unordered_map<const ui::View*, const Key*> viewToModel_;
    std::unordered_map<const Key*, ImageKey*> nonPooledMap_;  // while pooling is off
    std::map<ShapeClass, std::unique_ptr<Shape>> shapePool_;
};

}  // namespace vorpel
