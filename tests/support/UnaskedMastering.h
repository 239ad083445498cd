// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "runtime/RuntimeError.h"

#include <gtest/gtest.h>

namespace velmora::test {

/// The answer of a member that a test must not call.
[[noreturn]] inline void Unasked(const char* member)
{
    ADD_FAILURE() << member << " was not to be asked for";
    throw runtime::RuntimeError(runtime::error::kNotImplemented);
}

// The mastering interfaces with every member unasked: a test's double derives from one of these and
// overrides what its test is about.

class UnaskedRecorder : public imapi::IDiscRecorder2 {
public:
    void InitializeDiscRecorder(const QString&) override { Unasked("InitializeDiscRecorder"); }
    QString ActiveDiscRecorder() const override { Unasked("ActiveDiscRecorder"); }
    QString VendorId() const override { Unasked("VendorId"); }
    QString ProductId() const override { Unasked("ProductId"); }
    QString ProductRevision() const override { Unasked("ProductRevision"); }
    QString VolumeName() const override { Unasked("VolumeName"); }
    bool DeviceCanLoadMedia() const override { Unasked("DeviceCanLoadMedia"); }
    qint32 LegacyDeviceNumber() const override { Unasked("LegacyDeviceNumber"); }
    QStringList VolumePathNames() const override { Unasked("VolumePathNames"); }
    QList<qint32> SupportedProfiles() const override { Unasked("SupportedProfiles"); }
    void EjectMedia() override { Unasked("EjectMedia"); }
    void CloseTray() override { Unasked("CloseTray"); }
    void AcquireExclusiveAccess(bool, const QString&) override
    {
        Unasked("AcquireExclusiveAccess");
    }
    void ReleaseExclusiveAccess() override { Unasked("ReleaseExclusiveAccess"); }
    drive::BoundDrive& Drive() override { Unasked("Drive"); }
};

class UnaskedWriter : public imapi::IDiscFormat2Data {
public:
    void SetRecorder(const imapi::RecorderRef&) override { Unasked("SetRecorder"); }
    imapi::RecorderRef Recorder() const override { Unasked("Recorder"); }
    void SetClientName(const QString&) override { Unasked("SetClientName"); }
    QString ClientName() const override { Unasked("ClientName"); }
    bool IsRecorderSupported(const imapi::RecorderRef&) const override
    {
        Unasked("IsRecorderSupported");
    }
    bool IsCurrentMediaSupported(const imapi::RecorderRef&) override
    {
        Unasked("IsCurrentMediaSupported");
    }
    qint32 CurrentMediaStatus() override { Unasked("CurrentMediaStatus"); }
    drive::IMAPI_MEDIA_PHYSICAL_TYPE CurrentPhysicalMediaType() override
    {
        Unasked("CurrentPhysicalMediaType");
    }
    bool MediaHeuristicallyBlank() override { Unasked("MediaHeuristicallyBlank"); }
    qint64 FreeSectorsOnMedia() override { Unasked("FreeSectorsOnMedia"); }
    qint64 TotalSectorsOnMedia() override { Unasked("TotalSectorsOnMedia"); }
    QList<quint32> SupportedWriteSpeeds() override { Unasked("SupportedWriteSpeeds"); }
    qint32 CurrentWriteSpeed() override { Unasked("CurrentWriteSpeed"); }
    qint32 RequestedWriteSpeed() override { Unasked("RequestedWriteSpeed"); }
    bool CurrentRotationTypeIsPureCAV() override { Unasked("CurrentRotationTypeIsPureCAV"); }
    qint32 SetWriteSpeed(qint32, bool) override { Unasked("SetWriteSpeed"); }
    void SetForceMediaToBeClosed(bool) override { Unasked("SetForceMediaToBeClosed"); }
    bool ForceMediaToBeClosed() const override { Unasked("ForceMediaToBeClosed"); }
    void SetForceOverwrite(bool) override { Unasked("SetForceOverwrite"); }
    bool ForceOverwrite() const override { Unasked("ForceOverwrite"); }
    QList<imapi::MultisessionRef> MultisessionInterfaces() override
    {
        Unasked("MultisessionInterfaces");
    }
    void Write(const imapi::StreamRef&) override { Unasked("Write"); }
    const imapi::DiscComparison& Comparison() const override { Unasked("Comparison"); }
    const QStringList& Remarks() const override { Unasked("Remarks"); }
    void CancelWrite() override { Unasked("CancelWrite"); }
    void OnUpdate(imapi::DiscFormat2DataUpdate) override { Unasked("OnUpdate"); }
    void OnWait(std::function<void()>) override { Unasked("OnWait"); }
};

class UnaskedImage : public imapi::IFileSystemImage {
public:
    void ChooseImageDefaults(const imapi::RecorderRef&) override { Unasked("ChooseImageDefaults"); }
    void ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE) override
    {
        Unasked("ChooseImageDefaultsForMediaType");
    }
    void SetFileSystemsToCreate(drive::FsiFileSystems) override
    {
        Unasked("SetFileSystemsToCreate");
    }
    void SetISO9660InterchangeLevel(qint32) override { Unasked("SetISO9660InterchangeLevel"); }
    void SetUseRestrictedCharacterSet(bool) override { Unasked("SetUseRestrictedCharacterSet"); }
    void SetStrictFileSystemCompliance(bool) override { Unasked("SetStrictFileSystemCompliance"); }
    void SetWorkingDirectory(const text::ProgramPath&) override { Unasked("SetWorkingDirectory"); }
    void SetVolumeName(const QString&) override { Unasked("SetVolumeName"); }
    QString VolumeNameISO9660() const override { Unasked("VolumeNameISO9660"); }
    qint32 FreeMediaBlocks() const override { Unasked("FreeMediaBlocks"); }
    void SetMultisessionInterfaces(const QList<imapi::MultisessionRef>&) override
    {
        Unasked("SetMultisessionInterfaces");
    }
    void ImportFileSystem() override { Unasked("ImportFileSystem"); }
    void FollowLinks(const text::ProgramPath&) override { Unasked("FollowLinks"); }
    void RecordSums() override { Unasked("RecordSums"); }
    void KeepAttributes(const text::ProgramPath&) override { Unasked("KeepAttributes"); }
    imapi::DirectoryItemRef Root() override { Unasked("Root"); }
    imapi::ImageResultRef CreateResultImage() override { Unasked("CreateResultImage"); }
    void OnUpdate(imapi::FileSystemImageUpdate) override { Unasked("OnUpdate"); }
};

class UnaskedStream : public imapi::IStream {
public:
    std::size_t Read(std::span<std::byte>) override { Unasked("Read"); }
    void Write(std::span<const std::byte>) override { Unasked("Write"); }
    void Seek(quint64) override { Unasked("Seek"); }
    quint64 Position() const override { Unasked("Position"); }
    std::optional<imapi::StreamFile> File() const override { Unasked("File"); }
    quint64 Size() const override { Unasked("Size"); }
    quint64 CopyTo(const imapi::StreamRef&, quint64) override { Unasked("CopyTo"); }
};

class UnaskedMastering : public imapi::Mastering {
public:
    imapi::DiscMasterRef CreateDiscMaster() override { Unasked("CreateDiscMaster"); }
    imapi::RecorderRef CreateDiscRecorder() override { Unasked("CreateDiscRecorder"); }
    imapi::DiscFormat2DataRef CreateDiscFormat2Data() override { Unasked("CreateDiscFormat2Data"); }
    imapi::DiscFormat2EraseRef CreateDiscFormat2Erase() override
    {
        Unasked("CreateDiscFormat2Erase");
    }
    imapi::FileSystemImageRef CreateFileSystemImage() override { Unasked("CreateFileSystemImage"); }
    imapi::IsoImageManagerRef CreateIsoImageManager() override { Unasked("CreateIsoImageManager"); }
    imapi::StreamRef CreateStreamOnFile(const text::ProgramPath&, imapi::FileStreamMode) override
    {
        Unasked("CreateStreamOnFile");
    }
};

} // namespace velmora::test
