// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscRecorder2.h"
#include "imapi/IFileSystemImage.h"
#include "text/DiscPath.h"
#include "text/Paths.h"
#include "writing/RunContext.h"
#include "writing/RunReport.h"

#include <QString>

#include <functional>

namespace velmora::writing {

/// How the saving of an image ended, if it didn't fail.
enum class SaveEnd : qint8 { Saved, Interrupted };

/// The image stages of a run, from the options and the list of entries to a finished image, and on
/// to its file. A run calls them in the order given here.
///
/// A failure of the platform leaves a stage as runtime::RuntimeError; that of a single entry
/// doesn't: it is logged in three lines and reported, and the walk goes on without the entry.
class ImageStage {
public:
    /// @param report  gets the entries left out, the bytes saved and the sources that changed;
    /// outlives the stage
    ImageStage(const RunContext& context, RunReport& report);

    /// Makes FSI1 and tells it the file systems, the working directory and the disc's name. For a
    /// disc as detected, the recorder's disc alone decides.
    void ConfigureImage(const imapi::RecorderRef& recorder);

    /// Adds the list to the image. Ends early when the stop flag is found set.
    /// Error 6, before the first entry, for more than 32,767 rows.
    void AddCompilationToImage();

    imapi::ImageResultRef CreateResultImage();

    /// Copies the image to the file that the image path names. A stop is honoured before the copy;
    /// an empty file is left behind. Error 6, with the empty file left behind, for an image of 2^31
    /// bytes or more.
    SaveEnd SaveImage(imapi::IFileSystemImageResult& result);

    /// Drops FSI1; no event comes after it.
    void Release();

    /// Adds a directory of the machine, under its own name, to a directory of the image; an empty
    /// destination is the root, an empty source does nothing.
    void AddTreeToImage(const text::ProgramPath& source, const text::DiscPath& destination);
    /// Makes a directory in the image; an empty path does nothing.
    void MakeImageDirectory(const text::DiscPath& path);
    /// Adds a file of the machine at a path of the image; nothing happens when either is empty.
    void AddFileToImage(const text::ProgramPath& source, const text::DiscPath& name);

private:
    void ChooseFileSystems();
    void ChooseIsoRulesOfCd();
    void TryInterchangeLevel2();
    void NameDisc();
    qint16 CountRows();
    qint32 BytesOf(imapi::IFileSystemImageResult& result);
    void AddRow(const compilation::ListRow& row);
    void LogFailureOf(
        const std::function<void()>& addition, const QString& firstLine, const QString& path);
    void LogLeftOut(
        const runtime::RuntimeError& failure, const QString& firstLine, const QString& path);
    void ShowLog(const QString& line);

    BurnScreen& screen_;
    BurnOptions& options_;
    shell::ProgramState& state_;
    const compilation::CompilationList& ListFile_;
    imapi::Mastering& mastering_;
    runtime::Clock& clock_;
    ReadingDisplay& reading_;
    RunReport& report_;
    imapi::FileSystemImageRef FSI1_;
};

} // namespace velmora::writing
