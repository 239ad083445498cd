// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogErrors.h"

#include <algorithm>
#include <array>

namespace velmora::dialogs {

using namespace Qt::StringLiterals;

namespace {

struct Entry {
    qint32 code;
    QStringView description;
};

constexpr std::array kDescriptions {
    Entry {dialog_code::kNoDialog, u"The dialog box could not be created"},
    Entry {
        12291, u"The PathFileBufferSize is too small for the file name(s) specified by the user."},
    Entry {12290, u"A file name is invalid."},
    Entry {12289,
        u"An attempt to subclass a list box failed because sufficient memory was not available."},
    Entry {9,
        u"The common dialog box function was unable to allocate memory for internal structures."},
    Entry {10,
        u"The common dialog box function was unable to lock the memory associated with a handle."},
    Entry {12,
        u"The RegisterWindowMessage function returned an error code when it was called by the "
        "common dialog box function."},
    Entry {8, u"The common dialog box function failed to lock a specified resource."},
    Entry {7, u"The common dialog box function failed to find a specified resource."},
    Entry {6, u"The common dialog box function failed to find a specified resource."},
    Entry {5, u"The common dialog box function failed to load a specified string."},
    Entry {4,
        u"The ENABLETEMPLATE flag was set in the Flags member of the initialization structure for "
        "the corresponding common dialog box, but you failed to provide a corresponding instance "
        "handle."},
    Entry {3,
        u"The ENABLETEMPLATE flag was set in the Flags member of the initialization structure for "
        "the corresponding common dialog box, but you failed to provide a corresponding "
        "template."},
    Entry {1,
        u"The lStructSize member of the initialization structure for the corresponding common "
        "dialog box is invalid."},
    Entry {2, u"The common dialog box function failed during initialization."},
    Entry {dialog_code::kCancelled, u"Cancel was selected"},
};

QString DescriptionOf(qint32 code)
{
    const auto* found = std::ranges::find(kDescriptions, code, &Entry::code);
    return found == kDescriptions.end() ? u"Unknown error code of "_s + QString::number(code)
                                        : found->description.toString();
}

} // namespace

runtime::RuntimeError DialogError(qint32 code, const QString& operation)
{
    const qint32 number = code == 0 ? dialog_code::kCancelled : code;
    return {number, DescriptionOf(number), u"Common Dialog "_s + operation};
}

} // namespace velmora::dialogs
