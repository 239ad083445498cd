// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/FormatChoice.h"

#include "compilation/CapacityAccount.h"
#include "recorder/DetectMedia.h"
#include "recorder/RecorderState.h"
#include "runtime/ResumeNext.h"
#include "runtime/TextRules.h"
#include "shell/ProgramState.h"
#include "shell/SizeTexts.h"
#include "wizard/rules/Navigation.h"
#include "wizard/rules/NavigationScreen.h"
#include "writing/BurnScreen.h"
#include "writing/UsualSpeeds.h"

#include <optional>
#include <vector>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using recorder::SpeedEntry;
using runtime::ResumeNext;
using shell::DiscFormat;
using shell::DiscTypeChoice;
using shell::MousePointer;
using writing::FileSystemOption;
using writing::SessionOption;

namespace {

namespace style = shell::message_style;

/// The data mode and the file system that a format sets.
struct OptionSet {
    bool canChooseDataMode;
    FileSystemOption fileSystem;
    bool canChooseFileSystem;
};

/// A format whose figures don't come from a disc.
struct FixedFormat {
    QString label3;
    compilation::DiscSize size;
    DiscTypeChoice disc; ///< that the user promises to put in
};

OptionSet OptionSetOf(DiscFormat format)
{
    return {.canChooseDataMode = format == DiscFormat::Cd,
        .fileSystem
        = format == DiscFormat::BluRay ? FileSystemOption::Udf : FileSystemOption::Joliet,
        .canChooseFileSystem = format != DiscFormat::BluRay};
}

FixedFormat FixedFormatOf(DiscFormat format)
{
    switch (format) {
    case DiscFormat::BluRay:
        return {u"Disque de données : Blue-Ray"_s,
            compilation::DiscSize::BdOneLayer,
            DiscTypeChoice::BdR};
    case DiscFormat::Dvd:
        return {u"Disque de données : DVD"_s,
            compilation::DiscSize::DvdOneLayer,
            DiscTypeChoice::DvdPlusR};
    default:
        return {
            u"Disque de données : CD"_s, compilation::DiscSize::Cd74Minutes, DiscTypeChoice::CdR};
    }
}

/// The format by the start of a disc's name; none for other discs.
std::optional<DiscFormat> FormatOfFamily(const QString& family)
{
    if (family == u"Bl"_s || family == u"BD"_s) {
        return DiscFormat::BluRay;
    }
    if (family == u"DV"_s) {
        return DiscFormat::Dvd;
    }
    if (family == u"CD"_s) {
        return DiscFormat::Cd;
    }
    return std::nullopt;
}

void Apply(const OptionSet& options, FormatScreen& screen)
{
    screen.EnableDataMode(options.canChooseDataMode);
    if (options.canChooseDataMode) {
        screen.SelectDataMode(writing::DataMode::Mode2Xa);
    }
    screen.SelectFileSystem(options.fileSystem);
    screen.EnableFileSystem(options.canChooseFileSystem);
}

QString SpeedItem(const SpeedEntry& entry)
{
    if (entry.Multiple.value_or(0) != 0) {
        return QString::number(*entry.Multiple) + u'x';
    }
    return entry.Speed ? QString::number(*entry.Speed) : QString();
}

} // namespace

FormatChoice::FormatChoice(const FormatChoiceContext& context)
    : context_(context)
{
}

void FormatChoice::CorvaneButton2(DiscFormat format)
{
    if (!context_.screen.IsPossible(format)) {
        return;
    }
    context_.state.DiscFormat = format;
    ChooseDiscFormat(format);
    context_.capacity.CheckThatItFits(context_.burnPage);
    if (context_.state.MediaTypeChoice != DiscTypeChoice::Failed) {
        context_.navigation.EnterBurnPages();
    } else {
        context_.navigation.ShowFormatPage();
    }
}

void FormatChoice::ChooseDiscFormat(DiscFormat format)
{
    context_.state.MediaTypeChoice = DiscTypeChoice::AsDetected;
    ClearOptions(format);
    if (format == DiscFormat::InDrive) {
        TakeDiscInDrive();
        return;
    }
    TakeFixed(format);
    ShowCapacity();
}

void FormatChoice::ClearOptions(DiscFormat format)
{
    for (const DiscFormat other :
        {DiscFormat::BluRay, DiscFormat::Dvd, DiscFormat::Cd, DiscFormat::InDrive}) {
        context_.screen.PlaceSizes(other, false);
    }
    context_.screen.PlaceSizes(format, true);
    context_.screen.ClearSpeeds();
    for (const SessionOption option : {SessionOption::StartMultisession,
             SessionOption::ContinueMultisession,
             SessionOption::CloseDisc}) {
        context_.screen.EnableSession(option, true);
    }
    context_.screen.SelectSession(SessionOption::StartMultisession);
}

void FormatChoice::TakeFixed(DiscFormat format)
{
    const FixedFormat fixed = FixedFormatOf(format);
    context_.state.MediaCapacity = compilation::CapacityOf(fixed.size);
    context_.screen.ShowTitle(fixed.label3);
    Apply(OptionSetOf(format), context_.screen);
    for (const QString& speed : writing::UsualSpeeds(format)) {
        context_.screen.OfferSpeed(speed);
    }
    context_.screen.SelectFirstSpeed();
    context_.screen.SelectSize(fixed.size);
    context_.state.MediaTypeChoice = fixed.disc;
}

void FormatChoice::TakeDiscInDrive()
{
    context_.screen.ShowTitle(u"Disque de données"_s);
    const recorder::DetectedMedia disc = Detect();
    if (disc.end == recorder::DetectionEnd::NoText) {
        context_.state.MediaTypeChoice = DiscTypeChoice::Failed; // the user cancelled the prompt
        return;
    }
    ShowWaitPanel();
    if (disc.end == recorder::DetectionEnd::NoUsableDisc) {
        RefuseDisc(disc);
        return;
    }
    TakeDisc(disc);
    ShowCapacity();
}

recorder::DetectedMedia FormatChoice::Detect()
{
    const auto chosen = static_cast<std::size_t>(context_.state.SelectedRecorder);
    recorder::DetectedMedia disc = recorder::DetectMedia({.state = context_.recorders,
                                                             .mastering = context_.mastering,
                                                             .clock = context_.clock,
                                                             .pump = context_.burnPage,
                                                             .pointer = context_.burnPage,
                                                             .messages = context_.burnPage},
        {.UniqueId = context_.recorders.RecorderList.at(chosen).RecorderId,
            .PromptForMedia = true});
    context_.state.MediaFreeBytes = disc.FreeBytes.value_or(context_.state.MediaFreeBytes);
    return disc;
}

void FormatChoice::ShowWaitPanel()
{
    // The detection is over by now: the panel is only visible for a moment.
    writing::BurnScreen& window = context_.burnPage;
    context_.pages.PlaceRootPage(RootPage::Formats, false);
    window.Pump();
    window.SetWaitBar(writing::WaitBar::Running);
    window.ShowDriveWait(true);
    window.Pump();
    window.SetMousePointer(MousePointer::Hourglass);
    window.SetMousePointer(MousePointer::Arrow);
    window.ShowDriveWait(false);
}

void FormatChoice::RefuseDisc(const recorder::DetectedMedia& disc)
{
    context_.state.MediaTypeChoice = DiscTypeChoice::Failed;
    context_.burnPage.SetWaitBar(writing::WaitBar::Stopped);
    context_.burnPage.ShowDriveWait(false);
    context_.burnPage.MsgBox(
        recorder::WhyNoDisc(
            disc, u"Le graveur est vide ou le média est incompatible à la gravure."_s),
        style::kExclamation,
        u"Vérifiez le graveur et son média !"_s);
}

void FormatChoice::TakeDisc(const recorder::DetectedMedia& disc)
{
    const QString name = runtime::Trim(disc.text);
    context_.screen.DescribeDisc(
        name + u" - Place disponible : "_s + shell::FormatSizeMo(context_.state.MediaFreeBytes));
    context_.state.MediaCapacity = context_.state.MediaFreeBytes;
    if (disc.FileSystemImported.value_or(false)) {
        context_.screen.SelectSession(SessionOption::ContinueMultisession);
    }
    FillSpeeds(disc.SpeedList.value_or(std::vector<SpeedEntry> {}));
    TakeFamily(name.left(2));
    context_.burnPage.SetWaitBar(writing::WaitBar::Stopped);
    context_.state.MediaTypeChoice = DiscTypeChoice::AsDetected;
}

void FormatChoice::FillSpeeds(const std::vector<SpeedEntry>& SpeedList)
{
    if (SpeedList.empty()) {
        return;
    }
    for (const SpeedEntry& entry : SpeedList) {
        context_.screen.OfferSpeed(SpeedItem(entry));
    }
    context_.screen.SelectFirstSpeed();
}

void FormatChoice::TakeFamily(const QString& family)
{
    const std::optional<DiscFormat> format = FormatOfFamily(family);
    if (format) {
        context_.state.DiscFormat = *format;
        Apply(OptionSetOf(*format), context_.screen);
    }
}

void FormatChoice::ShowCapacity()
{
    // A disc without free space doesn't change the bar.
    ResumeNext([this] { context_.capacity.ChangeMediaCapacity({}); });
}

} // namespace velmora::wizard
