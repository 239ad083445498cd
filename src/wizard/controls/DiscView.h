// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/controls/Drawing.h"
#include "wizard/rules/DiscContents.h"

#include <QWidget>

#include <memory>

namespace velmora::wizard {

/// A disc as it is filled, from the inside out. Its contents in words are its accessible name.
class DiscView final : public QWidget {
public:
    explicit DiscView(QWidget* parent);

    void Show(const DiscContents& contents);
    const DiscContents& Contents() const { return contents_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintStretch(QPainter& painter, const DiscStretch& stretch) const;

    DiscContents contents_;
    std::unique_ptr<Drawing> drawing_;
};

} // namespace velmora::wizard
