// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/recorder/DetectionScript.h"
#include "tests/support/UnaskedMastering.h"

#include <memory>
#include <utility>

namespace velmora::test {

class ScriptedRecorder final : public UnaskedRecorder {
public:
    explicit ScriptedRecorder(Script& script)
        : script_(script)
    {
    }

    void InitializeDiscRecorder(const QString& id) override
    {
        script_.Hear("InitializeDiscRecorder " + id.toStdString());
    }
    void EjectMedia() override { script_.Hear("EjectMedia"); }
    void CloseTray() override { script_.Hear("CloseTray"); }

private:
    Script& script_;
};

class ScriptedWriter final : public imapi::IDiscFormat2Data {
public:
    explicit ScriptedWriter(Script& script)
        : script_(script)
    {
    }

    void SetRecorder(const imapi::RecorderRef& recorder) override
    {
        script_.Hear("Recorder =");
        recorder_ = recorder;
    }
    imapi::RecorderRef Recorder() const override { return recorder_; }
    void SetClientName(const QString&) override { script_.Hear("ClientName ="); }
    QString ClientName() const override { return Answer("ClientName", QString()); }
    bool IsRecorderSupported(const imapi::RecorderRef&) const override
    {
        return Answer("IsRecorderSupported", script_.recorderSupported);
    }
    bool IsCurrentMediaSupported(const imapi::RecorderRef&) override
    {
        return Answer("IsCurrentMediaSupported", script_.mediaSupported);
    }
    qint32 CurrentMediaStatus() override { return Answer("CurrentMediaStatus", 0); }
    drive::IMAPI_MEDIA_PHYSICAL_TYPE CurrentPhysicalMediaType() override
    {
        return Answer("CurrentPhysicalMediaType",
            static_cast<drive::IMAPI_MEDIA_PHYSICAL_TYPE>(script_.type));
    }
    bool MediaHeuristicallyBlank() override
    {
        return Answer("MediaHeuristicallyBlank", script_.blank);
    }
    qint64 FreeSectorsOnMedia() override { return Answer("FreeSectorsOnMedia", 0); }
    qint64 TotalSectorsOnMedia() override { return Answer("TotalSectorsOnMedia", 0); }
    QList<quint32> SupportedWriteSpeeds() override
    {
        return Answer("SupportedWriteSpeeds", script_.speeds);
    }
    qint32 CurrentWriteSpeed() override { return Answer("CurrentWriteSpeed", 0); }
    qint32 RequestedWriteSpeed() override { return Answer("RequestedWriteSpeed", 0); }
    bool CurrentRotationTypeIsPureCAV() override
    {
        return Answer("CurrentRotationTypeIsPureCAV", false);
    }
    qint32 SetWriteSpeed(qint32, bool) override { return Answer("SetWriteSpeed", 0); }
    void SetForceMediaToBeClosed(bool) override { script_.Hear("ForceMediaToBeClosed ="); }
    bool ForceMediaToBeClosed() const override { return Answer("ForceMediaToBeClosed", false); }
    void SetForceOverwrite(bool) override { script_.Hear("ForceOverwrite ="); }
    bool ForceOverwrite() const override { return Answer("ForceOverwrite", false); }
    QList<imapi::MultisessionRef> MultisessionInterfaces() override
    {
        return Answer("MultisessionInterfaces", QList<imapi::MultisessionRef>());
    }
    void Write(const imapi::StreamRef&) override { script_.Hear("Write"); }
    const imapi::DiscComparison& Comparison() const override { return comparison_; }
    const QStringList& Remarks() const override { return remarks_; }
    void CancelWrite() override { script_.Hear("CancelWrite"); }
    void OnUpdate(imapi::DiscFormat2DataUpdate) override { script_.Hear("OnUpdate"); }
    void OnWait(std::function<void()>) override { script_.Hear("OnWait"); }

private:
    template <class Value> Value Answer(const char* line, Value value) const
    {
        script_.Hear(line);
        return value;
    }

    Script& script_;
    imapi::DiscComparison comparison_;
    QStringList remarks_;
    imapi::RecorderRef recorder_;
};

class ScriptedImage final : public UnaskedImage {
public:
    explicit ScriptedImage(Script& script)
        : script_(script)
    {
    }
    ~ScriptedImage() override { script_.Hear("image released"); }
    ScriptedImage(const ScriptedImage&) = delete;
    ScriptedImage& operator=(const ScriptedImage&) = delete;
    ScriptedImage(ScriptedImage&&) = delete;
    ScriptedImage& operator=(ScriptedImage&&) = delete;

    void ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE type) override
    {
        script_.Hear("ChooseImageDefaultsForMediaType " + std::to_string(static_cast<int>(type)));
    }
    qint32 FreeMediaBlocks() const override
    {
        script_.Hear("freeMediaBlocks");
        return script_.freeBlocks;
    }
    void SetMultisessionInterfaces(const QList<imapi::MultisessionRef>&) override
    {
        script_.Hear("MultisessionInterfaces =");
    }
    void ImportFileSystem() override { script_.Hear("ImportFileSystem"); }

private:
    Script& script_;
};

/// Makes the objects of a detection.
class ScriptedMastering final : public UnaskedMastering {
public:
    explicit ScriptedMastering(Script& script)
        : script_(script)
    {
    }

    imapi::RecorderRef CreateDiscRecorder() override
    {
        script_.Hear("new MsftDiscRecorder2");
        return std::make_shared<ScriptedRecorder>(script_);
    }
    imapi::DiscFormat2DataRef CreateDiscFormat2Data() override
    {
        script_.Hear("new MsftDiscFormat2Data");
        return std::make_shared<ScriptedWriter>(script_);
    }
    imapi::FileSystemImageRef CreateFileSystemImage() override
    {
        script_.Hear("new MsftFileSystemImage");
        return std::make_shared<ScriptedImage>(script_);
    }

private:
    Script& script_;
};

} // namespace velmora::test
