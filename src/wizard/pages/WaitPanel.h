// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

#include <memory>

namespace Ui {
class WaitPanel;
}

namespace velmora::wizard {

/// Frame3DWait: asks for patience, in the middle of what it lies over.
class WaitPanel final : public QFrame {
public:
    /// @param parent  what the panel lies over
    explicit WaitPanel(QWidget* parent);
    ~WaitPanel() override;

    /// Comes into view, or goes away.
    void Place(bool isOnScreen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MoveToMiddle();

    std::unique_ptr<Ui::WaitPanel> ui_;
};

} // namespace velmora::wizard
