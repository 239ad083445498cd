// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>

#include <functional>
#include <utility>

namespace velmora::wizard {

/// Connects a button's click with its handler.
inline void OnClick(QAbstractButton* button, std::function<void()> answer)
{
    QObject::connect(button, &QAbstractButton::clicked, button, std::move(answer));
}

} // namespace velmora::wizard
