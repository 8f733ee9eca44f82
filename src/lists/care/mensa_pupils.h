#pragma once

#include <QString>
#include <QStringList>

namespace kolibri {

class PageWriter;

/// Most classes of one Mensa list by pupil.
inline constexpr int kMostMensaClasses = 60;
/// optTag: a weekday, 0 to 4, or the whole week.
inline constexpr int kWholeWeek = 5;

/// What the forms frmME_jeSchüler and frmME_Individuell ask for, as plain values named like their controls.
struct MensaPupilOptions {
    /// The classes chosen in frmME_jeSchüler, and whether the cells show the time. The lists of one Mensa
    /// follow that box, too.
    QStringList lstKlassen;
    bool chkMensaMitZeit = false;
    /// What frmME_Individuell asks for.
    QStringList lstKlassenIndividuell;
    int optTag = 0;
    /// Long name of a Mensa.
    QString cmbMensa;
};

/// A table for each chosen class, with what its pupils eat on which day; pupils without any Mensa do not
/// stand there. The store is open.
/// @throws RuntimeError 9 for more than 60 classes or more than 999 rows
void MensaJeSchueler_Sammeln();
/// The pupils of the chosen classes who have one Mensa in the week, or on one day. Only the first time of a
/// long name is looked at. A long name without a row is told in a box. The store is open.
void MensaWoche_Sammeln();
void MensaTag_Sammeln();
/// Writes the body of these lists.
void MensaSchueler_Schreiben(PageWriter& page);

} // namespace kolibri
