// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>

namespace velmora::wizard {

/// A check box whose caption wraps to two lines if there is too little width for one.
class FoldingCheckBox final : public QCheckBox {
public:
    explicit FoldingCheckBox(QWidget* parent);

    /// As wide as the caption on two lines.
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void initStyleOption(QStyleOptionButton* option) const override;

private:
    QSize SizeWith(const QString& caption) const;
};

} // namespace velmora::wizard
