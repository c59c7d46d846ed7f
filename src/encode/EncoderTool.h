// The command-line encoders that take a WAV file: how each is called, whichever task runs it.
#pragma once

#include "engine/ConsoleGrammar.h"

namespace zolt {

/// One row a tool; a value that any thread may read.
struct EncoderTool
{
    QString name;
    QString extension; ///< of what it writes
    const ConsoleGrammar& grammar;
    /// @param option  the level, or flac's "-V"; empty where there is none
    QStringList (*arguments)(const QString& option, const QString& input, const QString& output);

    static const EncoderTool& flac();
    static const EncoderTool& wavpack();
    static const EncoderTool& ttaenc();
    static const EncoderTool& mac();
};

} // namespace zolt
