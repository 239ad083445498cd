// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <array>
#include <optional>

namespace velmora::test {

/// The one application object of a test program without windows. It has to end before main does.
class CoreApplication final : public testing::Environment {
public:
    void SetUp() override { application_.emplace(argc_, &argv_); }
    void TearDown() override { application_.reset(); }

private:
    int argc_ = 1;
    std::array<char, 5> name_ {"test"};
    char* argv_ = name_.data();
    std::optional<QCoreApplication> application_;
};

inline const testing::Environment* const kCoreApplication
    = testing::AddGlobalTestEnvironment(new CoreApplication);

} // namespace velmora::test
