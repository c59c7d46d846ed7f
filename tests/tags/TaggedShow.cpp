#include "tags/TaggedShow.h"

#include "tags/TagFiles.h"

#include <QFileInfo>

namespace zolt::test {

using namespace Qt::StringLiterals;

namespace {

const QStringList& bareTitles()
{
    static const QStringList titles{u"Intro"_s,           u"Morning Train"_s, u"Ночь"_s,           u"Long Road"_s,
                                    u"夜の歌"_s,          u"Café Waltz"_s,    u"River"_s,          u"Stone & Bone"_s,
                                    u"Drums"_s,           u"Space"_s,         u"Half a Mile"_s,    u"Lantern"_s,
                                    u"The \"Big\" One"_s, u"Nine Lives"_s,    u"Harbour"_s,        u"Old Letter"_s,
                                    u"Ψ Wave"_s,          u"Tin Roof"_s,      u"Slow Burn"_s,      u"Crossing"_s,
                                    u"Paper Moon Sky"_s,  u"Last Call"_s,     u"Encore: Goodbye"_s};
    return titles;
}

QString tagKey(const QString& path)
{
    static const QMap<QString, QString> keys{{u"flac"_s, u"TITLE"_s},
                                             {u"mp3"_s, u"TIT2"_s},
                                             {u"m4a"_s, u"\u00a9nam"_s},
                                             {u"wv"_s, u"TITLE"_s},
                                             {u"ape"_s, u"TITLE"_s}};
    return keys.value(QFileInfo(path).suffix());
}

QString lineBehind(const QString& text, const QString& start)
{
    for (const QString& line : text.split(u'\n'))
        if (line.startsWith(start)) return line.sliced(start.size()).trimmed();
    return {};
}

} // namespace

QStringList showFiles()
{
    const QStringList formats{u"flac"_s, u"mp3"_s, u"m4a"_s, u"wv"_s, u"ape"_s};
    QStringList names;
    for (int i = 0; i < bareTitles().size(); ++i)
        names += u"d%1t%2.%3"_s.arg(i / 12 + 1).arg(i % 12 + 1, 2, 10, QChar(u'0')).arg(formats[i % 5]);
    return names;
}

QStringList showTitles()
{
    return bareTitles();
}

QByteArray showSetlist()
{
    QString text = u"The Nobodies\r\n5/8/1977\r\nBarn Hall, Somewhere\r\n1977 was a good year\r\n\r\nSet 1:\r\n"_s;
    const QStringList forms{u"%1. %2\r\n"_s, u"%1 %2\r\n"_s, u"%1.\t%2\r\n"_s, u"%1) %2\r\n"_s};
    for (int i = 0; i < bareTitles().size(); ++i) {
        if (i == 12) text += u"\r\nSet 2:\r\n\r\n"_s;
        if (i == 22) text += u"E:\r\n"_s;
        text += forms[i % forms.size()].arg(i + 1, 2, 10, QChar(u'0')).arg(bareTitles()[i]);
    }
    return (text + u"\r\n* with a friend\r\nTaped by somebody\r\n"_s).toUtf8();
}

QByteArray showCueSheet()
{
    QString text = u"REM GENRE Jam\r\nPERFORMER \"The Nobodies\"\r\nTITLE \"Barn Hall\"\r\n"_s;
    for (int i = 0; i < bareTitles().size(); ++i) {
        if (i % 12 == 0) text += u"FILE \"disc%1.wav\" WAVE\r\n"_s.arg(i / 12 + 1);
        text += u"  TRACK %1 AUDIO\r\n    TITLE \"%2\"\r\n    PERFORMER \"Other\"\r\n    INDEX 01 00:00:00\r\n"_s
                    .arg(i + 1, 2, 10, QChar(u'0'))
                    .arg(bareTitles()[i]);
    }
    return text.toUtf8();
}

QMap<QString, QString> titlesElsewhere(const QString& path)
{
    const QString format = QFileInfo(path).suffix();
    QMap<QString, QString> titles{
        {u"mutagen"_s, textsOf(seenTags(path), tagKey(path)).join(u'|')},
        {u"kid3-cli"_s, printed(u"kid3-cli"_s, {u"-c"_s, u"get title"_s, path}).trimmed()},
        {u"ffprobe"_s, printed(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format_tags=title"_s, u"-of"_s,
                                              u"default=nw=1:nk=1"_s, path})
                           .trimmed()}};
    if (format == u"flac")
        titles[u"metaflac"_s] = printed(u"metaflac"_s, {u"--show-tag=TITLE"_s, path}).trimmed().mid(6);
    if (format == u"mp3") titles[u"eyeD3"_s] = lineBehind(printed(u"eyeD3"_s, {u"--no-color"_s, path}), u"title: "_s);
    return titles;
}

QString soundDigest(const QString& path)
{
    // The program counts what lies behind the last frame of Monkey's Audio to that frame: there the decoded sound
    // counts.
    const bool isDecoded = QFileInfo(path).suffix() == u"ape";
    const QStringList codec = isDecoded ? QStringList() : QStringList{u"-c"_s, u"copy"_s};
    return printed(u"ffmpeg"_s, QStringList{u"-v"_s, u"error"_s, u"-i"_s, path, u"-map"_s, u"0:a"_s} + codec +
                                    QStringList{u"-f"_s, u"md5"_s, u"-"_s});
}

} // namespace zolt::test
