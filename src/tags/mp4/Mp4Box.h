// The atoms of an MP4 file's index as a tree in memory.
#pragma once

#include "tags/mp4/Mp4Error.h"

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

namespace zolt {

/// The four characters of an atom's name as the number that stands in the file.
constexpr quint32 atomType(const char* name)
{
    quint32 type = 0;
    for (int index = 0; index < 4; ++index)
        type = type << 8 | static_cast<unsigned char>(name[index]);
    return type;
}

/// One atom. Containers keep their children, all others their bytes; what the tree does not know stays as it is.
struct Mp4Box
{
    quint32 type = 0;
    QByteArray head = {};              ///< what stands before the children: version and flags of "meta"
    std::vector<Mp4Box> children = {}; ///< in the order of the file
    QByteArray body = {};              ///< the bytes of an atom without children, or what stands behind the children

    /// Bytes in the file, header included.
    quint64 size() const;

    /// As it stands in a file, with a header of eight bytes. @throws Mp4Error at 4 GiB and more
    QByteArray serialized() const;

    /// The first child of that type; null if there is none.
    Mp4Box* child(quint32 childType);
    const Mp4Box* child(quint32 childType) const;
};

/// Calls `visit` for the atom and all below it, outer ones first.
template <typename Box, typename Visitor> void forEachBox(Box& box, const Visitor& visit)
{
    visit(box);
    for (auto& child : box.children)
        forEachBox(child, visit);
}

} // namespace zolt
