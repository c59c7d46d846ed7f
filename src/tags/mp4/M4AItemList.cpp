#include "tags/mp4/M4AItemList.h"

#include "tags/mp4/Mp4Parser.h"

namespace zolt {
namespace {

constexpr auto pictures = atomType("covr");
constexpr auto valueOfItem = atomType("data");

/// A list of metadata for tags says so in its handler; others, such as numbered keys, are none of ours.
bool holdsTags(const Mp4Box& metadata)
{
    if (metadata.type != atomType("meta")) return false;
    const Mp4Box* handler = metadata.child(atomType("hdlr"));
    return !handler || handler->body.mid(8, 4) == "mdir";
}

Mp4Box newMetadata()
{
    const QByteArray versionAndFlags(4, '\0');
    // Version and flags, predefined, handler, maker and two words to spare, an empty name.
    const QByteArray handler = versionAndFlags + QByteArray(4, '\0') + "mdirappl" + QByteArray(9, '\0');
    return {.type = atomType("meta"),
            .head = versionAndFlags,
            .children = {{.type = atomType("hdlr"), .body = handler}, {.type = atomType("ilst")}}};
}

Mp4Box& childOrNew(Mp4Box& parent, quint32 type)
{
    if (Mp4Box* found = parent.child(type)) return *found;
    return parent.children.emplace_back(Mp4Box{.type = type});
}

/// The tags' metadata in one of the index's user data; null if there is none.
const Mp4Box* findMetadata(const Mp4Box& index)
{
    for (const Mp4Box& part : index.children) {
        if (part.type != atomType("udta")) continue;
        const auto found = std::find_if(part.children.begin(), part.children.end(), holdsTags);
        if (found != part.children.end()) return &*found;
    }
    return nullptr;
}

/// The item with the old one's further values behind its own.
Mp4Box withFurtherValues(Mp4Box item, const Mp4Box& old)
{
    std::vector<Mp4Box> parts = parsedLeaves(old.body);
    const auto isValue = [](const Mp4Box& part) { return part.type == valueOfItem; };
    const auto first = std::find_if(parts.begin(), parts.end(), isValue);
    if (first != parts.end()) parts.erase(first);
    for (const Mp4Box& part : parts)
        item.body += part.serialized();
    return item;
}

} // namespace

const Mp4Box* findItemList(const Mp4Box& index)
{
    const Mp4Box* metadata = findMetadata(index);
    return metadata ? metadata->child(atomType("ilst")) : nullptr;
}

Mp4Box& itemList(Mp4Box& index)
{
    auto* metadata = const_cast<Mp4Box*>(findMetadata(index));
    if (!metadata) metadata = &childOrNew(index, atomType("udta")).children.emplace_back(newMetadata());
    return childOrNew(*metadata, atomType("ilst"));
}

bool isWholeItem(const Mp4Box& item)
{
    try {
        parsedLeaves(item.body);
        return true;
    } catch (const Mp4Error&) {
        return false;
    }
}

void replaceItem(Mp4Box& list, Mp4Box item)
{
    const auto sameKind = [type = item.type](const Mp4Box& other) { return other.type == type; };
    const auto first = std::find_if(list.children.begin(), list.children.end(), sameKind);
    if (first == list.children.end()) {
        list.children.push_back(std::move(item));
    } else if (item.type == pictures && isWholeItem(*first)) {
        *first = withFurtherValues(std::move(item), *first);
    } else {
        *first = std::move(item);
        list.children.erase(std::remove_if(first + 1, list.children.end(), sameKind), list.children.end());
    }
}

} // namespace zolt
