// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/controls/Drawing.h"

#include <QAbstractButton>

#include <optional>

namespace velmora::wizard {

/// A large button for a disc format: a drawing above its caption, on a colour that tells whether
/// the format is available. It stays enabled whatever its colour.
class FormatTile final : public QAbstractButton {
public:
    explicit FormatTile(QWidget* parent);

    /// @param name  as for Drawing
    void SetDrawing(const QString& name);

    /// The tile's colour, and the one that it takes under the mouse, in the order blue, green, red.
    quint32 BackColor() const { return backColor_; }
    void Paint(quint32 colour);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool IsGrey() const;
    QFont CaptionFont() const;
    void PaintContents(QPainter& painter, const QRectF& place);

    std::optional<Drawing> drawing_;
    quint32 backColor_;
};

} // namespace velmora::wizard
