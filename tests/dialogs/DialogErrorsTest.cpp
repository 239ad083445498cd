// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogErrors.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using dialogs::DialogError;

namespace {

QString DescriptionFor(qint32 code) { return DialogError(code, {}).Description(); }

} // namespace

TEST(DialogErrorsTest, EachCodeHasItsWords)
{
    EXPECT_EQ(DescriptionFor(65535), u"The dialog box could not be created"_s);
    EXPECT_EQ(DescriptionFor(12291),
        u"The PathFileBufferSize is too small for the file name(s) specified by the user."_s);
    EXPECT_EQ(DescriptionFor(12290), u"A file name is invalid."_s);
    EXPECT_EQ(DescriptionFor(12289),
        u"An attempt to subclass a list box failed because sufficient memory was not available."_s);
    EXPECT_EQ(DescriptionFor(9),
        u"The common dialog box function was unable to allocate memory for internal structures."_s);
    EXPECT_EQ(DescriptionFor(10),
        u"The common dialog box function was unable to lock the memory associated with a "
        "handle."_s);
    EXPECT_EQ(DescriptionFor(12),
        u"The RegisterWindowMessage function returned an error code when it was called by the "
        "common dialog box function."_s);
    EXPECT_EQ(DescriptionFor(8),
        u"The common dialog box function failed to lock a specified resource."_s);
    EXPECT_EQ(DescriptionFor(7),
        u"The common dialog box function failed to find a specified resource."_s);
    EXPECT_EQ(DescriptionFor(6), DescriptionFor(7));
    EXPECT_EQ(
        DescriptionFor(5), u"The common dialog box function failed to load a specified string."_s);
    EXPECT_EQ(DescriptionFor(4),
        u"The ENABLETEMPLATE flag was set in the Flags member of the initialization structure "
        "for the corresponding common dialog box, but you failed to provide a corresponding "
        "instance handle."_s);
    EXPECT_EQ(DescriptionFor(3),
        u"The ENABLETEMPLATE flag was set in the Flags member of the initialization structure "
        "for the corresponding common dialog box, but you failed to provide a corresponding "
        "template."_s);
    EXPECT_EQ(DescriptionFor(1),
        u"The lStructSize member of the initialization structure for the corresponding common "
        "dialog box is invalid."_s);
    EXPECT_EQ(DescriptionFor(2), u"The common dialog box function failed during initialization."_s);
}

TEST(DialogErrorsTest, NoCodeIsGivingUp)
{
    const auto cancelled = static_cast<qint32>(2147943623);
    EXPECT_EQ(DialogError(0, {}).Number(), cancelled);
    EXPECT_EQ(DialogError(cancelled, {}).Number(), cancelled);
    EXPECT_EQ(DescriptionFor(0), u"Cancel was selected"_s);
}

TEST(DialogErrorsTest, AnyOtherCodeIsTold)
{
    EXPECT_EQ(DialogError(11, {}).Number(), 11);
    EXPECT_EQ(DescriptionFor(11), u"Unknown error code of 11"_s);
    EXPECT_EQ(DescriptionFor(-5), u"Unknown error code of -5"_s);
}

TEST(DialogErrorsTest, TheSourceNamesTheDialog)
{
    EXPECT_EQ(DialogError(1, u"BrowseForFolder"_s).Source(), u"Common Dialog BrowseForFolder"_s);
    EXPECT_EQ(DialogError(1, {}).Source(), u"Common Dialog "_s);
}
