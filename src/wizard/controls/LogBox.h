// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

#include <functional>

class QMenu;

namespace velmora::wizard {

/// The log of a run as a read-only box: a fixed-width font, and a menu that can also copy and save
/// all of it.
class LogBox final : public QPlainTextEdit {
public:
    explicit LogBox(QWidget* parent);

    /// Adds text at the end and shows it.
    void Append(const QString& added);
    /// Called to save the text on request.
    void OnSave(std::function<void()> save) { save_ = std::move(save); }

    /// The box's menu, which the caller owns.
    QMenu* CreateMenu();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// If the end was visible it stays visible.
    void resizeEvent(QResizeEvent* event) override;

private:
    void CopyAll();

    std::function<void()> save_;
};

} // namespace velmora::wizard
