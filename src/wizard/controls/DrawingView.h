// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

namespace velmora::wizard {

class Drawing;

/// Shows one of the window's own drawings.
class DrawingView : public QWidget {
public:
    explicit DrawingView(QWidget* parent);
    ~DrawingView() override;

    /// @param name  as for Drawing
    void SetDrawing(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::unique_ptr<Drawing> drawing_;
};

} // namespace velmora::wizard
