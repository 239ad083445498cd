// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/StartedProcess.h"

#include "runtime/RuntimeError.h"
#include "text/PathText.h"

#include <QFileInfo>
#include <QProcess>

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace velmora::link {

using runtime::RuntimeError;

namespace {

void CheckCanRun(const QFileInfo& file)
{
    if (!file.isFile()) {
        throw RuntimeError(runtime::error::kFileNotFound);
    }
    if (!file.isExecutable()) {
        throw RuntimeError(runtime::error::kPermissionDenied);
    }
}

/// A library may open a drive without close-on-exec, so every started process would inherit it.
void KeepOpenFilesToOurselves() { close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC); }

} // namespace

StartedProcess::StartedProcess(const text::ProgramPath& file, const QStringList& arguments)
{
    const QString path = text::ToQtPath(file);
    CheckCanRun(QFileInfo(path));
    KeepOpenFilesToOurselves();
    qint64 id = 0;
    if (!QProcess::startDetached(path, arguments, {}, &id)) {
        throw RuntimeError(runtime::error::kInvalidCall);
    }
    process_.Reset(static_cast<int>(syscall(SYS_pidfd_open, static_cast<pid_t>(id), 0)));
}

bool StartedProcess::IsRunning() const
{
    pollfd ended {.fd = process_.Get(), .events = POLLIN, .revents = 0};
    return process_ && poll(&ended, 1, 0) == 0;
}

} // namespace velmora::link
