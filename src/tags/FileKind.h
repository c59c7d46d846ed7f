// Whether a file is what its name says, asked before anything is written into it.
#pragma once

#include <QString>

namespace TagLib::MPEG {
class File;
}

namespace zolt {

/// True if the letters stand at the start of the file, ID3v2 tags ahead of them passed over. Any thread.
bool startsWithLetters(const QString& path, const char* letters);

/// True if the file holds MPEG sound and is no container of another kind. Reads as far as the first frame of sound.
bool holdsMpegSound(TagLib::MPEG::File& file, const QString& path);

/// True for a FORM of AIFF whose chunks all lie within the file. The library moves chunks about, and what it believes
/// to lie behind the end of a cut file is lost. Any thread.
bool isWholeAiff(const QString& path);

} // namespace zolt
