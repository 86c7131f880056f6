// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/paint_window.h"

#include "ui/cairo/bitmap.h"
#include "ui/cairo/cairo_painter.h"
#include "ui/window.h"

namespace vorpel::ui {

Rect paintWindow(Window& window, Bitmap& bitmap, DrawingResources& resources) {
    // A frame in which nothing changed takes nothing from the heap.
    if (!window.needsPaint()) return {};
    const ContextHandle context(cairo_create(bitmap.surface()));
    Rect repainted;
    {
        CairoPainter painter(context.get(), resources);
        window.paint(painter);
        repainted = painter.repainted();
    }
    cairo_surface_flush(bitmap.surface());
    return repainted.intersection({0, 0, double(bitmap.width()), double(bitmap.height())});
}

}  // namespace vorpel::ui
