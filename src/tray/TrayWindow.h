// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tray/DiscDialog.h"
#include "tray/FaultDialog.h"
#include "tray/TrayRules.h"

#include <QFileSystemWatcher>
#include <QWidget>

#include <memory>

namespace Ui {
class TrayWindow;
}

namespace velmora::tray {

/// The small window of the virtual recorders. What other programs change shows at once.
class TrayWindow final : public QWidget {
public:
    /// @param clock  must outlive the window
    TrayWindow(virtualdrive::Recorders recorders, const runtime::Clock& clock);
    ~TrayWindow() override;

private:
    void Connect();
    void Refresh();
    /// Enables what the recorder allows now.
    void Allow(const TrayView& view);
    void InsertDisc();
    void PlanFault();
    void WatchFolders(const TrayView& view);

    std::unique_ptr<Ui::TrayWindow> ui_;
    TrayRules rules_;
    QFileSystemWatcher watcher_;
    DiscDialog discDialog_ {this};
    FaultDialog faultDialog_ {this};
};

/// Opens the window and returns when it is closed.
/// @return the program's exit code
int RunTrayWindow(int argc, char** argv);

} // namespace velmora::tray
