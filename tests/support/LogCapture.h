// Collects what is logged while it lives, instead of printing it.
#pragma once

#include <QString>
#include <QStringList>

namespace zolt::test {

class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    QStringList lines() const;
    /// How many lines hold the text.
    qsizetype count(const QString& text) const;
};

} // namespace zolt::test
