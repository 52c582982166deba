// What nearly every test takes in; compiled once for all of them.
#pragma once

#include "../../cmake/Precompiled.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
