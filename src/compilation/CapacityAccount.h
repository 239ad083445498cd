// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ProgramState.h"

#include <QLocale>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

namespace velmora::shell {
class MessageDoor;
}

namespace velmora::compilation {

/// Keeps the sum of the compilation, compares it with the disc's capacity, and holds what the list
/// page shows of both: a bar and two labels. The sum is kept by increments and never recomputed
/// from the rows.
class CapacityAccount {
public:
    /// The bar's mark: the first value past a disc that is exactly full.
    static constexpr qint16 kBarLimit = 91;

    explicit CapacityAccount(shell::ProgramState& state, const QLocale& locale = QLocale::system());

    /// Adds bytes (a negative number takes them off) to TotalSizeBytes and shows the sum.
    /// Error 11 with a capacity of 0, 6 when the sum is 0 too: by then the sum has changed, the
    /// display hasn't.
    void CalcSpaceOnMedia(double amount);

    /// The sum and the bar go to 0; the label keeps its text until the next amount.
    void ResetSpaceUsedOnMedia();

    /// Takes a new capacity, if there is one, and shows it with the sum. Errors as
    /// CalcSpaceOnMedia.
    void ChangeMediaCapacity(std::optional<double> bytes);

    /// Tells the user when the compilation is larger than the disc, and drops the choice of the
    /// disc.
    /// @return whether the compilation fits
    bool CheckThatItFits(shell::MessageDoor& messages);

    /// The bar's value, 0..100; a full disc stands at 90.
    qint16 BarValue() const { return barValue_; }
    /// The capacity's text.
    const QString& Label10() const { return label10_; }
    /// The sum's text.
    const QString& Label11() const { return label11_; }

    /// Called after every change of what is shown.
    void OnChange(std::function<void()> listener) { listener_ = std::move(listener); }

private:
    void Tell() const;

    shell::ProgramState& state_;
    QLocale locale_;
    qint16 barValue_ = 0;
    QString label10_;
    QString label11_;
    std::function<void()> listener_;
};

} // namespace velmora::compilation
