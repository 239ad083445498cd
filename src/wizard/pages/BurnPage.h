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
    /// What the user can do on this page.
    struct Wishes {
        std::function<void()> burnDisc;       ///< BurnButton(0)
        std::function<void()> makeImage;      ///< BurnButton(1)
        std::function<void()> stop;           ///< BurnButton(2)
        std::function<void()> showRemarks;    ///< remarksButton
        std::function<void()> saveLog;        ///< from the menu of LogTxtBox
        std::function<void()> startCompanion; ///< Commandundo, which is never visible
        std::function<void()> endCompanion;   ///< Commandpoke, which is never visible
    };

    explicit BurnPage(QWidget* parent);
    ~BurnPage() override;

    /// Sets the handlers. Call it once.
    void Serve(const Wishes& wishes);

    /// Whether to compare the disc after a burn: reset at each start, never remembered.
    bool Compares() const;
    void SetCompares(bool compares);
    /// Called at each change of it.
    void OnCompares(std::function<void(bool compares)> listener);

    /// BurnButton: brings a button or takes it away. The stop button takes the focus as it comes.
    void ShowButton(writing::BurnButton button, bool isVisible);
    /// The stop button holds the mouse during a burn.
    void HoldMouse(MouseCapture& mouse) const;

    /// Label14: what the run is doing.
    void SetStatus(const QString& caption);
    /// The outcome of a run, in addition to Label14; it stays until the log is emptied.
    void ShowOutcome(const RunNotice& notice);

    /// The remarks before the burn are being computed.
    void ShowThatRemarksCome();
    /// How many remarks there are on what is burned; the button warns if something is lost.
    void ShowRemarks(std::size_t count, bool hasLoss);

    /// The run's progress with the disc. The large percentage is the share that is written, or
    /// compared, and is only shown next to a status line about that.
    void ShowFigures(const writing::RunFigures& figures);
    DiscPanel& Disc() const;

    void ShowBar(bool isVisible);
    void SetBarValue(int value);
    /// FileBar: the progress of one long file.
    void ShowFileBar(bool isVisible);
    void SetFileBarValue(int value);

    void LogCleared() override;
    void LogAppended(const QString& added) override;

private:
    QPushButton& BurnButton(writing::BurnButton button) const;
    void ShowPercent();
    /// After the end no more figures come: a low window needs the space for text.
    void KeepPlaceOfFigures(bool isKept);

    QString status_; // that Label14 shows
    writing::RunFigures figures_;
    std::unique_ptr<Ui::BurnPage> ui_;
};

} // namespace velmora::wizard
