// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSplitter>

namespace velmora::wizard {

/// Two widgets one above the other. If there isn't room for both, the upper one gives way.
class YieldingSplitter final : public QSplitter {
public:
    explicit YieldingSplitter(QWidget* parent);

    /// As the lower one needs it.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace velmora::wizard
