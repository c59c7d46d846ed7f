// The record in which tags travel between readers, writers, tasks and the tags tab.
#pragma once

#include "platform/images/Image.h"
#include "platform/text/Text.h"

#include <QMap>

#include <memory>

namespace zolt {

/// Tags outside the fields of the record, by key.
using CustomTags = QMap<QString, QString>;

/// One file's tags. A field that nobody set is absent; an empty text is a value.
/// No thread safety of its own: a record belongs to the thread that fills or writes it.
class TagsObject
{
public:
    const OptionalText& titleText() const { return titleText_; }
    void setTitleText(OptionalText text) { titleText_ = std::move(text); }

    const OptionalText& artistText() const { return artistText_; }
    void setArtistText(OptionalText text) { artistText_ = std::move(text); }

    /// Date or year, free text.
    const OptionalText& dateText() const { return dateText_; }
    void setDateText(OptionalText text) { dateText_ = std::move(text); }

    const OptionalText& albumText() const { return albumText_; }
    void setAlbumText(OptionalText text) { albumText_ = std::move(text); }

    const OptionalText& commentText() const { return commentText_; }
    void setCommentText(OptionalText text) { commentText_ = std::move(text); }

    /// Disc number, as text.
    const OptionalText& discText() const { return discText_; }
    void setDiscText(OptionalText text) { discText_ = std::move(text); }

    /// Number of discs, as text.
    const OptionalText& discTotalText() const { return discTotalText_; }
    void setDiscTotalText(OptionalText text) { discTotalText_ = std::move(text); }

    /// Track number, as text.
    const OptionalText& trackText() const { return trackText_; }
    void setTrackText(OptionalText text) { trackText_ = std::move(text); }

    /// Number of tracks, as text.
    const OptionalText& trackTotalText() const { return trackTotalText_; }
    void setTrackTotalText(OptionalText text) { trackTotalText_ = std::move(text); }

    const OptionalText& genreText() const { return genreText_; }
    void setGenreText(OptionalText text) { genreText_ = std::move(text); }

    const OptionalText& composerText() const { return composerText_; }
    void setComposerText(OptionalText text) { composerText_ = std::move(text); }

    /// Free text for the tool string of M4A files; other formats have no use for it.
    const OptionalText& encoderSettings() const { return encoderSettings_; }
    void setEncoderSettings(OptionalText text) { encoderSettings_ = std::move(text); }

    /// The cover picture; no object where there is none.
    const std::shared_ptr<const Image>& albumArt() const { return albumArt_; }
    void setAlbumArt(std::shared_ptr<const Image> image) { albumArt_ = std::move(image); }

    /// True if the file has a picture that cannot be decoded: it reads as none, and a write may remove it.
    bool artIsUnreadable() const { return artIsUnreadable_; }
    void setArtIsUnreadable(bool unreadable) { artIsUnreadable_ = unreadable; }

    /// Empty in a new record.
    const CustomTags& customTagsDictionary() const { return customTagsDictionary_; }
    void setCustomTagsDictionary(CustomTags tags) { customTagsDictionary_ = std::move(tags); }

private:
    OptionalText titleText_;
    OptionalText artistText_;
    OptionalText dateText_;
    OptionalText albumText_;
    OptionalText commentText_;
    OptionalText discText_;
    OptionalText discTotalText_;
    OptionalText trackText_;
    OptionalText trackTotalText_;
    OptionalText genreText_;
    OptionalText composerText_;
    OptionalText encoderSettings_;
    std::shared_ptr<const Image> albumArt_;
    bool artIsUnreadable_ = false;
    CustomTags customTagsDictionary_;
};

} // namespace zolt
