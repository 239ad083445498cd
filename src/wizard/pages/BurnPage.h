// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/OperationLog.h"
#include "writing/BurnScreen.h"

#include <QWidget>

#include <functional>
#include <memory>

class QCheckBox;
class QPushButton;

namespace Ui {
class BurnPage;
}

namespace velmora::wizard {

/// BurnDataContainer1(2): the burn, its phase and its log.
class BurnPage final : public QWidget, public shell::LogView {
public:
    /// What a person wants on this page.
    struct Wishes {
        std::function<void()> burnDisc;       ///< BurnButton(0)
        std::function<void()> makeImage;      ///< BurnButton(1)
        std::function<void()> stop;           ///< BurnButton(2)
        std::function<void()> startCompanion; ///< Commandundo, which is never seen
        std::function<void()> endCompanion;   ///< Commandpoke, which is never seen
    };

    explicit BurnPage(QWidget* parent);
    ~BurnPage() override;

    /// Takes over who answers. To be called once.
    void Serve(const Wishes& wishes);

    /// Whether the disc is to be compared after a burn: asked anew at each start, never remembered.
    QCheckBox& CompareBox() const;

    QPushButton& BurnButton(writing::BurnButton button) const;

    /// Label14: what the run does now.
    void SetStatus(const QString& caption);

    /// The percent figure follows the bar of the whole run.
    void ShowBar(bool isVisible);
    void SetBarValue(int value);
    /// FileBar: how far one file is that takes a while.
    void ShowFileBar(bool isVisible);
    void SetFileBarValue(int value);

    void LogCleared() override;
    void LogAppended(const QString& added) override;

private:
    std::unique_ptr<Ui::BurnPage> ui_;
};

} // namespace velmora::wizard
