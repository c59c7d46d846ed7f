// Precompiled for every test.
#pragma once

#include "platform/base.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <ostream>

/// Lets a failed comparison show its texts.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
