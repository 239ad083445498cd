// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>

namespace velmora::wizard {

/// Keeps the machine awake for its lifetime, but not while a box or a file dialog waits for an
/// answer: the user may be away.
class AwakeAtWork final : public QObject {
public:
    /// Keeps the machine awake for a reason as long as what it returns lives.
    using Hold = std::function<std::shared_ptr<void>(const QString& reason)>;

    /// @param hold  empty: nothing is kept
    AwakeAtWork(Hold hold, QString reason);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Hold hold_;
    QString reason_;
    std::shared_ptr<void> held_;
    QPointer<QObject> dialog_; ///< waits for an answer
};

} // namespace velmora::wizard
