#include "tags/KeptBytes.h"

#include "platform/files/Files.h"
#include "shell/Util.h"

#include <QFile>

#include <cstring>

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

/// Bytes that begin or end a picture in a tag of any kind.
struct Mark
{
    QByteArray bytes;
    bool ends;
};

const QList<Mark>& marks()
{
    static const QList<Mark> all{
        {"\x89PNG\r\n\x1a\n", false}, {"IEND\xae\x42\x60\x82", true}, {"\xff\xd8\xff", false}, {"\xff\xd9", true}};
    return all;
}

/// Below this a second copy costs less than looking for the first.
constexpr qsizetype smallest = 512;

/// Where a mark begins; nothing (null) behind the last. Faster than any search for words: padding is nothing but zeros.
const char* next(const Mark& mark, const char* from, const char* end)
{
    const auto length = mark.bytes.size();
    while (end - from >= length) {
        from = static_cast<const char*>(std::memchr(from, mark.bytes[0], size_t(end - from - length + 1)));
        if (!from || std::memcmp(from, mark.bytes.constData(), size_t(length)) == 0) return from;
        ++from;
    }
    return nullptr;
}

/// Where the bytes are cut, so that a picture is a piece by itself.
QList<qsizetype> cutsIn(const QByteArray& bytes)
{
    QList<qsizetype> cuts{0, bytes.size()};
    for (const Mark& mark : marks()) {
        for (const char* at = next(mark, bytes.cbegin(), bytes.cend()); at; at = next(mark, at + 1, bytes.cend()))
            cuts += at - bytes.cbegin() + (mark.ends ? mark.bytes.size() : 0);
    }
    std::sort(cuts.begin(), cuts.end());
    return cuts;
}

QString nameless(const QString& folder)
{
    makeDirectories(folder);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return Util::generateTempFileNameExtension(folder, u"tags"_s);
}

/// Opens the file and takes its name away.
struct Opened
{
    explicit Opened(QString file) : path(std::move(file)) {}
    ~Opened() { removeItem(path); }
    const QString path;
};

} // namespace

KeptBytes::KeptBytes(const QString& folder) : file_(Opened(nameless(folder)).path, RandomAccessFile::Mode::Create) {}

QList<ByteRange> KeptBytes::keep(const RandomAccessFile& file, ByteRange range)
{
    QList<ByteRange> kept;
    const QByteArray bytes = file.read(range.start, range.length);
    const QList<qsizetype> cuts = cutsIn(bytes);
    qsizetype from = 0;
    for (const qsizetype cut : cuts) {
        if (cut == from) continue;
        kept += keepPiece(bytes.mid(from, cut - from));
        from = cut;
    }
    return kept;
}

ByteRange KeptBytes::keepPiece(const QByteArray& piece)
{
    const auto length = quint64(piece.size());
    const size_t hash = qHash(piece);
    const auto [first, last] = pieces_.equal_range(hash);
    const auto same = std::find_if(first, last, [&](const ByteRange& kept) {
        return kept.length == length && file_.read(kept.start, length) == piece;
    });
    if (same != last) return *same;
    const ByteRange made{size_, length};
    file_.write(made.start, piece); // what fails here is written over by the next
    size_ += length;
    if (piece.size() >= smallest) pieces_.insert(hash, made);
    return made;
}

quint64 KeptBytes::writeTo(RandomAccessFile& file, quint64 position, const QList<ByteRange>& kept) const
{
    for (const ByteRange& piece : kept) {
        file.copyFrom(file_, piece.start, piece.length, position);
        position += piece.length;
    }
    return position;
}

} // namespace zolt
