// SPDX-License-Identifier: Apache-2.0
#include "ui/cairo/image_file.h"

#include <librsvg/rsvg.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace vorpel::ui {

namespace {

constexpr std::string_view PNG_SIGNATURE = "\x89PNG\r\n\x1a\n";

// A key's picture is a few kilobytes; what is far beyond is damaged, or would hold up the first frame.
constexpr std::size_t MOST_BYTES = std::size_t{8} << 20U;
constexpr std::uint32_t MOST_PIXELS_A_SIDE = 8192;

struct Bytes {
    std::vector<char> bytes;
    std::string reason;
};

Bytes readFile(const std::string& path) {
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) return {{}, std::strerror(errno)};
    Bytes read;
    std::vector<char> piece(std::size_t{1} << 16U);
    while (file.read(piece.data(), static_cast<std::streamsize>(piece.size())) || file.gcount() > 0) {
        read.bytes.insert(read.bytes.end(), piece.begin(), piece.begin() + file.gcount());
        if (read.bytes.size() > MOST_BYTES) return {{}, "too large for a picture of a key"};
    }
    if (file.bad()) return {{}, "cannot be read"};
    if (read.bytes.empty()) return {{}, "is empty or no file"};
    return read;
}

bool isPng(std::span<const char> bytes) {
    return std::string_view(bytes.data(), bytes.size()).starts_with(PNG_SIGNATURE);
}

// Width and height, four bytes each, follow the signature and the head of the first chunk.
bool hasBearableSize(std::span<const char> png) {
    constexpr std::size_t WIDTH_OFFSET = 16;
    if (png.size() < WIDTH_OFFSET + 8) return false;
    for (std::size_t side = 0; side < 2; ++side) {
        std::uint32_t value = 0;
        for (const char byte : png.subspan(WIDTH_OFFSET + 4 * side, 4)) {
            value = value << 8U | static_cast<unsigned char>(byte);
        }
        if (value == 0 || value > MOST_PIXELS_A_SIDE) return false;
    }
    return true;
}

cairo_status_t takeBytes(void* closure, unsigned char* data, unsigned int length) {
    auto& rest = *static_cast<std::span<const char>*>(closure);
    if (rest.size() < length) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(data, rest.data(), length);
    rest = rest.subspan(length);
    return CAIRO_STATUS_SUCCESS;
}

ImageFile decodePng(std::span<const char> bytes) {
    if (!isPng(bytes)) return {nullptr, "is no PNG file"};
    if (!hasBearableSize(bytes)) return {nullptr, "is a damaged PNG file, or far too large a picture"};
    SurfaceHandle surface(cairo_image_surface_create_from_png_stream(takeBytes, &bytes));
    const cairo_status_t status = cairo_surface_status(surface.get());
    if (status != CAIRO_STATUS_SUCCESS) return {nullptr, cairo_status_to_string(status)};
    return {std::move(surface), {}};
}

ImageFile fitPng(std::span<const char> bytes, SurfaceHandle target, int width, int height) {
    ImageFile png = decodePng(bytes);
    if (!png.surface) return png;
    const double ownWidth = cairo_image_surface_get_width(png.surface.get());
    const double ownHeight = cairo_image_surface_get_height(png.surface.get());
    const double share = std::min(width / ownWidth, height / ownHeight);
    const ContextHandle context(cairo_create(target.get()));
    cairo_translate(context.get(), (width - ownWidth * share) / 2, (height - ownHeight * share) / 2);
    cairo_scale(context.get(), share, share);
    cairo_set_source_surface(context.get(), png.surface.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_BEST);
    cairo_paint(context.get());
    return {std::move(target), {}};
}

std::string takeMessage(GError* error) {
    std::string message = error ? error->message : "is no picture";
    g_clear_error(&error);
    // A report is one line.
    while (message.ends_with('\n')) message.pop_back();
    std::ranges::replace(message, '\n', ' ');
    return message;
}

ImageFile fitSvg(std::span<const char> bytes, SurfaceHandle target, int width, int height) {
    GError* error = nullptr;
    const ObjectHandle<RsvgHandle> svg(
        rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(bytes.data()), bytes.size(), &error));
    if (!svg) return {nullptr, takeMessage(error)};
    const ContextHandle context(cairo_create(target.get()));
    const RsvgRectangle viewport{0, 0, static_cast<double>(width), static_cast<double>(height)};
    if (!rsvg_handle_render_document(svg.get(), context.get(), &viewport, &error)) {
        return {nullptr, takeMessage(error)};
    }
    return {std::move(target), {}};
}

}  // namespace

ImageFile readImageFile(const std::string& path, int width, int height) {
    const Bytes file = readFile(path);
    if (!file.reason.empty()) return {nullptr, file.reason};
    SurfaceHandle target(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    const cairo_status_t status = cairo_surface_status(target.get());
    if (status != CAIRO_STATUS_SUCCESS) return {nullptr, cairo_status_to_string(status)};
    ImageFile image = isPng(file.bytes) ? fitPng(file.bytes, std::move(target), width, height)
                                        : fitSvg(file.bytes, std::move(target), width, height);
    if (image.surface) cairo_surface_flush(image.surface.get());
    return image;
}

ImageFile readPngFile(const std::string& path) {
    const Bytes file = readFile(path);
    if (!file.reason.empty()) return {nullptr, file.reason};
    return decodePng(file.bytes);
}

}  // namespace vorpel::ui
