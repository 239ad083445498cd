// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/controls/MouseCapture.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class FrmMain;
}

namespace velmora::wizard {

class BurnPage;
class ConfigurationPage;
class FormatPage;
class FormatTile;
class ListPage;
class OptionsPage;
class SilentFormatPage;
class WaitPanel;

/// The main window: the dark band with its tabs, the pages, and what lies over them. It knows no
/// rule; whoever has the rules connects its controls.
class FrmMain final : public QWidget {
public:
    FrmMain();
    ~FrmMain() override;

    /// The controls that stand on every page, by their names.
    Ui::FrmMain& Controls() const { return *ui_; }
    FormatPage& Formats() const { return *formats_; }
    ConfigurationPage& Configuration() const { return *configuration_; }
    OptionsPage& Options() const { return *options_; }
    ListPage& List() const { return *list_; }
    BurnPage& Burn() const { return *burn_; }
    WaitPanel& Frame3DWait() const { return *wait_; }
    /// Asks for patience while the inserted disc is looked at for the choice of format.
    WaitPanel& DetectionWait() const { return *detectionWait_; }
    MouseCapture& Capture() { return capture_; }

    /// A member of CorvaneButtonAudio; its page never comes on screen.
    FormatTile& CorvaneButtonAudio(qint16 index) const;
    /// A member of CorvaneButtonVideo; its page never comes on screen.
    FormatTile& CorvaneButtonVideo(qint16 index) const;

    void PlaceRootContainer1(qint16 index, bool isOnScreen);
    void PlaceBurnDataContainer1(qint16 index, bool isOnScreen);
    /// CorvaneButton1 shows the way back, or the way out.
    void ShowWayOut(bool isWayOut);

    void ShowCorvane7BarWait1(bool isVisible);
    void RunCorvane7BarWait1(bool isRunning);

    /// Called once, when the window has come up.
    void OnActivate(std::function<void()> listener) { onActivate_ = std::move(listener); }
    /// Asked before the window closes; it stays open while the answer is no.
    void OnQueryUnload(std::function<bool()> mayClose) { mayClose_ = std::move(mayClose); }
    /// The user wanted the window closed when it couldn't be.
    bool IsCloseWanted() const { return isCloseWanted_; }

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget& RootContainer1(qint16 index) const;
    QWidget& BurnDataContainer1(qint16 index) const;
    void PaintBand();

    std::unique_ptr<Ui::FrmMain> ui_;
    FormatPage* formats_;
    SilentFormatPage* audio_;
    SilentFormatPage* video_;
    ConfigurationPage* configuration_;
    OptionsPage* options_;
    ListPage* list_;
    BurnPage* burn_;
    WaitPanel* wait_ = nullptr;
    WaitPanel* detectionWait_ = nullptr;
    MouseCapture capture_;
    QTimer activation_;
    std::function<void()> onActivate_;
    std::function<bool()> mayClose_;
    bool isCloseWanted_ = false;
};

} // namespace velmora::wizard
