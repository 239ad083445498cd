// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/DiscCapacities.h"
#include "shell/DiscChoices.h"
#include "writing/BurnOptions.h"

#include <QWidget>

#include <functional>
#include <memory>

class QRadioButton;

namespace Ui {
class OptionsPage;
}

namespace velmora::wizard {

struct DiscContents;

/// BurnDataContainer1(0): how to burn the disc.
class OptionsPage final : public QWidget {
public:
    /// What the user can do on this page.
    struct Wishes {
        std::function<void()> goToBurn; ///< CorvSuivant
        std::function<void()> showList; ///< CorvFichiers
        /// A disc of this size, by the option button of a type frame.
        std::function<void(compilation::DiscSize size)> takeSize;
    };

    explicit OptionsPage(QWidget* parent);
    ~OptionsPage() override;

    /// Sets the handlers. Call it once.
    void Serve(const Wishes& wishes);

    /// Combo2(0).
    writing::DataMode DataMode() const;
    void EnableDataMode(bool isEnabled);
    void SelectDataMode(writing::DataMode mode);

    /// Combo2(1).
    writing::FileSystemOption FileSystem() const;
    void EnableFileSystem(bool isEnabled);
    void SelectFileSystem(writing::FileSystemOption fileSystem);

    /// Combo2(2).
    writing::SpeedSelection Speed() const;
    void ClearSpeeds();
    void OfferSpeed(const QString& speed);
    void SelectFirstSpeed();

    /// MultiSession: one of them is selected.
    writing::SessionOption Session() const;
    void EnableSession(writing::SessionOption option, bool isEnabled);
    void SelectSession(writing::SessionOption option);

    void EnableSize(compilation::DiscSize size, bool isEnabled);
    /// Selects a size; no handler is called.
    void SelectSize(compilation::DiscSize size);
    /// Shows or hides the type frame of a format.
    void PlaceSizes(shell::DiscFormat format, bool isOnScreen);
    /// Label3.
    void SetTitle(const QString& title);
    /// Label5: what the disc in the drive is.
    void SetDetectedDisc(const QString& text);
    /// How full the disc would be.
    void ShowDisc(const DiscContents& contents);

private:
    QRadioButton& MultiSession(writing::SessionOption option) const;
    QRadioButton& SizeButton(compilation::DiscSize size) const;

    std::unique_ptr<Ui::OptionsPage> ui_;
};

} // namespace velmora::wizard
