#include "app/batch/Console.h"

#include "platform/files/FileNames.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

bool lost = false;

QString escaped(QChar character)
{
    switch (character.unicode()) {
    case u'\n':
        return u"\\n"_s;
    case u'\r':
        return u"\\r"_s;
    case u'\t':
        return u"\\t"_s;
    default:
        return u"\\x%1"_s.arg(character.unicode(), 2, 16, QLatin1Char('0'));
    }
}

} // namespace

QString onOneLine(const QString& text)
{
    QString line;
    for (const QChar character : readableName(text)) {
        const QChar::Category category = character.category();
        const bool control = category == QChar::Other_Control || category == QChar::Separator_Line ||
                             category == QChar::Separator_Paragraph;
        line += control ? escaped(character) : QString(character);
    }
    return line;
}

void print(std::FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const bool whole =
        std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stream) == std::size_t(bytes.size());
    const bool written = std::fflush(stream) == 0 && whole;
    const int fault = errno;
    if (written || stream != stdout || fault == EPIPE || std::exchange(lost, true)) return;
    complain(u"the standard output could not be written: "_s + QString::fromLocal8Bit(std::strerror(fault)));
}

bool isOutputLost()
{
    return lost;
}

void complain(const QString& text)
{
    print(stderr, u"zolt-batch: "_s + text + u'\n');
}

} // namespace zolt::batch
