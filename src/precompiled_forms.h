// Precompiled header of kolibri_forms.
#pragma once

#include <QtCore/QtCore>
#include <QtWidgets/QtWidgets>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
