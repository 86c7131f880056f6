// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"
#include "ui/gesture_recognizer.h"

#include <vector>

namespace vorpel::ui {

/// What a finger that draws the content along tells. Movements are points of the window.
class PanHandler {
public:
    virtual ~PanHandler() = default;

    /// A finger came down. True begins at once and takes its touch away from all but other pans, of which one
    /// that the finger's way suits better may have it.
    virtual bool panTouched() = 0;

    /// The finger has moved that far, more than a tap may. True takes the touch; false waits for more.
    virtual bool panShouldBegin(Point moved) = 0;
    virtual void panBegan() = 0;

    /// All the movement since the pan began.
    virtual void panMoved(Point moved) = 0;

    /// @param velocity points a second, over the last tenth of one
    virtual void panEnded(Point velocity) = 0;

protected:
    PanHandler() = default;
    PanHandler(const PanHandler&) = default;
    PanHandler& operator=(const PanHandler&) = default;
};

/// Follows one finger at a time; once it has moved far enough, the views under it lose their touch. The
/// handler must outlive it.
class PanGesture : public GestureRecognizer {
public:
    static constexpr double SLOP = 10;

    explicit PanGesture(PanHandler& handler) : handler_(handler) {}

protected:
    void touchBegan(Touch& touch) override;
    void touchMoved(Touch& touch) override;
    void touchEnded(Touch& touch) override;
    void touchCancelled(Touch& touch) override;
    void reset() override;
    [[nodiscard]] bool mayClaimHeld() const override { return true; }

private:
    struct Sample {
        double time;
        Point location;
    };

    [[nodiscard]] bool isGoingOurWay(Point moved) const;
    void begin(Touch& touch);
    void hold(Touch& touch);
    void addSample(const Touch& touch);
    [[nodiscard]] Point velocity() const;

    PanHandler& handler_;
    const Touch* tracked_ = nullptr;
    bool panning_ = false;
    bool held_ = false;  // pans, but another may have the touch
    Point start_;        // where the finger came down, then where the pan began
    std::vector<Sample> samples_;
};

}  // namespace vorpel::ui
