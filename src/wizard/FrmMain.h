// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/controls/MouseCapture.h"
#include "wizard/rules/NavigationScreen.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <span>

namespace Ui {
class FrmMain;
}

namespace velmora::wizard {

class BurnPage;
class ConfigurationPage;
class FormatPage;
class HeadBand;
class ListPage;
class OptionsPage;
class SilentFormatPage;
class WaitPanel;

/// The main window: the dark band with its tabs, the pages, and what lies over them. It contains no
/// rules; their owner connects its controls.
class FrmMain final : public QWidget {
public:
    /// The window's callbacks.
    struct Wishes {
        /// It is shown for the first time; called once.
        std::function<void()> begin;
        /// Called before it closes; it stays open if the answer is no.
        std::function<bool()> mayClose;
        /// Called whenever another page comes into view.
        std::function<void()> pageChanged;
    };

    FrmMain();
    ~FrmMain() override;

    /// Sets the callbacks. Call it once.
    void Serve(Wishes wishes);

    HeadBand& Band() const;
    FormatPage& Formats() const { return *formats_; }
    SilentFormatPage& AudioFormats() const { return *audio_; }
    SilentFormatPage& VideoFormats() const { return *video_; }
    ConfigurationPage& Configuration() const { return *configuration_; }
    OptionsPage& Options() const { return *options_; }
    ListPage& List() const { return *list_; }
    BurnPage& Burn() const { return *burn_; }
    WaitPanel& Frame3DWait() const { return *wait_; }
    /// Asks for patience while the inserted disc is examined for the choice of format.
    WaitPanel& DetectionWait() const { return *detectionWait_; }
    MouseCapture& Capture() { return capture_; }

    /// Whether to compare discs after a burn: one setting, shown on two pages.
    bool ComparesDiscs() const;

    void PlaceRootPage(RootPage page, bool isOnScreen);
    void PlaceBurnPage(shell::WizardPage page, bool isOnScreen);
    void ShowCorvane7BarWait1(bool isVisible);
    void RunCorvane7BarWait1(bool isRunning);

    /// Tells that the window will close when the task is over (closeNotice).
    void ShowCloseNotice(bool isVisible);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    /// The form's size if the screen has room for it; larger fonts need a larger window.
    void GiveMnemonics(std::span<QWidget* const> pages) const;
    void FitToScreen();
    QWidget& RootContainer1(RootPage page) const;
    QWidget& BurnDataContainer1(shell::WizardPage page) const;

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
    std::function<void()> begin_;
    std::function<bool()> mayClose_;
};

} // namespace velmora::wizard
