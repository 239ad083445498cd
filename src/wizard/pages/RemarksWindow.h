// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class RemarksWindow;
}

namespace velmora::wizard {

/// How the disc differs from its sources, to read, copy and save.
class RemarksWindow final : public QDialog {
public:
    /// @param save  called to save the text
    RemarksWindow(const QString& text, const std::function<void()>& save, QWidget* parent);
    ~RemarksWindow() override;

private:
    std::unique_ptr<Ui::RemarksWindow> ui_;
};

} // namespace velmora::wizard
