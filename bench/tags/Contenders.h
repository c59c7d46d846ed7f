// Those that write and read the title and artist of the same files, each in its own folder of copies.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace zolt::bench {

/// One way of doing the work on all files of a folder.
struct Contender
{
    QString name;
    std::function<void(const QString& folder, const QString& text)> write;
    std::function<void(const QString& folder)> read;
};

/// The library path first, then the other programs.
std::vector<Contender> contenders();

/// The files of a folder, with their whole paths.
QStringList filesIn(const QString& folder);

/// Runs a program found on the path to its end, its output thrown away. Ends the benchmark if it fails.
void run(const QStringList& command);

} // namespace zolt::bench
