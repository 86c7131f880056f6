// SPDX-License-Identifier: Apache-2.0
#include "keyboard/keys/keyboard_key_background.h"

#include <algorithm>
#include <numbers>

namespace vorpel {

namespace {

using ui::Path;
using ui::Point;
using ui::Rect;

constexpr double QUARTER = std::numbers::pi / 2;

// A popup closer to its key than this sits on it, without a neck.
constexpr double SHORTEST_NECK = 4;

/// From the popup's lower edge down to the key's side, in one soft curve.
void addNeckDown(Path& path, Point from, Point to) {
    const double middle = (from.y + to.y) / 2;
    path.curveTo({from.x, middle}, {to.x, middle}, to);
}

/// The popup's outline, both necks and the key's lower half, clockwise.
Path joinedOutline(const Rect& popup, const Rect& key) {
    const double r = std::min(KeyboardKeyBackground::POPUP_CORNER_RADIUS, popup.height / 2);
    const double k = std::min(KeyboardKeyBackground::CORNER_RADIUS, key.height / 2);
    // The neck leaves the popup's sides above its lower edge, where the corners would begin.
    const double shoulder = popup.bottom() - r;
    const double neckEnd = key.y + k;
    Path path;
    path.moveTo({popup.x + r, popup.y});
    path.lineTo({popup.right() - r, popup.y});
    path.arc({popup.right() - r, popup.y + r}, r, -QUARTER, 0);
    path.lineTo({popup.right(), shoulder});
    addNeckDown(path, {popup.right(), shoulder}, {key.right(), neckEnd});
    path.lineTo({key.right(), key.bottom() - k});
    path.arc({key.right() - k, key.bottom() - k}, k, 0, QUARTER);
    path.lineTo({key.x + k, key.bottom()});
    path.arc({key.x + k, key.bottom() - k}, k, QUARTER, 2 * QUARTER);
    path.lineTo({key.x, neckEnd});
    addNeckDown(path, {key.x, neckEnd}, {popup.x, shoulder});
    path.lineTo({popup.x, popup.y + r});
    path.arc({popup.x + r, popup.y + r}, r, 2 * QUARTER, 3 * QUARTER);
    path.close();
    return path;
}

}  // namespace

Path KeyboardKeyBackground::face(const Rect& frame) {
    return Path::roundedRect(frame, CORNER_RADIUS);
}

Path KeyboardConnector::join(const Rect& popup, const Rect& key) {
    if (key.y - popup.bottom() >= SHORTEST_NECK) return joinedOutline(popup, key);
    // No room above the key: the popup covers it.
    return Path::roundedRect(popup.unionWith(key), KeyboardKeyBackground::POPUP_CORNER_RADIUS);
}

}  // namespace vorpel
