#include "tags/mp4/M4AItems.h"

#include "tags/TagLibFiles.h"
#include "tags/mp4/M4AItemList.h"
#include "tags/mp4/Mp4Parser.h"

#include <QStringDecoder>
#include <QtEndian>

#include <taglib/mp4file.h>
#include <taglib/tbytevectorstream.h>

namespace zolt {
namespace {

constexpr auto pictureItem = "covr";
constexpr auto genreItem = "\251gen";
constexpr auto numberedGenre = atomType("gnre");

/// An index of nothing but tags.
TagLib::ByteVector fileOf(const std::vector<Mp4Box>& items)
{
    Mp4Box index{.type = atomType("moov")};
    if (!items.empty()) itemList(index).children = items;
    const QByteArray bytes = index.serialized();
    return TagLib::ByteVector(bytes.constData(), static_cast<unsigned int>(bytes.size()));
}

/// True for the texts that every writer knows; their names begin with the copyright sign.
bool isText(const Mp4Box& item)
{
    return item.type >> 24 == 0xa9;
}

/// A value (kind, language, bytes) as UTF-8 text. Some writers use UTF-16, and some leave the kind open.
QByteArray textValue(const QByteArray& value)
{
    const auto kind = qFromBigEndian<quint32>(value.constData());
    const bool isUtf16 = kind == 2 || kind == 5;
    const QByteArray text = value.sliced(8);
    return QByteArray("\0\0\0\1\0\0\0\0", 8) +
           (isUtf16 ? QString(QStringDecoder(QStringDecoder::Utf16BE).decode(text)).toUtf8() : text);
}

/// A picture's value without its kind, which its bytes tell better.
QByteArray pictureValue(const QByteArray& value)
{
    return QByteArray(8, '\0') + value.sliced(8);
}

/// The item with values of the kinds that the library reads: it passes all others over.
Mp4Box readable(Mp4Box item)
{
    const bool isPicture = item.type == atomType(pictureItem);
    if (!isPicture && !isText(item)) return item;
    std::vector<Mp4Box> parts = parsedLeaves(item.body);
    item.body.clear();
    for (Mp4Box& part : parts) {
        if (part.type == atomType("data") && part.body.size() >= 8)
            part.body = isPicture ? pictureValue(part.body) : textValue(part.body);
        item.body += part.serialized();
    }
    return item;
}

std::vector<Mp4Box> wholeItems(const Mp4Box& index)
{
    std::vector<Mp4Box> items;
    const Mp4Box* list = findItemList(index);
    if (!list) return items;
    for (const Mp4Box& item : list->children)
        if (isWholeItem(item)) items.push_back(readable(item));
    return items;
}

TagLib::String itemName(const char* name)
{
    return TagLib::String(name, TagLib::String::Latin1);
}

/// The items as a file that the library has written holds them.
const std::vector<Mp4Box>& itemsOf(const Mp4Box& index)
{
    const Mp4Box* list = findItemList(index);
    if (!list) throw Mp4Error(QStringLiteral("the tags could not be coded"));
    return list->children;
}

/// A file of the tag library in memory.
struct LibraryFile
{
    explicit LibraryFile(const std::vector<Mp4Box>& items) : stream(fileOf(items)), file(&stream, false) {}

    TagLib::ByteVectorStream stream;
    TagLib::MP4::File file;
};

} // namespace

struct M4AItemReader::Contents : LibraryFile
{
    using LibraryFile::LibraryFile;
};

M4AItemReader::M4AItemReader(const Mp4Box& index) : contents_(std::make_unique<Contents>(wholeItems(index))) {}
M4AItemReader::~M4AItemReader() = default;

OptionalText M4AItemReader::text(const char* name) const
{
    const TagLib::StringList values = contents_->file.tag()->item(itemName(name)).toStringList();
    if (values.isEmpty()) return std::nullopt;
    // A value ends at a zero, which some writers add.
    return QString::fromUtf8(values.front().toCString(true));
}

NumberPair M4AItemReader::numbers(const char* name) const
{
    const TagLib::MP4::Item item = contents_->file.tag()->item(itemName(name));
    if (!item.isValid()) return {};
    // The library takes the upper half of the numbers for negative ones.
    const auto [number, total] = item.toIntPair();
    return {static_cast<quint16>(number), static_cast<quint16>(total)};
}

std::optional<QByteArray> M4AItemReader::firstPicture() const
{
    const TagLib::MP4::CoverArtList pictures = contents_->file.tag()->item(pictureItem).toCoverArtList();
    if (pictures.isEmpty()) return std::nullopt;
    const TagLib::ByteVector bytes = pictures.front().data();
    return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

struct M4AItemWriter::Contents : LibraryFile
{
    Contents() : LibraryFile({}) {}

    void set(const char* name, const TagLib::MP4::Item& item) { file.tag()->setItem(itemName(name), item); }
};

M4AItemWriter::M4AItemWriter() : contents_(std::make_unique<Contents>()) {}
M4AItemWriter::~M4AItemWriter() = default;

void M4AItemWriter::setText(const char* name, const QString& text)
{
    contents_->set(name, TagLib::StringList(TagLibTagsHelper().tagLibString(text)));
}

void M4AItemWriter::setNumbers(const char* name, NumberPair numbers)
{
    contents_->set(name, TagLib::MP4::Item(int(numbers.number), int(numbers.total)));
}

void M4AItemWriter::setFirstPicture(const QByteArray& bytes)
{
    const TagLib::ByteVector data(bytes.constData(), static_cast<unsigned int>(bytes.size()));
    TagLib::MP4::CoverArtList pictures;
    pictures.append(TagLib::MP4::CoverArt(TagLib::MP4::CoverArt::PNG, data));
    contents_->set(pictureItem, pictures);
}

void M4AItemWriter::apply(Mp4Box& index)
{
    if (contents_->file.tag()->isEmpty()) return;
    contents_->file.save();
    const TagLib::ByteVector& bytes = *contents_->stream.data();
    const Mp4Box coded = parsedBox(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    Mp4Box& list = itemList(index);
    for (const Mp4Box& item : itemsOf(coded)) {
        replaceItem(list, item);
        // A genre of the old kind, a number, would contradict the text.
        if (item.type == atomType(genreItem))
            std::erase_if(list.children, [](const Mp4Box& other) { return other.type == numberedGenre; });
    }
}

} // namespace zolt
