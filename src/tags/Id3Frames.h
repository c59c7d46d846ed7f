// Frames of an ID3v2 tag by their names.
#pragma once

#include "platform/text/Text.h"

#include <taglib/id3v2tag.h>

namespace TagLib::ID3v2 {
class AttachedPictureFrame;
}

namespace zolt {

/// The text of the first frame of that name; absent if there is none.
OptionalText firstFrameText(const TagLib::ID3v2::Tag& tag, const char* name);

/// The first "APIC" frame if it is a picture; nothing (null) otherwise. The tag owns it.
TagLib::ID3v2::AttachedPictureFrame* firstPicture(const TagLib::ID3v2::Tag& tag);

/// Adds a text frame that is Latin-1 in the file. Characters outside Latin-1 become question marks: the library would
/// turn the whole frame into another encoding for them.
void addLatin1Frame(TagLib::ID3v2::Tag& tag, const char* name, const QString& text);

/// Removes the first frame of that name, if any, and adds a new one.
void replaceLatin1Frame(TagLib::ID3v2::Tag& tag, const char* name, const QString& text);

/// Adds a picture frame with the bytes of a PNG file and nothing else.
void addPngFrame(TagLib::ID3v2::Tag& tag, const QByteArray& png);

} // namespace zolt
