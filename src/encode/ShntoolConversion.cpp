#include "encode/ShntoolConversion.h"

#include "platform/text/Text.h"
#include "shell/Constants.h"

#include <QHash>

namespace zolt::shntool {

using namespace Qt::StringLiterals;

QStringList toFormat(const QString& format, const QString& folder, const QString& source)
{
    return {u"conv"_s, u"-o"_s, format, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-d"_s, folder, source};
}

QStringList throughEncoder(const QString& specification, const QString& folder, const QString& source)
{
    return {u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-d"_s, folder, u"-o"_s, specification, source};
}

QString sourceOf(const QStringList& arguments)
{
    return pieceAt(arguments, 9);
}

QStringList readersOf(const QString& type)
{
    using C = Constants;
    static const QHash<QString, QStringList> tools{
        {C::AIF, {u"sox"_s}},     {C::AIFF, {u"sox"_s}},   {C::FLAC, {u"flac"_s}}, {C::SHN, {u"shorten"_s}},
        {C::WV, {u"wvunpack"_s}}, {C::TTA, {u"ttaenc"_s}}, {C::APE, {u"mac"_s}},
    };
    return tools.value(type);
}

} // namespace zolt::shntool
