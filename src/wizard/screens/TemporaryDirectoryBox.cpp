// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/TemporaryDirectoryBox.h"

#include "text/PathText.h"

#include <QLineEdit>

namespace velmora::wizard {

TemporaryDirectoryBox::TemporaryDirectoryBox(QLineEdit& box)
    : box_(box)
{
}

QString TemporaryDirectoryBox::Path() const
{
    return box_.isModified() ? text::ExchangeSlashes(box_.text()) : path_;
}

void TemporaryDirectoryBox::SetPath(const QString& path)
{
    path_ = path;
    box_.setText(text::MachinePathForTheEye(path)); // no longer counts as typed
}

} // namespace velmora::wizard
