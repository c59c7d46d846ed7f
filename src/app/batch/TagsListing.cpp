#include "app/batch/TagsListing.h"

#include "app/batch/Console.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "tags/CoverInWords.h"
#include "tags/FileKind.h"
#include "tags/TagFields.h"
#include "tags/TagRoutes.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

QString line(const QString& name, const QString& value)
{
    constexpr int width = 13;
    return value.isEmpty() ? QString() : u"  %1 %2\n"_s.arg(name.leftJustified(width), onOneLine(value));
}

/// Where the letters at a file's start tell that it is not what its name says; the reader just finds no tags in it.
bool isOtherThanNamed(const QString& path)
{
    static const QHash<QString, const char*> letters{{u"FLAC"_s, "fLaC"}, {u"WV"_s, "wvpk"}, {u"APE"_s, "MAC "}};
    const auto found = letters.constFind(path::extension(path).toUpper());
    return found != letters.constEnd() && !startsWithLetters(path, *found);
}

QJsonObject factsOf(const Image& art)
{
    return {{u"width"_s, art.shown().pixelsWide()},
            {u"height"_s, art.shown().pixelsHigh()},
            {u"kind"_s, art.file().kind},
            {u"bytes"_s, art.file().size}};
}

} // namespace

TagsListing::TagsListing(QString path) : path_(std::move(path)), tags_(std::make_shared<TagsObject>())
{
    const TagRoute* const route = tagRouteFor(path_);
    try {
        if (route) tags_ = route->read(path_);
        if (isOtherThanNamed(path_))
            fault_ = u"%1: this is no %2 file"_s.arg(onOneLine(path_), path::extension(path_).toUpper());
    } catch (const PlatformException& fault) {
        fault_ = onOneLine(path_) + u": "_s + fault.reason();
    }
}

QString TagsListing::text() const
{
    QString lines = onOneLine(path_) + u'\n';
    for (const TagField& field : tagFields())
        lines += line(field.option, field.textOf(*tags_));
    for (const auto& [name, value] : tags_->customTagsDictionary().asKeyValueRange())
        lines += line(name, value);
    if (tags_->albumArt()) lines += line(u"cover"_s, coverInWords(*tags_->albumArt()));
    if (tags_->artIsUnreadable()) lines += line(u"cover"_s, u"a picture that cannot be read"_s);
    return lines;
}

QString TagsListing::json() const
{
    QJsonObject object{{u"file"_s, readableName(path_)}};
    for (const TagField& field : tagFields())
        object[field.option] = field.textOf(*tags_);
    QJsonObject custom;
    for (const auto& [name, value] : tags_->customTagsDictionary().asKeyValueRange())
        custom[name] = value;
    object[u"custom"_s] = custom;
    if (const auto& art = tags_->albumArt()) object[u"cover"_s] = factsOf(*art);
    if (!fault_.isEmpty()) object[u"fault"_s] = fault_;
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) + u'\n';
}

} // namespace zolt::batch
