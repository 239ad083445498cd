// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/QtFileChooser.h"

#include "text/PathText.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QSplitter>
#include <QTreeView>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace {

QString ToProgramPath(const QString& chosen)
{
    return text::ToProgramPath(QFile::encodeName(chosen).toStdString());
}

QString FolderOf(const QString& programPath)
{
    return programPath.first(programPath.lastIndexOf(u'\\') + 1);
}

/// The folder, or the nearest above it that there is.
QString ExistingFolder(const QString& programPath)
{
    QString folder = QDir::cleanPath(QFile::decodeName(text::ToNativePath(programPath).c_str()));
    while (!folder.isEmpty() && !QDir(folder).exists()) {
        const QString above = QDir::cleanPath(folder + u"/.."_s);
        folder = above == folder ? QString() : above;
    }
    return folder.isEmpty() ? QDir::currentPath() : folder;
}

/// Every name matches "*.*", with or without a full stop in it.
QString NameFilterOf(const FileFilter& filter)
{
    const QString pattern = filter.pattern == "*.*"_L1 ? u"*"_s : filter.pattern;
    // The dialog reads the pattern from the bracket at the end, and hides that one alone.
    return filter.text + u" ("_s + pattern + u')';
}

/// What a name that is typed without a full stop ends in, where the filter shows one kind of names.
QString SuffixOf(const FileFilter& filter)
{
    const bool hasOne = filter.pattern.startsWith("*."_L1) && filter.pattern.count(u'*') == 1;
    return hasOne ? filter.pattern.sliced(2) : QString();
}

/// The kinds of files in French: the library's catalogue lacks them.
class FrenchKinds final : public QFileIconProvider {
public:
    QString type(const QFileInfo& info) const override
    {
        if (info.isDir()) {
            return u"Dossier"_s;
        }
        return (u"Fichier "_s + info.suffix()).trimmed();
    }
};

/// What both dialogs have in common: French words, and room for the columns of the list.
/// @param kinds  must outlive the dialog
void Prepare(QFileDialog& dialog, FrenchKinds& kinds, const QString& accept)
{
    constexpr QSize kSize {800, 520};
    constexpr int kPlacesWidth = 136;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(&kinds);
    dialog.resize(kSize);
    for (QTreeView* list : dialog.findChildren<QTreeView*>()) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    for (QSplitter* places : dialog.findChildren<QSplitter*>()) {
        places->setSizes({kPlacesWidth, kSize.width() - kPlacesWidth});
    }
    // Only the name's label leads to its box: the others can't have a letter of their own.
    dialog.setLabelText(QFileDialog::LookIn, u"Dossier :"_s);
    dialog.setLabelText(QFileDialog::FileName, u"&Nom :"_s);
    dialog.setLabelText(QFileDialog::FileType, u"Type :"_s);
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, u"&Annuler"_s);
}

} // namespace

QStringList QtFileChooser::AskFiles(const FileQuestion& question)
{
    FrenchKinds kinds;
    QFileDialog dialog(QApplication::activeWindow(), question.title);
    Prepare(dialog, kinds, u"&Ouvrir"_s);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setFileMode(question.several ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
    dialog.setDirectory(ExistingFolder(question.folder));
    QStringList filters;
    for (const FileFilter& filter : question.filters) {
        filters += NameFilterOf(filter);
    }
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(question.filterIndex - 1));
    dialog.setDefaultSuffix(SuffixOf(question.filters.value(question.filterIndex - 1)));
    if (!question.fileName.isEmpty()) {
        dialog.selectFile(QFile::decodeName(text::ToNativePath(question.fileName).c_str()));
    }
    if (dialog.exec() == QDialog::Rejected) {
        return {};
    }
    QStringList chosen;
    for (const QString& file : dialog.selectedFiles()) {
        const QString path = ToProgramPath(QDir::cleanPath(file));
        // Names that are typed may lead out of the folder; the first settles which one it is.
        if (chosen.isEmpty() || FolderOf(path) == FolderOf(chosen[0])) {
            chosen += path;
        }
    }
    return chosen;
}

QString QtFileChooser::AskFolder(const FolderQuestion& question)
{
    FrenchKinds kinds;
    QFileDialog dialog(QApplication::activeWindow(), question.title);
    Prepare(dialog, kinds, u"&Choisir"_s);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setOption(QFileDialog::ReadOnly, !question.mayMakeFolders);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setDirectory(ExistingFolder(question.folder));
    if (dialog.exec() == QDialog::Rejected) {
        return {};
    }
    return ToProgramPath(dialog.selectedFiles().value(0));
}

} // namespace velmora::desktop
