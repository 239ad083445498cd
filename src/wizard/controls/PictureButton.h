// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/controls/Drawing.h"

#include <QAbstractButton>

#include <optional>

namespace velmora::wizard {

/// A button on the dark band that has a picture and no caption.
class PictureButton final : public QAbstractButton {
public:
    explicit PictureButton(QWidget* parent);

    /// @param name  as for Drawing
    void SetDrawing(const QString& name);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    std::optional<Drawing> drawing_;
};

} // namespace velmora::wizard
