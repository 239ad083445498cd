// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/PublishedCodes.h"
#include "imapi/IDiscFormat2Data.h"
#include "imapi/IFileSystemImage.h"
#include "tests/support/UnaskedMastering.h"
#include "tests/writing/Transcript.h"

#include <deque>
#include <utility>
#include <vector>

namespace velmora::test {

using namespace Qt::StringLiterals;

/// A disc as a detection finds it.
struct FoundDisc {
    qint32 type = 2;
    bool isBlank = true;
    bool canBeContinued = true; ///< of one that isn't blank: it can be imported
    qint32 freeBlocks = 359'847;
    QList<quint32> speeds {3600, 2400, 1200, 600}; ///< of a CD: 41, 27, 14 and 7 times
    bool isRecorderSupported = true;
    bool isMediaSupported = true;
};

/// What the platform's objects answer, and the calls that they got.
struct PlatformScript {
    explicit PlatformScript(Transcript& all)
        : transcript(all)
    {
    }

    /// The disc of the next detection; the last one stays.
    FoundDisc NextDisc()
    {
        const FoundDisc disc = discs.front();
        if (discs.size() > 1) discs.pop_front();
        return disc;
    }

    Transcript& transcript;
    qint32 totalBlocks = 1;
    std::vector<imapi::ChangedName> changedNames;
    std::vector<imapi::LeftOutEntry> linksLeftOut;
    std::vector<imapi::PartlyHeldEntry> partlyHeld;
    std::vector<imapi::NameHazard> nameHazards;
    std::vector<imapi::LinkLeadingOut> linksLeadingOut;
    bool keepsOtherSums = false;
    QString unopenable;                  ///< a path on which no stream opens
    imapi::FileSystemImageUpdate update; ///< the handler of the image's events
    std::deque<FoundDisc> discs {FoundDisc {}};
    FoundDisc discInDetection;
    std::vector<imapi::IDiscFormat2DataEventArgs> writeEvents;
    imapi::DiscComparison comparison; ///< that the writer reports
    QStringList remarks;
    QList<text::ProgramPath> changedSources; ///< of every stream
    bool isErasable = true;
    qint32 whyNotErasable = drive::hresult::kNotErasable;
    std::vector<std::pair<qint32, qint32>> eraseEvents; ///< seconds passed, seconds in all
};

/// A stream that has a name and no bytes.
class TranscriptStream final : public UnaskedStream {
public:
    TranscriptStream(Transcript& transcript, QString name, QList<text::ProgramPath> changedSources)
        : transcript_(transcript)
        , name_(std::move(name))
        , changedSources_(std::move(changedSources))
    {
    }
    ~TranscriptStream() override { transcript_.Tell(name_ + u" released"_s); }
    TranscriptStream(const TranscriptStream&) = delete;
    TranscriptStream& operator=(const TranscriptStream&) = delete;
    TranscriptStream(TranscriptStream&&) = delete;
    TranscriptStream& operator=(TranscriptStream&&) = delete;

    quint64 CopyTo(const imapi::StreamRef& destination, quint64 count) override
    {
        transcript_.Tell(u"%1.CopyTo(%2, %3)"_s.arg(name_, NameOf(destination)).arg(count));
        if (!destination) {
            throw drive::PublishedError(drive::hresult::kStreamInvalidPointer);
        }
        return 0;
    }

    QList<text::ProgramPath> ChangedSources() const override { return changedSources_; }

    static QString NameOf(const imapi::StreamRef& stream)
    {
        const auto* own = dynamic_cast<const TranscriptStream*>(stream.get());
        return own ? own->name_ : u"nothing"_s;
    }

private:
    Transcript& transcript_;
    QString name_;
    QList<text::ProgramPath> changedSources_;
};

} // namespace velmora::test
