// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

#include <QObject>
#include <QString>

namespace velmora::test {

/// The control of a window that has this name and class, however deep inside; throws if there is
/// none. Qt's own search takes only classes with Q_OBJECT, which our painted controls don't need.
template <class Child> Child& FindChild(const QObject& window, const char* name)
{
    for (QObject* found : window.findChildren<QObject*>(QString::fromLatin1(name))) {
        if (auto* child = dynamic_cast<Child*>(found)) return *child;
    }
    throw std::runtime_error(std::string("no control ") + name);
}

} // namespace velmora::test
