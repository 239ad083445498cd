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

/// What the disc has otherwise than its sources, to be read, copied and saved.
class RemarksWindow final : public QDialog {
public:
    /// @param save  called when the text is to be saved
    RemarksWindow(const QString& text, const std::function<void()>& save, QWidget* parent);
    ~RemarksWindow() override;

private:
    std::unique_ptr<Ui::RemarksWindow> ui_;
};

} // namespace velmora::wizard
