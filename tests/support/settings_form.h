#pragma once

#include "core/frmEinstellungen.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QCheckBox>
#include <QComboBox>

/// The settings dialog and what a user does to it, for its tests.
namespace kolibri::test {

/// The name of an element of a control array.
inline QString at(const char* name, int index) {
    return QStringLiteral("%1(%2)").arg(QString::fromUtf8(name)).arg(index);
}

/// Base of the tests of the settings dialog.
class SettingsFormTest : public TestBase {
protected:
    static FormWindow& form() {
        auto& result = Form<frmEinstellungen>();
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    static QString chosen(const FormWindow& window, const QString& name) {
        return control<QComboBox>(window, name).currentText();
    }
    static void choose(const FormWindow& window, const QString& name, const QString& entry) {
        auto& box = control<QComboBox>(window, name);
        const int index = box.findText(entry);
        if (index < 0)
            qFatal("no entry %s", qPrintable(entry));
        box.setCurrentIndex(index);
    }
    static bool checked(const FormWindow& window, const QString& name) {
        return control<QCheckBox>(window, name).isChecked();
    }
    static void tick(const FormWindow& window, const QString& name) {
        control<QCheckBox>(window, name).click();
    }
    static QListWidget& list(const FormWindow& window) {
        return control<QListWidget>(window, QStringLiteral("lstKategorienBearbeiten"));
    }
    static QStringList listed(const FormWindow& window) {
        QStringList names;
        for (int i = 0; i < list(window).count(); ++i)
            names << list(window).item(i)->text();
        return names;
    }

    void setRow(const QString& key, const FieldValues& values) {
        const DbSession session(QStringLiteral("Testdaten"));
        QCOMPARE(
            Global().Conn.Change(QStringLiteral("Einstellungen"), values, QStringLiteral("Feld = ?"), {key}),
            1);
    }
    static QString rowText(const QString& key) {
        return tableRowsWhere(QStringLiteral("Feld = ?"), {key}).join(u'\n');
    }
    static QStringList tableRowsWhere(const QString& condition, const QVariantList& values) {
        const DbSession session(QStringLiteral("Vergleich"));
        QStringList rows;
        for (Recordset rs =
                 Global().Conn.Open(QStringLiteral("SELECT * FROM Einstellungen WHERE ") + condition, values);
             !rs.Eof(); rs.MoveNext()) {
            QStringList cells;
            for (int i = 0; i < rs.FieldCount(); ++i)
                if (!rs.Value(i).isNull())
                    cells << rs.Text(i);
            rows << cells.join(u' ');
        }
        return rows;
    }

    void save(FormWindow& window) {
        doorsOfTest.expect(QStringLiteral("Zur Übernahme der Daten bitte das Programm neu starten!"));
        press(window);
    }
};

} // namespace kolibri::test
