// What the tests of decoding share.
#pragma once

#include "decode/DecodeFlacTask.h"
#include "decode/DecodeTab.h"
#include "engine/OutputWindowController.h"
#include "support/TabFixture.h"

#include <QProcess>

namespace zolt::test {

class DecodeTest : public TabFixture<DecodeTab>
{
protected:
    DecodeTest() : TabFixture(Constants::DECODE) {}
};

/// Runs a program to its end. @return its output, both streams
inline QByteArray run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished(60000);
    return process.readAll();
}

} // namespace zolt::test
