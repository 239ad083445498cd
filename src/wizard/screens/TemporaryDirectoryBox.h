// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLineEdit;

namespace velmora::wizard {

/// RepTempTxt: shows a path of this machine as a person reads it, and keeps it exact where the
/// reading loses something.
class TemporaryDirectoryBox {
public:
    /// @param box  must outlive it
    explicit TemporaryDirectoryBox(QLineEdit& box);

    /// The program path; what was typed, if something was.
    QString Path() const;
    void SetPath(const QString& path);

private:
    QLineEdit& box_;
    QString path_;
};

} // namespace velmora::wizard
