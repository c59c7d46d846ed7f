#include "ui/panels/AlertContext.h"

#include <utility>

namespace zolt {

namespace {

QString& sentenceNow()
{
    static QString sentence; // main thread only
    return sentence;
}

} // namespace

AlertContext::AlertContext(const QString& sentence) : before_(std::exchange(sentenceNow(), sentence)) {}

AlertContext::~AlertContext()
{
    sentenceNow() = before_;
}

QString AlertContext::current()
{
    return sentenceNow();
}

} // namespace zolt
