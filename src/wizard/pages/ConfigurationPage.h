// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"
#include "wizard/rules/RunNotice.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class ConfigurationPage;
}

namespace velmora::wizard {

class MouseCapture;

/// RootContainer1(3): an ISO image to burn, and the configuration.
class ConfigurationPage final : public QWidget {
public:
    /// What the user can do on this page.
    struct Wishes {
        std::function<void()> burnImage;                ///< BurnISO
        std::function<void()> erase;                    ///< EraseDiscbutton
        std::function<void()> chooseTemporaryDirectory; ///< TempSearch
        std::function<void()> describeRecorder;         ///< GraveurPossibilities
    };

    explicit ConfigurationPage(QWidget* parent);
    ~ConfigurationPage() override;

    /// Sets the handlers. Call it once.
    void Serve(const Wishes& wishes);

    /// Whether to compare the disc after a burn: reset at each start, never remembered.
    void SetCompares(bool compares);
    /// Called at each change of it.
    void OnCompares(std::function<void(bool compares)> listener);

    /// RepTempTxt: the temporary directory, or what the user typed.
    text::ProgramPath TemporaryDirectory() const;
    /// Shows the path for display, and keeps the exact one if the display loses something.
    void SetTemporaryDirectory(const text::ProgramPath& path);

    /// The image that the button burns without asking for one; empty: it asks.
    void ShowOfferedImage(const text::ProgramPath& image);

    /// lblErase: the progress of an erase, and how it ended.
    void SetEraseStatus(const QString& caption);
    void ShowEraseStatus(bool isVisible);
    /// How the erase ended, in addition to lblErase, and below it why the disc was not erased.
    /// Hidden as soon as lblErase is shown or hidden again.
    void ShowEraseOutcome(const RunNotice& notice, const QString& cause);
    /// EraseDiscbutton holds the mouse during an erase.
    void HoldMouse(MouseCapture& mouse) const;

private:
    /// Scrolls the text about the erase into view, if the window is too low for the whole page.
    void RevealErase();

    std::unique_ptr<Ui::ConfigurationPage> ui_;
    text::ProgramPath temporaryDirectory_;
};

} // namespace velmora::wizard
