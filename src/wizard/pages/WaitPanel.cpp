// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/WaitPanel.h"

#include "ui_WaitPanel.h"
#include "wizard/pages/Fonts.h"

#include <QEvent>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

WaitPanel::WaitPanel(QWidget* parent)
    : QFrame(parent)
    , ui_(std::make_unique<Ui::WaitPanel>())
{
    ui_->setupUi(this);
    MakeTitle(*ui_->caption);
    ui_->ImageWait->SetDrawing(u"patience"_s);
    // The leading blanks of the caption make room for the picture; the message begins after them.
    const qsizetype blanks = ui_->caption->text().size() - ui_->caption->text().trimmed().size();
    const int place = ui_->caption->fontMetrics().horizontalAdvance(QString(blanks, u' '));
    ui_->panelLayout->setColumnMinimumWidth(0, place);
    parent->installEventFilter(this);
    hide();
}

WaitPanel::~WaitPanel() = default;

void WaitPanel::Place(bool isOnScreen)
{
    if (isOnScreen) {
        MoveToMiddle();
        raise();
    }
    setVisible(isOnScreen);
}

bool WaitPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        MoveToMiddle();
    }
    return QFrame::eventFilter(watched, event);
}

void WaitPanel::MoveToMiddle()
{
    adjustSize();
    QRect place({}, size());
    place.moveCenter(parentWidget()->rect().center());
    setGeometry(place);
}

} // namespace velmora::wizard
