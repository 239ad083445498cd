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
#include "tests/support/QtPrinters.h"
#include "tests/support/RecordedMessages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace velmora::test {

/// Files and folders that exist only by their sizes.
class FakeFiles final : public compilation::SourceFiles {
public:
    QStringList Names(const QString& folder) override { return names[folder]; }
    bool IsDirectory(const QString& path) override { return !files.contains(path); }
    bool IsMountRoot(const QString& path) override { return mountRoots.contains(path); }
    double FolderSize(const QString& folder) override
    {
        if (unreadable.contains(folder)) {
            throw runtime::RuntimeError(runtime::error::kPermissionDenied);
        }
        return SizeIn(folders, folder, runtime::error::kPathNotFound);
    }
    double FileSize(const QString& file) override
    {
        return SizeIn(files, file, runtime::error::kFileNotFound);
    }

    bool FindsFile(const QString& path) override { return files.contains(path); }
    bool FindsFolder(const QString& path) override
    {
        return folders.contains(shell::Fixp(path, 1));
    }
    QByteArray Beginning(const QString& file, qsizetype limit) override
    {
        return contents[file].first(std::min(limit, contents[file].size()));
    }

    std::map<QString, double> folders; // keys end in a backslash
    std::map<QString, double> files;
    std::map<QString, QStringList> names;
    std::map<QString, QByteArray> contents;
    QStringList mountRoots;
    QStringList unreadable;

private:
    static double SizeIn(
        const std::map<QString, double>& sizes, const QString& path, qint32 missing)
    {
        const auto found = sizes.find(path);
        if (found == sizes.end()) {
            throw runtime::RuntimeError(missing);
        }
        return found->second;
    }
};

/// Numbers icons by the name's ending, and keeps the keys that got a picture.
class FakeIcons final : public compilation::IconSource {
public:
    qint32 ItemIndex(const QString& path, bool useExisting) override
    {
        lookedInside = useExisting;
        const auto found = numbers.find(path.section(u'.', -1));
        if (found == numbers.end()) {
            throw runtime::RuntimeError(runtime::error::kFileNotFound);
        }
        return found->second;
    }
    void AddPicture(const QString& key, const QString& path) override
    {
        if (!pictures.emplace(key, path).second) {
            throw runtime::RuntimeError(runtime::error::kKeyNotUnique);
        }
    }

    std::map<QString, qint32> numbers;
    std::map<QString, QString> pictures;
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
