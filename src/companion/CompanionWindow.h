// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "companion/Companion.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class CompanionWindow;
}

namespace velmora::companion {

/// The small window with the stop button. It stays on top, and closes only with the write:
/// otherwise the user would be left without the button.
class CompanionWindow final : public QWidget {
public:
    /// @param onEnd  called when there is nothing left to stop
    explicit CompanionWindow(std::function<void()> onEnd);
    ~CompanionWindow() override;

    Companion& Button() { return companion_; }

    /// Moves to where it covers least of the window that writes.
    /// @param window  with its frame, on the desktop
    void StandBeside(const QRect& window);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Refresh();
    void ShowProgress(const Progress& progress);

    std::unique_ptr<Ui::CompanionWindow> ui_;
    Companion companion_;
};

/// Shows the window until the write is over or its program is gone.
/// @return the program's exit code: 0, or 2 when it wasn't started by the program that writes
int RunCompanion(int argc, char** argv);

} // namespace velmora::companion
