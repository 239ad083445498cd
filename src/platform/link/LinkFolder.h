// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::link {

/// The socket of a service in a folder.
/// @param folder  native path
/// @param topic   application and topic, separated by a bar
QString SocketPath(const QString& folder, QString topic);

/// The folder in which two processes meet: fresh, open to this user alone, in the user's run-time
/// directory, or in the temporary directory where there is none. Nobody else can put another folder
/// in its place: what it lies in is this user's and writable for nobody else, or lets everybody
/// rename only what is theirs. It goes with the object, and with it a socket that a killed service
/// left behind; folders inside it are not its own and stay.
class LinkFolder {
public:
    /// Error 75 when no such folder can be made.
    LinkFolder();
    ~LinkFolder();
    LinkFolder(const LinkFolder&) = delete;
    LinkFolder& operator=(const LinkFolder&) = delete;
    LinkFolder(LinkFolder&&) = delete;
    LinkFolder& operator=(LinkFolder&&) = delete;

    /// Native path.
    QString Path() const { return path_; }

    /// Whether a service listens there by now.
    bool HasService(const QString& topic) const;

private:
    QString path_;
    int folder_ = -1; // open, as a path may come to mean another folder
};

} // namespace velmora::link
