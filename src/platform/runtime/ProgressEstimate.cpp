// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/ProgressEstimate.h"

#include <utility>

namespace velmora::runtime {

namespace {

constexpr double kMeasuredSeconds = 30;
constexpr double kBetweenSamples = 0.5;
// An estimate from less than this is unstable.
constexpr double kBeforeEstimate = 1;

} // namespace

ProgressEstimate::ProgressEstimate(std::function<double()> seconds)
    : seconds_(std::move(seconds))
    , begun_(seconds_())
{
    Begin();
}

void ProgressEstimate::Begin()
{
    begun_ = seconds_();
    total_ = 0;
    last_ = {.at = begun_, .done = 0};
    samples_ = {last_};
}

void ProgressEstimate::Reach(qint64 done, qint64 total)
{
    total_ = total;
    last_ = {.at = seconds_(), .done = done};
    if (last_.at - samples_.back().at < kBetweenSamples) {
        return;
    }
    samples_.push_back(last_);
    // The last one before the half minute is kept, so that the whole half minute is measured.
    while (last_.at - samples_[1].at >= kMeasuredSeconds) {
        samples_.pop_front();
    }
}

std::optional<double> ProgressEstimate::PerSecond() const
{
    const Sample& first = samples_.front();
    if (last_.at <= first.at || last_.done <= first.done) {
        return {};
    }
    return static_cast<double>(last_.done - first.done) / (last_.at - first.at);
}

std::optional<double> ProgressEstimate::SecondsLeft() const
{
    const std::optional<double> speed = PerSecond();
    if (!speed || last_.at - begun_ < kBeforeEstimate) {
        return {};
    }
    return static_cast<double>(total_ - last_.done) / *speed;
}

} // namespace velmora::runtime
