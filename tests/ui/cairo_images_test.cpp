// SPDX-License-Identifier: Apache-2.0
#include "support/temporary_folder.h"
#include "ui/cairo_canvas.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <numbers>
#include <string>

namespace vorpel::testing {
namespace {

using ui::Bitmap;
using ui::Color;
using ui::Painter;
using ui::Rect;

const std::string SQUARE =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 4 4"><path fill="#f00" d="M0 0H4V4H0Z"/></svg>)";

const std::string IMAGES = VORPEL_SOURCE_DIR "/data/images/";

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

CairoCanvas drawn(const std::string& path, const Rect& rect, const Color& tint = Color::clear(),
                  double scale = 1) {
    CairoCanvas canvas(scale);
    canvas.draw([&](Painter& painter) { painter.drawImage(path, rect, tint); });
    return canvas;
}

TEST(CairoImagesTest, PicturesFillTheirPixelsExactlyAndKeepTheirShape) {
    const TemporaryFolder folder;
    const std::string svg = folder.write("square.svg", SQUARE);
    const std::string png = folder.path("square.png");
    drawn(svg, {0, 0, 200, 100}).bitmap.savePng(png);
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        const CairoCanvas fitting = drawn(svg, {20, 10, 24, 24}, Color::clear(), scale);
        EXPECT_EQ(fitting.inkBounds(), (Rect{20 * scale, 10 * scale, 24 * scale, 24 * scale})) << scale;
        EXPECT_EQ(fitting.ink(), 24 * 24 * scale * scale) << scale;
        const CairoCanvas wide = drawn(svg, {20, 10, 64, 24}, Color::clear(), scale);
        EXPECT_EQ(wide.inkBounds(), (Rect{40 * scale, 10 * scale, 24 * scale, 24 * scale})) << scale;
        // Twice as wide as high, the square in its middle.
        const CairoCanvas picture = drawn(png, {20, 10, 40, 40}, Color::clear(), scale);
        EXPECT_NEAR(picture.inkBounds().width, 20 * scale, 2) << scale;
        EXPECT_NEAR(picture.inkBounds().center().y, 30 * scale, 1) << scale;
    }
}

TEST(CairoImagesTest, ATintTakesThePlaceOfAllColour) {
    const TemporaryFolder folder;
    const std::string svg = folder.write("square.svg", SQUARE);
    EXPECT_EQ(drawn(svg, {0, 0, 8, 8}).bitmap.pixel(4, 4), 0xffff0000U);
    EXPECT_EQ(drawn(svg, {0, 0, 8, 8}, Color::rgb(0, 0, 1)).bitmap.pixel(4, 4), 0xff0000ffU);
}

TEST(CairoImagesTest, TurnedPicturesTurn) {
    CairoCanvas canvas(2);
    canvas.draw([](Painter& painter) {
        painter.translate({100, 50});
        painter.rotate(std::numbers::pi);
        painter.drawImage(IMAGES + "send.svg", {0, 0, 24, 24}, Color::clear());
    });
    const Rect ink = canvas.inkBounds();
    EXPECT_NEAR(ink.right(), 200 - 2 * 2, 4);
    EXPECT_NEAR(ink.bottom(), 100 - 2 * 2, 4);
    EXPECT_GT(ink.x, 150);
}

TEST(CairoImagesTest, KeyImagesAreOfOneStyle) {
    for (const std::string name :
         {"gear", "search_keyboard", "done", "send", "emoji-dark", "closekeyboard", "ic_menu", "backspace"}) {
        const CairoCanvas canvas = drawn(IMAGES + name + ".svg", {0, 0, 24, 24}, Color::clear(), 4);
        EXPECT_TRUE(canvas.reports().empty()) << name;
        const Rect ink = canvas.inkBounds();
        // Within the picture with a pixel to spare, and as wide as the others.
        EXPECT_EQ(ink.intersection({4, 4, 88, 88}), ink) << name;
        EXPECT_GT(ink.width, 60) << name;
        EXPECT_NEAR(ink.center().x, 48, 3) << name;
        EXPECT_NEAR(ink.center().y, 48, 4) << name;
        EXPECT_EQ(canvas.colouredPixels(), 0) << name;
    }
}

TEST(CairoImagesTest, WhatCannotBeReadDrawsNothingAndIsToldOnce) {
    const TemporaryFolder folder;
    std::string hugePng = "\x89PNG\r\n\x1a\n";
    hugePng += std::string("\0\0\0\rIHDR\x7f\xff\xff\xff\x7f\xff\xff\xff\x08\x06\0\0\0", 21);
    const std::vector<std::string> paths{
        folder.path("missing.svg"),
        folder.path(),
        folder.write("empty.svg", ""),
        folder.write("text.svg", "not a picture"),
        folder.write("open.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\"><path d=\"M0"),
        folder.write("other.svg", "<html><body/></html>"),
        folder.write("signature.png", "\x89PNG\r\n\x1a\n"),
        folder.write("huge.png", hugePng),
        folder.write("bytes.png", std::string(9000, '\xab')),
    };
    CairoCanvas canvas;
    for (int round = 0; round < 3; ++round) {
        for (const std::string& path : paths) {
            canvas.draw([&](Painter& painter) {
                painter.drawImage(path, {0, 0, 24.0 + round, 24}, Color::black());
            });
        }
    }
    EXPECT_EQ(canvas.ink(), 0);
    ASSERT_EQ(canvas.reports().size(), paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        EXPECT_EQ(canvas.reports()[i].rfind(paths[i] + ": ", 0), 0U) << canvas.reports()[i];
        EXPECT_GT(canvas.reports()[i].size(), paths[i].size() + 5) << "with a reason";
        EXPECT_EQ(canvas.reports()[i].find('\n'), std::string::npos);
    }
}

TEST(CairoImagesTest, DamagedFilesDoNoHarm) {
    const TemporaryFolder folder;
    drawn(IMAGES + "gear.svg", {0, 0, 48, 48}).bitmap.savePng(folder.path("gear.png"));
    for (const std::string& original : {contentOf(IMAGES + "gear.svg"), contentOf(folder.path("gear.png"))}) {
        ASSERT_GT(original.size(), 300U);
        CairoCanvas canvas;
        int readable = 0;
        for (std::size_t at = 0; at < original.size(); at += 17) {
            std::string flipped = original;
            flipped[at] = static_cast<char>(flipped[at] ^ (1 << at % 8));
            for (const std::string& damaged : {flipped, original.substr(0, at)}) {
                const std::string path = folder.write("damaged" + std::to_string(at), damaged);
                ui::Images images({});
                readable += images.image(path, 24, 24) ? 1 : 0;
            }
        }
        EXPECT_LT(readable, static_cast<int>(original.size() / 17)) << "cut files are no pictures";
    }
}

TEST(CairoImagesTest, PicturesSizesOutOfMeasureDrawNothing) {
    const TemporaryFolder folder;
    ui::Images images({});
    const std::string svg = folder.write("square.svg", SQUARE);
    EXPECT_EQ(images.image(svg, 0, 24), nullptr);
    EXPECT_EQ(images.image(svg, 24, -3), nullptr);
    cairo_surface_t* const image = images.image(svg, 24, 24);
    ASSERT_NE(image, nullptr);
    std::filesystem::remove(svg);
    EXPECT_EQ(images.image(svg, 24, 24), image) << "is remembered";
}

TEST(BitmapTest, ComesBackFromItsPngAsItWas) {
    const TemporaryFolder folder;
    CairoCanvas canvas(1.5);
    canvas.text("Ag😀", {10, 10, 150, 60}, {.font = {30}, .color = Color::rgb(0.2, 0.4, 1)});
    canvas.bitmap.savePng(folder.path("a.png"));
    const Bitmap loaded = Bitmap::loadPng(folder.path("a.png"));
    ASSERT_EQ(loaded.width(), 300);
    ASSERT_EQ(loaded.height(), 150);
    // PNG keeps colours unmultiplied: where there is little alpha they come back a step off.
    int faithful = 0;
    const auto saved = pixelsOf(canvas.bitmap);
    const auto read = pixelsOf(loaded);
    for (std::size_t i = 0; i < saved.size(); ++i) {
        ASSERT_EQ(saved[i] >> 24U, read[i] >> 24U);
        faithful += saved[i] == read[i] ? 1 : 0;
    }
    EXPECT_GT(faithful, 300 * 150 * 0.95);
}

TEST(BitmapTest, ErrorsNameTheFileAndTheReason) {
    const TemporaryFolder folder;
    const auto messageOf = [](const auto& action) -> std::string {
        try {
            action();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "no error";
    };
    const std::string nowhere = folder.path("no/such/folder/a.png");
    const std::string reason = nowhere + ": No such file or directory";
    EXPECT_EQ(messageOf([&] { Bitmap(3, 3).savePng(nowhere); }), reason);
    EXPECT_EQ(messageOf([&] { (void)Bitmap::loadPng(nowhere); }), reason);
    const std::string svg = folder.write("a.svg", SQUARE);
    EXPECT_EQ(messageOf([&] { (void)Bitmap::loadPng(svg); }), svg + ": is no PNG file");
}

TEST(BitmapTest, CoversPixelsThatAreBegun) {
    const Bitmap bitmap = Bitmap::covering({100.2, 33.333333}, 3);
    EXPECT_EQ(bitmap.width(), 301);
    EXPECT_EQ(bitmap.height(), 100);
    EXPECT_EQ(Bitmap::covering({-5, 0}, 2).width(), 1);
}

}  // namespace
}  // namespace vorpel::testing
