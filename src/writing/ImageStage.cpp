// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ImageStage.h"

#include "runtime/Conversions.h"
#include "runtime/Formats.h"
#include "runtime/ResumeNext.h"
#include "text/PathText.h"
#include "writing/ChangedSources.h"
#include "writing/ImageDraft.h"
#include "writing/ShownPath.h"

#include <limits>
#include <optional>

namespace velmora::writing {

using namespace Qt::StringLiterals;

namespace {

using imapi::FileStreamMode;
using imapi::ImageEntry;
using text::DiscPath;
using text::ProgramPath;

QString Blanks(qsizetype count) { return {count, u' '}; }

} // namespace

ImageStage::ImageStage(const RunContext& context, RunReport& report)
    : screen_(context.screen)
    , options_(context.options)
    , state_(context.state)
    , ListFile_(context.ListFile)
    , mastering_(context.mastering)
    , clock_(context.clock)
    , reading_(context.reading)
    , report_(report)
{
}

void ImageStage::ConfigureImage(const imapi::RecorderRef& recorder)
{
    FSI1_ = mastering_.CreateFileSystemImage();
    FSI1_->OnUpdate([this](const QString& currentFile, qint32 copiedSectors, qint32 totalSectors) {
        reading_.FSI1_Update(currentFile, copiedSectors, totalSectors);
    });
    if (state_.MediaTypeChoice == shell::DiscTypeChoice::AsDetected) {
        FSI1_->ChooseImageDefaults(recorder);
    } else {
        FSI1_->ChooseImageDefaultsForMediaType(shell::TypeOf(state_.MediaTypeChoice));
        ChooseFileSystems();
    }
    if (options_.FollowsLinks()) {
        FSI1_->FollowLinks(state_.SourceFolder);
    }
    if (options_.RecordsSums()) {
        FSI1_->RecordSums();
    }
    if (options_.KeepsAttributes()) {
        FSI1_->KeepAttributes(state_.SourceFolder);
    }
    FSI1_->SetWorkingDirectory(options_.TemporaryDirectory());
    NameDisc();
}

void ImageStage::ChooseFileSystems()
{
    const FileSystemOption option = options_.FileSystem();
    FSI1_->SetFileSystemsToCreate(FileSystemsOf(option));
    if (option == FileSystemOption::Iso9660
        && state_.MediaTypeChoice == shell::DiscTypeChoice::CdR) {
        ChooseIsoRulesOfCd();
    }
}

void ImageStage::ChooseIsoRulesOfCd()
{
    if (options_.Mode() == DataMode::Mode2Xa) {
        TryInterchangeLevel2();
        return;
    }
    FSI1_->SetISO9660InterchangeLevel(1);
    FSI1_->SetUseRestrictedCharacterSet(true);
    FSI1_->SetStrictFileSystemCompliance(true);
}

void ImageStage::TryInterchangeLevel2()
{
    if (runtime::ResumeNext([this] { FSI1_->SetISO9660InterchangeLevel(2); }) == 0) {
        return;
    }
    ShowLog(u"Le Mode 2/XA n'est pas supporté par votre système. "
            u"La gravure sera effectuée en mode 1.   "_s);
    runtime::ResumeNext([this] { FSI1_->SetISO9660InterchangeLevel(1); });
}

void ImageStage::NameDisc()
{
    if (options_.DiscName().isEmpty()) {
        options_.SetDiscName(runtime::DateStamp(clock_.Now()));
    }
    FSI1_->SetVolumeName(options_.DiscName());
    ShowLog(u"Le titre du disque est : "_s + options_.DiscName() + Blanks(4) + u'('
        + FSI1_->VolumeNameISO9660() + u" en mode ISO 9660)"_s);
}

void ImageStage::AddCompilationToImage()
{
    screen_.SetProgress(ProgressOf::Run, 0);
    screen_.ShowProgress(ProgressOf::Run, true);
    screen_.Pump();
    const qint16 count = CountRows();
    for (int number = 1; number <= count; ++number) {
        screen_.Pump();
        if (state_.StopFlag) {
            return;
        }
        AddRow(ListFile_[number]);
        const double ratio = static_cast<double>(number) / count;
        screen_.SetProgress(ProgressOf::Run, runtime::ToInt16(ratio * 100));
        screen_.Pump();
        if (state_.StopFlag) {
            return;
        }
    }
}

/// Error 6 for more rows than a run counts.
qint16 ImageStage::CountRows()
{
    if (ListFile_.Count() > kMostRows) {
        report_.limitMet
            = u"Une compilation a 32\u202F767 lignes au plus : rassemblez des éléments "
              u"dans un répertoire."_s;
    }
    return runtime::ToInt16(static_cast<double>(ListFile_.Count()));
}

void ImageStage::AddRow(const compilation::ListRow& row)
{
    // A copy: events handled during an addition may change the list.
    const std::optional<ImageEntry> entry = EntryOf(row);
    if (!entry) {
        return;
    }
    switch (entry->kind) {
    case ImageEntry::Kind::File:
        AddFileToImage(entry->source, entry->path);
        break;
    case ImageEntry::Kind::Directory:
        MakeImageDirectory(entry->path);
        break;
    case ImageEntry::Kind::Tree:
        AddTreeToImage(entry->source, entry->path);
        break;
    }
}

void ImageStage::AddTreeToImage(const ProgramPath& source, const DiscPath& destination)
{
    if (source.IsEmpty()) {
        return;
    }
    const auto addition = [&] {
        imapi::DirectoryItemRef target = FSI1_->Root();
        if (!destination.IsEmpty()) {
            target = target->Item(destination);
        }
        target->AddTree(source, true);
    };
    LogFailureOf(
        addition, u"Impossible d'ajouter à l'image disque le répertoire :"_s, source.Text());
}

void ImageStage::MakeImageDirectory(const DiscPath& path)
{
    if (path.IsEmpty()) {
        return;
    }
    const auto addition = [&] { FSI1_->Root()->AddDirectory(path); };
    LogFailureOf(
        addition, u"Impossible de créer dans l'image disque le répertoire :"_s, path.Text());
}

void ImageStage::AddFileToImage(const ProgramPath& source, const DiscPath& name)
{
    if (source.IsEmpty() || name.IsEmpty()) {
        return;
    }
    const auto addition = [&] {
        const imapi::StreamRef stream = mastering_.CreateStreamOnFile(source, FileStreamMode::Read);
        FSI1_->Root()->AddFile(name, stream);
    };
    LogFailureOf(addition, u"Impossible d'ajouter à l'image disque le fichier :"_s, source.Text());
}

void ImageStage::LogFailureOf(
    const std::function<void()>& addition, const QString& firstLine, const QString& path)
{
    try {
        addition();
    } catch (const imapi::EntriesLeftOut& failure) {
        LogLeftOut(failure, firstLine, path);
        report_.leftOut.insert(
            report_.leftOut.end(), failure.Entries().begin(), failure.Entries().end());
    } catch (const runtime::RuntimeError& failure) {
        LogLeftOut(failure, firstLine, path);
        report_.leftOut.push_back({.path = path, .reason = failure.Description()});
    }
}

void ImageStage::LogLeftOut(
    const runtime::RuntimeError& failure, const QString& firstLine, const QString& path)
{
    ShowLog(firstLine);
    ShowLog(Blanks(6) + ShownPath(path));
    ShowLog(Blanks(16) + failure.Description());
}

imapi::ImageResultRef ImageStage::CreateResultImage()
{
    screen_.ShowProgress(ProgressOf::File, false);
    screen_.SetStatus(u"Lecture des fichiers terminée"_s);
    screen_.SetProgress(ProgressOf::Run, 100);
    screen_.Pump();
    ShowLog(u"Lecture des fichiers terminée"_s);
    ShowLog(u"Création de l'image disque...."_s);
    ShowLog(u"         Veuillez patienter......."_s);
    screen_.Pump();
    imapi::ImageResultRef result = FSI1_->CreateResultImage();
    ShowLog(u"Création de l'image disque réalisée avec succès..."_s);
    screen_.SetStatus(u"Création de l'image disque réalisée avec succès..."_s);
    return result;
}

SaveEnd ImageStage::SaveImage(imapi::IFileSystemImageResult& result)
{
    constexpr qint64 kFarBeyondTheEnd = 10'000;
    ShowLog(u"Préparation à la sauvegarde de l'image disque..."_s);
    screen_.Pump();
    const imapi::StreamRef image = result.ImageStream();
    const imapi::StreamRef file
        = mastering_.CreateStreamOnFile(state_.ImagePath, FileStreamMode::CreateWrite);
    ShowLog(u"Sauvegarde de l'image disque..."_s);
    ShowLog(u"         Veuillez patienter......."_s);
    if (state_.StopFlag) {
        return SaveEnd::Interrupted;
    }
    screen_.Pump();
    const qint32 bytes = BytesOf(result);
    report_.writtenBytes = image->CopyTo(file, static_cast<quint64>(bytes * kFarBeyondTheEnd));
    report_.isWritten = true;
    report_.changedSources = image->ChangedSources();
    ShowLog(u"Sauvegarde de l'image disque réalisée avec succès  dans le fichier: "_s);
    ShowLog(Blanks(11) + text::MachinePathForTheEye(state_.ImagePath));
    TellChangedSources(report_, screen_);
    screen_.SetStatus(u"Sauvegarde de l'image disque réalisée avec succès"_s);
    screen_.Pump();
    return SaveEnd::Saved;
}

/// Error 6 for 2 GiB and more.
qint32 ImageStage::BytesOf(imapi::IFileSystemImageResult& result)
{
    const qint64 bytes = qint64 {result.BlockSize()} * result.TotalBlocks();
    if (bytes > std::numeric_limits<qint32>::max()) {
        report_.limitMet = u"La fenêtre n'écrit que des fichiers ISO de moins de 2\u00A0Gio : "
                           u"« velmora-cli image » en écrit de plus grands."_s;
    }
    return runtime::MultiplyInt32(result.BlockSize(), result.TotalBlocks());
}

void ImageStage::Release() { FSI1_.reset(); }

void ImageStage::ShowLog(const QString& line) { screen_.AddLogLine(line); }

} // namespace velmora::writing
