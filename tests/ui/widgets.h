// Precompiled for every test of windows.
#pragma once

#include "support/test.h"
#include "ui/base.h"

#include <QTest>
