// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/SilentFormatPage.h"

#include "wizard/controls/FormatTile.h"

#include <QLabel>
#include <QVBoxLayout>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

SilentFormatPage::SilentFormatPage(
    RootPage page, const QString& buttons, const QStringList& captions, QWidget* parent)
    : QWidget(parent)
{
    const int number = static_cast<int>(page);
    setObjectName(u"RootContainer1_%1"_s.arg(number));
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(u"Choisir le format du disque"_s, this);
    title->setObjectName(u"Label2_%1"_s.arg(number));
    layout->addWidget(title);
    for (const QString& caption : captions) {
        auto* tile = new FormatTile(this);
        tile->setObjectName(buttons + u'_' + QString::number(tiles_.size()));
        tile->setText(caption);
        layout->addWidget(tile);
        tiles_.push_back(tile);
    }
}

void SilentFormatPage::SetPossible(qint16 button, bool isPossible)
{
    tiles_.at(static_cast<std::size_t>(button))->SetPossible(isPossible);
}

} // namespace velmora::wizard
