// Where the fake tool lies; see fake_tool.cpp for what it understands.
#pragma once

#include <QString>

namespace zolt::test {

inline QString fakeTool()
{
    return QStringLiteral(ZOLT_FAKE_TOOL);
}

/// Makes an empty file, the sign that a fake tool's "wait-file" waits for.
void touch(const QString& path);

} // namespace zolt::test
