// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CapacityAccount.h"
#include "compilation/Compilation.h"
#include "compilation/IconSource.h"
#include "compilation/SourceFiles.h"
#include "runtime/RuntimeError.h"
#include "shell/PathHelpers.h"
#include "shell/PointerDoor.h"
#include "shell/ProgramState.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/RecordedMessages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace velmora::test {

/// Files and folders that exist only as sizes. The test sets them up by the texts of their paths.
class FakeFiles final : public compilation::SourceFiles {
public:
    QStringList Names(const text::ProgramPath& folder) override { return names[folder.Text()]; }
    QStringList HiddenNames(const text::ProgramPath& folder) override
    {
        return hiddenNames[folder.Text()];
    }
    bool IsDirectory(const text::ProgramPath& path) override
    {
        return !files.contains(path.Text());
    }
    bool IsMountRoot(const text::ProgramPath& path) override
    {
        return mountRoots.contains(path.Text());
    }
    compilation::FolderContents ContentsOf(const text::ProgramPath& folder) override
    {
        if (unreadable.contains(folder.Text())) {
            throw runtime::RuntimeError(runtime::error::kPermissionDenied);
        }
        return {.bytes = SizeIn(folders, folder, runtime::error::kPathNotFound),
            .files = filesBelow[folder.Text()]};
    }
    double FileSize(const text::ProgramPath& file) override
    {
        return SizeIn(files, file, runtime::error::kFileNotFound);
    }

    text::ProgramPath BehindLink(const text::ProgramPath& path) override
    {
        const auto link = links.find(path.Text());
        return link == links.end() ? path : text::ProgramPath(link->second);
    }
    bool FindsFile(const text::ProgramPath& path) override { return files.contains(path.Text()); }
    bool FindsFolder(const text::ProgramPath& path) override
    {
        return folders.contains(shell::Fixp(path.Text(), 1));
    }
    QByteArray Beginning(const text::ProgramPath& file, qsizetype limit) override
    {
        const QByteArray& bytes = contents[file.Text()];
        return bytes.first(std::min(limit, bytes.size()));
    }

    std::map<QString, double> folders; // keys end in a backslash
    std::map<QString, double> files;
    std::map<QString, qint64> filesBelow; // of a folder
    std::map<QString, QStringList> names;
    std::map<QString, QStringList> hiddenNames;
    std::map<QString, QByteArray> contents;
    std::map<QString, QString> links; // and where they lead in the end
    QStringList mountRoots;
    QStringList unreadable;

private:
    static double SizeIn(
        const std::map<QString, double>& sizes, const text::ProgramPath& path, qint32 missing)
    {
        const auto found = sizes.find(path.Text());
        if (found == sizes.end()) {
            throw runtime::RuntimeError(missing);
        }
        return found->second;
    }
};

/// Numbers icons by file extension, and keeps the keys that got a picture.
class FakeIcons final : public compilation::IconSource {
public:
    qint32 ItemIndex(const text::ProgramPath& path, bool useExisting) override
    {
        lookedInside = useExisting;
        const auto found = numbers.find(path.Text().section(u'.', -1));
        if (found == numbers.end()) {
            throw runtime::RuntimeError(runtime::error::kFileNotFound);
        }
        return found->second;
    }
    void AddPicture(const QString& key, const text::ProgramPath& path) override
    {
        if (!pictures.emplace(key, path).second) {
            throw runtime::RuntimeError(runtime::error::kKeyNotUnique);
        }
    }

    std::map<QString, qint32> numbers;
    std::map<QString, text::ProgramPath> pictures;
    bool lookedInside = false;
};

class RecordedPointer final : public shell::PointerDoor {
public:
    void SetMousePointer(shell::MousePointer pointer) override { history.push_back(pointer); }

    std::vector<shell::MousePointer> history;
};

/// A compilation whose doors all lead into the test. Numbers are written with a decimal point.
template <class Files> class CompilationFixture : public testing::Test {
protected:
    shell::ProgramState state;
    compilation::CompilationList list;
    compilation::CapacityAccount capacity {state, QLocale::c()};
    Files files;
    FakeIcons icons;
    RecordedMessages messages;
    RecordedPointer pointer;
    compilation::Compilation compilation {
        state, list, capacity, {files, icons, messages, pointer}, QLocale::c()};
};

} // namespace velmora::test
