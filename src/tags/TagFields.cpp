#include "tags/TagFields.h"

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

constexpr std::size_t fieldsOfOneFile = 2;

} // namespace

const std::vector<TagField>& tagFields()
{
    using R = TagsObject;
    static const std::vector<TagField> all{
        {u"titleText"_s, u"title"_s, u"title"_s, &R::titleText, &R::setTitleText},
        {u"trackText"_s, u"track"_s, u"track"_s, &R::trackText, &R::setTrackText},
        {u"artistText"_s, u"artist"_s, u"artist"_s, &R::artistText, &R::setArtistText},
        {u"dateText"_s, u"date"_s, u"date"_s, &R::dateText, &R::setDateText},
        {u"albumText"_s, u"album"_s, u"album"_s, &R::albumText, &R::setAlbumText},
        {u"discText"_s, u"disc"_s, u"disc"_s, &R::discText, &R::setDiscText},
        {u"commentText"_s, u"comment"_s, u"comment"_s, &R::commentText, &R::setCommentText},
        {u"genreText"_s, u"genre"_s, u"genre"_s, &R::genreText, &R::setGenreText},
        {u"composerText"_s, u"composer"_s, u"composer"_s, &R::composerText, &R::setComposerText},
        {u"discTotalText"_s, u"disc total"_s, u"disc-total"_s, &R::discTotalText, &R::setDiscTotalText},
        {u"trackTotalText"_s, u"track total"_s, u"track-total"_s, &R::trackTotalText, &R::setTrackTotalText},
    };
    return all;
}

std::span<const TagField> sharedTagFields()
{
    return std::span(tagFields()).subspan(fieldsOfOneFile);
}

} // namespace zolt
