// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/DiscChoices.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class FormatPage;
}

namespace velmora::wizard {

class FormatTile;

/// RootContainer1(0): the recorder and the disc format.
class FormatPage final : public QWidget {
public:
    /// What the user can do on this page.
    struct Wishes {
        /// Combo1: another recorder; also when the program selects one.
        std::function<void()> useRecorder;
        std::function<void(shell::DiscFormat format)> takeFormat; ///< CorvaneButton2
    };

    explicit FormatPage(QWidget* parent);
    ~FormatPage() override;

    /// Sets the handlers. Call it once.
    void Serve(Wishes wishes);

    /// Whether the recorder can write a format (CorvaneButton2); one that it can't is grey.
    bool IsPossible(shell::DiscFormat format) const;
    void SetPossible(shell::DiscFormat format, bool isPossible);

    // Combo1: the recorders, counted from 0.
    void ClearRecorders();
    /// Adds a recorder; the first one isn't selected by itself.
    void AddRecorder(const QString& name);
    qint16 RecorderCount() const;
    QString RecorderName(qint16 index) const;
    /// -1 when none is.
    qint16 SelectedRecorder() const;
    void SelectRecorder(qint16 index);

    /// lblDossier: what is burned.
    QString FolderCaption() const;
    void SetFolderCaption(const QString& caption);

private:
    FormatTile& CorvaneButton2(shell::DiscFormat format) const;

    std::unique_ptr<Ui::FormatPage> ui_;
};

} // namespace velmora::wizard
