#include "tags/mp4/Mp4Tables.h"

#include <QtEndian>

#include <limits>

using namespace Qt::StringLiterals;

namespace zolt {
namespace {

constexpr quint32 narrowTable = atomType("stco");
constexpr quint32 wideTable = atomType("co64");
constexpr qsizetype narrowEntry = 4;
constexpr qsizetype wideEntry = 8;
constexpr qsizetype tableHeader = 8; // version and flags, count

template <typename Number> Number numberAt(const QByteArray& bytes, qsizetype position)
{
    if (position < 0 || position + qsizetype(sizeof(Number)) > bytes.size()) throw Mp4Error(u"a table is cut short"_s);
    return qFromBigEndian<Number>(bytes.constData() + position);
}

template <typename Number> void setNumberAt(QByteArray& bytes, qsizetype position, quint64 number)
{
    if (number > std::numeric_limits<Number>::max()) throw Mp4Error(u"a position does not fit into its table"_s);
    qToBigEndian(static_cast<Number>(number), bytes.data() + position);
}

template <typename Number> void relocateAt(QByteArray& bytes, qsizetype position, const Relocation& moved)
{
    setNumberAt<Number>(bytes, position, moved(numberAt<Number>(bytes, position)));
}

bool isChunkTable(const Mp4Box& box)
{
    return box.type == narrowTable || box.type == wideTable;
}

/// Entries of a chunk table. The count is a claim: followed unchecked it leads far beyond the table.
qsizetype entryCount(const Mp4Box& table, qsizetype entrySize)
{
    const auto count = static_cast<qsizetype>(numberAt<quint32>(table.body, 4));
    if (count > (table.body.size() - tableHeader) / entrySize) throw Mp4Error(u"a table is cut short"_s);
    return count;
}

template <typename Number> void relocateTable(Mp4Box& table, const Relocation& moved)
{
    const qsizetype count = entryCount(table, sizeof(Number));
    for (qsizetype entry = 0; entry < count; ++entry)
        relocateAt<Number>(table.body, tableHeader + entry * qsizetype(sizeof(Number)), moved);
}

void widen(Mp4Box& table)
{
    const qsizetype count = entryCount(table, narrowEntry);
    QByteArray body = table.body.first(tableHeader);
    body.resize(tableHeader + count * wideEntry);
    for (qsizetype entry = 0; entry < count; ++entry) {
        const auto offset = numberAt<quint32>(table.body, tableHeader + entry * narrowEntry);
        setNumberAt<quint64>(body, tableHeader + entry * wideEntry, offset);
    }
    table.type = wideTable;
    table.body = body;
}

/// Throws if a track's media lie in another file: positions there must not move with this one.
void refuseMediaElsewhere(const Mp4Box& references)
{
    const qsizetype emptyReference = 12;
    const quint32 inThisFile = 1;
    const auto count = numberAt<quint32>(references.body, 4);
    qsizetype position = tableHeader;
    for (quint32 entry = 0; entry < count; ++entry) {
        const auto size = static_cast<qsizetype>(numberAt<quint32>(references.body, position));
        const auto flags = numberAt<quint32>(references.body, position + 8);
        if (size < emptyReference) throw Mp4Error(u"a table is cut short"_s);
        if (size > emptyReference && !(flags & inThisFile)) throw Mp4Error(u"media data lie in another file"_s);
        position += size;
    }
}

/// Throws for encrypted samples: their table is one more with positions in the file.
void refuseSampleTables(const Mp4Box& tables)
{
    if (tables.child(atomType("saio"))) throw Mp4Error(u"encrypted files cannot be moved"_s);
}

void relocateTrackFragment(Mp4Box& track, const Relocation& moved)
{
    const quint32 hasBasePosition = 1;
    Mp4Box* header = track.child(atomType("tfhd"));
    if (!header || !(numberAt<quint32>(header->body, 0) & hasBasePosition)) return;
    relocateAt<quint64>(header->body, 8, moved);
}

/// Version and flags, track, sizes of the last three fields of an entry (two bits each), count, entries.
void relocateTrackPositions(Mp4Box& table, const Relocation& moved)
{
    const bool wide = numberAt<quint8>(table.body, 0) == 1;
    const auto lengths = numberAt<quint32>(table.body, 8);
    const auto count = numberAt<quint32>(table.body, 12);
    const qsizetype number = wide ? wideEntry : narrowEntry;
    const qsizetype entrySize = 2 * number + 3 + (lengths >> 4 & 3) + (lengths >> 2 & 3) + (lengths & 3);
    qsizetype position = 16;
    for (quint32 entry = 0; entry < count; ++entry, position += entrySize) {
        if (wide)
            relocateAt<quint64>(table.body, position + number, moved);
        else
            relocateAt<quint32>(table.body, position + number, moved);
    }
}

} // namespace

void refuseForeignPositions(const Mp4Box& box)
{
    forEachBox(box, [](const Mp4Box& part) {
        if (part.type == atomType("iloc")) throw Mp4Error(u"files with stored items cannot be moved"_s);
    });
}

void checkIndexTables(const Mp4Box& index)
{
    if (index.child(atomType("cmov"))) throw Mp4Error(u"the index is compressed"_s);
    refuseForeignPositions(index);
    forEachBox(index, [](const Mp4Box& box) {
        if (isChunkTable(box)) entryCount(box, box.type == wideTable ? wideEntry : narrowEntry);
        if (box.type == atomType("dref")) refuseMediaElsewhere(box);
        if (box.type == atomType("stbl")) refuseSampleTables(box);
    });
}

void widenChunkOffsets(Mp4Box& index)
{
    forEachBox(index, [](Mp4Box& box) {
        if (box.type == narrowTable) widen(box);
    });
}

void relocateChunks(Mp4Box& index, const Relocation& moved)
{
    forEachBox(index, [&](Mp4Box& box) {
        if (box.type == narrowTable) relocateTable<quint32>(box, moved);
        if (box.type == wideTable) relocateTable<quint64>(box, moved);
    });
}

void relocateFragment(Mp4Box& fragment, const Relocation& moved)
{
    for (Mp4Box& track : fragment.children)
        if (track.type == atomType("traf")) relocateTrackFragment(track, moved);
}

void relocateFragmentTable(Mp4Box& table, const Relocation& moved)
{
    for (Mp4Box& track : table.children)
        if (track.type == atomType("tfra")) relocateTrackPositions(track, moved);
}

} // namespace zolt
