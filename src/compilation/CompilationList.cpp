// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/CompilationList.h"

#include "runtime/RuntimeError.h"
#include "text/PathText.h"

#include <algorithm>
#include <utility>

namespace velmora::compilation {

using namespace Qt::StringLiterals;
using runtime::RuntimeError;

namespace {

constexpr std::array<QStringView, 6> kCaptions {
    u"Nom", u"Taille", u"Type", u"Origine", u"Chemin ISO", u"Taille en octets"};

QString TextForTheEye(const ListRow& row, int column)
{
    if (column == 0) {
        return text::ForTheEye(row.Text());
    }
    const auto item = static_cast<SubItem>(column);
    return item == SubItem::Origine ? text::MachinePathForTheEye(row.Origin())
                                    : text::ForTheEye(row[item]);
}

} // namespace

ListRow::ListRow(QString key, text::DiscPath path, QString imageKey)
    : key_(std::move(key))
    , path_(std::move(path))
    , imageKey_(std::move(imageKey))
{
}

const QString& ListRow::operator[](SubItem item) const
{
    return subItems_.at(static_cast<std::size_t>(item) - 1);
}

QString& ListRow::At(SubItem item) { return subItems_.at(static_cast<std::size_t>(item) - 1); }

ListRow& CompilationList::Add(
    const QString& key, const text::DiscPath& path, const QString& imageKey)
{
    if (Contains(key)) {
        throw RuntimeError(runtime::error::kKeyNotUnique);
    }
    const int place = rowCount();
    beginInsertRows({}, place, place);
    rows_.push_back(std::make_unique<ListRow>(key, path, imageKey));
    ListRow& row = *rows_.back();
    byKey_.insert(key, &row);
    ++texts_[row.Text().toLower()];
    endInsertRows();
    return row;
}

void CompilationList::SetKind(ListRow& row, EntryKind kind)
{
    row.kind_ = kind;
    SetSubItem(row, SubItem::Type, kind == EntryKind::Directory ? u"Dossier"_s : u"Fichier"_s);
}

void CompilationList::SetOrigin(ListRow& row, const text::ProgramPath& origin)
{
    SetSubItem(row, SubItem::Origine, origin.Text());
}

void CompilationList::SetContents(ListRow& row, const RowContents& contents)
{
    row.contents_ = contents;
}

void CompilationList::SetSubItem(ListRow& row, SubItem item, const QString& text)
{
    row.At(item) = text;
    const QModelIndex changed = index(PositionOf(row), static_cast<int>(item));
    emit dataChanged(changed, changed);
}

void CompilationList::Remove(qsizetype index)
{
    const std::size_t position = Position(index);
    beginRemoveRows({}, static_cast<int>(position), static_cast<int>(position));
    const auto row = rows_.begin() + static_cast<std::ptrdiff_t>(position);
    byKey_.remove((*row)->Key());
    const auto text = texts_.find((*row)->Text().toLower());
    if (--*text == 0) {
        texts_.erase(text);
    }
    rows_.erase(row);
    endRemoveRows();
}

void CompilationList::Clear()
{
    beginResetModel();
    byKey_.clear();
    texts_.clear();
    rows_.clear();
    endResetModel();
}

const ListRow& CompilationList::operator[](qsizetype index) const
{
    return *rows_[Position(index)];
}

const ListRow& CompilationList::operator[](const QString& key) const
{
    const auto found = byKey_.constFind(key);
    if (found == byKey_.constEnd()) {
        throw RuntimeError(runtime::error::kKeyNotFound);
    }
    return **found;
}

RowContents CompilationList::Contents() const
{
    RowContents all;
    for (const auto& row : rows_) {
        all.files += row->Contents().files;
        all.folders += row->Contents().folders;
    }
    return all;
}

int CompilationList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CompilationList::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(kCaptions.size());
}

QVariant CompilationList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const ListRow& row = *rows_[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole) {
        return TextForTheEye(row, index.column());
    }
    if (role == kImageKeyRole && index.column() == 0) {
        return row.ImageKey();
    }
    return {};
}

QVariant CompilationList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole
        && section == static_cast<int>(SubItem::Taille)) {
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    }
    const bool isCaption = orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0
        && section < columnCount();
    return isCaption ? kCaptions.at(static_cast<std::size_t>(section)).toString() : QVariant();
}

std::size_t CompilationList::Position(qsizetype index) const
{
    if (index < 1 || index > Count()) {
        throw RuntimeError(runtime::error::kIndexOutOfRange);
    }
    return static_cast<std::size_t>(index - 1);
}

int CompilationList::PositionOf(const ListRow& row) const
{
    // The row to write is usually one of the last, so the search begins at the end.
    const auto found = std::find_if(rows_.rbegin(),
        rows_.rend(),
        [&row](const std::unique_ptr<ListRow>& other) { return other.get() == &row; });
    return static_cast<int>(rows_.rend() - found) - 1;
}

bool lstViewVBVal(const CompilationList& list, const QString& text)
{
    return list.ContainsText(text);
}

} // namespace velmora::compilation
