// SPDX-License-Identifier: Apache-2.0
#include "stopwatch.h"

#include <cstdio>

namespace vorpel::playground {

namespace {

constexpr double MILLISECONDS = 1e3;

}  // namespace

Stopwatch::Stopwatch(const platform::Clock& clock, bool tells)
    : clock_(clock), tells_(tells), start_(clock.now()) {}

void Stopwatch::textStands(const std::string& text) {
    if (!tells_ || text == text_) return;
    text_ = text;
    changeInput_ = input_;
    changed_ = clock_.now();
}

void Stopwatch::frameShown() {
    if (!tells_) return;
    const double now = clock_.now();
    if (!hasShown_) std::fprintf(stderr, "first frame: %.1f ms\n", (now - start_) * MILLISECONDS);
    hasShown_ = true;
    if (changed_ == 0) return;
    std::fprintf(stderr, "touch to text: %.2f ms, to frame: %.2f ms\n",
                 (changed_ - changeInput_) * MILLISECONDS, (now - changeInput_) * MILLISECONDS);
    changed_ = 0;
}

}  // namespace vorpel::playground
