#pragma once

#include "calendar/frmME_LZ_AG.h"
#include "core/widgets/forms.h"
#include "support/driving.h"

#include <QComboBox>

/// The offering form and rows for its lists, for the tests of the form.
namespace kolibri::test {

/// The one teaching unit of the school.
inline const QString kUnit = QStringLiteral("13:00 - 13:45");

/// Base of the tests of the offering form.
class OfferingFormTest : public TestBase {
protected:
    /// An empty school with one teaching unit.
    void useSchool() {
        useEmptyDatabase();
        addRow(QStringLiteral("Unterrichtseinheiten"),
               {{QStringLiteral("ID"), 0}, {QStringLiteral("Zeit"), kUnit}, {QStringLiteral("Sort_NR"), 1}});
    }

    /// A row of a Mensa or Lernzeit in the teaching unit; its long name follows from the short one.
    static FieldValues row(const QString& kName, const QString& day) {
        return {{QStringLiteral("K_Name"), kName},
                {QStringLiteral("L_Name"), QStringLiteral("Lang ") + kName},
                {QStringLiteral("Tag"), day},
                {QStringLiteral("Zeit_von"), QStringLiteral("13:00")},
                {QStringLiteral("Zeit_bis"), QStringLiteral("13:45")},
                {QStringLiteral("Zeit"), QStringLiteral("13:00 - 13:45")},
                {QStringLiteral("Zeit_K_Name"), QStringLiteral("13:00 - 13:45 ") + kName},
                {QStringLiteral("UE_Zeit"), kUnit}};
    }
    /// The same of a working group, with supervisor and place.
    static FieldValues groupRow(const QString& kName, const QString& day) {
        FieldValues values = row(kName, day);
        values.push_back({QStringLiteral("Betreuer"), QStringLiteral("Frau Weiß")});
        values.push_back({QStringLiteral("Ort"), QStringLiteral("Aula")});
        return values;
    }

    /// Shows the form in a mode, as the menu does.
    static FormWindow& form(const QString& mode) {
        auto& result = Form<frmME_LZ_AG>();
        result.Tag = mode;
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    static QString box(int i) { return QStringLiteral("txtME_LZ_AG(%1)").arg(i); }
    static ListView& list(FormWindow& window) {
        return *static_cast<ListView*>(&control<QTreeWidget>(window, QStringLiteral("lvwME_LZ_AG")));
    }
    static QListWidget& days(FormWindow& window) {
        return control<QListWidget>(window, QStringLiteral("lstME_LZ_AG"));
    }
    static QComboBox& unit(FormWindow& window) { return control<QComboBox>(window, QStringLiteral("cmbUE")); }

    /// Types a new offering from 13:00 to 13:45 and chooses its days.
    static void fill(FormWindow& window, const QString& kName, const QStringList& dayCodes) {
        type(window, box(0), kName);
        type(window, box(1), QStringLiteral("Lang ") + kName);
        type(window, box(3), QStringLiteral("13:00"));
        type(window, box(4), QStringLiteral("13:45"));
        for (const auto& day : dayCodes)
            clickEntry(days(window), day);
    }

    static QStringList boxes(FormWindow& window) {
        QStringList texts;
        for (int i = 0; i < kOfferingBoxes; ++i)
            texts << textOf(window, box(i));
        return texts;
    }

    static QStringList selectedDays(FormWindow& window) {
        QStringList texts;
        for (int i = 0; i < days(window).count(); ++i)
            if (days(window).item(i)->isSelected())
                texts << days(window).item(i)->text();
        return texts;
    }
};

} // namespace kolibri::test
