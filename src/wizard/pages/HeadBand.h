// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/NavigationScreen.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class HeadBand;
}

namespace velmora::wizard {

/// The dark band at the head of every page: the way back, the logo, the recorder and the tabs.
class HeadBand final : public QWidget {
public:
    /// What the user can do here.
    struct Wishes {
        std::function<void()> leave;    ///< CorvaneButton1: back, or out of the program
        std::function<void()> next;     ///< NextButton
        std::function<void()> previous; ///< PreviousButton
        std::function<void()> about;    ///< Image1, as soon as it is pressed
        /// CorvaneTab1: a tab; even the one that is already selected.
        std::function<void(Tab tab)> selectTab;
    };

    explicit HeadBand(QWidget* parent);
    ~HeadBand() override;

    /// Sets the handlers. Call it once.
    void Serve(const Wishes& wishes);

    /// Shows a tab as the selected one. No handler is called.
    void ShowTab(Tab tab);
    /// lblGraveur: the chosen recorder.
    void ShowRecorder(const QString& caption);
    /// CorvaneButton1 shows the way back, or the way out.
    void ShowWayOut(bool isWayOut);

private:
    void MakeDark();
    void OfferTab(Tab tab, const QString& caption);
    void ServeTabs(const std::function<void(Tab tab)>& selectTab);
    Tab TabAt(int index) const;

    std::unique_ptr<Ui::HeadBand> ui_;
};

} // namespace velmora::wizard
