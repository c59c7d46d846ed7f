// Programs that tests run to their end.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace zolt::test {

/// Runs a program to its end, under a locale that knows every script: tools take and print texts in its encoding.
/// @param status  gets the exit status; -1 where the program could not be run
/// @return both streams
QByteArray run(const QString& program, const QStringList& arguments, int* status = nullptr);

} // namespace zolt::test
