// SPDX-License-Identifier: Apache-2.0
#include "ui/scroll_view.h"

#include "ui/painter.h"
#include "ui/path.h"
#include "ui/window.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorpel::ui {

namespace {

constexpr double TRAVEL_SECONDS = 0.3;

// Content that goes no farther within so many seconds than so many points seems to stand: a finger on it
// means what lies there.
constexpr double SOON = 0.25;
constexpr double HARDLY_ANY_WAY = 8;

// A flick faster than this, in points a second, turns the page whatever way it has made.
constexpr double PAGE_TURN_VELOCITY = 200;

// Beyond its end the content follows the finger with this share of its way, and less and less.
constexpr double RUBBER = 0.55;

// Content that never stopped, or leapt to a stop, would be of use to nobody.
constexpr double LEAST_DECELERATION_RATE = 0.9;
constexpr double MOST_DECELERATION_RATE = 0.9999;

constexpr double INDICATOR_WIDTH = 3;
constexpr double INDICATOR_MARGIN = 2;
constexpr double LEAST_INDICATOR_LENGTH = 24;
constexpr Color INDICATOR_COLOR{0.4, 0.4, 0.4, 0.6};

// At rest the indicators stay for a while, then fade out.
constexpr double INDICATOR_SECONDS = 0.6;
constexpr double INDICATOR_FADE_SHARE = 0.5;

/// How far beyond its end the content is shown when the finger has drawn it `pull` beyond; never a whole
/// `length`.
double stretched(double pull, double length) {
    return length * (1 - 1 / (pull * RUBBER / length + 1));
}

double pullFor(double stretch, double length) {
    return length / RUBBER * (1 / (1 - stretch / length) - 1);
}

/// Applies one of the two to the part of the offset that lies beyond the ends.
template <typename Change>
double beyondEnds(double offset, double lowest, double highest, double length, Change change) {
    if (!(length > 0)) return offset;
    if (offset < lowest) return lowest - change(lowest - offset, length);
    if (offset > highest) return highest + change(offset - highest, length);
    return offset;
}

/// The page, counted from 0. The last one begins at the end `highest`, though that be less than a whole page
/// after the one before.
double nearestPage(double offset, double length, double highest) {
    const double page = std::round(offset / length);
    return highest - offset < std::abs(page * length - offset) ? std::ceil(highest / length) : page;
}

/// The page at which a drag comes to rest.
double pageAfter(double startPage, double offset, double velocity, double length, double highest) {
    const double page = offset / length;
    if (velocity > PAGE_TURN_VELOCITY) return std::min(std::floor(page) + 1, startPage + 1);
    if (velocity < -PAGE_TURN_VELOCITY) return std::max(std::ceil(page) - 1, startPage - 1);
    return nearestPage(offset, length, highest);
}

/// Where along a track an indicator lies, and how long it is.
std::pair<double, double> indicatorSpan(double offset, double length, double contentLength) {
    const double track = length - 2 * INDICATOR_MARGIN;
    const double bar = std::max(LEAST_INDICATOR_LENGTH, track * length / std::max(length, contentLength));
    const double share = std::clamp(offset / std::max(1.0, contentLength - length), 0.0, 1.0);
    return {INDICATOR_MARGIN + (track - bar) * share, bar};
}

}  // namespace

ScrollView::Indicator::Indicator() {
    setUserInteractionEnabled(false);
    setAlpha(0);
}

void ScrollView::Indicator::draw(Painter& painter) {
    painter.fill(Path::roundedRect(bounds(), INDICATOR_WIDTH / 2), INDICATOR_COLOR);
}

ScrollView::ScrollView(const Rect& frame) : View(frame) {
    setClipsToBounds(true);
    addSubview(content_);
    addSubview(horizontalIndicator_);
    addSubview(verticalIndicator_);
    pan_.attachTo(*this);
}

void ScrollView::setContentSize(Size size) {
    if (size == contentSize()) return;
    const Point offset = contentOffset();
    content_.setFrame({-offset.x, -offset.y, size.width, size.height});
    setNeedsLayout();
}

Point ScrollView::contentOffset() const {
    return {0 - content_.frame().x, 0 - content_.frame().y};
}

Point ScrollView::largestOffset() const {
    return {std::max(0.0, contentSize().width - bounds().width),
            std::max(0.0, contentSize().height - bounds().height)};
}

Point ScrollView::clamped(Point offset) const {
    const Point lowest = lowestEnd();
    const Point highest = highestEnd();
    return {std::clamp(offset.x, lowest.x, highest.x), std::clamp(offset.y, lowest.y, highest.y)};
}

Point ScrollView::lowestEnd() const {
    return {0 - contentInset_.left, 0 - contentInset_.top};
}

Point ScrollView::highestEnd() const {
    return largestOffset() + Point{contentInset_.right, contentInset_.bottom};
}

void ScrollView::setDecelerationRate(double rate) {
    decelerationRate_ = std::clamp(rate, LEAST_DECELERATION_RATE, MOST_DECELERATION_RATE);
}

void ScrollView::setContentOffset(Point offset, Animated animated) {
    stopMoving();
    const Point end = clamped(offset);
    if (dragging_) {
        dragStart_ = {end.x + dragged_.x, end.y + dragged_.y};
        dragStartPage_ = pageAt(end);
    }
    if (animated == Animated::No) return moveTo(end);
    const Point start = contentOffset();
    const auto step = [this, start, end](double progress) {
        moveTo({start.x + (end.x - start.x) * progress, start.y + (end.y - start.y) * progress});
    };
    showIndicators();
    travel_ = animate(window(), TRAVEL_SECONDS, AnimationCurve::EaseInOut, step, [this] {
        fadeIndicators();
        if (delegate_) delegate_->scrollViewDidEndScrollingAnimation(*this);
    });
}

void ScrollView::setShowsIndicators(bool shows) {
    showsIndicators_ = shows;
    if (shows) return;
    fade_.cancel();
    horizontalIndicator_.setAlpha(0);
    verticalIndicator_.setAlpha(0);
}

void ScrollView::layoutSubviews() {
    placeIndicators();
    // Content that has become shorter must not leave the view half empty.
    if (!dragging_ && !isDecelerating() && !travel_.isRunning()) moveTo(clamped(contentOffset()));
}

void ScrollView::didMoveToWindow() {
    if (window()) return;
    stopMoving();
    fade_.finish();
    // What was beyond its ends comes back there with the next layout.
    setNeedsLayout();
}

bool ScrollView::scrollsHorizontally() const {
    return scrollEnabled_ && (highestEnd().x > lowestEnd().x || (bounces_ && alwaysHorizontal_));
}

bool ScrollView::scrollsVertically() const {
    return scrollEnabled_ && (highestEnd().y > lowestEnd().y || (bounces_ && alwaysVertical_));
}

bool ScrollView::panTouched() {
    // A finger on content that moves is there to hold it, not to press what happens to pass under it.
    return scrollEnabled_ && (travel_.isRunning() || (isDecelerating() && !seemsToStand()));
}

bool ScrollView::seemsToStand() const {
    const double since = window()->runLoop().now() - deceleration_->start;
    const auto way = [&](const ScrollMotion& motion) {
        return std::abs(motion.offsetAt(since + SOON) - motion.offsetAt(since));
    };
    return way(deceleration_->x) < HARDLY_ANY_WAY && way(deceleration_->y) < HARDLY_ANY_WAY;
}

bool ScrollView::panShouldBegin(Point moved) {
    return std::abs(moved.x) > std::abs(moved.y) ? scrollsHorizontally() : scrollsVertically();
}

Point ScrollView::pageAt(Point offset) const {
    const Point highest = highestEnd();
    return {nearestPage(offset.x, bounds().width, highest.x),
            nearestPage(offset.y, bounds().height, highest.y)};
}

void ScrollView::panBegan() {
    stopMoving();
    dragging_ = true;
    dragged_ = {};
    const Point offset = contentOffset();
    const Point lowest = lowestEnd();
    const Point highest = highestEnd();
    dragStart_ = {beyondEnds(offset.x, lowest.x, highest.x, bounds().width, pullFor),
                  beyondEnds(offset.y, lowest.y, highest.y, bounds().height, pullFor)};
    dragStartPage_ = pageAt(offset);
    showIndicators();
    if (delegate_) delegate_->scrollViewWillBeginDragging(*this);
}

void ScrollView::panMoved(Point moved) {
    dragged_ = {scrollsHorizontally() ? moved.x : 0, scrollsVertically() ? moved.y : 0};
    const Point pulled = dragStart_ - dragged_;
    if (!bounces_) return moveTo(clamped(pulled));
    const Point lowest = lowestEnd();
    const Point highest = highestEnd();
    moveTo({beyondEnds(pulled.x, lowest.x, highest.x, bounds().width, stretched),
            beyondEnds(pulled.y, lowest.y, highest.y, bounds().height, stretched)});
}

void ScrollView::panEnded(Point velocity) {
    dragging_ = false;
    const Point onward{scrollsHorizontally() ? -velocity.x : 0, scrollsVertically() ? -velocity.y : 0};
    ViewWatch watch(*this);
    if (window()) decelerate(onward);
    if (watch.isAlive() && !isDecelerating()) moveTo(clamped(contentOffset()));
    if (!watch.isAlive()) return;
    const bool decelerates = isDecelerating();
    if (!decelerates) fadeIndicators();
    if (delegate_) delegate_->scrollViewDidEndDragging(*this, decelerates);
    if (!watch.isAlive() || !isDecelerating() || !delegate_) return;
    delegate_->scrollViewWillBeginDecelerating(*this);
}

void ScrollView::decelerate(Point velocity) {
    const Point from = contentOffset();
    const Point lowest = lowestEnd();
    const Point highest = highestEnd();
    const auto edge = bounces_ ? ScrollMotion::Edge::Bounces : ScrollMotion::Edge::Stops;
    const auto motion = [&](double offset, double speed, double low, double high, double length,
                            double startPage) {
        if (!paging_ || !(length > 0))
            return ScrollMotion::glide(offset, speed, {low, high, edge}, decelerationRate_);
        const double page = pageAfter(startPage, offset, speed, length, high);
        return ScrollMotion::spring(offset, speed, std::clamp(page * length, low, high));
    };
    const Size size = bounds().size();
    const ScrollMotion x = motion(from.x, velocity.x, lowest.x, highest.x, size.width, dragStartPage_.x);
    const ScrollMotion y = motion(from.y, velocity.y, lowest.y, highest.y, size.height, dragStartPage_.y);
    if (x.isOverAt(0) && y.isOverAt(0)) return;
    platform::RunLoop& runLoop = window()->runLoop();
    deceleration_.emplace(Deceleration{
        runLoop.now(), x, y, DisplayLink(runLoop, [this](double time) { decelerationStep(time); })});
}

void ScrollView::decelerationStep(double time) {
    const double since = time - deceleration_->start;
    const ScrollMotion x = deceleration_->x;
    const ScrollMotion y = deceleration_->y;
    const bool over = x.isOverAt(since) && y.isOverAt(since);
    if (over) deceleration_.reset();
    const Point offset{x.offsetAt(since), y.offsetAt(since)};
    ViewWatch watch(*this);
    moveTo(bounces_ && !over ? offset : clamped(offset));
    if (!watch.isAlive() || !over) return;
    fadeIndicators();
    if (delegate_) delegate_->scrollViewDidEndDecelerating(*this);
}

void ScrollView::stopMoving() {
    travel_.cancel();
    deceleration_.reset();
}

void ScrollView::moveTo(Point offset) {
    if (offset == contentOffset()) return;
    content_.setFrame({-offset.x, -offset.y, contentSize().width, contentSize().height});
    placeIndicators();
    contentDidMove();
    if (delegate_) delegate_->scrollViewDidScroll(*this);
}

void ScrollView::placeIndicators() {
    const Point offset = contentOffset();
    const Size size = bounds().size();
    const auto [x, width] = indicatorSpan(offset.x, size.width, contentSize().width);
    const auto [y, height] = indicatorSpan(offset.y, size.height, contentSize().height);
    const double thickness = INDICATOR_WIDTH + INDICATOR_MARGIN;
    horizontalIndicator_.setFrame({x, size.height - thickness, width, INDICATOR_WIDTH});
    verticalIndicator_.setFrame({size.width - thickness, y, INDICATOR_WIDTH, height});
}

void ScrollView::showIndicators() {
    if (!showsIndicators_) return;
    fade_.cancel();
    horizontalIndicator_.setAlpha(largestOffset().x > 0 ? 1 : 0);
    verticalIndicator_.setAlpha(largestOffset().y > 0 ? 1 : 0);
}

void ScrollView::fadeIndicators() {
    if (!showsIndicators_) return;
    fade_ = animate(window(), INDICATOR_SECONDS, AnimationCurve::Linear, [this](double progress) {
        const double alpha = std::min(1.0, (1 - progress) / INDICATOR_FADE_SHARE);
        horizontalIndicator_.setAlpha(std::min(alpha, horizontalIndicator_.alpha()));
        verticalIndicator_.setAlpha(std::min(alpha, verticalIndicator_.alpha()));
    });
}

}  // namespace vorpel::ui
