#include "tags/mp4/Mp4Layout.h"

#include "tags/mp4/Mp4Document.h"

using namespace Qt::StringLiterals;

namespace zolt {

bool isFreeSpace(quint32 type)
{
    return type == atomType("free") || type == atomType("skip") || type == atomType("wide");
}

void dropFreeSpace(Mp4Box& box)
{
    std::erase_if(box.children, [](const Mp4Box& part) { return isFreeSpace(part.type); });
    for (Mp4Box& part : box.children)
        dropFreeSpace(part);
}

Mp4Layout::Mp4Layout(const std::vector<Mp4FileAtom>& atoms, quint64 indexSize)
{
    bool indexPlaced = false;
    bool inFragments = false;
    for (const Mp4FileAtom& atom : atoms) {
        const bool isIndex = atom.type == atomType("moov");
        inFragments = inFragments || startsFragments(atom.type);
        if (inFragments && !indexPlaced) throw Mp4Error(u"fragments come before the index"_s);
        if (!indexPlaced && (isIndex || atom.type == atomType("mdat"))) {
            indexTarget_ = fileSize_;
            fileSize_ += indexSize;
            indexPlaced = true;
        }
        if (isIndex || (!inFragments && isFreeSpace(atom.type))) continue;
        pieces_.push_back({atom, fileSize_});
        fileSize_ += atom.size;
    }
}

quint64 Mp4Layout::moved(quint64 position) const
{
    const auto behind =
        std::upper_bound(pieces_.begin(), pieces_.end(), position,
                         [](quint64 sought, const Mp4Piece& piece) { return sought < piece.atom.offset; });
    // The end counts as inside: an empty chunk may lie there.
    if (behind == pieces_.begin() || position > (behind - 1)->atom.end())
        throw Mp4Error(u"the index refers to a place without media data"_s);
    const Mp4Piece& piece = *(behind - 1);
    return position - piece.atom.offset + piece.target;
}

} // namespace zolt
