#include "tags/TagLibTagsHelper.h"

#include "tags/TagLibFiles.h"

#include <taglib/tstring.h>

namespace zolt {

TagLib::String TagLibTagsHelper::tagLibString(const QString& text) const
{
    return TagLib::String(withoutZeros(text).toUtf8().constData(), TagLib::String::UTF8);
}

void TagLibTagsHelper::setBlankTags(TagsObject& tags) const
{
    constexpr void (TagsObject::*setters[])(OptionalText) = {
        &TagsObject::setTitleText,      &TagsObject::setArtistText,   &TagsObject::setDateText,
        &TagsObject::setAlbumText,      &TagsObject::setDiscText,     &TagsObject::setTrackText,
        &TagsObject::setCommentText,    &TagsObject::setGenreText,    &TagsObject::setComposerText,
        &TagsObject::setTrackTotalText, &TagsObject::setDiscTotalText};
    for (const auto setter : setters)
        (tags.*setter)(QString());
    tags.setAlbumArt(nullptr);
}

} // namespace zolt
