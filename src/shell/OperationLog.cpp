// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/OperationLog.h"

namespace velmora::shell {

using namespace Qt::StringLiterals;

void OperationLog::ShowLog(const QString& strLog, bool LogClear)
{
    if (LogClear) {
        text_.clear();
        for (LogView* view : views_) {
            view->LogCleared();
        }
    }
    if (strLog.isEmpty()) {
        return;
    }

    const QString added = text_.isEmpty() ? strLog : u"\r\n"_s + strLog;
    text_ += added;
    for (LogView* view : views_) {
        view->LogAppended(added);
    }
}

void OperationLog::AddView(LogView& view) { views_.push_back(&view); }

void OperationLog::RemoveView(LogView& view) { std::erase(views_, &view); }

} // namespace velmora::shell
