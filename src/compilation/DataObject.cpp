// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/DataObject.h"

#include "runtime/RuntimeError.h"
#include "text/FileUri.h"
#include "text/PathText.h"

#include <QMimeData>

namespace velmora::compilation {

using namespace Qt::StringLiterals;

DataObject::DataObject(const QMimeData& data)
{
    // The addresses as they came: an address that went through QUrl may have lost its bytes.
    const QByteArray list = data.data(u"text/uri-list"_s);
    for (const std::string_view address :
        text::AddressesOf({list.data(), static_cast<std::size_t>(list.size())})) {
        const std::optional<text::NativePath> path = text::NativePathOfUri(address);
        files_.push_back(path ? std::optional(text::ToProgramPath(*path)) : std::nullopt);
    }
}

text::ProgramPath DataObject::Files(qsizetype index) const
{
    const bool isInside = index >= 1 && index <= FilesCount();
    if (!isInside || !files_[static_cast<std::size_t>(index - 1)]) {
        throw runtime::RuntimeError(runtime::error::kMemberNotFound);
    }
    return *files_[static_cast<std::size_t>(index - 1)];
}

} // namespace velmora::compilation
