// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <set>
#include <vector>

namespace velmora::compilation {
class CompilationList;
}
namespace velmora::text {
class ProgramPath;
}
namespace velmora::writing {
struct RunReport;
}

namespace velmora::wizard {

/// Something that a disc has otherwise than the folder that it is made from.
struct Remark {
    QString path {};     ///< for the eye
    QString words {};    ///< French sentences: what it is and, of a loss, how to mend it
    bool isLoss = false; ///< a person sees it in the folder and can't read it on the disc
};

/// What a run tells of what it wrote, losses first.
std::vector<Remark> RemarksOf(const writing::RunReport& report);

/// Where the rows of the list come from: program paths, directories without a backslash at the end.
std::set<QString> OriginsOf(const compilation::CompilationList& list);

/// The hidden entries of the folder that the list was made from, as far as no row comes from them.
/// They are found in the folder itself, which costs one look at it.
std::vector<Remark> HiddenEntries(
    const text::ProgramPath& folder, const std::set<QString>& origins);

bool HasLoss(const std::vector<Remark>& remarks);

/// All of them as one text, a paragraph each.
QString TextOf(const std::vector<Remark>& remarks);

} // namespace velmora::wizard
