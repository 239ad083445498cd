// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QString>

namespace velmora::link {

/// The socket of a service in a folder, as Qt's sockets are called.
/// @param topic  application and topic, separated by a bar
QString SocketName(const text::NativePath& folder, QString topic);

/// The folder in which two processes meet: new, accessible only to this user, in the user's
/// run-time directory, or in the temporary directory if there is none. Nobody else can replace it:
/// its parent is this user's and not writable for others, or has the sticky bit. The folder is
/// removed with the object, along with a socket that a killed service left behind; folders inside
/// it aren't its own and stay.
class LinkFolder {
public:
    /// Error 75 when no such folder can be made.
    LinkFolder();
    ~LinkFolder();
    LinkFolder(const LinkFolder&) = delete;
    LinkFolder& operator=(const LinkFolder&) = delete;
    LinkFolder(LinkFolder&&) = delete;
    LinkFolder& operator=(LinkFolder&&) = delete;

    const text::NativePath& Path() const { return path_; }

    /// Whether a service already listens there.
    bool HasService(const QString& topic) const;

private:
    text::NativePath path_;
    int folder_ = -1; // open, as the path may later lead to another folder
};

} // namespace velmora::link
