#include "app/batch/Console.h"

#include "platform/files/FileNames.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

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
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stream);
    std::fflush(stream);
}

void complain(const QString& text)
{
    print(stderr, u"zolt-batch: "_s + text + u'\n');
}

} // namespace zolt::batch
