// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ImapiErrors.h"
#include "Mastering.h"
#include "Transcript.h"

#include <memory>
#include <utility>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// What the platform's objects are to answer, and what they heard.
struct PlatformScript {
    Transcript& transcript;
    qint32 totalBlocks = 1;
    QString unopenable {};                  ///< a path on which no stream opens
    imapi::FileSystemImageUpdate update {}; ///< the handler of the image's events
};

/// A stream that has a name and no bytes.
class TranscriptStream final : public imapi::IStream {
public:
    TranscriptStream(Transcript& transcript, QString name)
        : transcript_(transcript)
        , name_(std::move(name))
    {
    }
    ~TranscriptStream() override { transcript_.Tell(name_ + u" released"_s); }
    TranscriptStream(const TranscriptStream&) = delete;
    TranscriptStream& operator=(const TranscriptStream&) = delete;
    TranscriptStream(TranscriptStream&&) = delete;
    TranscriptStream& operator=(TranscriptStream&&) = delete;

    std::size_t Read(std::span<std::byte>) override { return 0; }
    void Write(std::span<const std::byte>) override { }
    void Seek(quint64) override { }
    quint64 Size() const override { return 0; }
    quint64 CopyTo(const imapi::StreamRef& destination, quint64 count) override
    {
        transcript_.Tell(u"%1.CopyTo(%2, %3)"_s.arg(name_, NameOf(destination)).arg(count));
        if (!destination) {
            throw imapi::PublishedError(imapi::hresult::kStreamInvalidPointer);
        }
        return 0;
    }

    static QString NameOf(const imapi::StreamRef& stream)
    {
        const auto* own = dynamic_cast<const TranscriptStream*>(stream.get());
        return own ? own->name_ : u"nothing"_s;
    }

private:
    Transcript& transcript_;
    QString name_;
};

class TranscriptItem final : public imapi::IFsiDirectoryItem {
public:
    TranscriptItem(Transcript& transcript, QString name)
        : transcript_(transcript)
        , name_(std::move(name))
    {
    }

    std::shared_ptr<IFsiDirectoryItem> Item(const QString& path) override
    {
        transcript_.Tell(u"%1.Item(%2)"_s.arg(name_, path));
        return std::make_shared<TranscriptItem>(transcript_, path);
    }
    void AddTree(const QString& sourceDirectory, bool includeBaseDirectory) override
    {
        const QString base = includeBaseDirectory ? u"True"_s : u"False"_s;
        transcript_.Tell(u"%1.AddTree(%2, %3)"_s.arg(name_, sourceDirectory, base));
    }
    void AddDirectory(const QString& path) override
    {
        transcript_.Tell(u"%1.AddDirectory(%2)"_s.arg(name_, path));
    }
    void AddFile(const QString& path, const imapi::StreamRef& fileData) override
    {
        const QString stream = TranscriptStream::NameOf(fileData);
        transcript_.Tell(u"%1.AddFile(%2, %3)"_s.arg(name_, path, stream));
        if (!fileData) {
            throw imapi::PublishedError(imapi::hresult::kPointer);
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
        return std::make_shared<TranscriptStream>(script_.transcript, u"image stream"_s);
    }
    qint32 BlockSize() const override { return 2048; }
    qint32 TotalBlocks() const override { return script_.totalBlocks; }

private:
    PlatformScript& script_;
};

class TranscriptImage final : public imapi::IFileSystemImage {
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
    void ChooseImageDefaultsForMediaType(imapi::IMAPI_MEDIA_PHYSICAL_TYPE type) override
    {
        Tell(u"ChooseImageDefaultsForMediaType(%1)"_s.arg(static_cast<int>(type)));
    }
    void SetFileSystemsToCreate(imapi::FsiFileSystems fileSystems) override
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
    void SetWorkingDirectory(const QString& path) override
    {
        Tell(u"WorkingDirectory = "_s + path);
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

/// Makes platform objects that write down what they are told.
class TranscriptMastering final : public imapi::Mastering {
public:
    explicit TranscriptMastering(PlatformScript& script)
        : script_(script)
    {
    }

    imapi::FileSystemImageRef CreateFileSystemImage() override
    {
        script_.transcript.Tell(u"new MsftFileSystemImage"_s);
        return std::make_shared<TranscriptImage>(script_);
    }
    imapi::StreamRef CreateStreamOnFile(const QString& path, imapi::FileStreamMode mode) override
    {
        const int number = static_cast<int>(mode);
        script_.transcript.Tell(u"SHCreateStreamOnFile(%1, %2)"_s.arg(path).arg(number));
        if (path == script_.unopenable) {
            return {};
        }
        return std::make_shared<TranscriptStream>(script_.transcript, u"stream on "_s + path);
    }

private:
    PlatformScript& script_;
};

} // namespace velmora::test
