// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTemporaryDir>

namespace velmora::link {

/// The socket of a service in a folder.
/// @param folder  native path
/// @param topic   application and topic, separated by a bar
QString SocketPath(const QString& folder, QString topic);

/// The folder in which two processes meet: fresh, open to this user alone, in the user's run-time
/// directory, or in the temporary directory where there is none. It goes with the object, and with
/// it a socket that a killed service left behind.
class LinkFolder {
public:
    /// Error 75 when no such folder can be made.
    LinkFolder();

    /// Native path.
    QString Path() const { return folder_.path(); }

    /// Whether a service listens there by now.
    bool HasService(const QString& topic) const;

private:
    QTemporaryDir folder_;
};

} // namespace velmora::link
