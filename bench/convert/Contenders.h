// The two ways to convert a file, each as a process of its own, so that time and memory are measured alike.
#pragma once

#include <QString>
#include <QStringList>

namespace zolt::bench {

/// One conversion that both sides do.
struct Job
{
    const char* name;
    const char* source; ///< extension of the input
    const char* target; ///< extension of the output
    const char* codec;  ///< ffmpeg's options
    double aim;         ///< the ratio to reach
};

/// What some processes side by side cost.
struct Cost
{
    double wallSeconds = 0;
    double cpuSeconds = 0;  ///< of all of them
    long peakKilobytes = 0; ///< of the largest
};

/// Converts in this process; the body of our side's child.
/// @return the exit status
int convertHere(const QString& input, const QString& output);

/// This program's own command line for a conversion.
QStringList ourCommand(const QString& input, const QString& output);
/// ffmpeg's command line for it.
QStringList ffmpegCommand(const Job& job, const QString& input, const QString& output);

/// Runs the commands side by side to their end. Ends the program if one of them fails.
Cost runTogether(const QList<QStringList>& commands);

} // namespace zolt::bench
