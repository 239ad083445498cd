// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ReadingDisplay.h"

#include "runtime/Conversions.h"
#include "writing/ShownPath.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

ReadingDisplay::ReadingDisplay(BurnScreen& screen, const shell::ProgramState& state)
    : screen_(screen)
    , state_(state)
{
}

void ReadingDisplay::FSI1_Update(
    const QString& currentFile, qint32 copiedSectors, qint32 totalSectors)
{
    Animate(currentFile);
    const QString shown = ShownPath(currentFile);
    if (!state_.StopFlag) {
        screen_.SetStatus(u"Lecture des fichiers : "_s + shown + dots_);
    }
    if (totalSectors > 0) {
        const double ratio = static_cast<double>(copiedSectors) / totalSectors;
        screen_.SetProgress(ProgressOf::File, runtime::ToInt16(ratio * 100));
    }
    screen_.Pump();
    lastFile_ = currentFile;
}

void ReadingDisplay::Animate(const QString& currentFile)
{
    constexpr qsizetype kMostDots = 20;
    const bool isSameFile = currentFile == lastFile_;
    screen_.ShowProgress(ProgressOf::File, isSameFile);
    dots_ = isSameFile ? dots_ + u'.' : QString();
    if (dots_.size() > kMostDots) {
        dots_ = u"."_s;
    }
}

} // namespace velmora::writing
