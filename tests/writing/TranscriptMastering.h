// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/PublishedCodes.h"
#include "imapi/IFileSystemImageResult.h"
#include "imapi/Mastering.h"
#include "tests/writing/PlatformScript.h"
#include "tests/writing/TranscriptDrive.h"

#include <memory>
#include <utility>

namespace velmora::test {

using namespace Qt::StringLiterals;

class TranscriptItem final : public imapi::IFsiDirectoryItem {
public:
    TranscriptItem(Transcript& transcript, QString name)
        : transcript_(transcript)
        , name_(std::move(name))
    {
    }

    std::shared_ptr<IFsiDirectoryItem> Item(const text::DiscPath& path) override
    {
        transcript_.Tell(u"%1.Item(%2)"_s.arg(name_, path.Text()));
        return std::make_shared<TranscriptItem>(transcript_, path.Text());
    }
    void AddTree(const text::ProgramPath& sourceDirectory, bool includeBaseDirectory) override
    {
        const QString base = includeBaseDirectory ? u"True"_s : u"False"_s;
        transcript_.Tell(u"%1.AddTree(%2, %3)"_s.arg(name_, sourceDirectory.Text(), base));
    }
    void AddDirectory(const text::DiscPath& path) override
    {
        transcript_.Tell(u"%1.AddDirectory(%2)"_s.arg(name_, path.Text()));
    }
    void AddFile(const text::DiscPath& path, const imapi::StreamRef& fileData) override
    {
        const QString stream = TranscriptStream::NameOf(fileData);
        transcript_.Tell(u"%1.AddFile(%2, %3)"_s.arg(name_, path.Text(), stream));
        if (!fileData) {
            throw drive::PublishedError(drive::hresult::kPointer);
        }
    }

private:
    Transcript& transcript_;
    QString name_;
};

class TranscriptResult final : public imapi::IFileSystemImageResult {
public:
    explicit TranscriptResult(PlatformScript& script)
        : script_(script)
    {
    }

    imapi::StreamRef ImageStream() override
    {
        script_.transcript.Tell(u"result.ImageStream"_s);
        return std::make_shared<TranscriptStream>(
            script_.transcript, u"image stream"_s, script_.changedSources);
    }
    qint32 BlockSize() const override { return 2048; }
    qint32 TotalBlocks() const override { return script_.totalBlocks; }
    std::vector<imapi::ChangedName> ChangedNames() const override { return script_.changedNames; }
    std::vector<imapi::LeftOutEntry> LinksLeftOut() const override { return script_.linksLeftOut; }
    std::vector<imapi::PartlyHeldEntry> PartlyHeld() const override { return script_.partlyHeld; }
    std::vector<imapi::NameHazard> NameHazards() const override { return script_.nameHazards; }
    bool KeepsOtherSums() const override { return script_.keepsOtherSums; }
    std::vector<imapi::LinkLeadingOut> LinksLeadingOut() const override
    {
        return script_.linksLeadingOut;
    }

private:
    PlatformScript& script_;
};

class TranscriptImage final : public UnaskedImage {
public:
    explicit TranscriptImage(PlatformScript& script)
        : script_(script)
    {
    }
    ~TranscriptImage() override { script_.transcript.Tell(u"FSI1 released"_s); }
    TranscriptImage(const TranscriptImage&) = delete;
    TranscriptImage& operator=(const TranscriptImage&) = delete;
    TranscriptImage(TranscriptImage&&) = delete;
    TranscriptImage& operator=(TranscriptImage&&) = delete;

    void ChooseImageDefaults(const imapi::RecorderRef& recorder) override
    {
        const QString name = recorder ? u"the recorder"_s : u"nothing"_s;
        Tell(u"ChooseImageDefaults(%1)"_s.arg(name));
    }
    void ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE type) override
    {
        Tell(u"ChooseImageDefaultsForMediaType(%1)"_s.arg(static_cast<int>(type)));
    }
    void SetFileSystemsToCreate(drive::FsiFileSystems fileSystems) override
    {
        Tell(u"FileSystemsToCreate = %1"_s.arg(static_cast<int>(fileSystems)));
    }
    void SetISO9660InterchangeLevel(qint32 level) override
    {
        Tell(u"ISO9660InterchangeLevel = %1"_s.arg(level));
    }
    void SetUseRestrictedCharacterSet(bool restricted) override
    {
        Tell(u"UseRestrictedCharacterSet = "_s + (restricted ? u"True"_s : u"False"_s));
    }
    void SetStrictFileSystemCompliance(bool strict) override
    {
        Tell(u"StrictFileSystemCompliance = "_s + (strict ? u"True"_s : u"False"_s));
    }
    void SetWorkingDirectory(const text::ProgramPath& path) override
    {
        Tell(u"WorkingDirectory = "_s + path.Text());
    }
    void SetVolumeName(const QString& name) override { Tell(u"VolumeName = "_s + name); }
    QString VolumeNameISO9660() const override { return u"ISO_NAME"_s; }
    qint32 FreeMediaBlocks() const override { return 0; }
    imapi::DirectoryItemRef Root() override
    {
        return std::make_shared<TranscriptItem>(script_.transcript, u"root"_s);
    }
    imapi::ImageResultRef CreateResultImage() override
    {
        Tell(u"CreateResultImage"_s);
        return std::make_shared<TranscriptResult>(script_);
    }
    void OnUpdate(imapi::FileSystemImageUpdate handler) override
    {
        script_.update = std::move(handler);
    }

private:
    void Tell(const QString& call) const { script_.transcript.Tell(u"FSI1."_s + call); }

    PlatformScript& script_;
};

/// Finds nothing wrong with any image.
class ContentImageManager final : public imapi::IIsoImageManager {
public:
    void SetStream(const imapi::StreamRef&) override { }
    void Validate() override { }
};

/// Makes platform objects that record what they are told. Any recorder after the first of a run is
/// a detection's; what a detection makes is quiet and reports the disc that the script has for it.
class TranscriptMastering final : public imapi::Mastering {
public:
    explicit TranscriptMastering(PlatformScript& script)
        : script_(script)
    {
    }

    imapi::DiscMasterRef CreateDiscMaster() override
    {
        script_.transcript.Tell(u"new MsftDiscMaster2"_s);
        recorders_ = 0;
        return std::make_shared<TranscriptMaster>(script_.transcript);
    }
    imapi::RecorderRef CreateDiscRecorder() override
    {
        if (recorders_++ > 0) {
            return std::make_shared<DetectionRecorder>(script_);
        }
        script_.transcript.Tell(u"new MsftDiscRecorder2"_s);
        return std::make_shared<TranscriptRecorder>(script_.transcript);
    }
    imapi::DiscFormat2DataRef CreateDiscFormat2Data() override
    {
        if (IsDetection()) {
            return std::make_shared<DetectionWriter>(script_);
        }
        script_.transcript.Tell(u"new MsftDiscFormat2Data"_s);
        return std::make_shared<TranscriptWriter>(script_);
    }
    imapi::DiscFormat2EraseRef CreateDiscFormat2Erase() override
    {
        script_.transcript.Tell(u"new MsftDiscFormat2Erase"_s);
        return std::make_shared<TranscriptEraser>(script_);
    }
    imapi::FileSystemImageRef CreateFileSystemImage() override
    {
        if (IsDetection()) {
            return std::make_shared<DetectionImage>(script_);
        }
        script_.transcript.Tell(u"new MsftFileSystemImage"_s);
        return std::make_shared<TranscriptImage>(script_);
    }
    imapi::IsoImageManagerRef CreateIsoImageManager() override
    {
        return std::make_shared<ContentImageManager>();
    }
    imapi::StreamRef CreateStreamOnFile(
        const text::ProgramPath& path, imapi::FileStreamMode mode) override
    {
        const int number = static_cast<int>(mode);
        script_.transcript.Tell(u"SHCreateStreamOnFile(%1, %2)"_s.arg(path.Text()).arg(number));
        if (path.Text() == script_.unopenable) {
            return {};
        }
        return std::make_shared<TranscriptStream>(
            script_.transcript, u"stream on "_s + path.Text(), script_.changedSources);
    }

private:
    bool IsDetection() const { return recorders_ > 1; }

    PlatformScript& script_;
    int recorders_ = 0; // since the last MsftDiscMaster2
};

} // namespace velmora::test
