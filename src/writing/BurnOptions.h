// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::writing {

/// What the user chose on the options page, read at the moment it is needed.
class BurnOptions {
public:
    BurnOptions() = default;
    virtual ~BurnOptions() = default;
    BurnOptions(const BurnOptions&) = delete;
    BurnOptions& operator=(const BurnOptions&) = delete;
    BurnOptions(BurnOptions&&) = delete;
    BurnOptions& operator=(BurnOptions&&) = delete;

    /// The place of the recorder chosen in Combo1, -1 = none.
    virtual qint16 Combo1ListIndex() const = 0;

    /// The text of a member of Combo2: 0 the data mode, 1 the file system, 2 the speed.
    virtual QString Combo2(qint16 index) const = 0;
    /// Of a member of Combo2: the place chosen (-1 = none) and the number of items.
    virtual qint16 Combo2ListIndex(qint16 index) const = 0;
    virtual qint16 Combo2ListCount(qint16 index) const = 0;

    /// Whether a member of MultiSession is the one chosen: 0 starts a multisession disc, 1
    /// continues one, 2 closes the disc.
    virtual bool MultiSession(qint16 index) const = 0;

    /// The disc's name; the box shows what is put into it.
    virtual QString DiscName() const = 0;
    virtual void SetDiscName(const QString& name) = 0;

    /// Program path of the temporary directory.
    virtual QString RepTempTxt() const = 0;
};

} // namespace velmora::writing
