// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/PublishedCodes.h"
#include "imapi/IDiscFormat2Erase.h"
#include "imapi/IDiscMaster2.h"
#include "runtime/ResumeNext.h"
#include "tests/support/UnaskedMastering.h"
#include "tests/writing/PlatformScript.h"

#include <memory>
#include <utility>

namespace velmora::test {

inline QString BooleanText(bool value) { return value ? u"True"_s : u"False"_s; }

class TranscriptMaster final : public imapi::IDiscMaster2 {
public:
    explicit TranscriptMaster(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    qint32 Count() const override { return 1; }
    QString Item(qint32 index) const override
    {
        transcript_.Tell(u"DiscMaster.Item(%1)"_s.arg(index));
        return u"id of %1"_s.arg(index);
    }

private:
    Transcript& transcript_;
};

class TranscriptRecorder final : public UnaskedRecorder {
public:
    explicit TranscriptRecorder(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void InitializeDiscRecorder(const QString& uniqueId) override
    {
        Tell(u"InitializeDiscRecorder(%1)"_s.arg(uniqueId));
    }
    void EjectMedia() override { Tell(u"EjectMedia"_s); }
    void CloseTray() override { Tell(u"CloseTray"_s); }
    void AcquireExclusiveAccess(bool force, const QString& clientName) override
    {
        Tell(u"AcquireExclusiveAccess(%1, %2)"_s.arg(BooleanText(force), clientName));
    }
    void ReleaseExclusiveAccess() override { Tell(u"ReleaseExclusiveAccess"_s); }

private:
    void Tell(const QString& call) const { transcript_.Tell(u"recorder."_s + call); }

    Transcript& transcript_;
};

/// A writer that keeps its recorder, and reports nothing about itself.
class WriterWithRecorder : public UnaskedWriter {
public:
    void SetRecorder(const imapi::RecorderRef& recorder) override { recorder_ = recorder; }
    imapi::RecorderRef Recorder() const override { return recorder_; }
    QString ClientName() const override { return {}; }
    qint32 CurrentMediaStatus() override { return 0; }
    qint32 CurrentWriteSpeed() override { return 0; }
    qint32 RequestedWriteSpeed() override { return 0; }
    bool CurrentRotationTypeIsPureCAV() override { return false; }

private:
    imapi::RecorderRef recorder_;
};

/// The writer of a run. A write sends the events of the script; an error that leaves the handler is
/// dropped.
class TranscriptWriter final : public WriterWithRecorder {
public:
    explicit TranscriptWriter(PlatformScript& script)
        : script_(script)
    {
    }
    ~TranscriptWriter() override { Tell(u" released"_s); }
    TranscriptWriter(const TranscriptWriter&) = delete;
    TranscriptWriter& operator=(const TranscriptWriter&) = delete;
    TranscriptWriter(TranscriptWriter&&) = delete;
    TranscriptWriter& operator=(TranscriptWriter&&) = delete;

    void SetRecorder(const imapi::RecorderRef& recorder) override
    {
        Tell(u".Recorder = "_s + (recorder ? u"recorder"_s : u"nothing"_s));
        WriterWithRecorder::SetRecorder(recorder);
    }
    void SetClientName(const QString& name) override { Tell(u".ClientName = "_s + name); }
    qint32 SetWriteSpeed(qint32 speed, bool rotationTypeIsPureCAV) override
    {
        const QString rotation = BooleanText(rotationTypeIsPureCAV);
        Tell(u".SetWriteSpeed(%1, %2)"_s.arg(speed).arg(rotation));
        return 0;
    }
    void SetForceMediaToBeClosed(bool closed) override
    {
        Tell(u".ForceMediaToBeClosed = "_s + BooleanText(closed));
    }
    void Write(const imapi::StreamRef& data) override
    {
        Tell(u".Write(%1)"_s.arg(TranscriptStream::NameOf(data)));
        if (!data) {
            throw drive::PublishedError(drive::hresult::kPointer);
        }
        for (const imapi::IDiscFormat2DataEventArgs& event : script_.writeEvents) {
            Tell(u" tells of action %1"_s.arg(static_cast<int>(event.CurrentAction)));
            runtime::ResumeNext([&] { handler_(event); });
        }
        if (isCancelled_) {
            throw drive::PublishedError(drive::hresult::kCancelled);
        }
        Tell(u" is done"_s);
    }
    const imapi::DiscComparison& Comparison() const override { return script_.comparison; }
    const QStringList& Remarks() const override { return script_.remarks; }
    void CancelWrite() override
    {
        Tell(u".CancelWrite"_s);
        isCancelled_ = true;
    }
    void OnUpdate(imapi::DiscFormat2DataUpdate handler) override { handler_ = std::move(handler); }
    void OnWait(std::function<void()>) override { }

private:
    void Tell(const QString& what) const { script_.transcript.Tell(u"dataWriter1"_s + what); }

    PlatformScript& script_;
    imapi::DiscFormat2DataUpdate handler_;
    bool isCancelled_ = false;
};

/// The eraser of a run. An erase sends the events of the script.
class TranscriptEraser final : public imapi::IDiscFormat2Erase {
public:
    explicit TranscriptEraser(PlatformScript& script)
        : script_(script)
    {
    }
    ~TranscriptEraser() override { Tell(u" released"_s); }
    TranscriptEraser(const TranscriptEraser&) = delete;
    TranscriptEraser& operator=(const TranscriptEraser&) = delete;
    TranscriptEraser(TranscriptEraser&&) = delete;
    TranscriptEraser& operator=(TranscriptEraser&&) = delete;

    void SetRecorder(const imapi::RecorderRef& recorder) override
    {
        Tell(u".Recorder = "_s + (recorder ? u"recorder"_s : u"nothing"_s));
        recorder_ = recorder;
    }
    imapi::RecorderRef Recorder() const override { return recorder_; }
    void SetClientName(const QString& name) override { Tell(u".ClientName = "_s + name); }
    QString ClientName() const override { return {}; }
    void SetFullErase(bool full) override { Tell(u".FullErase = "_s + BooleanText(full)); }
    bool FullErase() const override { return false; }
    bool IsCurrentMediaSupported(const imapi::RecorderRef& recorder) override
    {
        const QString name = recorder ? u"recorder"_s : u"nothing"_s;
        Tell(u".IsCurrentMediaSupported(%1)"_s.arg(name));
        return script_.isErasable;
    }
    void RequireSupportedMedia(const imapi::RecorderRef&) override
    {
        throw drive::PublishedError(script_.whyNotErasable);
    }
    void CancelErase() override { Tell(u".CancelErase"_s); }
    bool HasBegun() const override { return hasBegun_; }
    void EraseMedia() override
    {
        Tell(u".EraseMedia"_s);
        hasBegun_ = true;
        for (const auto& [elapsed, total] : script_.eraseEvents) {
            handler_(elapsed, total);
        }
        Tell(u" is done"_s);
    }
    void OnUpdate(imapi::DiscFormat2EraseUpdate handler) override { handler_ = std::move(handler); }

private:
    void Tell(const QString& what) const { script_.transcript.Tell(u"DataEraser"_s + what); }

    PlatformScript& script_;
    imapi::RecorderRef recorder_;
    imapi::DiscFormat2EraseUpdate handler_;
    bool hasBegun_ = false;
};

class DetectionRecorder final : public UnaskedRecorder {
public:
    explicit DetectionRecorder(PlatformScript& script)
        : script_(script)
    {
    }

    void InitializeDiscRecorder(const QString& uniqueId) override
    {
        script_.transcript.Tell(u"detection with %1"_s.arg(uniqueId));
    }
    void EjectMedia() override { script_.transcript.Tell(u"tray opens"_s); }
    void CloseTray() override { script_.transcript.Tell(u"tray closes"_s); }

private:
    PlatformScript& script_;
};

class DetectionWriter final : public WriterWithRecorder {
public:
    explicit DetectionWriter(PlatformScript& script)
        : disc_(script.NextDisc())
        , script_(script)
    {
        script_.discInDetection = disc_;
    }

    bool IsRecorderSupported(const imapi::RecorderRef&) const override
    {
        return disc_.isRecorderSupported;
    }
    bool IsCurrentMediaSupported(const imapi::RecorderRef&) override
    {
        return disc_.isMediaSupported;
    }
    drive::IMAPI_MEDIA_PHYSICAL_TYPE CurrentPhysicalMediaType() override
    {
        return static_cast<drive::IMAPI_MEDIA_PHYSICAL_TYPE>(disc_.type);
    }
    bool MediaHeuristicallyBlank() override { return disc_.isBlank; }
    QList<quint32> SupportedWriteSpeeds() override { return disc_.speeds; }
    QList<imapi::MultisessionRef> MultisessionInterfaces() override
    {
        if (!disc_.canBeContinued) {
            throw drive::PublishedError(drive::hresult::kNoMultisession);
        }
        return {};
    }

private:
    FoundDisc disc_;
    PlatformScript& script_;
};

class DetectionImage final : public UnaskedImage {
public:
    explicit DetectionImage(PlatformScript& script)
        : disc_(script.discInDetection)
    {
    }

    void ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE) override { }
    qint32 FreeMediaBlocks() const override { return disc_.freeBlocks; }
    void SetMultisessionInterfaces(const QList<imapi::MultisessionRef>&) override { }
    void ImportFileSystem() override { }

private:
    FoundDisc disc_;
};

} // namespace velmora::test
