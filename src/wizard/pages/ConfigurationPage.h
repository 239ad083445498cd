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
    /// What a person wants on this page.
    struct Wishes {
        std::function<void()> burnImage;                ///< BurnISO
        std::function<void()> erase;                    ///< EraseDiscbutton
        std::function<void()> chooseTemporaryDirectory; ///< TempSearch
        std::function<void()> describeRecorder;         ///< GraveurPossibilities
    };

    explicit ConfigurationPage(QWidget* parent);
    ~ConfigurationPage() override;

    /// Takes over who answers. To be called once.
    void Serve(const Wishes& wishes);

    /// Whether the disc is to be compared after a burn: asked anew at each start, never remembered.
    void SetCompares(bool compares);
    /// Told of each change of it.
    void OnCompares(std::function<void(bool compares)> listener);

    /// RepTempTxt: the temporary directory; what was typed, if something was.
    text::ProgramPath TemporaryDirectory() const;
    /// Shows the path as a person reads it, and keeps it exact where the reading loses
    /// something.
    void SetTemporaryDirectory(const text::ProgramPath& path);

    /// The image that the button burns without asking for one; empty: it asks.
    void ShowOfferedImage(const text::ProgramPath& image);

    /// lblErase: how far an erase is, and how it ended.
    void SetEraseStatus(const QString& caption);
    void ShowEraseStatus(bool isVisible);
    /// How the erase ended, beside what lblErase says, and below it why the disc was not erased.
    /// Gone as soon as lblErase is shown or hidden anew.
    void ShowEraseOutcome(const RunNotice& notice, const QString& cause);
    /// EraseDiscbutton holds the mouse during an erase.
    void HoldMouse(MouseCapture& mouse) const;

private:
    /// Scrolls what is said of the erase into view, where the window is too low for all of the
    /// page.
    void RevealErase();

    std::unique_ptr<Ui::ConfigurationPage> ui_;
    text::ProgramPath temporaryDirectory_;
};

} // namespace velmora::wizard
