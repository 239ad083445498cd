// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/controls/Drawing.h"

#include <QAbstractButton>

#include <optional>

namespace velmora::wizard {

/// A large button for a disc format: a drawing above its caption, on a colour that tells whether
/// the format is available. It stays enabled either way.
class FormatTile final : public QAbstractButton {
public:
    explicit FormatTile(QWidget* parent);

    /// @param name  as for Drawing
    void SetDrawing(const QString& name);

    /// The small text below the caption, if the tile is high enough; always in the tool tip.
    void SetDetail(const QString& detail);

    /// Whether the recorder can write the format; true by default.
    bool IsPossible() const { return isPossible_; }
    void SetPossible(bool isPossible);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont CaptionFont() const;
    void Describe();
    void PaintWords(QPainter& painter, const QRectF& place);
    void PaintContents(QPainter& painter, const QRectF& place);

    std::optional<Drawing> drawing_;
    QString detail_;
    bool isPossible_ = true;
};

} // namespace velmora::wizard
