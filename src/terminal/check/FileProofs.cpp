// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/FileProofs.h"

#include "image/source/DirectoryReader.h"
#include "image/source/FileFacts.h"
#include "unicode/FileDescriptor.h"
#include "unicode/WholeTransfers.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace velmora::terminal {

namespace {

constexpr std::size_t kDigits = 64;

std::optional<unsigned> DigitOf(char sign)
{
    constexpr std::string_view kDigitsOfHex = "0123456789abcdef";
    const std::size_t value = kDigitsOfHex.find(sign);
    return value == std::string_view::npos ? std::nullopt
                                           : std::optional(static_cast<unsigned>(value));
}

std::optional<digest::Sha256Value> SumFrom(std::string_view hex)
{
    digest::Sha256Value sum {};
    for (std::size_t i = 0; i < sum.size(); ++i) {
        const auto high = DigitOf(hex[2 * i]);
        const auto low = DigitOf(hex[2 * i + 1]);
        if (!high || !low) {
            return std::nullopt;
        }
        sum[i] = static_cast<std::byte>(*high * 16 + *low);
    }
    return sum;
}

/// The unescaped name of a line that begins with a backslash.
std::string Unescaped(std::string_view name)
{
    std::string plain;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] != '\\' || i + 1 == name.size()) {
            plain += name[i];
            continue;
        }
        const char sign = name[++i];
        plain += sign == 'n' ? '\n' : sign == 'r' ? '\r' : sign;
    }
    return plain;
}

class SumProof final : public FileProof {
public:
    explicit SumProof(const digest::Sha256Value& expected)
        : expected_(expected)
    {
    }

    void Add(std::span<const std::byte> bytes) override { sha256_.Add(bytes); }
    bool IsGood() override { return sha256_.Finish() == expected_; }

private:
    digest::Sha256Value expected_;
    digest::Sha256 sha256_;
};

class CopyProof final : public FileProof {
public:
    explicit CopyProof(unicode::FileDescriptor file)
        : file_(std::move(file))
    {
    }

    void Add(std::span<const std::byte> bytes) override
    {
        buffer_.resize(bytes.size());
        isSame_ = isSame_ && unicode::ReadWhole(file_.Get(), buffer_, position_) == bytes.size()
            && std::ranges::equal(buffer_, bytes);
        position_ += bytes.size();
    }
    bool IsGood() override
    {
        struct stat status { };
        return isSame_ && ::fstat(file_.Get(), &status) == 0
            && static_cast<std::uint64_t>(status.st_size) == position_;
    }

private:
    unicode::FileDescriptor file_;
    std::vector<std::byte> buffer_;
    std::uint64_t position_ = 0;
    bool isSame_ = true;
};

} // namespace

SumProofs::SumProofs(std::string_view list)
{
    while (!list.empty()) {
        const std::size_t end = list.find('\n');
        std::string_view line = list.substr(0, end);
        list = end == std::string_view::npos ? std::string_view() : list.substr(end + 1);
        const bool isEscaped = line.starts_with('\\');
        line.remove_prefix(isEscaped ? 1 : 0);
        // The two are separated by a blank, and a blank or an asterisk.
        if (line.size() <= kDigits + 2 || line[kDigits] != ' ') {
            continue;
        }
        if (const auto sum = SumFrom(line.substr(0, kDigits))) {
            std::string path(line.substr(kDigits + 2));
            path = isEscaped ? Unescaped(path) : path;
            path.erase(0, path.starts_with("./") ? 2 : 0);
            sums_[path] = *sum;
            missing_.insert(path);
        }
    }
}

std::unique_ptr<FileProof> SumProofs::Of(const std::string& path)
{
    missing_.erase(path);
    const auto known = sums_.find(path);
    return known == sums_.end() ? nullptr : std::make_unique<SumProof>(known->second);
}

FolderProofs::FolderProofs(text::NativePath folder)
    : folder_(std::move(folder))
{
    std::vector<std::string> waiting {{}}; // folders in it, each with a slash at its end
    while (!waiting.empty()) {
        const std::string below = std::move(waiting.back());
        waiting.pop_back();
        List(below, waiting);
    }
}

/// Notes the files of one folder, and the folders in it. Hidden entries of the first level don't
/// count; an unreadable folder gives nothing to compare with.
void FolderProofs::List(const std::string& below, std::vector<std::string>& waiting)
{
    const unicode::FileDescriptor directory(
        image::OpenPath(Inside(below).Bytes(), O_RDONLY | O_DIRECTORY));
    if (!directory) {
        return;
    }
    image::DirectoryReader reader(directory.Get());
    while (const dirent64* entry = reader.Next()) {
        const std::string name = entry->d_name;
        struct stat status { };
        const bool isMeant = (!below.empty() || !name.starts_with('.'))
            && ::fstatat(directory.Get(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
        if (isMeant && S_ISDIR(status.st_mode)) {
            waiting.push_back(below + name + '/');
        } else if (isMeant && S_ISREG(status.st_mode)) {
            missing_.insert(below + name);
        }
    }
}

text::NativePath FolderProofs::Inside(const std::string& path) const
{
    return text::NativePath(folder_.Bytes() + '/' + path);
}

std::unique_ptr<FileProof> FolderProofs::Of(const std::string& path)
{
    missing_.erase(path);
    const text::NativePath file = Inside(path);
    struct stat status { };
    if (::stat(file.CStr(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return nullptr;
    }
    unicode::FileDescriptor opened(image::OpenPath(file.Bytes(), O_RDONLY));
    return opened ? std::make_unique<CopyProof>(std::move(opened)) : nullptr;
}

} // namespace velmora::terminal
