#pragma once

#include "core/mdlGlobal.h"

#include <QString>
#include <QVariant>

#include <array>
#include <optional>
#include <vector>

namespace kolibri {

/// The sum stands behind the fees.
inline constexpr int kBeitragSumme = kBeitraege;
using BeitragTexte = std::array<QString, kBeitraege + 1>;

/// Cents of a fee as the office writes it: comma for decimals, a point only between groups of three digits.
/// Half cents round away from zero. No value for any other text, and for a sum beyond what the store holds.
std::optional<qint64> BeitragInCent(const QString& text);
/// "12,50": two decimals, no points.
QString BeitragText(qint64 cent);
/// A stored fee as the form shows it; empty for a null.
QString GespeicherterBeitrag(const QVariant& stored);

/// What leaving a fee box does.
struct BeitragPruefung {
    /// The eight boxes as they are to stand, the sum in the last.
    BeitragTexte texte;
    /// Boxes that hold no fee; each is told and gets the focus in turn.
    std::vector<int> ungueltig;
};
/// Rewrites each fee with two decimals and adds them up as they are shown. An empty box and a text that is no
/// fee stay as they are and add nothing.
BeitragPruefung BeitragSummeBilden(const BeitragTexte& texte);

/// What is told about a box that holds no fee.
inline const QString kBeitragUngueltig = QStringLiteral("Ungültiger Eintrag!");

} // namespace kolibri
