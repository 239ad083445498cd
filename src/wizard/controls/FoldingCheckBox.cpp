// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/FoldingCheckBox.h"

#include <QStyle>
#include <QStyleOptionButton>

#include <algorithm>

namespace velmora::wizard {

namespace {

/// The caption on two lines, the longer one as short as possible.
QString Folded(const QString& caption)
{
    qsizetype best = -1;
    for (qsizetype blank = caption.indexOf(u' '); blank >= 0;
         blank = caption.indexOf(u' ', blank + 1)) {
        const auto longest = [&](qsizetype at) { return std::max(at, caption.size() - at); };
        if (best < 0 || longest(blank) < longest(best)) {
            best = blank;
        }
    }
    QString folded = caption;
    return best < 0 ? folded : folded.replace(best, 1, u'\n');
}

} // namespace

FoldingCheckBox::FoldingCheckBox(QWidget* parent)
    : QCheckBox(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred, QSizePolicy::CheckBox);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize FoldingCheckBox::minimumSizeHint() const
{
    return {SizeWith(Folded(text())).width(), SizeWith(text()).height()};
}

int FoldingCheckBox::heightForWidth(int width) const
{
    const QSize whole = SizeWith(text());
    return width < whole.width() ? SizeWith(Folded(text())).height() : whole.height();
}

void FoldingCheckBox::initStyleOption(QStyleOptionButton* option) const
{
    QCheckBox::initStyleOption(option);
    if (width() < SizeWith(text()).width()) {
        option->text = Folded(text());
    }
}

/// The size of the box and a caption.
QSize FoldingCheckBox::SizeWith(const QString& caption) const
{
    QStyleOptionButton option;
    QCheckBox::initStyleOption(&option);
    const QSize words = fontMetrics().size(Qt::TextShowMnemonic, caption);
    return style()->sizeFromContents(QStyle::CT_CheckBox, &option, words, this);
}

} // namespace velmora::wizard
