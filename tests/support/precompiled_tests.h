// Precompiled header of the test programs.
#pragma once

#include <QtCore/QtCore>
#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>
