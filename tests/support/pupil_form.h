#pragma once

#include "core/widgets/list_view.h"
#include "students/frmSchuelerIn.h"
#include "support/driving.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTabWidget>
#include <QTimer>

/// A small school and the pupil form on it, for the tests of the form.
namespace kolibri::test {

/// Two classes, offerings of MO and DI in every group, three active pupils (IDs 1 to 3), a deactivated one
/// (4) and a school starter (5).
inline void makeSmallSchool() {
    const auto text = [](const char* utf8) { return QString::fromUtf8(utf8); };
    for (const auto* klasse : {"3a", "4b"})
        for (int tag = 0; tag < kSchoolDays; ++tag)
            addRow(text("Klassen"), {{text("Klasse"), text(klasse)},
                                     {text("Tag"), TagCode(tag)},
                                     {text("Tag_Zahl"), tag},
                                     {text("Unterrichtsbeginn"), text("08:00")},
                                     {text("Unterrichtsende"), text("12:00")},
                                     {text("Schulstufe"), text(klasse).left(1)},
                                     {text("KlassenNR"), text(klasse).right(1)}});
    const auto offer = [&](int gruppe, int tag, const QString& von, const QString& bis, const QString& name) {
        FieldValues values{{text("K_Name"), name},
                           {text("L_Name"), text("Angebot ") + name},
                           {text("Tag"), TagCode(tag)},
                           {text("Zeit_von"), von},
                           {text("Zeit_bis"), bis},
                           {text("Zeit"), von + text(" - ") + bis},
                           {text("Zeit_K_Name"), von + text(" - ") + bis + u' ' + name}};
        addRow(text("GR%1").arg(gruppe), values);
    };
    for (int tag = 0; tag < 2; ++tag) {
        offer(1, tag, text("12:00"), text("12:45"), text("ME1"));
        offer(1, tag, text("12:45"), text("13:30"), text("ME2"));
        offer(2, tag, text("12:45"), text("13:30"), text("LZ1"));
        for (int gruppe = 3; gruppe <= kGruppen; ++gruppe)
            offer(gruppe, tag, text("14:00"), text("15:00"), text("Chor"));
    }
    const auto pupil = [&](const char* name, const char* vorname, const char* klasse, bool aktiv) {
        const QString k = text(klasse);
        addRow(text("Stammdaten"), {{text("SCH_Name"), text(name)},
                                    {text("SCH_Vorname"), text(vorname)},
                                    {text("Klasse"), k},
                                    {text("Schulstufe"), k.left(1)},
                                    {text("Kl_Nr"), k.right(1)},
                                    {text("Strasse"), text(name) + text("weg 1")},
                                    {text("aktiv"), aktiv}});
    };
    pupil("Ärger", "Anna", "3a", true);
    pupil("Müller", "Berta", "3a", true);
    pupil("Zander", "Carl", "4b", true);
    pupil("Ehemals", "Dora", "4b", false);
    pupil("Klein", "Emil", "0a", true);
}

/// One column of one pupil, "<null>" for a null.
inline QString stored(int id, const QString& column) {
    const DbSession session(QStringLiteral("Vergleich"));
    const Recordset rs =
        Global().Conn.Open(QStringLiteral("SELECT %1 FROM Stammdaten WHERE ID = ?").arg(column), {id});
    return rs.Eof() ? QStringLiteral("<keiner>") : rs.IsNull(column) ? QStringLiteral("<null>") : rs.Text(0);
}

/// Changes columns of a pupil past the form.
inline void change(int id, const FieldValues& values) {
    const DbSession session(QStringLiteral("Testdaten"));
    // Older files came by their apostrophes another way.
    Global().Conn.AllowApostrophes(true);
    Global().Conn.Change(QStringLiteral("Stammdaten"), values, QStringLiteral("ID = ?"), {id});
    Global().Conn.AllowApostrophes(false);
}

/// Base of the tests of the pupil form.
class PupilFormTest : public TestBase {
protected:
    void startWithSmallSchool() {
        static QTemporaryDir school;
        const QString kept = school.filePath(kDatabaseName);
        if (!QFile::exists(kept)) {
            useEmptyDatabase();
            makeSmallSchool();
            QFile::copy(DatenbankDatei(home()), kept);
        } else {
            QFile::copy(kept, DatenbankDatei(home()));
        }
        Global().ComputerName = QStringLiteral("TEST-PC");
        Global().UeberschneidungPruefen = true;
        schuelerFormZiele() = {};
    }

    /// Shows the form in a mode, as the menu does.
    frmSchülerIn& open(bool mdlGlobal::*mode) {
        auto& form = Form<frmSchülerIn>();
        form.hide();
        QCoreApplication::processEvents();
        ModiZuruecksetzen();
        Global().*mode = true;
        if (mode == &mdlGlobal::ModusSchulanfaengerNeu || mode == &mdlGlobal::ModusSchulanfaengerKorrektur
            || mode == &mdlGlobal::ModusSchulanfaengerLoeschen)
            Global().ModusSchulanfaenger = true;
        if (!shown(form))
            qFatal("the form did not get the keyboard");
        return form;
    }
    frmSchülerIn& openToCorrect() { return open(&mdlGlobal::ModusSchuelerKorrektur); }

    static ListView& listOf(frmSchülerIn& form) {
        return control<ListView>(form, QStringLiteral("lvwStammdaten"));
    }
    /// Clicks the row of the pupil with this ID.
    static void choose(frmSchülerIn& form, int id) {
        auto& list = listOf(form);
        const int row = list.rowOfKey(QStringLiteral("A%1").arg(id, 5, 10, QChar(u'0')));
        if (row == 0)
            qFatal("no row of pupil %d", id);
        clickRow(list, row);
    }
    static QComboBox& box(frmSchülerIn& form, int gruppe, int tag) {
        return control<QComboBox>(form, QStringLiteral("cmbGR%1(%2)").arg(gruppe).arg(tag));
    }
    /// Chooses an entry as a user does.
    static void pick(frmSchülerIn& form, int gruppe, int tag, const QString& text) {
        QComboBox& combo = box(form, gruppe, tag);
        const int index = combo.findText(text);
        if (index < 0)
            qFatal("no entry %s", qPrintable(text));
        combo.setCurrentIndex(index);
        Q_EMIT combo.activated(index);
    }
    /// Lets the timer's half second be over at once.
    static void tickTimer(frmSchülerIn& form) {
        auto& timer = control<QTimer>(form, QStringLiteral("Timer1"));
        if (timer.isActive())
            QMetaObject::invokeMethod(&timer, "timeout", Qt::DirectConnection);
    }
    static QColor lamp(frmSchülerIn& form, int tag) {
        return control<QLabel>(form, QStringLiteral("lblAmpel(%1)").arg(tag))
            .palette()
            .color(QPalette::Window);
    }
    static void check(frmSchülerIn& form, const QString& name) {
        QTest::mouseClick(&control<QCheckBox>(form, name), Qt::LeftButton);
    }
};

inline const QColor kRedLamp(255, 0, 0);
inline const QColor kGreenLamp(0, 0xc0, 0);

} // namespace kolibri::test
