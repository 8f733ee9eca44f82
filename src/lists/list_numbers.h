#pragma once

#include <QtGlobal>

namespace kolibri {

/// The values of ListenArt.
enum ListNumber : quint8 {
    kUnterrichtszeiten = 3,
    kListeMensa = 4,
    kListeLernzeit = 5,
    kListeArbeitsgruppe = 6,
    kZeitueberschneidungen = 7,
    kTagesplan = 9,
    kMensaGesamt = 11,
    kMensaJeKlasse = 12,
    kMensaBelegung = 13,
    kMensaJeSchueler = 14,
    kMensaWoche = 15,
    kMensaTag = 16,
    kLernzeitGesamt = 21,
    kLernzeitJeKlasse = 22,
    kLernzeitBelegung = 23,
    kArbeitsgruppenGesamt = 31,
    kNotizenZuweisungen = 41,
    kNotizenTagesplan = 42,
    kStammdatenBlatt = 51,
    kBausteine = 61,
    kSchulanfaenger = 101,
    kNamensliste = 111,
    kNeueSchueler = 113,
    kNichtOgSchueler = 114,
    kErweiterteListe = 115
};

} // namespace kolibri
