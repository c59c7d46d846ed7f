// Sample M4A files for the tests, and what other programs see in them.
#pragma once

#include "tags/TagFiles.h"
#include "tags/mp4/Mp4Box.h"

namespace zolt::test {

/// A folder of samples, each made on first use by the encoder of another program; all gone with the object.
class M4AFiles
{
public:
    /// Apple Lossless with the index behind the media data.
    QString lossless();
    /// The same in AAC.
    QString aac();
    /// Apple Lossless with the index first.
    QString indexFirst();
    /// Apple Lossless in fragments; `flags` as the writing program knows them.
    QString fragmented(const QString& flags);
    /// Apple Lossless with tags and a cover from AtomicParsley, which leaves free space at several places.
    QString fromAtomicParsley();
    /// AAC with tags from one more writer, and free space in the midst of the index.
    QString fromMutagen();
    /// Apple Lossless with 64-bit sizes and chunk offsets.
    QString wide();

    QString pathOf(const QString& name) const { return files_.pathOf(name); }
    QString picture() { return files_.picture("png"); }
    /// A file with these bytes.
    QString stored(const QString& name, const QByteArray& bytes) const;
    /// A copy that may be changed.
    QString copyOf(const QString& path, const QString& name = QStringLiteral("copy.m4a")) const;

private:
    QString made(const QString& name, const QStringList& arguments);

    TagFiles files_;
};

/// Every audio packet's time, length and digest, as another program reads them.
QString packets(const QString& path);
/// The values of an item such as "trkn" as another program's library sees them; nothing if it sees none.
/// Two numbers come as a list of two, a picture as its kind (13 JPEG, 14 PNG) and size.
QVariantList seenItem(const QString& path, const char* name);
/// The same for a text item with one value; "(none)" if there is none.
QString seenText(const QString& path, const char* name);

/// True if the file decodes from its start to its end without a word of complaint.
bool decodesCleanly(const QString& path);

/// The name, place and size of an atom as the tests' own small reader finds it.
struct SeenAtom
{
    QByteArray name;
    qsizetype offset;
    qsizetype size;
};
/// The atoms that lie in `bytes` from `start` to `end` one behind the other.
std::vector<SeenAtom> atomsIn(const QByteArray& bytes, qsizetype start, qsizetype end);
/// The names of a file's uppermost atoms.
QByteArrayList atomNames(const QByteArray& file);
/// The payload of the atom at the end of the path, such as {"moov", "udta"}; nothing if there is none.
std::optional<QByteArray> payloadOf(const QByteArray& file, const QByteArrayList& path);

/// Bytes of an atom.
QByteArray atom(const char* name, const QByteArray& payload = {});
QByteArray wideAtom(const char* name, const QByteArray& payload = {});
QByteArray bigEndian(quint64 number, int bytes);

/// An item of a list of tags, with one value of the kind (1 UTF-8, 0 binary, 13 JPEG, 14 PNG).
QByteArray item(const char* name, int kind, const QByteArray& value);
QByteArray value(int kind, const QByteArray& bytes);
/// The file with these items in the place of its own.
QByteArray withItems(const QByteArray& file, const QByteArray& items);

/// The file with its index changed, and the atoms that lie behind the index moved without correcting any offset.
QByteArray withIndex(const QByteArray& file, const std::function<void(Mp4Box&)>& change);

} // namespace zolt::test
