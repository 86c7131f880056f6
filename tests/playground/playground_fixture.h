// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "playground.h"
#include "support/deterministic_platform.h"
#include "support/recording_painter.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>

namespace vorpel::playground {

/// A playground without a window, on a clock that only the test moves, with one finger.
class PlaygroundTest : public ::testing::Test {
protected:
    PlaygroundTest() {
        wordengine::Diagnostics::setStream(nullptr);
        resize({375, 656});
    }

    void resize(ui::Size size) {
        playground.resize(size, 2);
        frame();
    }

    testing::RecordingPainter frame() {
        testing::RecordingPainter painter;
        playground.refresh();
        playground.window().paint(painter);
        return painter;
    }

    /// The time that passes shows what it does.
    void advance(double seconds) {
        platform.advance(seconds);
        frame();
    }

    void tap(ui::Point point) {
        playground.window().touchDown(1, point);
        advance(0.06);
        playground.window().touchUp(1, point);
        advance(0.5);
    }

    void choose(Choice choice) {
        const Toolbar& toolbar = playground.toolbar();
        tap(toolbar.frame().origin() + toolbar.frameOf(choice).center());
    }

    /// Taps the key that shows the cap when shift is off, or does what it is named for.
    void tapKey(const std::function<bool(const Key&)>& isWanted) {
        const auto& keys = playground.keyboard().plane().layout->modelToView();
        const auto found =
            std::ranges::find_if(keys, [&](const auto& entry) { return isWanted(*entry.first); });
        if (found == keys.end()) throw std::runtime_error("no such key on show");
        tap(found->second->convertToWindow(found->second->bounds().center()));
    }

    void type(const std::string& letters) {
        for (const char letter : letters) {
            tapKey([&](const Key& key) { return key.lowercaseOutput == std::string(1, letter); });
        }
    }

    [[nodiscard]] std::string text() const { return playground.field().text(); }

    static testing::PlatformShape shape() {
        testing::PlatformShape shape;
        shape.resourceFolders = {VORPEL_SOURCE_DIR "/data/images"};
        return shape;
    }

    testing::DeterministicPlatform platform{shape()};
    Playground playground{{.runLoop = platform.runLoop,
                           .userDefaults = platform.userDefaults,
                           .bundle = platform.bundle,
                           .globalQueue = platform.globalQueue,
                           .makeOperationQueue = [this] { return platform.operations.makeOperationQueue(); },
                           .textChecker = &platform.textChecker,
                           .systemSound = &platform.sound}};
};

}  // namespace vorpel::playground
