// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/QtFileChooser.h"

#include "desktop/DialogParent.h"
#include "desktop/FolderDialog.h"
#include "desktop/Places.h"
#include "desktop/Sandbox.h"
#include "text/PathText.h"

#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QSplitter>
#include <QTreeView>
#include <QUrl>

namespace velmora::desktop {

using namespace Qt::StringLiterals;

namespace {

QStringView FolderOf(const text::ProgramPath& path)
{
    return QStringView(path.Text()).first(path.Text().lastIndexOf(u'\\') + 1);
}

/// The folder, or its nearest existing ancestor.
QString ExistingFolder(const text::ProgramPath& path)
{
    QString folder = QDir::cleanPath(text::ToQtPath(path));
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
    // The dialog reads the pattern from the last bracket, and hides only that one.
    return filter.text + u" ("_s + pattern + u')';
}

/// The extension for a name typed without a full stop, if the filter shows one kind of names.
QString SuffixOf(const FileFilter& filter)
{
    const bool hasOne = filter.pattern.startsWith("*."_L1) && filter.pattern.count(u'*') == 1;
    return hasOne ? filter.pattern.sliced(2) : QString();
}

/// The kinds of files in French: Qt's translations lack them.
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

/// Adds the desktop's places to Qt's own while the dialog is open: Qt saves those that are there at
/// its end for all programs.
class SideBar {
public:
    explicit SideBar(QFileDialog& dialog)
        : dialog_(dialog)
        , before_(dialog.sidebarUrls())
    {
        QList<QUrl> places = before_;
        for (const QString& path : Places()) {
            const QUrl place = QUrl::fromLocalFile(path);
            if (!places.contains(place)) {
                places += place;
            }
        }
        dialog_.setSidebarUrls(places);
    }
    ~SideBar() { dialog_.setSidebarUrls(before_); }
    SideBar(const SideBar&) = delete;
    SideBar& operator=(const SideBar&) = delete;

private:
    QFileDialog& dialog_;
    QList<QUrl> before_;
};

/// Room for the columns of the list and for the places beside it.
void LayOut(QFileDialog& dialog)
{
    constexpr QSize kSize {800, 520};
    constexpr int kPlacesWidth = 136;
    dialog.resize(kSize);
    for (QTreeView* list : dialog.findChildren<QTreeView*>()) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    for (QSplitter* places : dialog.findChildren<QSplitter*>()) {
        places->setSizes({kPlacesWidth, kSize.width() - kPlacesWidth});
    }
}

/// What the dialogs have in common: their owner, and French words.
/// @param kinds   must outlive the dialog
/// @param accept  what the button says, with its letter
void Prepare(QFileDialog& dialog, FrenchKinds& kinds, DialogsOf owner, const QString& accept)
{
    if (owner == DialogsOf::Desktop) {
        // Other toolkits mark the access key in other ways.
        dialog.setLabelText(QFileDialog::Accept, QString(accept).remove(u'&'));
        return;
    }
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setIconProvider(&kinds);
    LayOut(dialog);
    // Only the name's label has its box as buddy: the others can't have an access key.
    dialog.setLabelText(QFileDialog::LookIn, u"Dossier :"_s);
    dialog.setLabelText(QFileDialog::FileName, u"&Nom :"_s);
    dialog.setLabelText(QFileDialog::FileType, u"Type :"_s);
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, u"&Annuler"_s);
}

void ShowFilters(QFileDialog& dialog, const FileQuestion& question)
{
    QStringList filters;
    for (const FileFilter& filter : question.filters) {
        filters += NameFilterOf(filter);
    }
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(question.filterIndex - 1));
}

/// The file that the user means: an existing one is opened under its exact name.
QString Completed(const QString& path, const FileQuestion& question)
{
    const QString suffix = SuffixOf(question.filters.value(question.filterIndex - 1));
    const QFileInfo file(path);
    const bool isWhole
        = suffix.isEmpty() || file.fileName().contains(u'.') || (!question.saves && file.exists());
    return isWhole ? path : path + u'.' + suffix;
}

} // namespace

QtFileChooser::QtFileChooser()
    : QtFileChooser(IsInSandbox() ? DialogsOf::Desktop : DialogsOf::Program)
{
}

QList<text::ProgramPath> QtFileChooser::AskFiles(const FileQuestion& question)
{
    FrenchKinds kinds;
    QFileDialog dialog(DialogParent(), question.title);
    Prepare(dialog, kinds, owner_, question.saves ? u"&Enregistrer"_s : u"&Ouvrir"_s);
    const SideBar places(dialog);
    if (question.saves && owner_ == DialogsOf::Desktop) {
        dialog.setAcceptMode(QFileDialog::AcceptSave); // it only opens what exists
    }
    dialog.setFileMode(question.several ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
    dialog.setDirectory(ExistingFolder(question.folder));
    ShowFilters(dialog, question);
    if (!question.fileName.isEmpty()) {
        dialog.selectFile(text::ToQtPath(text::ProgramPath(question.fileName)));
    }
    if (dialog.exec() == QDialog::Rejected) {
        return {};
    }
    QList<text::ProgramPath> chosen;
    for (const QString& file : dialog.selectedFiles()) {
        const auto path = text::FromQtPath(Completed(QDir::cleanPath(file), question));
        // Typed names may lead out of the folder; the first one decides the folder.
        if (chosen.isEmpty() || FolderOf(path) == FolderOf(chosen[0])) {
            chosen += path;
        }
    }
    return chosen;
}

text::ProgramPath QtFileChooser::AskFolder(const FolderQuestion& question)
{
    FrenchKinds kinds;
    FolderDialog dialog(DialogParent(), question.title);
    Prepare(dialog, kinds, owner_, u"&Choisir"_s);
    const SideBar places(dialog);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setOption(QFileDialog::ReadOnly, !question.mayMakeFolders);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setDirectory(ExistingFolder(question.folder));
    return dialog.exec() == QDialog::Rejected ? text::ProgramPath()
                                              : text::FromQtPath(dialog.Chosen());
}

} // namespace velmora::desktop
