// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace velmora::wizard {

/// Reports each box that comes up and waits for an answer while the user is in another program, for
/// its lifetime.
class BoxWatch final : public QObject {
public:
    /// @param tell  gets the title of the box, and what it says as far as that is known
    using Tell = std::function<void(const QString& title, const QString& text)>;

    explicit BoxWatch(Tell tell);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Tell tell_;
};

} // namespace velmora::wizard
