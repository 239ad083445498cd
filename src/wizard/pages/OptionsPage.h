// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/FormatScreen.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QComboBox;
class QRadioButton;

namespace Ui {
class OptionsPage;
}

namespace velmora::wizard {

struct DiscContents;

/// BurnDataContainer1(0): how the disc is to be burned.
class OptionsPage final : public QWidget {
public:
    /// What a person wants on this page.
    struct Wishes {
        std::function<void()> goToBurn; ///< CorvSuivant
        std::function<void()> showList; ///< CorvFichiers
        /// A disc of this size, by the option button of a type frame.
        std::function<void(Sizes sizes, qint16 index)> takeDisc;
    };

    explicit OptionsPage(QWidget* parent);
    ~OptionsPage() override;

    /// Takes over who answers. To be called once.
    void Serve(const Wishes& wishes);

    QComboBox& Combo2(OptionBox box) const;
    QRadioButton& MultiSession(writing::SessionOption option) const;
    /// The option buttons of a group of sizes.
    std::vector<QRadioButton*> Options(Sizes sizes) const;
    /// Brings the type frame of a format on screen or takes it away.
    void PlaceSizes(shell::DiscFormat format, bool isOnScreen);
    /// Label3.
    void SetTitle(const QString& title);
    /// Label5: what the disc in the drive is.
    void SetDetectedDisc(const QString& text);
    /// How full the disc would be.
    void ShowDisc(const DiscContents& contents);

private:
    std::unique_ptr<Ui::OptionsPage> ui_;
};

} // namespace velmora::wizard
