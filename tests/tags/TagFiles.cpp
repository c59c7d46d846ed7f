#include "tags/TagFiles.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace zolt::test {

namespace {

QByteArray littleEndian(quint64 value, int bytes)
{
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result += static_cast<char>(value >> (8 * i));
    return result;
}

/// A tenth of a second of a triangle wave.
QByteArray waveBytes()
{
    QByteArray sound;
    for (int i = 0; i < 4410; ++i)
        sound += littleEndian(static_cast<quint64>(1000 - 20 * std::abs(i % 200 - 100)), 2);
    const QByteArray format = littleEndian(1, 2) + littleEndian(1, 2) + littleEndian(44100, 4) +
                              littleEndian(88200, 4) + littleEndian(2, 2) + littleEndian(16, 2);
    return "RIFF" + littleEndian(36 + sound.size(), 4) + "WAVEfmt " + littleEndian(16, 4) + format + "data" +
           littleEndian(sound.size(), 4) + sound;
}

QByteArray monkeysAudioBytes()
{
    const QByteArray frame(64, '\x11');
    const QByteArray header = littleEndian(2000, 2) + littleEndian(0, 2) + littleEndian(73728, 4) +
                              littleEndian(4410, 4) + littleEndian(1, 4) + littleEndian(16, 2) + littleEndian(1, 2) +
                              littleEndian(44100, 4);
    const QByteArray descriptor = littleEndian(3990, 2) + littleEndian(0, 2) + littleEndian(52, 4) +
                                  littleEndian(header.size(), 4) + littleEndian(4, 4) + littleEndian(0, 4) +
                                  littleEndian(frame.size(), 4) + littleEndian(0, 8) + QByteArray(16, '\0');
    const int start = 4 + static_cast<int>(descriptor.size() + header.size()) + 4;
    return "MAC " + descriptor + header + littleEndian(start, 4) + frame;
}

QString script(const QStringList& arguments)
{
    // The distribution's interpreter: another one on the path would not see the packaged library.
    return printed(u"/usr/bin/python3"_s, QStringList{QStringLiteral(ZOLT_TAGS_SCRIPT)} + arguments);
}

std::vector<SeenTag> tagsFromJson(const QString& json)
{
    std::vector<SeenTag> tags;
    const QJsonArray list = QJsonDocument::fromJson(json.toUtf8()).array();
    for (const QJsonValue& value : list)
        tags.push_back(value.toObject().toVariantHash());
    return tags;
}

} // namespace

QString TagFiles::wav()
{
    const QString path = pathOf(u"sound.wav"_s);
    if (!QFile::exists(path)) writeContent(path, waveBytes());
    return path;
}

QString TagFiles::made(const QString& name, const QString& program, const QStringList& arguments)
{
    const QString path = pathOf(name);
    if (!QFile::exists(path)) printed(program, arguments);
    EXPECT_TRUE(QFile::exists(path));
    return path;
}

QString TagFiles::flac()
{
    return made(u"sound.flac"_s, u"flac"_s, {u"-s"_s, u"-o"_s, pathOf(u"sound.flac"_s), wav()});
}

QString TagFiles::mp3()
{
    return made(u"sound.mp3"_s, u"lame"_s, {u"--quiet"_s, u"-t"_s, wav(), pathOf(u"sound.mp3"_s)});
}

QString TagFiles::aiff()
{
    return made(u"sound.aiff"_s, u"sox"_s, {wav(), pathOf(u"sound.aiff"_s)});
}

QString TagFiles::wavpack()
{
    return made(u"sound.wv"_s, u"wavpack"_s, {u"-q"_s, wav(), u"-o"_s, pathOf(u"sound.wv"_s)});
}

QString TagFiles::m4a()
{
    return made(u"sound.m4a"_s, u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, wav(), pathOf(u"sound.m4a"_s)});
}

QString TagFiles::ape()
{
    const QString path = pathOf(u"sound.ape"_s);
    if (!QFile::exists(path)) writeContent(path, monkeysAudioBytes());
    return path;
}

QString TagFiles::picture(const char* format, int width)
{
    const QString path = pathOf(u"cover%1.%2"_s.arg(width).arg(QLatin1StringView(format)));
    QImage pixels(width, 40, QImage::Format_RGB32);
    pixels.fill(QColor(200, 30, 60));
    EXPECT_TRUE(pixels.save(path, format));
    return path;
}

QString printed(const QString& program, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    environment.insert(u"PYTHONIOENCODING"_s, u"utf-8"_s);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString() << " is missing or did not end";
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString() << ": " << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

std::vector<SeenTag> seenTags(const QString& path)
{
    return tagsFromJson(script({u"show"_s, path}));
}

std::vector<SeenTag> rawFrames(const QString& path)
{
    return tagsFromJson(script({u"raw"_s, path}));
}

QStringList textsOf(const std::vector<SeenTag>& tags, const QString& key)
{
    QStringList texts;
    for (const SeenTag& tag : tags)
        if (tag[u"key"_s].toString() == key) texts += tag[u"text"_s].toString();
    return texts;
}

int countOf(const std::vector<SeenTag>& tags, const QString& key)
{
    return static_cast<int>(textsOf(tags, key).size());
}

void setTagsElsewhere(const QString& path, const QStringList& pairs)
{
    script(QStringList{u"set"_s, path} + pairs);
}

void addArtElsewhere(const QString& path, const QString& picture, const QString& mime)
{
    script({u"art"_s, path, picture, mime});
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void writeContent(const QString& path, const QByteArray& bytes)
{
    QFile::remove(path); // a file that is written over goes to the disk at once, which takes milliseconds
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QStringList difficultTexts()
{
    return {u"Привет, мир"_s,        u"日本語のタイトル"_s,      u"שלום עולם"_s, u"Ελληνικά – “quoted” & 'more'"_s,
            u"🎵 emoji \U0001D11E"_s, u"naïve façade Ångström"_s, u"x=y=z"_s,     QString(40000, u'ж')};
}

bool isBlank(const TagsObject& tags)
{
    const OptionalText texts[] = {tags.titleText(),    tags.artistText(),    tags.dateText(),      tags.albumText(),
                                  tags.commentText(),  tags.discText(),      tags.trackText(),     tags.genreText(),
                                  tags.composerText(), tags.discTotalText(), tags.trackTotalText()};
    const bool allEmpty = std::all_of(std::begin(texts), std::end(texts),
                                      [](const OptionalText& text) { return text && text->isEmpty(); });
    return allEmpty && !tags.albumArt() && tags.customTagsDictionary().isEmpty();
}

} // namespace zolt::test
