// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/BurnRecord.h"
#include "records/WriteFailure.h"

#include <QList>

#include <optional>

namespace velmora::records {

/// One user's burn records, each in a file of its own that nobody else can read. Burning doesn't
/// depend on them: without the folder there are none.
class BurnRecords {
public:
    /// @param folder  native path; it is made when the first record is kept
    explicit BurnRecords(QString folder);

    /// velmora/burns in the user's state folder (XDG_STATE_HOME, or ~/.local/state).
    static QString FolderOfUser();

    /// Stores a record completely or not at all, under the next number.
    /// @return why it couldn't be stored, in a French sentence; nothing on success
    std::optional<QString> Keep(const BurnRecord& record) const;

    /// In rising order, from 1 on. A record keeps its number.
    QList<int> Numbers() const;
    /// Nothing if there is none of that number, or the file isn't a record.
    std::optional<BurnRecord> Read(int number) const;
    /// @return false if there is none of that number, or it can't be deleted
    bool Forget(int number) const;

    /// Stores how a write failed, replacing the previous failure; it isn't a record and has no
    /// number. If that isn't possible, nothing is stored.
    void KeepFailure(const WriteFailure& failure) const;
    /// The last one that was stored.
    std::optional<WriteFailure> LastFailure() const;

private:
    QString PathOf(int number) const;
    QString PathOfFailure() const;

    QString folder_;
};

} // namespace velmora::records
