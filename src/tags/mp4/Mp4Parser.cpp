#include "tags/mp4/Mp4Parser.h"

#include "tags/mp4/RandomAccessFile.h"

#include <QtEndian>

#include <limits>

using namespace Qt::StringLiterals;

namespace zolt {
namespace {

constexpr quint64 smallHeader = 8;
constexpr quint64 largeHeader = 16;
constexpr quint32 sizeToEnd = 0;
constexpr quint32 sizeFollows = 1;

// A day in fragments of a second has 172,800 atoms.
constexpr size_t mostFileAtoms = 1'000'000;
constexpr quint64 largestTrailer = 1 << 20;
// The largest picture that images take has 256 MiB; tables of a day of audio have 20.
constexpr quint64 largestBox = 512 << 20;
constexpr int mostBoxes = 200'000;
constexpr int deepest = 16;

constexpr quint32 containers[] = {atomType("moov"), atomType("trak"), atomType("mdia"), atomType("minf"),
                                  atomType("stbl"), atomType("dinf"), atomType("udta"), atomType("meta"),
                                  atomType("ilst"), atomType("moof"), atomType("traf"), atomType("mfra")};

[[noreturn]] void broken(const char* reason)
{
    throw Mp4Error(QString::fromLatin1(reason));
}

/// Length of what stands before the children. Some writers leave out the version and flags of "meta":
/// then its handler follows at once.
qsizetype headLength(quint32 type, QByteArrayView payload)
{
    if (type != atomType("meta") || payload.isEmpty()) return 0;
    if (payload.size() >= 8 && qFromBigEndian<quint32>(payload.data() + 4) == atomType("hdlr")) return 0;
    return 4;
}

bool isContainer(quint32 type)
{
    return std::find(std::begin(containers), std::end(containers), type) != std::end(containers);
}

/// Old writers end a list of user data with a zero.
bool isClosing(QByteArrayView bytes)
{
    return bytes.size() < qsizetype(smallHeader) &&
           std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == 0; });
}

/// One walk over one atom's bytes, which counts what it meets.
class Parser
{
public:
    Mp4Box box(quint32 type, QByteArrayView payload, bool opened, int depth)
    {
        if (++count_ > mostBoxes) broken("too many atoms");
        if (!opened || !isContainer(type)) return {.type = type, .body = payload.toByteArray()};
        if (depth > deepest) broken("atoms nested too deeply");
        const qsizetype head = headLength(type, payload);
        if (head > payload.size()) broken("an atom is too short");
        Mp4Box container{.type = type, .head = payload.first(head).toByteArray()};
        // Items are told apart by their own readers, and may have any name.
        readChildren(container, payload.sliced(head), type != atomType("ilst"), depth + 1);
        return container;
    }

    void readChildren(Mp4Box& container, QByteArrayView bytes, bool opened, int depth)
    {
        while (!isClosing(bytes)) {
            const std::optional<Mp4FileAtom> atom = atomHeader(bytes, static_cast<quint64>(bytes.size()));
            if (!atom || atom->toEnd) broken("an atom does not fit into the one around it");
            const auto length = static_cast<qsizetype>(atom->size);
            const QByteArrayView payload = bytes.first(length).sliced(static_cast<qsizetype>(atom->headerSize));
            container.children.push_back(box(atom->type, payload, opened, depth));
            bytes = bytes.sliced(length);
        }
        container.body = bytes.toByteArray();
    }

private:
    int count_ = 0;
};

/// The atom of media data that the end of the file cuts.
std::optional<Mp4FileAtom> cutMediaData(QByteArrayView header, quint64 available)
{
    constexpr quint64 anyLength = std::numeric_limits<qint64>::max();
    auto atom = atomHeader(header, anyLength);
    if (!atom || atom->type != atomType("mdat") || available < atom->headerSize) return std::nullopt;
    atom->missing = atom->size - available;
    return atom;
}

/// True if the bytes at the end may be something that was put behind the atoms.
bool mayBeTrailer(const std::vector<Mp4FileAtom>& atoms, quint64 length)
{
    const auto isIndex = [](const Mp4FileAtom& atom) { return atom.type == atomType("moov"); };
    return length <= largestTrailer && std::any_of(atoms.begin(), atoms.end(), isIndex);
}

} // namespace

std::optional<Mp4FileAtom> atomHeader(QByteArrayView bytes, quint64 available)
{
    if (bytes.size() < qsizetype(smallHeader)) return std::nullopt;
    const auto size = qFromBigEndian<quint32>(bytes.data());
    Mp4FileAtom atom{.type = qFromBigEndian<quint32>(bytes.data() + 4), .headerSize = smallHeader, .size = size};
    if (size == sizeToEnd) {
        atom.size = available;
        atom.toEnd = true;
    } else if (size == sizeFollows) {
        if (bytes.size() < qsizetype(largeHeader)) return std::nullopt;
        atom.headerSize = largeHeader;
        atom.size = qFromBigEndian<quint64>(bytes.data() + 8);
    }
    if (atom.size < atom.headerSize || atom.size > available) return std::nullopt;
    return atom;
}

std::vector<Mp4FileAtom> fileAtoms(const RandomAccessFile& file)
{
    std::vector<Mp4FileAtom> atoms;
    const quint64 size = file.size();
    for (quint64 offset = 0; offset < size; offset = atoms.back().end()) {
        const quint64 available = size - offset;
        const QByteArray header = file.read(offset, std::min(available, largeHeader));
        auto atom = atomHeader(header, available);
        if (!atom) atom = cutMediaData(header, available);
        if (!atom && mayBeTrailer(atoms, available)) atom = Mp4FileAtom{.size = available, .trailer = true};
        if (!atom) broken("an atom reaches beyond the end of the file");
        if (atoms.size() >= mostFileAtoms) broken("too many atoms");
        atom->offset = offset;
        atoms.push_back(*atom);
    }
    return atoms;
}

Mp4Box loadBox(const RandomAccessFile& file, const Mp4FileAtom& atom)
{
    if (atom.size > largestBox) broken("an atom is too large");
    const QByteArray payload = file.read(atom.offset + atom.headerSize, atom.size - atom.headerSize);
    return Parser().box(atom.type, payload, true, 0);
}

Mp4Box parsedBox(QByteArrayView bytes)
{
    const auto atom = atomHeader(bytes, static_cast<quint64>(bytes.size()));
    if (!atom) broken("an atom is cut short");
    const QByteArrayView whole = bytes.first(static_cast<qsizetype>(atom->size));
    return Parser().box(atom->type, whole.sliced(static_cast<qsizetype>(atom->headerSize)), true, 0);
}

std::vector<Mp4Box> parsedLeaves(QByteArrayView bytes)
{
    Mp4Box list;
    Parser().readChildren(list, bytes, false, 0);
    return std::move(list.children);
}

} // namespace zolt
