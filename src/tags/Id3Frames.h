// Frames of an ID3v2 tag by their names.
#pragma once

#include "platform/text/Text.h"
#include "tags/Id3Bytes.h"

#include <taglib/id3v2tag.h>

namespace TagLib::ID3v2 {
class AttachedPictureFrame;
}

namespace zolt {

/// Bytes that the tag takes in the file that it was read from, padding included; 0 for one that was not there.
qint64 sizeInFile(const TagLib::ID3v2::Tag& tag);

/// The text of the first frame of that name; absent if there is none. The bytes of a Latin-1 frame that are well-formed
/// UTF-8 beyond ASCII are read as UTF-8.
OptionalText firstFrameText(const TagLib::ID3v2::Tag& tag, const char* name);

/// The first "APIC" frame if it is a picture; nothing (null) otherwise. The tag owns it.
TagLib::ID3v2::AttachedPictureFrame* firstPicture(const TagLib::ID3v2::Tag& tag);

/// Gives the frames that are written as Latin-1 here, and are so in the file, that encoding back: the library takes
/// every text for UTF-8 as soon as new texts are, and would code the bytes in them anew.
void keepLatin1Frames(TagLib::ID3v2::Tag& tag, const Id3Bytes& stored);

/// Adds a text frame that is Latin-1 in the file. A text outside Latin-1 goes out as its UTF-8 bytes, which
/// `firstFrameText` reads as such: the library would turn the frame into another encoding for it.
void addLatin1Frame(TagLib::ID3v2::Tag& tag, const char* name, const QString& text);

/// Removes the first frame of that name, if any, and adds a new one.
void replaceLatin1Frame(TagLib::ID3v2::Tag& tag, const char* name, const QString& text);

/// Adds a picture frame with the bytes of a PNG file and nothing else.
void addPngFrame(TagLib::ID3v2::Tag& tag, const QByteArray& png);

} // namespace zolt
