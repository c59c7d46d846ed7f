#include "tags/m4a/M4AFiles.h"

#include "tags/mp4/M4AItemList.h"
#include "tags/mp4/Mp4Parser.h"
#include "tags/mp4/Mp4Tables.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace zolt::test {
namespace {

const QStringList quietly{u"-v"_s, u"error"_s, u"-nostdin"_s, u"-y"_s};

qsizetype numberAt(const QByteArray& bytes, qsizetype position, int length)
{
    return static_cast<qsizetype>(bytes.mid(position, length).toHex().toULongLong(nullptr, 16));
}

} // namespace

QString M4AFiles::made(const QString& name, const QStringList& arguments)
{
    const QString path = pathOf(name);
    if (!QFile::exists(path)) printed(u"ffmpeg"_s, quietly + arguments + QStringList{path});
    return path;
}

QString M4AFiles::lossless()
{
    return made(u"lossless.m4a"_s, {u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=3,aformat=s16:cl=stereo"_s, u"-c:a"_s,
                                    u"alac"_s, u"-metadata"_s, u"title=Made elsewhere"_s});
}

QString M4AFiles::aac()
{
    return made(u"aac.m4a"_s, {u"-i"_s, lossless(), u"-c:a"_s, u"aac"_s});
}

QString M4AFiles::indexFirst()
{
    return made(u"first.m4a"_s, {u"-i"_s, lossless(), u"-c"_s, u"copy"_s, u"-movflags"_s, u"+faststart"_s});
}

QString M4AFiles::fragmented(const QString& flags)
{
    return made(QString(flags).remove(u'+') + u".m4a"_s,
                {u"-i"_s, lossless(), u"-c"_s, u"copy"_s, u"-movflags"_s, flags, u"-frag_duration"_s, u"400000"_s});
}

QString M4AFiles::fromAtomicParsley()
{
    const QString path = pathOf(u"parsley.m4a"_s);
    if (QFile::exists(path)) return path;
    printed(u"AtomicParsley"_s, {lossless(), u"--artwork"_s, picture(), u"--artist"_s, u"Anna"_s, u"--tracknum"_s,
                                 u"3/9"_s, u"-o"_s, path});
    return path;
}

QString M4AFiles::fromMutagen()
{
    const QString path = pathOf(u"mutagen.m4a"_s);
    if (QFile::exists(path)) return path;
    copyOf(aac(), u"mutagen.m4a"_s);
    printed(u"/usr/bin/python3"_s, {QStringLiteral(ZOLT_M4A_TAGS_SCRIPT), u"tag"_s, path});
    return path;
}

QString M4AFiles::wide()
{
    QByteArray file = contentOf(lossless());
    file = withIndex(file, widenChunkOffsets);
    const auto atoms = atomsIn(file, 0, file.size());
    const auto media =
        std::find_if(atoms.begin(), atoms.end(), [](const SeenAtom& seen) { return seen.name == "mdat"; });
    const QByteArray data = file.mid(media->offset, media->size);
    const auto after = [&](quint64 position) { return position + 8; };
    file = withIndex(file, [&](Mp4Box& index) { relocateChunks(index, after); });
    file.replace(media->offset, media->size, wideAtom("mdat", data.mid(8)));
    return stored(u"wide.m4a"_s, file);
}

QString M4AFiles::stored(const QString& name, const QByteArray& bytes) const
{
    writeContent(pathOf(name), bytes);
    return pathOf(name);
}

QString M4AFiles::copyOf(const QString& path, const QString& name) const
{
    return stored(name, contentOf(path));
}

QString packets(const QString& path)
{
    return printed(u"ffmpeg"_s, quietly + QStringList{u"-i"_s, path, u"-map"_s, u"0:a"_s, u"-c"_s, u"copy"_s, u"-f"_s,
                                                      u"framehash"_s, u"-"_s});
}

QVariantList seenItem(const QString& path, const char* name)
{
    const QString json = printed(u"/usr/bin/python3"_s, {QStringLiteral(ZOLT_M4A_TAGS_SCRIPT), u"show"_s, path});
    const QJsonObject tags = QJsonDocument::fromJson(json.toUtf8()).object();
    return tags[QString::fromLatin1(name)].toVariant().toList();
}

QString seenText(const QString& path, const char* name)
{
    const QVariantList values = seenItem(path, name);
    return values.isEmpty() ? u"(none)"_s : values.first().toString();
}

bool decodesCleanly(const QString& path)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(u"ffmpeg"_s,
                  quietly + QStringList{u"-xerror"_s, u"-i"_s, path, u"-map"_s, u"0:a"_s, u"-f"_s, u"null"_s, u"-"_s});
    return process.waitForFinished(60000) && process.exitCode() == 0 && process.readAll().isEmpty();
}

std::vector<SeenAtom> atomsIn(const QByteArray& bytes, qsizetype start, qsizetype end)
{
    std::vector<SeenAtom> atoms;
    while (start < end) {
        qsizetype size = numberAt(bytes, start, 4);
        if (size == 1) size = numberAt(bytes, start + 8, 8);
        if (size == 0) size = end - start;
        EXPECT_GE(size, 8);
        EXPECT_LE(size, end - start);
        if (size < 8) break;
        atoms.push_back({bytes.mid(start + 4, 4), start, size});
        start += size;
    }
    return atoms;
}

QByteArrayList atomNames(const QByteArray& file)
{
    QByteArrayList names;
    for (const SeenAtom& seen : atomsIn(file, 0, file.size()))
        names.append(seen.name);
    return names;
}

std::optional<QByteArray> payloadOf(const QByteArray& file, const QByteArrayList& path)
{
    qsizetype start = 0;
    qsizetype end = file.size();
    for (const QByteArray& name : path) {
        const auto atoms = atomsIn(file, start, end);
        const auto found =
            std::find_if(atoms.begin(), atoms.end(), [&](const SeenAtom& seen) { return seen.name == name; });
        if (found == atoms.end()) return std::nullopt;
        end = found->offset + found->size;
        start = found->offset + (name == "meta" ? 12 : 8);
    }
    return file.mid(start, end - start);
}

QByteArray bigEndian(quint64 number, int bytes)
{
    QByteArray text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        text.append(static_cast<char>(number >> shift & 0xff));
    return text;
}

QByteArray atom(const char* name, const QByteArray& payload)
{
    return bigEndian(static_cast<quint64>(payload.size()) + 8, 4) + QByteArray(name, 4) + payload;
}

QByteArray wideAtom(const char* name, const QByteArray& payload)
{
    return bigEndian(1, 4) + QByteArray(name, 4) + bigEndian(static_cast<quint64>(payload.size()) + 16, 8) + payload;
}

QByteArray value(int kind, const QByteArray& bytes)
{
    return atom("data", bigEndian(quint64(kind), 4) + bigEndian(0, 4) + bytes);
}

QByteArray item(const char* name, int kind, const QByteArray& bytes)
{
    return atom(name, value(kind, bytes));
}

QByteArray withItems(const QByteArray& file, const QByteArray& items)
{
    return withIndex(file, [&](Mp4Box& index) { itemList(index).children = parsedLeaves(items); });
}

QByteArray withIndex(const QByteArray& file, const std::function<void(Mp4Box&)>& change)
{
    QByteArray result;
    for (const SeenAtom& seen : atomsIn(file, 0, file.size())) {
        const QByteArray bytes = file.mid(seen.offset, seen.size);
        if (seen.name != "moov") {
            result += bytes;
            continue;
        }
        Mp4Box index = parsedBox(bytes);
        change(index);
        result += index.serialized();
    }
    return result;
}

} // namespace zolt::test
