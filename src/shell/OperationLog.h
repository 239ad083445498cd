// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

namespace velmora::shell {

/// A view of the log: the box of the window, the lines of a terminal. It gets the log's text piece
/// by piece, so that a long log costs no more at its end than at its start.
class LogView {
public:
    LogView() = default;
    LogView(const LogView&) = delete;
    LogView& operator=(const LogView&) = delete;
    virtual ~LogView() = default;

    /// The log was emptied.
    virtual void LogCleared() = 0;
    /// Text was added at the log's end, including the line break before it; the caret is after it.
    virtual void LogAppended(const QString& added) = 0;
};

/// The operation log: one text whose lines are separated by CR LF. It is never trimmed and has no
/// levels; a line is exactly what the caller passes.
class OperationLog {
public:
    /// Empties the log if LogClear, then adds a line; an empty text adds none.
    void ShowLog(const QString& strLog, bool LogClear);

    /// The whole log, without a line break at its end.
    const QString& Text() const { return text_; }

    /// The view gets every later change, until it is removed; it must live until then.
    void AddView(LogView& view);
    void RemoveView(LogView& view);

private:
    QString text_;
    std::vector<LogView*> views_;
};

} // namespace velmora::shell
