// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

#include <gtest/gtest.h>

#include <array>
#include <optional>

namespace velmora::test {

/// The one application object of a test program with windows, on no screen unless the caller has
/// named one. It has to end before main does.
class WidgetApplication final : public testing::Environment {
public:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
        application_.emplace(argc_, &argv_);
    }
    void TearDown() override { application_.reset(); }

private:
    int argc_ = 1;
    std::array<char, 5> name_ {"test"};
    char* argv_ = name_.data();
    std::optional<QApplication> application_;
};

inline const testing::Environment* const kWidgetApplication
    = testing::AddGlobalTestEnvironment(new WidgetApplication);

} // namespace velmora::test
