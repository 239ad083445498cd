// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmAbout;
}
namespace velmora::runtime {
class Clock;
}
namespace velmora::shell {
class MessageDoor;
}

namespace velmora::dialogs {

/// The about window: title, version and maker, and the way to the help for the command line.
class frmAbout final : public QDialog {
public:
    /// @param messages  shows the help; must outlive the window
    frmAbout(shell::MessageDoor& messages, const runtime::Clock& clock, QWidget* parent = nullptr);
    ~frmAbout() override;

private:
    void Form_Load(const runtime::Clock& clock);
    void lblWVVersion_Click();

    std::unique_ptr<Ui::frmAbout> ui_;
    shell::MessageDoor& messages_;
};

} // namespace velmora::dialogs
