// A tools directory of fake tools, in place of the real one for as long as the object lives.
#pragma once

#include <QList>
#include <QStringList>
#include <QTemporaryDir>

namespace zolt::test {

/// While it lives, `toolsDirectory()` is a new directory that holds what was installed and nothing else.
class FakeTools
{
public:
    FakeTools();
    ~FakeTools();
    FakeTools(const FakeTools&) = delete;
    FakeTools& operator=(const FakeTools&) = delete;

    /// Takes the place of what was installed under the name; a real program that was stays as it is.
    /// @param script  what the tool does, in the words of fake_tool.cpp; "$2" stands for the tool's second argument
    void install(const QString& tool, const QStringList& script = {});
    /// As install, with a real program in the tool's place.
    void installReal(const QString& tool, const QString& program);
    /// The argument vectors that the fake tool was called with, in order.
    QList<QStringList> calls(const QString& tool) const;
    QString directory() const { return directory_.path(); }

private:
    QTemporaryDir directory_;
    QByteArray former_; // of the environment's ZOLT_TOOLS; null if it was not set
};

} // namespace zolt::test
