// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Window.h"
#include "image/contents/Contents.h"
#include "image/contents/SumsFile.h"
#include "image/source/FileFacts.h"
#include "unicode/FileDescriptor.h"

#include <set>
#include <string>

namespace velmora::image {

/// Reads the source's files into the image's data area, and checks each file again after reading
/// it: one that is no longer the file that was scanned is an error, one that was rewritten or grew
/// is noted. It keeps the file read last and its folder open, since neighbours in the image are
/// neighbours in their folder. For one thread.
class SourceReader {
public:
    /// @param sums  the list of the files' sums, which sees all bytes that are read; nullptr for
    /// none
    SourceReader(const SourceTree& source, const Contents& contents, SumsFile* sums = nullptr)
        : source_(source)
        , contents_(contents)
        , sums_(sums)
    {
    }

    /// Fills what the window shows of the data area (places in bytes of the image), the rests of
    /// sectors and the gaps between files with zeros. Errors: NotFound, FileNotOpened,
    /// FileUnreadable, FileChanged, FileReplaced, SpecialFile.
    Result<> Fill(Window& window, std::uint64_t areaBegin, std::uint64_t areaEnd);

    /// Opens a content's file; the descriptor stays the reader's and good until the next call.
    Result<int> Open(const Content& content);
    /// Checks what became of a content's file, which is open, since it was scanned.
    /// Errors: NotFound, FileNotOpened, FileChanged, FileReplaced, SpecialFile.
    Result<> LookAgain(const Content& content, int file);

    /// Native paths of the files that were found rewritten or grown.
    std::set<std::string> ChangedFiles() const;

private:
    Result<> LookCloser(const Content& content, const struct stat& now);
    Result<> CheckEmptyFile(const Content& content);
    Result<> CheckEmptyFiles(const Window& window);
    Result<> ReadPart(Window& window, const Content& content);
    Result<> PutPart(Window& window, const Content& content);
    Result<> PutSums(Window& window);
    Error Failure(ErrorKind kind, const Content& content, int systemError = 0) const;
    Error LookFailure(const Content& content, int systemError) const;
    bool EnterFolder(NodeId node, std::string& name);
    int OpenFile(NodeId node);

    const SourceTree& source_;
    const Contents& contents_;
    SumsFile* sums_;
    NodeId folderNode_ = kNoNode;
    unicode::FileDescriptor folder_;
    NodeId fileNode_ = kNoNode;
    unicode::FileDescriptor file_;
    std::set<NodeId> changed_;
};

} // namespace velmora::image
