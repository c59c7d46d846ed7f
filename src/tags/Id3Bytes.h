// The bytes of ID3v2 tags, found and walked as the tag library does, but with limits.
#pragma once

#include <QString>

#include <taglib/id3v2frame.h>
#include <taglib/tbytevector.h>

#include <functional>

class QFile;

namespace zolt {

/// Where the library looks for a tag outside the chunks of AIFF files.
enum class Id3Place {
    Start,      ///< at the first byte alone
    BeforeSound ///< at the first byte, or behind other bytes up to the first frame of MPEG sound
};

/// The library reads the headers of frames, but shows them to frames alone.
struct Id3FrameParts : TagLib::ID3v2::Frame
{
    using TagLib::ID3v2::Frame::Header;
};
using Id3FrameHeader = Id3FrameParts::Header;

/// One tag of a file. Made once, then only read; any thread.
struct Id3Bytes
{
    unsigned int version = 0;    ///< 2 to 4 in tags that are known; 0 if the file has none
    bool unsynchronised = false; ///< the whole tag, not single frames of it
    bool sizeIsBroken = false;   ///< the tag's size is none, and the library takes it for empty
    TagLib::ByteVector frames;   ///< from where the library looks for the first frame, padding included

    /// The tag that the library would read; version 0 if there is none.
    static Id3Bytes of(const QString& path, Id3Place place);
};

/// How long the frame at the start of `bytes` is, its header included; 0 where the library ends its walk.
unsigned int id3FrameLength(const TagLib::ByteVector& bytes, unsigned int version);

/// Shows `visit` each frame of the library's walk, as the bytes from its header on and its length.
/// @return where the walk ended: behind the last frame, at padding, or where `visit` said no
unsigned int walkId3Frames(const TagLib::ByteVector& frames, unsigned int version,
                           const std::function<bool(const TagLib::ByteVector& rest, unsigned int length)>& visit);

/// Where the bytes behind all ID3v2 tags at the start of a file begin.
qint64 endOfId3Tags(const QString& path);
/// As that, of a file that is open; it stands anywhere then.
qint64 endOfId3Tags(QFile& file);

} // namespace zolt
