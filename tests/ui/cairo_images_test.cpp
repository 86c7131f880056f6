// SPDX-License-Identifier: Apache-2.0
#include "support/temporary_folder.h"
#include "ui/cairo_canvas.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace vorpel::testing {
namespace {

using ui::Color;
using ui::Painter;
using ui::Rect;

const std::string SQUARE =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 4 4"><path fill="#f00" d="M0 0H4V4H0Z"/></svg>)";

const std::string IMAGES = VORPEL_SOURCE_DIR "/data/images/";

CairoCanvas drawn(const std::string& path, const Rect& rect, double scale = 1) {
    CairoCanvas canvas(scale);
    canvas.draw([&](Painter& painter) { painter.drawImage(path, rect, Color::clear()); });
    return canvas;
}

TEST(CairoImagesTest, PicturesFillTheirPixelsExactlyAndKeepTheirShape) {
    const TemporaryFolder folder;
    const std::string svg = folder.write("square.svg", SQUARE);
    const std::string png = folder.path("square.png");
    drawn(svg, {0, 0, 200, 100}).bitmap.savePng(png);
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        const CairoCanvas wide = drawn(svg, {20, 10, 64, 24}, scale);
        EXPECT_EQ(wide.inkBounds(), (Rect{40 * scale, 10 * scale, 24 * scale, 24 * scale})) << scale;
        EXPECT_EQ(wide.ink(), 24 * 24 * scale * scale) << scale;
        // Twice as wide as high, the square in its middle.
        const CairoCanvas picture = drawn(png, {20, 10, 40, 40}, scale);
        EXPECT_NEAR(picture.inkBounds().width, 20 * scale, 2) << scale;
        EXPECT_NEAR(picture.inkBounds().center().y, 30 * scale, 1) << scale;
    }
    CairoCanvas canvas;
    canvas.draw([&](Painter& painter) {
        painter.drawImage(svg, {0, 0, 8, 8}, Color::clear());
        painter.drawImage(svg, {10, 0, 12, 12}, Color::rgb(0, 0, 1));
    });
    EXPECT_EQ(canvas.ink(), 8 * 8 + 12 * 12) << "each in its own size";
    EXPECT_EQ(canvas.bitmap.pixel(4, 4), 0xffff0000U);
    EXPECT_EQ(canvas.bitmap.pixel(14, 4), 0xff0000ffU) << "a tint takes the place of all colour";
}

TEST(CairoImagesTest, WhatCannotBeReadDrawsNothingAndIsToldOnce) {
    const TemporaryFolder folder;
    const std::string signature = "\x89PNG\r\n\x1a\n";
    const std::string huge("\0\0\0\rIHDR\x7f\xff\xff\xff\x7f\xff\xff\xff\x08\x06\0\0\0", 21);
    const std::string paths[] = {
        folder.path("missing.svg"),
        folder.write("text.svg", "not a picture"),
        folder.write("open.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"><path d=\"M0"),
        folder.write("huge.png", signature + huge),
        folder.write("bytes.png", std::string(9000, '\xab')),
    };
    CairoCanvas canvas;
    for (const double width : {24.0, 25.0}) {
        for (const std::string& path : paths) {
            canvas.draw([&](Painter& painter) {
                painter.drawImage(path, {0, 0, width, 24}, Color::black());
            });
        }
    }
    EXPECT_EQ(canvas.ink(), 0);
    ASSERT_EQ(canvas.reports().size(), std::size(paths));
    for (std::size_t i = 0; i < std::size(paths); ++i) {
        EXPECT_TRUE(canvas.reports()[i].starts_with(paths[i] + ": ")) << canvas.reports()[i];
        EXPECT_EQ(canvas.reports()[i].find('\n'), std::string::npos);
    }
}

TEST(CairoImagesTest, DamagedFilesDoNoHarm) {
    const TemporaryFolder folder;
    drawn(IMAGES + "gear.svg", {0, 0, 48, 48}).bitmap.savePng(folder.path("gear.png"));
    for (const std::string& path : {IMAGES + "gear.svg", folder.path("gear.png")}) {
        std::ifstream file(path, std::ios::binary);
        const std::string original{std::istreambuf_iterator<char>(file), {}};
        ASSERT_GT(original.size(), 300U);
        int readable = 0;
        for (std::size_t at = 0; at < original.size(); at += 17) {
            std::string flipped = original;
            flipped[at] = static_cast<char>(flipped[at] ^ (1 << at % 8));
            for (const std::string& damaged : {flipped, original.substr(0, at)}) {
                ui::Images images({});
                readable += images.image(folder.write("damaged", damaged), 24, 24) ? 1 : 0;
            }
        }
        EXPECT_LT(readable, static_cast<int>(original.size() / 17)) << "cut files are no pictures";
    }
}

}  // namespace
}  // namespace vorpel::testing
