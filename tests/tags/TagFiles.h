// Sample files for the tests of tags, and other programs that look at them.
#pragma once

#include "tags/TagsObject.h"

#include <QHash>
#include <QTemporaryDir>
#include <QVariant>

#include <memory>
#include <vector>

namespace zolt::test {

/// One tag as another program sees it: its "key", its "text", and what else is known ("encoding", "mime", "size", ...).
using SeenTag = QHash<QString, QVariant>;

/// A folder with one short sample of each format, made on first use; all gone with the object.
class TagFiles
{
public:
    QString wav();
    QString flac();
    QString mp3();
    QString aiff();
    QString wavpack();
    QString m4a();
    /// A header, no sound: no encoder for this format is packaged.
    QString ape();
    /// A picture file: "png" or "jpeg", `width` by 40 pixels.
    QString picture(const char* format, int width = 60);

    QString pathOf(const QString& name) const { return folder_.filePath(name); }

private:
    QString made(const QString& name, const QString& program, const QStringList& arguments);

    QTemporaryDir folder_;
};

/// Runs a program to its end with UTF-8 texts and returns what it printed; fails the test if it did not succeed.
QString printed(const QString& program, const QStringList& arguments);

/// The tags as a library of its own sees them.
std::vector<SeenTag> seenTags(const QString& path);
/// The ID3v2 frames of an MP3 or AIFF file in their order, with the encoding of each.
std::vector<SeenTag> rawFrames(const QString& path);
/// The texts of all tags with that key.
QStringList textsOf(const std::vector<SeenTag>& tags, const QString& key);
/// How many tags have that key.
int countOf(const std::vector<SeenTag>& tags, const QString& key);

/// Sets tags with a library of its own, each "KEY=text".
void setTagsElsewhere(const QString& path, const QStringList& pairs);
/// Adds a cover with a library of its own.
void addArtElsewhere(const QString& path, const QString& picture, const QString& mime);

QByteArray contentOf(const QString& path);
void writeContent(const QString& path, const QByteArray& bytes);

/// Texts of several scripts and lengths, none with white space at its ends.
QStringList difficultTexts();

/// True if every text is empty, not absent, and there is neither picture nor custom tag.
bool isBlank(const TagsObject& tags);

} // namespace zolt::test
