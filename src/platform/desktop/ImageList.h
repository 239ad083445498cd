// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QIcon>
#include <QString>

namespace velmora::desktop {

/// Pictures under keys, for the rows of a list.
class ImageList {
public:
    /// Error 35602 when the key has a picture already: that one stays.
    void Add(const QString& key, const QIcon& picture);

    /// The picture of a key; empty when it has none.
    QIcon Picture(const QString& key) const { return pictures_.value(key); }
    qsizetype Count() const { return pictures_.size(); }

private:
    QHash<QString, QIcon> pictures_;
};

} // namespace velmora::desktop
