// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cairo.h>
#include <glib-object.h>

#include <memory>

namespace vorpel::ui {

/// Owners of what the C libraries hand out by reference count.
struct HandleDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};

struct ObjectDeleter {
    void operator()(void* object) const { g_object_unref(object); }
};

using ContextHandle = std::unique_ptr<cairo_t, HandleDeleter>;
using SurfaceHandle = std::unique_ptr<cairo_surface_t, HandleDeleter>;

/// Of a GObject type, such as a layout or a parsed picture.
template <typename Type>
using ObjectHandle = std::unique_ptr<Type, ObjectDeleter>;

}  // namespace vorpel::ui
