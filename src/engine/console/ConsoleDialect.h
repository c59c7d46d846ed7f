// What a packaged tool prints, completed to what the console grammars read.
#pragma once

#include <QByteArray>
#include <QStringList>

#include <memory>

namespace zolt {

/// One run of one tool: pieces go through it in the order they are read, before any parser sees them. This one passes
/// every byte; a tool whose pieces lack something has a class of its own. Used by one thread at a time.
class ConsoleDialect
{
public:
    virtual ~ConsoleDialect() = default;

    /// @param piece  the bytes of one read
    /// @return what a parser gets of it; empty where all of it waits for the next piece
    virtual QByteArray complete(const QByteArray& piece) { return piece; }
    /// At the end of output: what still waited.
    virtual QByteArray rest() { return {}; }
};

/// The dialect for one run of a tool, found by the tool's name.
/// @param launchPath  full path of the tool
std::unique_ptr<ConsoleDialect> dialectFor(const QString& launchPath, const QStringList& arguments);

} // namespace zolt
