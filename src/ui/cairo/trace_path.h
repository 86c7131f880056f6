// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/path.h"

#include <cairo.h>

namespace vorpel::ui {

/// Makes the path the context's current one, in place of what it had.
inline void tracePath(cairo_t* context, const Path& path) {
    cairo_new_path(context);
    for (const auto& [verb, points] : path.elements()) {
        switch (verb) {
            case Path::Verb::Move:
                cairo_move_to(context, points[0].x, points[0].y);
                break;
            case Path::Verb::Line:
                cairo_line_to(context, points[0].x, points[0].y);
                break;
            case Path::Verb::Curve:
                cairo_curve_to(context, points[0].x, points[0].y, points[1].x, points[1].y, points[2].x,
                               points[2].y);
                break;
            case Path::Verb::Close:
                cairo_close_path(context);
                break;
        }
    }
}

}  // namespace vorpel::ui
