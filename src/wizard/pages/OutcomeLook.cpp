// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/pages/OutcomeLook.h"

#include "wizard/controls/Colours.h"
#include "wizard/controls/DrawingView.h"

#include <QLabel>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

QString PictureOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::None:
        break;
    case Outcome::Done:
        return u"outcome-done"_s;
    case Outcome::Doubtful:
        return u"outcome-doubtful"_s;
    case Outcome::Stopped:
        return u"outcome-stopped"_s;
    case Outcome::Refused:
        return u"outcome-refused"_s;
    case Outcome::Failed:
        return u"outcome-failed"_s;
    }
    return {};
}

void Tint(QWidget& label, Outcome outcome)
{
    QPalette palette = label.parentWidget()->palette();
    const bool isDark
        = palette.window().color().lightness() < palette.windowText().color().lightness();
    palette.setColor(QPalette::WindowText, colour::OfOutcome(outcome, isDark));
    label.setPalette(palette);
}

} // namespace

void ShowOutcome(const RunNotice& notice, DrawingView& picture, QLabel& title)
{
    const bool isTold = notice.outcome != Outcome::None;
    picture.setVisible(isTold);
    title.setVisible(isTold);
    if (isTold) {
        picture.SetDrawing(PictureOf(notice.outcome));
        title.setText(notice.title);
        Tint(title, notice.outcome);
    }
}

} // namespace velmora::wizard
