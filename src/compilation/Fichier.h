// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <utility>

namespace velmora::compilation {

/// One entry of the compilation by the names of its fields. The rows of the list are what the
/// program works with; this is the form for code that wants an entry by itself.
class Fichier {
public:
    /// The row's text.
    const QString& Nom() const { return sNom_; }
    void SetNom(QString nom) { sNom_ = std::move(nom); }

    /// Bytes.
    double Size() const { return dSize_; }
    void SetSize(double size) { dSize_ = size; }

    /// The size for the eye.
    const QString& Taille() const { return sTaille_; }
    void SetTaille(QString taille) { sTaille_ = std::move(taille); }

    bool IsDirectory() const { return bIsDirectory_; }
    void SetIsDirectory(bool isDirectory) { bIsDirectory_ = isDirectory; }

    /// Program path of the source.
    const QString& Origine() const { return sOrigine_; }
    void SetOrigine(QString origine) { sOrigine_ = std::move(origine); }

    /// Path on the disc.
    const QString& Iso() const { return sIso_; }
    void SetIso(QString iso) { sIso_ = std::move(iso); }

private:
    QString sNom_;
    double dSize_ = 0;
    QString sTaille_;
    bool bIsDirectory_ = false;
    QString sOrigine_;
    QString sIso_;
};

} // namespace velmora::compilation
