#pragma once

#include "core/store/connection.h"

#include <QString>
#include <QStringList>

#include <array>

namespace kolibri {

/// Which name format of a pupil a list uses.
enum NameFormat : quint8 { kNamesMensaLernzeit = 0, kNamesArbeitsgruppe = 1, kNamesTagesplan = 2 };
inline constexpr int kNameFormats = 3;
/// Labels of the ten contact fields.
inline constexpr int kContactFields = 10;
/// Fees of a pupil.
inline constexpr int kBeitraege = 7;

/// The state that all forms share. One instance in the running program; a test makes it anew.
struct mdlGlobal {
    /// The one connection to the database; opened by OpenDB, closed by CloseDB.
    Connection Conn;
    /// The file of the last OpenDB.
    QString ConnString;
    /// The folder that holds the database file, without a closing separator.
    QString DB_Pfad;
    QString ComputerName;
    /// True from the beginning of the start to its end; handlers of controls that the start touches do
    /// nothing then.
    bool StartLaeuft = false;
    /// The overlap check of the pupil form is on.
    bool UeberschneidungPruefen = false;

    /// Arguments and result of MsgBoxZeigen.
    QString MsgBoxKnoepfe;
    QString MsgBoxTitel;
    QString MsgBoxText;
    quint8 MsgBoxAntwort = 0;

    /// The list being asked for, and the variant of a Mensa or Lernzeit list.
    quint8 ListenArt = 0;
    quint8 ListenUnterArt = 0;
    bool ListeMensa = false;
    bool ListeLernzeit = false;
    /// The answer to whether a report counts the school starters.
    bool MitSchulanfaengern = false;

    bool ModusSchuelerNeu = false;
    bool ModusSchuelerKorrektur = false;
    bool ModusSchuelerLoeschen = false;
    bool ModusSchuelerAktivieren = false;
    bool ModusSchulanfaenger = false;
    bool ModusSchulanfaengerNeu = false;
    bool ModusSchulanfaengerKorrektur = false;
    bool ModusSchulanfaengerLoeschen = false;
    bool ModusUE_Neu = false;
    bool ModusUE_Korrektur = false;
    bool ModusUE_Loeschen = false;
    bool ModusTagesplanA = false;
    bool ModusTagesplanB = false;

    /// The pupil selected on the pupil form or on the form of the Tagesplan notes: a key of Stammdaten, 0
    /// when none. Keys have 16 bits.
    qint16 AktuelleSchuelerID = 0;
    /// Row of the pupil list, from 1, that is marked again when the pupil form comes back; 0 when none.
    qint16 MarkierteZeile = 0;
    /// Weekday code of the note being opened, and whether it exists already (the green tick was clicked).
    QString NotizTag;
    bool NotizBearbeiten = false;

    /// Conversions that the schema pass of this start has found necessary.
    bool UpgradeNotizen = false;
    bool UpgradeKontakte = false;
    bool UpgradeAG_Slots = false;
    bool UpgradeBeitraege = false;
    bool UpgradeKategorien = false;

    /// How a list writes a pupil's name, by NameFormat: "Ungekürzt", "Nachname gekürzt", "Vorname gekürzt"
    /// and "Vorname Nachname", "Nachname Vorname".
    std::array<QString, kNameFormats> NameKurz;
    std::array<QString, kNameFormats> NameZuerst;

    /// Which additional fields of a pupil the school uses, and what it calls the contact fields. The settings
    /// dialog shows and changes them; the other forms and the lists read them here.
    bool ZusatzSchwimmer = false;
    bool ZusatzBaustein = false;
    bool ZusatzKennung = false;
    std::array<QString, kContactFields> KontaktBezeichnung;

    /// The school's address for the heads of the lists.
    QString SchuleName;
    QString SchuleOrganisation;
    QString SchuleStrasse;
    QString SchulePLZOrt;
    QString SchuleEmail;

    /// Class names, grades and class letters of the table Klassen, each without empty values.
    QStringList KlassenListe;
    QStringList SchulstufenListe;
    QStringList KlassenNRListe;
};

/// The shared state in use.
mdlGlobal& Global();
/// Throws the shared state away and begins a new one.
void GlobalNeu();

} // namespace kolibri
