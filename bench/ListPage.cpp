// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
// How long the user waits for the list of a compilation of many files: see README.md.
#include "compilation/CapacityAccount.h"
#include "compilation/Compilation.h"
#include "compilation/IconSource.h"
#include "compilation/ListDrop.h"
#include "compilation/NativeSourceFiles.h"
#include "desktop/ImageList.h"
#include "shell/MessageDoor.h"
#include "shell/PointerDoor.h"
#include "text/PathText.h"
#include "wizard/list/ListFileView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <vector>

using namespace velmora;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 30'000;
constexpr int kRepeats = 100;

class NoIcons final : public compilation::IconSource {
public:
    qint32 ItemIndex(const text::ProgramPath&, bool) override { return 0; }
    void AddPicture(const QString&, const text::ProgramPath&) override { }
};

class NoMessages final : public shell::MessageDoor {
public:
    shell::MessageAnswer MsgBox(const QString&, qint32, const QString&) override
    {
        return shell::MessageAnswer::Ok;
    }
};

class NoPointer final : public shell::PointerDoor {
public:
    void SetMousePointer(shell::MousePointer) override { }
};

/// A folder of many small files, removed with the object.
class ManyFiles {
public:
    ManyFiles()
    {
        std::filesystem::create_directories(folder_);
        for (int i = 0; i < kRows; ++i) {
            std::ofstream(folder_ / ("file " + std::to_string(i) + ".txt")) << i;
        }
    }
    ManyFiles(const ManyFiles&) = delete;
    ManyFiles& operator=(const ManyFiles&) = delete;
    ~ManyFiles() { std::filesystem::remove_all(folder_); }

    text::ProgramPath Path() const
    {
        return text::ProgramPath(text::ToProgramPath(folder_.native()));
    }

private:
    std::filesystem::path folder_ = std::filesystem::temp_directory_path()
        / ("velmora-list-" + std::to_string(QCoreApplication::applicationPid()));
};

/// Does something several times and prints the median and the longest time, painting included.
void Measure(const char* what, int repeats, const std::function<void(int)>& once)
{
    std::vector<double> times;
    for (int i = 0; i < repeats; ++i) {
        QElapsedTimer timer;
        timer.start();
        once(i);
        QApplication::processEvents();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(times);
    std::cout << what << ": " << times[times.size() / 2] << " ms (longest " << times.back() << ", "
              << repeats << " times)\n";
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const ManyFiles many;
    shell::ProgramState state;
    compilation::CompilationList list;
    compilation::CapacityAccount capacity(state);
    compilation::NativeSourceFiles files;
    NoIcons icons;
    NoMessages messages;
    NoPointer pointer;
    compilation::Compilation rows(state, list, capacity, {files, icons, messages, pointer});
    compilation::ListDrop drop(rows, list, files, messages);
    const desktop::ImageList images;
    wizard::ListFileView view;
    view.SetUp(list, images, drop);
    view.resize(868, 480);

    std::cout << kRows << " rows\n";
    text::ProgramPath folder = many.Path();
    Measure("the folder is read", 1, [&](int) { rows.LoadFolder(folder); });
    Measure("the list opens", 1, [&](int) { view.show(); });
    Measure("a leap of the scroll bar", kRepeats, [&](int i) {
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() * i / kRepeats);
        view.viewport()->repaint();
    });
    Measure("a row is removed", kRepeats, [&](int i) { rows.RemoveRow(1 + i * 250); });
    Measure("a row is added", kRepeats, [&](int i) {
        rows.AddMadeDirectory(text::DiscPath(u"made %1"_s.arg(i)));
    });
    return 0;
}
