#include "tags/mp4/Mp4Optimizer.h"

#include "tags/mp4/Mp4Layout.h"
#include "tags/mp4/Mp4Tables.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace zolt {
namespace {

/// The plan for one file: its new index and where everything goes.
class Optimizer
{
public:
    explicit Optimizer(const Mp4Document& document)
        : source_(document.file()), atoms_(document.atoms()), index_(document.index()), layout_(planned())
    {
        relocateChunks(index_, relocation());
    }

    void writeTo(RandomAccessFile& target) const
    {
        target.write(layout_.indexTarget(), index_.serialized());
        for (const Mp4Piece& piece : layout_.pieces())
            writePiece(piece, target);
    }

private:
    Mp4Layout planned()
    {
        checkIndexTables(index_);
        for (const Mp4FileAtom& atom : atoms_)
            if (atom.type == atomType("meta")) refuseForeignPositions(loadBox(source_, atom));
        dropFreeSpace(index_);
        const Mp4Layout layout(atoms_, index_.size());
        if (layout.fileSize() <= std::numeric_limits<quint32>::max()) return layout;
        // Narrow tables may not reach the new places; wide ones make the index longer.
        widenChunkOffsets(index_);
        return Mp4Layout(atoms_, index_.size());
    }

    Relocation relocation() const
    {
        return [this](quint64 position) { return layout_.moved(position); };
    }

    void writePiece(const Mp4Piece& piece, RandomAccessFile& target) const
    {
        if (piece.atom.type == atomType("moof"))
            writeRelocated(piece, relocateFragment, target);
        else if (piece.atom.type == atomType("mfra"))
            writeRelocated(piece, relocateFragmentTable, target);
        else
            target.copyFrom(source_, piece.atom.offset, piece.atom.stored(), piece.target);
    }

    void writeRelocated(const Mp4Piece& piece, void (*relocate)(Mp4Box&, const Relocation&),
                        RandomAccessFile& target) const
    {
        Mp4Box box = loadBox(source_, piece.atom);
        relocate(box, relocation());
        if (box.size() != piece.atom.size) throw Mp4Error(u"a fragment would change its length"_s);
        target.write(piece.target, box.serialized());
    }

    const RandomAccessFile& source_;
    const std::vector<Mp4FileAtom>& atoms_;
    Mp4Box index_;
    const Mp4Layout layout_;
};

} // namespace

void writeOptimized(const Mp4Document& document, const QString& target)
{
    const Optimizer optimizer(document);
    RandomAccessFile file(target, RandomAccessFile::Mode::Create);
    optimizer.writeTo(file);
    file.takeAttributes(document.file());
    file.flush();
}

} // namespace zolt
