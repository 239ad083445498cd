// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/FileChooser.h"
#include "tests/support/PathLiterals.h"

#include <deque>
#include <functional>
#include <vector>

namespace velmora::test {

/// Answers the dialogs as the test has planned, cancels when nothing is left, and records every
/// question.
class FakeFileChooser final : public desktop::FileChooser {
public:
    QList<text::ProgramPath> AskFiles(const desktop::FileQuestion& question) override
    {
        fileQuestions.push_back(question);
        return ProgramPaths(Next(files));
    }
    text::ProgramPath AskFolder(const desktop::FolderQuestion& question) override
    {
        folderQuestions.push_back(question);
        if (onAsk) onAsk();
        return text::ProgramPath(Next(folders));
    }

    std::deque<QStringList> files; ///< program paths
    std::deque<QString> folders;   ///< program paths
    std::vector<desktop::FileQuestion> fileQuestions;
    std::vector<desktop::FolderQuestion> folderQuestions;
    std::function<void()> onAsk; ///< done while the folder dialog is open

private:
    template <class Answer> static Answer Next(std::deque<Answer>& answers)
    {
        if (answers.empty()) return {};
        Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

} // namespace velmora::test
