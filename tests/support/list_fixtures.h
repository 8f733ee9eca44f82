#pragma once

#include "core/store/connection.h"

#include <QStringList>

#include <initializer_list>

namespace kolibri::test {

/// Adds an active pupil; letter and grade follow from the class, and the values given come on top.
void addPupil(const QString& family, const QString& first, const QString& klasse,
              const FieldValues& values = {});
/// Name and mobile number of a contact person (1 to 3) of a pupil; an empty one is left out.
FieldValues contact(int person, const QString& name, const QString& phone = {});
FieldValues joined(std::initializer_list<FieldValues> parts);

/// Chooses the contact fields of one category for the lists of pupils.
void chooseContacts(const QString& category);

/// Rows of the list in production as "code: cell | cell | ...".
QStringList listRows();
/// Prepares a list and gives its rows.
QStringList gathered(quint8 listenArt);
/// Prepares a list, writes its page and gives the lines of the body.
QStringList produced(quint8 listenArt);
/// Classes of the table rows of a body behind the first, which holds the headings.
QStringList rowClasses(const QStringList& body);

} // namespace kolibri::test
