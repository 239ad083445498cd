// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/FormatChoice.h"

#include "compilation/CapacityAccount.h"
#include "compilation/DiscCapacities.h"
#include "recorder/DetectMedia.h"
#include "recorder/RecorderState.h"
#include "runtime/ResumeNext.h"
#include "runtime/TextRules.h"
#include "shell/ProgramState.h"
#include "shell/SizeTexts.h"
#include "wizard/rules/Navigation.h"
#include "wizard/rules/NavigationScreen.h"
#include "writing/BurnScreen.h"

#include <QStringList>

#include <array>
#include <optional>
#include <optional>
#include <vector>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using recorder::SpeedEntry;
using runtime::ResumeNext;
using shell::MousePointer;

namespace {

namespace style = shell::message_style;

constexpr qint16 kFailedChoice = -1;
constexpr qint16 kReyFrames = 4;
constexpr qint16 kMultiSessions = 3;

// Members of Combo2, and the items that a format selects in them.
constexpr qint16 kDataMode = 0;
constexpr qint16 kFileSystem = 1;
constexpr qint16 kSpeed = 2;
constexpr qint16 kMode2 = 1;
constexpr qint16 kJoliet = 1;
constexpr qint16 kUdf = 2;

/// What a format leaves in the data mode and the file system.
struct OptionSet {
    bool canChooseDataMode;
    qint16 fileSystem;
    bool canChooseFileSystem;
};

/// By DiscFormat: Blu-ray, DVD, CD.
constexpr std::array<OptionSet, 3> kOptionSets {{
    {.canChooseDataMode = false, .fileSystem = kUdf, .canChooseFileSystem = false},
    {.canChooseDataMode = false, .fileSystem = kJoliet, .canChooseFileSystem = true},
    {.canChooseDataMode = true, .fileSystem = kJoliet, .canChooseFileSystem = true},
}};

/// A format whose figures don't come from a disc.
struct FixedFormat {
    QString label3;
    QStringList speeds;
    OptionArray options;
    qint16 mediaType; ///< the disc type that the user promises to put in
};

FixedFormat FixedFormatOf(qint16 index)
{
    const QStringList slow {u"4x"_s, u"2x"_s, u"1x"_s};
    const QString fastest = u"Maximum"_s;
    switch (index) {
    case 0:
        return {u"Disque de données : Blue-Ray"_s,
            QStringList {fastest} + slow,
            OptionArray::BDOptionButton1,
            18};
    case 1:
        return {u"Disque de données : DVD"_s,
            QStringList {fastest, u"16x"_s, u"8x"_s} + slow,
            OptionArray::DVDOptionButton1,
            6};
    default:
        return {u"Disque de données : CD"_s,
            QStringList {fastest, u"48x"_s, u"32x"_s, u"24x"_s, u"16x"_s, u"8x"_s} + slow,
            OptionArray::CDOptionButton1,
            2};
    }
}

/// The format that a disc's name begins like; none for other discs.
std::optional<qint16> FormatOfFamily(const QString& family)
{
    if (family == u"Bl"_s || family == u"BD"_s) {
        return qint16 {0};
    }
    if (family == u"DV"_s) {
        return qint16 {1};
    }
    if (family == u"CD"_s) {
        return qint16 {2};
    }
    return std::nullopt;
}

void Apply(const OptionSet& options, FormatScreen& screen)
{
    screen.EnableCombo2(kDataMode, options.canChooseDataMode);
    if (options.canChooseDataMode) {
        screen.SetCombo2ListIndex(kDataMode, kMode2);
    }
    screen.SetCombo2ListIndex(kFileSystem, options.fileSystem);
    screen.EnableCombo2(kFileSystem, options.canChooseFileSystem);
}

QString SpeedItem(const SpeedEntry& entry)
{
    if (entry.Multiple.value_or(0) != 0) {
        return QString::number(*entry.Multiple) + u'x';
    }
    return entry.Speed ? QString::number(*entry.Speed) : QString();
}

} // namespace

FormatChoice::FormatChoice(const FormatChoiceDoors& doors)
    : doors_(doors)
{
}

void FormatChoice::CorvaneButton2(qint16 index)
{
    const FormatButton button {FormatArray::CorvaneButton2, index};
    if (doors_.screen.BackColor(button) == format_colour::kImpossible) {
        return;
    }
    doors_.state.DiscFormat = index;
    ChooseDiscFormat(index);
    doors_.capacity.CheckThatItFits(doors_.burnPage);
    if (doors_.state.MediaTypeChoice != kFailedChoice) {
        doors_.navigation.EnterBurnPages();
    } else {
        doors_.navigation.ShowFormatPage();
    }
}

void FormatChoice::ChooseDiscFormat(qint16 index)
{
    doors_.state.MediaTypeChoice = 0;
    ClearOptions(index);
    if (index == 3) {
        TakeDiscInDrive();
        return;
    }
    if (index >= 0 && index < 3) {
        TakeFixed(index);
    }
    ShowCapacity();
}

void FormatChoice::ClearOptions(qint16 index)
{
    for (qint16 frame = 0; frame < kReyFrames; ++frame) {
        doors_.screen.PlaceReyFrame1(frame, false);
    }
    doors_.screen.PlaceReyFrame1(index, true);
    doors_.screen.ClearCombo2(kSpeed);
    for (qint16 option = 0; option < kMultiSessions; ++option) {
        doors_.screen.EnableMultiSession(option, true);
    }
    doors_.screen.SelectMultiSession(0);
}

void FormatChoice::TakeFixed(qint16 index)
{
    const FixedFormat format = FixedFormatOf(index);
    doors_.state.MediaCapacity = *compilation::CapacityOfFormat(index);
    doors_.screen.SetLabel3(format.label3);
    Apply(kOptionSets.at(static_cast<std::size_t>(index)), doors_.screen);
    for (const QString& speed : format.speeds) {
        doors_.screen.AddToCombo2(kSpeed, speed);
    }
    doors_.screen.SetCombo2ListIndex(kSpeed, 0);
    doors_.screen.SelectOption(format.options, 0);
    doors_.state.MediaTypeChoice = format.mediaType;
}

void FormatChoice::TakeDiscInDrive()
{
    doors_.screen.SetLabel3(u"Disque de données"_s);
    const recorder::DetectedMedia disc = Detect();
    if (disc.end == recorder::DetectionEnd::NoText) {
        doors_.state.MediaTypeChoice = kFailedChoice; // the user cancelled the prompt
        return;
    }
    ShowWaitPanel();
    if (disc.end == recorder::DetectionEnd::NoUsableDisc) {
        RefuseDisc();
        return;
    }
    TakeDisc(disc);
    ShowCapacity();
}

recorder::DetectedMedia FormatChoice::Detect()
{
    const auto chosen = static_cast<std::size_t>(doors_.state.SelectedRecorder);
    recorder::DetectedMedia disc = recorder::DetectMedia({.state = doors_.recorders,
                                                             .mastering = doors_.mastering,
                                                             .clock = doors_.clock,
                                                             .pump = doors_.burnPage,
                                                             .pointer = doors_.burnPage,
                                                             .messages = doors_.burnPage},
        {.UniqueId = doors_.recorders.RecorderList.at(chosen).RecorderId, .PromptForMedia = true});
    doors_.state.MediaFreeBytes = disc.FreeBytes.value_or(doors_.state.MediaFreeBytes);
    return disc;
}

void FormatChoice::ShowWaitPanel()
{
    // The detection is over by now: the panel is only seen for a moment.
    writing::BurnScreen& window = doors_.burnPage;
    doors_.pages.PlaceRootContainer1(0, false);
    window.Pump();
    window.RunCorvane7BarWait1(true);
    window.ShowCorvane7BarWait1(true);
    window.ShowFrame3DWait(true);
    window.Pump();
    window.SetMousePointer(MousePointer::Hourglass);
    window.SetMousePointer(MousePointer::Arrow);
    window.ShowFrame3DWait(false);
}

void FormatChoice::RefuseDisc()
{
    doors_.state.MediaTypeChoice = kFailedChoice;
    StopWaitBar();
    doors_.burnPage.ShowFrame3DWait(false);
    doors_.burnPage.MsgBox(u"Le graveur est vide ou le média est incompatible à la gravure."_s,
        style::kExclamation,
        u"Vérifiez le graveur et son média !"_s);
}

void FormatChoice::TakeDisc(const recorder::DetectedMedia& disc)
{
    const QString name = runtime::Trim(disc.text);
    doors_.screen.SetLabel5(
        name + u" - Place disponible : "_s + shell::FormatSizeMo(doors_.state.MediaFreeBytes));
    doors_.state.MediaCapacity = doors_.state.MediaFreeBytes;
    if (disc.FileSystemImported.value_or(false)) {
        doors_.screen.SelectMultiSession(1);
    }
    FillSpeeds(disc.SpeedList.value_or(std::vector<SpeedEntry> {}));
    TakeFamily(name.left(2));
    StopWaitBar();
    doors_.state.MediaTypeChoice = 0;
}

void FormatChoice::FillSpeeds(const std::vector<SpeedEntry>& SpeedList)
{
    if (SpeedList.empty()) {
        return;
    }
    for (const SpeedEntry& entry : SpeedList) {
        doors_.screen.AddToCombo2(kSpeed, SpeedItem(entry));
    }
    doors_.screen.SetCombo2ListIndex(kSpeed, 0);
}

void FormatChoice::TakeFamily(const QString& family)
{
    const std::optional<qint16> format = FormatOfFamily(family);
    if (format) {
        doors_.state.DiscFormat = *format;
        Apply(kOptionSets.at(static_cast<std::size_t>(*format)), doors_.screen);
    }
}

void FormatChoice::StopWaitBar()
{
    doors_.burnPage.RunCorvane7BarWait1(false);
    doors_.burnPage.ShowCorvane7BarWait1(false);
}

void FormatChoice::ShowCapacity()
{
    // A disc without room leaves the bar as it was.
    ResumeNext([this] { doors_.capacity.ChangeMediaCapacity({}); });
}

} // namespace velmora::wizard
