// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/BurnRecord.h"
#include "records/WriteFailure.h"

#include <QList>

#include <optional>

namespace velmora::records {

/// The records of the burns of one user, each in a file of its own that nobody else can read. No
/// burn needs them: without the folder there are none.
class BurnRecords {
public:
    /// @param folder  native path; it is made when the first record is kept
    explicit BurnRecords(QString folder);

    /// velmora/burns in the user's folder of states (XDG_STATE_HOME, ~/.local/state without it).
    static QString FolderOfUser();

    /// Keeps a record whole or not at all, under the next number.
    /// @return why it couldn't be kept, in a French sentence; nothing when it is
    std::optional<QString> Keep(const BurnRecord& record) const;

    /// In rising order, from 1 on. A record keeps its number.
    QList<int> Numbers() const;
    /// Nothing where there is none of that number, or what is there is no record.
    std::optional<BurnRecord> Read(int number) const;
    /// @return false where there is none of that number, or it can't be deleted
    bool Forget(int number) const;

    /// Keeps how a write failed, in place of the failure before; it is no record and has no number.
    /// Where that can't be, nothing is kept.
    void KeepFailure(const WriteFailure& failure) const;
    /// The last one that was kept.
    std::optional<WriteFailure> LastFailure() const;

private:
    QString PathOf(int number) const;
    QString PathOfFailure() const;

    QString folder_;
};

} // namespace velmora::records
