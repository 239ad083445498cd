// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

#include <memory>

namespace Ui {
class WaitPanel;
}

namespace velmora::wizard {

/// Frame3DWait: asks for patience, centred over another widget.
class WaitPanel final : public QFrame {
public:
    /// @param parent  the widget that the panel covers
    explicit WaitPanel(QWidget* parent);
    ~WaitPanel() override;

    /// Shows or hides the panel.
    void Place(bool isOnScreen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MoveToMiddle();

    std::unique_ptr<Ui::WaitPanel> ui_;
};

} // namespace velmora::wizard
