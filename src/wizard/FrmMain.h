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
    /// What a person wants of what stands on every page.
    struct Wishes {
        std::function<void()> leave;    ///< CorvaneButton1: back, or out of the program
        std::function<void()> next;     ///< NextButton
        std::function<void()> previous; ///< PreviousButton
        std::function<void()> about;    ///< Image1, as soon as it is pressed
        /// CorvaneTab1: a tab, 1 or 2; also the one that is selected already.
        std::function<void(qint16 tab)> selectTab;
        /// The first view of the window, which comes once.
        std::function<void()> begin;
        /// Asked before the window closes; it stays open while the answer is no.
        std::function<bool()> mayClose;
    };

    FrmMain();
    ~FrmMain() override;

    /// Takes over who answers. To be called once.
    void Serve(Wishes wishes);

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
    /// Shows a tab as the selected one: 1 or 2. Nobody is asked.
    void ShowTab(qint16 tab);
    /// lblGraveur: the recorder chosen.
    void ShowRecorder(const QString& caption);
    /// CorvaneButton1 shows the way back, or the way out.
    void ShowWayOut(bool isWayOut);

    void ShowCorvane7BarWait1(bool isVisible);
    void RunCorvane7BarWait1(bool isRunning);

    /// The user wanted the window closed when it couldn't be.
    bool IsCloseWanted() const { return isCloseWanted_; }

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget& RootContainer1(qint16 index) const;
    QWidget& BurnDataContainer1(qint16 index) const;
    void PaintBand();
    void ServeTabs(const std::function<void(qint16 tab)>& selectTab);

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
    bool isCloseWanted_ = false;
};

} // namespace velmora::wizard
