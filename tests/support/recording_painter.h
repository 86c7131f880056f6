// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/painter.h"
#include "ui/path.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace vorpel::testing {

/// One call that leaves something on the picture.
struct Drawn {
    enum class What { Rect, Path, Stroke, Shadow, Image, Text, Paragraph };
    What what;
    ui::Rect rect;  ///< in the window's points; of a path, the rectangle around it
    ui::Color color;
    std::string text;  ///< of an image, its path
    ui::Font font;
};

/// Keeps what it is told to draw. Its text is simple: each byte is half the font's size wide, a line one and
/// a quarter of it high, and a paragraph breaks between bytes.
class RecordingPainter : public ui::Painter {
public:
    std::vector<Drawn> drawn;
    int depth = 0;  ///< of saves and layers; 0 again when all are closed

    [[nodiscard]] std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const Drawn& one : drawn) {
            if (one.what == Drawn::What::Text || one.what == Drawn::What::Paragraph) {
                result.push_back(one.text);
            }
        }
        return result;
    }

    [[nodiscard]] const Drawn* find(Drawn::What what) const {
        const auto found = std::ranges::find(drawn, what, &Drawn::what);
        return found == drawn.end() ? nullptr : &*found;
    }

    void save() override {
        origins_.push_back(origin_);
        ++depth;
    }
    void restore() override {
        origin_ = origins_.back();
        origins_.pop_back();
        --depth;
    }
    void translate(ui::Point by) override { origin_ = origin_ + by; }
    void rotate(double) override {}
    void clip(const ui::Rect&) override {}
    void clip(const ui::Path&) override {}
    void beginLayer() override { ++depth; }
    void endLayer(double) override { --depth; }

    void fill(const ui::Rect& rect, const ui::Color& color) override {
        record({Drawn::What::Rect, rect, color, "", {}});
    }
    void fill(const ui::Path& path, const ui::Color& color) override {
        record({Drawn::What::Path, path.bounds(), color, "", {}});
    }
    void stroke(const ui::Path& path, const ui::Color& color, double) override {
        record({Drawn::What::Stroke, path.bounds(), color, "", {}});
    }
    void drawShadow(const ui::Path& path, const ui::Shadow& shadow) override {
        record({Drawn::What::Shadow, path.bounds(), shadow.color, "", {}});
    }
    void drawImage(const std::string& path, const ui::Rect& rect, const ui::Color& tint) override {
        record({Drawn::What::Image, rect, tint, path, {}});
    }
    void drawText(const std::string& text, const ui::Rect& rect, const ui::TextStyle& style) override {
        record({Drawn::What::Text, rect, style.color, text, style.font});
    }
    void drawParagraph(const std::string& text, const ui::Rect& rect, const ui::TextStyle& style) override {
        record({Drawn::What::Paragraph, rect, style.color, text, style.font});
    }

    [[nodiscard]] ui::Size measureText(const std::string& text, const ui::Font& font) override {
        return {static_cast<double>(text.size()) * font.size / 2, lineHeight(font)};
    }
    [[nodiscard]] ui::Size measureParagraph(const std::string& text, double width,
                                            const ui::Font& font) override {
        const double whole = measureText(text, font).width;
        const double lines = std::ceil(whole / std::max(width, font.size / 2));
        return {std::min(whole, width), lines * lineHeight(font)};
    }

private:
    static double lineHeight(const ui::Font& font) { return font.size * 1.25; }
    void record(Drawn one) {
        one.rect = one.rect.offsetBy(origin_);
        drawn.push_back(std::move(one));
    }

    ui::Point origin_;
    std::vector<ui::Point> origins_;
};

}  // namespace vorpel::testing
