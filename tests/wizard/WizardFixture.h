// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/TemporaryFolder.h"
#include "tests/support/WidgetApplication.h"
#include "tests/wizard/WizardBench.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QTabBar>

#include <gtest/gtest.h>

namespace velmora::test {

/// Declared before the bench that works in it.
struct BenchPlace {
    TemporaryFolder place;
};

/// The real window over one virtual recorder, "graveur".
class WizardFixture : public testing::Test, private BenchPlace, protected WizardBench {
protected:
    WizardFixture()
        : WizardBench(place.Path())
    {
    }

    void OpenWith(const QString& medium)
    {
        MakeRecorder(u"graveur"_s, medium);
        Open();
    }
    /// From the formats to the burn page.
    void GoToBurn(const char* format) const
    {
        Click(format);
        Click("CorvSuivant");
    }
    QString TextOf(const char* name) const { return Find<QLabel>(name).text(); }
    QString Log() const { return Find<QPlainTextEdit>("LogTxtBox").toPlainText(); }
    virtualdrive::Description Recorder() const { return recorders.Show(u"graveur"_s); }

    /// Does something once, the first time that the status line says this.
    void When(const QString& phase, std::function<void()> then)
    {
        pump.onPump = [this, phase, then = std::move(then)] {
            if (TextOf("Label14").contains(phase)) {
                const std::function<void()> once = then;
                pump.onPump = {};
                once();
            }
        };
    }
};

} // namespace velmora::test
