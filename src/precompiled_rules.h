// Precompiled header of kolibri_rules: the Qt classes that most files below the forms use.
#pragma once

#include <QtCore/QtCore>
#include <QtSql/QtSql>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
