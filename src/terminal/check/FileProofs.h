// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "digest/Sha256.h"
#include "text/Paths.h"

#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::terminal {

/// Checks whether the bytes of one file, as they go by, are as they should be.
class FileProof {
public:
    FileProof() = default;
    virtual ~FileProof() = default;
    FileProof(const FileProof&) = delete;
    FileProof& operator=(const FileProof&) = delete;
    FileProof(FileProof&&) = delete;
    FileProof& operator=(FileProof&&) = delete;

    virtual void Add(std::span<const std::byte> bytes) = 0;
    /// The result, after all of them went by.
    virtual bool IsGood() = 0;
};

/// What the files of a disc should be.
class FileProofs {
public:
    FileProofs() = default;
    virtual ~FileProofs() = default;
    FileProofs(const FileProofs&) = delete;
    FileProofs& operator=(const FileProofs&) = delete;
    FileProofs(FileProofs&&) = delete;
    FileProofs& operator=(FileProofs&&) = delete;

    /// For the file at a path of the disc; empty if nothing is known about it.
    virtual std::unique_ptr<FileProof> Of(const std::string& path) = 0;
    /// The files that should be there, without those that `Of` was called for.
    virtual const std::set<std::string>& Missing() const = 0;
};

/// From a list in the format of sha256sum(1); other lines are ignored.
class SumProofs final : public FileProofs {
public:
    explicit SumProofs(std::string_view list);

    std::unique_ptr<FileProof> Of(const std::string& path) override;
    const std::set<std::string>& Missing() const override { return missing_; }
    bool IsEmpty() const { return sums_.empty(); }

private:
    std::map<std::string, digest::Sha256Value> sums_;
    std::set<std::string> missing_;
};

/// From the files of a folder; its own hidden entries needn't be on the disc.
class FolderProofs final : public FileProofs {
public:
    explicit FolderProofs(text::NativePath folder);

    std::unique_ptr<FileProof> Of(const std::string& path) override;
    const std::set<std::string>& Missing() const override { return missing_; }

private:
    void List(const std::string& below, std::vector<std::string>& waiting);

    text::NativePath Inside(const std::string& path) const;

    text::NativePath folder_;
    std::set<std::string> missing_;
};

} // namespace velmora::terminal
