#include "tags/AACTagsHelper.h"

#include "engine/NSTaskWrapperSync.h"
#include "platform/Product.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/images/ImageData.h"
#include "tags/Log.h"
#include "tags/OptimizedReplacement.h"
#include "tags/TagLibFiles.h"
#include "tags/mp4/M4AItems.h"
#include "tags/mp4/Mp4Document.h"

#include <libavcodec/version.h>

using namespace Qt::StringLiterals;

namespace zolt {
namespace {

using Getter = const OptionalText& (TagsObject::*)() const;
using Setter = void (TagsObject::*)(OptionalText);

struct TextField
{
    const char* item;
    Getter get;
    Setter set;
};

constexpr TextField textFields[] = {
    {"\251nam", &TagsObject::titleText, &TagsObject::setTitleText},
    {"\251ART", &TagsObject::artistText, &TagsObject::setArtistText},
    {"\251day", &TagsObject::dateText, &TagsObject::setDateText},
    {"\251alb", &TagsObject::albumText, &TagsObject::setAlbumText},
    {"\251cmt", &TagsObject::commentText, &TagsObject::setCommentText},
    {"\251gen", &TagsObject::genreText, &TagsObject::setGenreText},
    {"\251wrt", &TagsObject::composerText, &TagsObject::setComposerText},
};

/// Written with the artist, never read.
constexpr TextField albumArtist = {"aART", &TagsObject::artistText, nullptr};

constexpr auto toolItem = "\251too";

struct NumberField
{
    const char* item;
    Getter number;
    Getter total;
    Setter setNumber;
    Setter setTotal;
};

constexpr NumberField numberFields[] = {
    {"disk", &TagsObject::discText, &TagsObject::discTotalText, &TagsObject::setDiscText,
     &TagsObject::setDiscTotalText},
    {"trkn", &TagsObject::trackText, &TagsObject::trackTotalText, &TagsObject::setTrackText,
     &TagsObject::setTrackTotalText},
};

std::unique_ptr<Mp4Document> openDocument(const QString& path, Mp4Document::Access access, const QString& failure)
{
    try {
        return std::make_unique<Mp4Document>(path, access);
    } catch (const Mp4Error& fault) {
        qCWarning(tagsLog, "%s: %s", qUtf8Printable(path), fault.what());
        throw AssertionException(failure);
    }
}

void readPicture(const M4AItemReader& items, const QString& path, TagsObject& tags)
{
    guarded("the cover picture", [&] {
        if (const auto bytes = items.firstPicture()) readArt(*bytes, path, tags);
    });
}

/// The low 16 bits of the number at the start of the text; 0 for no text.
quint16 sixteenBits(const OptionalText& text)
{
    return static_cast<quint16>(intValue(textOrEmpty(text)));
}

/// Collects what is to be written of one record.
class FieldWriter
{
public:
    FieldWriter(const TagsObject& tags, bool writeEmptyTags) : tags_(tags), writeEmptyTags_(writeEmptyTags) {}

    void takeFields()
    {
        for (const TextField& field : textFields)
            takeText(field);
        takeText(albumArtist);
        for (const NumberField& field : numberFields)
            takeNumbers(field);
    }

    void takePicture()
    {
        if (!tags_.albumArt()) return;
        guarded("the cover picture", [&] { items_.setFirstPicture(getPNGDataForImage(tags_.albumArt())); });
    }

    /// "Zolt 1.0, Lavc59.37.100, CBR 256kbps": the last part is the encoder's settings, or nothing.
    void takeToolString()
    {
        const QString version = QString::fromLatin1(product::version);
        const QString codecLibrary = QStringLiteral(LIBAVCODEC_IDENT);
        items_.setText(toolItem, u"Zolt %1, %2, %3"_s.arg(version, codecLibrary, textOrEmpty(tags_.encoderSettings())));
    }

    void applyTo(Mp4Document& document) { items_.apply(document.index()); }

private:
    void takeText(const TextField& field)
    {
        const OptionalText& text = (tags_.*field.get)();
        if (isWritten(text, writeEmptyTags_)) items_.setText(field.item, textOrEmpty(text));
    }

    void takeNumbers(const NumberField& field)
    {
        const OptionalText& number = (tags_.*field.number)();
        if (!isWritten(number, writeEmptyTags_)) return;
        items_.setNumbers(field.item, {sixteenBits(number), sixteenBits((tags_.*field.total)())});
    }

    const TagsObject& tags_;
    const bool writeEmptyTags_;
    M4AItemWriter items_;
};

} // namespace

void AACTagsHelper::makeGapless(const QString& path) const
{
    const QStringList arguments = {path, u"--overWrite"_s, u"--gapless"_s, u"--true"_s};
    NSTaskWrapperSync tool(toolPath(u"AtomicParsley"_s), arguments);
    // The quotes are part of the value.
    tool.environment()[u"AP_PADDING"_s] = u"\"DEFAULT_PAD=0:MAX_PAD=0\""_s;
    tool.runTask();
}

void AACTagsHelper::setBlankTags(TagsObject& tags) const
{
    for (const TextField& field : textFields)
        (tags.*field.set)(QString());
    for (const NumberField& field : numberFields)
        (tags.*field.setNumber)(QString());
}

std::shared_ptr<TagsObject> AACTagsHelper::tagsForFile(const QString& path) const
{
    auto tags = std::make_shared<TagsObject>();
    setBlankTags(*tags);
    const auto document = openDocument(path, Mp4Document::Access::Read, u"Unable to open the file for reading."_s);
    const M4AItemReader items(document->index());
    for (const TextField& field : textFields)
        if (const OptionalText text = items.text(field.item)) ((*tags).*field.set)(text);
    for (const NumberField& field : numberFields) {
        const auto [number, total] = items.numbers(field.item);
        ((*tags).*field.setNumber)(QString::number(number));
        ((*tags).*field.setTotal)(QString::number(total));
    }
    readPicture(items, path, *tags);
    return tags;
}

void AACTagsHelper::writeTagsForFileTagObjectWriteEmptyTagsEncoding(const QString& path, const TagsObject& tags,
                                                                    bool writeEmptyTags, bool encoding) const
{
    const auto document =
        openDocument(path, Mp4Document::Access::Modify, u"Unable to open the output file for tagging."_s);
    FieldWriter fields(tags, writeEmptyTags);
    fields.takeFields();
    fields.takePicture();
    if (encoding) fields.takeToolString();
    fields.applyTo(*document);
    replaceWithOptimized(*document, path);
}

} // namespace zolt
