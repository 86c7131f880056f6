// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/clock.h"

#include <string>

namespace vorpel::playground {

/// Tells on standard error how long it took from the start to the first frame, and from each touch that
/// changed the text to the text and to the frame that shows it; when not asked to, nothing. One thread.
class Stopwatch {
public:
    /// It runs from here. The clock must outlive it.
    Stopwatch(const platform::Clock& clock, bool tells);

    void inputTaken() { input_ = clock_.now(); }

    /// The field's text, after the input that was taken last.
    void textStands(const std::string& text);

    void frameShown();

private:
    const platform::Clock& clock_;
    bool tells_;
    double start_;
    double input_ = 0;
    double changed_ = 0;  // when the text did; 0 once a frame has shown it
    double changeInput_ = 0;
    std::string text_;
    bool hasShown_ = false;
};

}  // namespace vorpel::playground
