// What nearly every test takes in; compiled once for all of them.
#pragma once

#include "../../cmake/Precompiled.h"

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
