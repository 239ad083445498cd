// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/ElidedLabel.h"

#include <QPainter>
#include <QStringList>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QStringList ElidedLabel::Lines() const { return text().remove(u'\r').split(u'\n'); }

QSize ElidedLabel::minimumSizeHint() const
{
    const auto height = static_cast<int>(Lines().size()) * fontMetrics().lineSpacing();
    return {fontMetrics().averageCharWidth() * 12, height};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStringList shown;
    for (const QString& line : Lines()) {
        shown += fontMetrics().elidedText(line, Qt::ElideMiddle, width());
    }
    const QString whole = shown.join(u'\n');
    setToolTip(whole.contains(u'…') ? text() : QString());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), static_cast<int>(alignment()), whole);
}

} // namespace velmora::wizard
