// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

#include <functional>

class QMenu;

namespace velmora::wizard {

/// The log of a run as a box that can't be typed in: letters of one width, and a menu that also
/// copies and saves all of it.
class LogBox final : public QPlainTextEdit {
public:
    explicit LogBox(QWidget* parent);

    /// Adds text at the end and shows it.
    void Append(const QString& added);
    /// Who saves the text when it is asked for.
    void OnSave(std::function<void()> save) { save_ = std::move(save); }

    /// The box's menu, which the caller owns.
    QMenu* CreateMenu();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Who has seen its end goes on seeing it.
    void resizeEvent(QResizeEvent* event) override;

private:
    void CopyAll();

    std::function<void()> save_;
};

} // namespace velmora::wizard
