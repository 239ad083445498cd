// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FolderDialog.h"

#include <QDir>
#include <QLineEdit>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

QString FolderDialog::Chosen() const
{
    return typed_.isEmpty() ? selectedFiles().value(0) : typed_;
}

void FolderDialog::accept()
{
    typed_ = TypedFolder();
    if (typed_.isEmpty()) {
        QFileDialog::accept(); // which explains what is wrong with a name
    } else {
        done(QDialog::Accepted);
    }
}

/// The folder that the box names; empty when it names none, or the desktop's dialog has no box.
QString FolderDialog::TypedFolder() const
{
    const auto* box = findChild<QLineEdit*>(u"fileNameEdit"_s);
    QString name = box == nullptr ? QString() : box->text();
    if (name == u'~' || name.startsWith(u"~/"_s)) {
        name = QDir::homePath() + name.sliced(1);
    }
    if (name.isEmpty()) {
        return {};
    }
    const QString path = QDir::cleanPath(directory().absoluteFilePath(name));
    return QDir(path).exists() ? path : QString();
}

} // namespace velmora::desktop
