// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/DiscPath.h"
#include "text/Paths.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QString>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace velmora::compilation {

/// What a row represents.
enum class EntryKind : qint8 { File, Directory };

/// What a row adds to the disc, itself included; the sums over all rows are the disc's.
struct RowContents {
    qint64 files = 0;
    qint64 folders = 0;

    friend bool operator==(const RowContents&, const RowContents&) = default;
};

/// The sub-items of a row; they are the list's columns 1 to 5, after the row's text.
enum class SubItem : qint16 {
    Taille = 1,         ///< size for display
    Type = 2,           ///< the kind for display: "Dossier" or "Fichier"
    Origine = 3,        ///< program path of the source; empty for a directory made for the disc
    CheminIso = 4,      ///< path on the disc, as the row's text
    TailleEnOctets = 5, ///< bytes in plain digits; the only size that is read back
};

/// One row of the list.
class ListRow {
public:
    ListRow(QString key, text::DiscPath path, QString imageKey);

    const QString& Key() const { return key_; }
    /// Where the row's file or directory lies on the disc; its text is what the list shows first.
    const text::DiscPath& Path() const { return path_; }
    const QString& Text() const { return path_.Text(); }
    const QString& ImageKey() const { return imageKey_; }
    /// None until it was set.
    std::optional<EntryKind> Kind() const { return kind_; }
    /// Its bytes as they were when the row was added.
    const RowContents& Contents() const { return contents_; }
    const QString& operator[](SubItem item) const;
    /// The source, from the sub-item Origine; empty for a directory made for the disc.
    text::ProgramPath Origin() const { return text::ProgramPath((*this)[SubItem::Origine]); }

private:
    friend class CompilationList;
    QString& At(SubItem item);

    QString key_;
    text::DiscPath path_;
    QString imageKey_;
    std::optional<EntryKind> kind_;
    RowContents contents_;
    std::array<QString, 5> subItems_;
};

/// The compilation: rows in the order in which they were added, each with a unique key. Keys are
/// case-sensitive, as names on Linux are.
///
/// As a table model it gives a view the texts to display; the program reads the rows themselves.
class CompilationList final : public QAbstractTableModel {
public:
    /// The role under which a view finds a row's image key, in column 0.
    static constexpr int kImageKeyRole = Qt::UserRole;

    /// Adds a row at the end, its sub-items empty. The reference holds until the row is removed.
    /// Error 35602 when the key is there already.
    ListRow& Add(const QString& key, const text::DiscPath& path, const QString& imageKey);
    /// Says what a row of this list represents, and writes it into the sub-item Type.
    void SetKind(ListRow& row, EntryKind kind);
    /// Says where the source of a row of this list lies, in the sub-item Origine.
    void SetOrigin(ListRow& row, const text::ProgramPath& origin);
    /// Says what a row of this list adds to the disc.
    static void SetContents(ListRow& row, const RowContents& contents);
    /// Changes one sub-item of a row of this list.
    void SetSubItem(ListRow& row, SubItem item, const QString& text);
    /// Removes a row. Error 35600 outside 1..Count().
    void Remove(qsizetype index);
    void Clear();

    qsizetype Count() const { return static_cast<qsizetype>(rows_.size()); }
    /// The row at a place, counted from 1. Error 35600 outside 1..Count().
    const ListRow& operator[](qsizetype index) const;
    /// The row of a key. Error 35601 when there is none.
    const ListRow& operator[](const QString& key) const;
    bool Contains(const QString& key) const { return byKey_.contains(key); }
    /// Whether a row has the text, ignoring case.
    bool ContainsText(const QString& text) const { return texts_.contains(text.toLower()); }
    /// What all rows add to the disc.
    RowContents Contents() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::size_t Position(qsizetype index) const;
    int PositionOf(const ListRow& row) const;

    std::vector<std::unique_ptr<ListRow>> rows_;
    QHash<QString, ListRow*> byKey_;
    QHash<QString, int> texts_; ///< how many rows have a text in lower case
};

/// Whether a row's text equals the text, ignoring case. Only texts are compared, never origins.
bool lstViewVBVal(const CompilationList& list, const QString& text);

} // namespace velmora::compilation
