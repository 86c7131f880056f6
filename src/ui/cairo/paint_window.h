// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"

namespace vorpel::ui {

class Bitmap;
class DrawingResources;
class Window;

/// Paints what is damaged of the window, and nothing else, into the picture that has held it so far.
///
/// @return in pixels, the smallest rectangle around what was painted; empty when nothing was damaged
Rect paintWindow(Window& window, Bitmap& bitmap, DrawingResources& resources);

}  // namespace vorpel::ui
