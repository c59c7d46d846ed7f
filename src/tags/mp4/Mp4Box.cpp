#include "tags/mp4/Mp4Box.h"

#include <QtEndian>

#include <limits>

using namespace Qt::StringLiterals;

namespace zolt {
namespace {

constexpr quint64 headerSize = 8;

void append(const Mp4Box& box, QByteArray& bytes)
{
    const quint32 header[] = {qToBigEndian(static_cast<quint32>(box.size())), qToBigEndian(box.type)};
    bytes.append(reinterpret_cast<const char*>(header), sizeof header);
    bytes.append(box.head);
    for (const Mp4Box& child : box.children)
        append(child, bytes);
    bytes.append(box.body);
}

} // namespace

quint64 Mp4Box::size() const
{
    quint64 total = headerSize + static_cast<quint64>(head.size() + body.size());
    for (const Mp4Box& part : children)
        total += part.size();
    return total;
}

QByteArray Mp4Box::serialized() const
{
    const quint64 total = size();
    if (total > std::numeric_limits<quint32>::max()) throw Mp4Error(u"the index grows too large"_s);
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(total));
    append(*this, bytes);
    return bytes;
}

Mp4Box* Mp4Box::child(quint32 childType)
{
    return const_cast<Mp4Box*>(std::as_const(*this).child(childType));
}

const Mp4Box* Mp4Box::child(quint32 childType) const
{
    const auto found =
        std::find_if(children.begin(), children.end(), [&](const Mp4Box& part) { return part.type == childType; });
    return found == children.end() ? nullptr : &*found;
}

} // namespace zolt
