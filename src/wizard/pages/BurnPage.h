// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/OperationLog.h"
#include "wizard/rules/RunNotice.h"
#include "writing/BurnScreen.h"

#include <QWidget>

#include <functional>
#include <memory>

class QPushButton;

namespace Ui {
class BurnPage;
}

namespace velmora::wizard {

class DiscPanel;
class MouseCapture;

/// BurnDataContainer1(2): the burn, its phase and its log.
class BurnPage final : public QWidget, public shell::LogView {
public:
    /// What a person wants on this page.
    struct Wishes {
        std::function<void()> burnDisc;       ///< BurnButton(0)
        std::function<void()> makeImage;      ///< BurnButton(1)
        std::function<void()> stop;           ///< BurnButton(2)
        std::function<void()> showRemarks;    ///< remarksButton
        std::function<void()> saveLog;        ///< from the menu of LogTxtBox
        std::function<void()> startCompanion; ///< Commandundo, which is never seen
        std::function<void()> endCompanion;   ///< Commandpoke, which is never seen
    };

    explicit BurnPage(QWidget* parent);
    ~BurnPage() override;

    /// Takes over who answers. To be called once.
    void Serve(const Wishes& wishes);

    /// Whether the disc is to be compared after a burn: asked anew at each start, never remembered.
    bool Compares() const;
    void SetCompares(bool compares);
    /// Told of each change of it.
    void OnCompares(std::function<void(bool compares)> listener);

    /// BurnButton: brings a button or takes it away. The stop button takes the focus as it comes.
    void ShowButton(writing::BurnButton button, bool isVisible);
    /// The stop button holds the mouse during a burn.
    void HoldMouse(MouseCapture& mouse) const;

    /// Label14: what the run does now.
    void SetStatus(const QString& caption);
    /// The end of a run, beside what Label14 says; it stays until the log is emptied.
    void ShowOutcome(const RunNotice& notice);

    /// The remarks on what is to be burned are being worked out.
    void ShowThatRemarksCome();
    /// How many remarks there are on what is burned; the button warns where something is lost.
    void ShowRemarks(std::size_t count, bool hasLoss);

    /// What the run has done to the disc. The large percent figure is the share that is written, or
    /// compared, and stands only beside a status line that tells of that.
    void ShowFigures(const writing::RunFigures& figures);
    DiscPanel& Disc() const;

    void ShowBar(bool isVisible);
    void SetBarValue(int value);
    /// FileBar: how far one file is that takes a while.
    void ShowFileBar(bool isVisible);
    void SetFileBarValue(int value);

    void LogCleared() override;
    void LogAppended(const QString& added) override;
    QString Log() const;

private:
    QPushButton& BurnButton(writing::BurnButton button) const;
    void ShowPercent();
    /// After the end there is no figure to come: a low window needs the place for words.
    void KeepPlaceOfFigures(bool isKept);

    writing::RunFigures figures_;
    std::unique_ptr<Ui::BurnPage> ui_;
};

} // namespace velmora::wizard
