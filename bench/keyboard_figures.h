// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "field_traits.h"
#include "keyboard/keyboard_stage.h"
#include "stopwatch.h"
#include "ui/cairo/bitmap.h"
#include "ui/cairo/drawing_resources.h"
#include "ui/cairo/paint_window.h"

#include <json/json.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace vorpel::bench {

// A large phone: 1080 x 648 pixels of keys.
inline constexpr double WIDTH = 360;
inline constexpr double HEIGHT = 216;
inline constexpr double SCALE = 3;
inline constexpr int ROUNDS = 400;

using Work = std::function<void()>;

inline double millisecondsOf(const Work& work) {
    return timed(work).wall * 1e-3;
}

inline cli::StageShape largePhone() {
    cli::StageShape shape;
    shape.width = WIDTH;
    shape.height = HEIGHT;
    shape.scale = SCALE;
    shape.field = host::traitsOfField("text");
    return shape;
}

/// A keyboard on show, with all that it has painted before at hand.
struct Shown {
    explicit Shown(const cli::StageShape& shape = largePhone()) : stage(shape) { paint(); }

    cli::KeyboardStage stage;
    ui::Bitmap bitmap = ui::Bitmap::covering(stage.size(), SCALE);
    ui::DrawingResources resources{SCALE};

    void paint() { paintWindow(stage.window(), bitmap, resources); }

    void paintAll() {
        stage.window().damageAll();
        paint();
    }
};

class Figures {
public:
    explicit Figures(int rounds) : rounds_(rounds) {}

    /// `prepare` is not counted.
    void measure(const char* name, const Work& prepare, const Work& work) {
        std::vector<double> times;
        for (int i = 0; i < rounds_; ++i) {
            prepare();
            times.push_back(millisecondsOf(work));
        }
        std::ranges::sort(times);
        const auto share = [&](double part) { return times[static_cast<std::size_t>(part * (rounds_ - 1))]; };
        for (const auto& [label, part] : {std::pair("p50", 0.5), {"p95", 0.95}, {"p99", 0.99}}) {
            json_[name][label] = share(part);
        }
        if (reference_ == 0) reference_ = share(0.5);
        json_[name]["fills"] = share(0.5) / reference_;
    }

    Json::Value& json() { return json_; }

private:
    int rounds_;
    double reference_ = 0;
    Json::Value json_{Json::objectValue};
};

/// The emoji keyboard: opening it, drawing its pages, and the memory that turning them takes.
void measureEmoji(Figures& figures);

}  // namespace vorpel::bench
