// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/ClosingView.h"

#include "wizard/FrmMain.h"
#include "writing/BurnRun.h"

#include <QApplication>
#include <QDialog>

namespace velmora::wizard {

ClosingView::ClosingView(
    FrmMain& window, writing::BurnScreen& burnScreen, shell::ProgramState& state)
    : window_(window)
    , burnScreen_(burnScreen)
    , state_(state)
{
}

void ClosingView::ShowCloseNotice(bool isVisible) { window_.ShowCloseNotice(isVisible); }

void ClosingView::CloseWindow() { window_.close(); }

void ClosingView::RequestStop() { writing::RequestStop(burnScreen_, state_); }

void ClosingView::DeclineQuestion()
{
    if (auto* question = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        question->reject();
    }
}

} // namespace velmora::wizard
