#include "tags/mp4/Mp4Document.h"

#include <QtEndian>

#include <limits>

using namespace Qt::StringLiterals;

namespace zolt {
namespace {

constexpr auto indexType = atomType("moov");

RandomAccessFile::Mode fileMode(Mp4Document::Access access)
{
    return access == Mp4Document::Access::Read ? RandomAccessFile::Mode::Read : RandomAccessFile::Mode::Update;
}

size_t positionOfIndex(const std::vector<Mp4FileAtom>& atoms)
{
    const auto isIndex = [](const Mp4FileAtom& atom) { return atom.type == indexType; };
    const auto found = std::find_if(atoms.begin(), atoms.end(), isIndex);
    if (found == atoms.end()) throw Mp4Error(u"there is no index"_s);
    if (std::find_if(found + 1, atoms.end(), isIndex) != atoms.end()) throw Mp4Error(u"there are two indexes"_s);
    return static_cast<size_t>(found - atoms.begin());
}

template <typename Number> QByteArray bigEndian(Number number)
{
    const Number swapped = qToBigEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&swapped), sizeof swapped);
}

} // namespace

bool startsFragments(quint32 type)
{
    return type == atomType("moof") || type == atomType("sidx");
}

Mp4Document::Mp4Document(const QString& path, Access access)
    : file_(path, fileMode(access)), atoms_(fileAtoms(file_)), indexPosition_(positionOfIndex(atoms_)),
      index_(loadBox(file_, indexAtom()))
{
}

bool Mp4Document::isFragmented() const
{
    return std::any_of(atoms_.begin(), atoms_.end(),
                       [](const Mp4FileAtom& atom) { return startsFragments(atom.type); });
}

void Mp4Document::storeIndexInPlace()
{
    if (isFragmented()) throw Mp4Error(u"the index of a fragmented file cannot move behind its fragments"_s);
    if (atoms_.back().trailer) throw Mp4Error(u"the index cannot move behind what is no atom"_s);
    const quint64 size = file_.size();
    try {
        file_.write(size, index_.serialized());
        file_.flush();
        closeLastAtom();
    } catch (const Mp4Error&) {
        file_.resize(size);
        throw;
    }
    // From here on the new index counts.
    file_.write(indexAtom().offset + 4, bigEndian(atomType("free")));
    file_.flush();
}

/// Gives a last atom that reaches to the end of the file, or beyond it, its size in figures, so that it ends before the
/// new index.
void Mp4Document::closeLastAtom()
{
    const Mp4FileAtom& last = atoms_.back();
    if (!last.toEnd && last.missing == 0) return;
    if (last.headerSize == 16) {
        file_.write(last.offset + 8, bigEndian(last.stored()));
    } else {
        if (last.stored() > std::numeric_limits<quint32>::max())
            throw Mp4Error(u"the last atom is too large to be closed"_s);
        file_.write(last.offset, bigEndian(static_cast<quint32>(last.stored())));
    }
}

} // namespace zolt
