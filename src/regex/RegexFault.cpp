#include "regex/RegexFault.h"

#include "platform/errors/Exceptions.h"
#include "regex/RegexErrorKeys.h"

#include <QMap>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using UserInfo = QMap<QString, QString>;

QString textOf(TextRange range)
{
    return u"{%1, %2}"_s.arg(range.location).arg(range.length);
}

QString contextText(const UChar* context)
{
    return QString::fromUtf16(context);
}

QString failureReason(const RegexFault& fault)
{
    const QString name = QString::fromLatin1(u_errorName(fault.status));
    if (!fault.position) return u"The error %1 occurred."_s.arg(name);
    return u"The error %1 occurred at line %2, column %3: "_s.arg(name)
               .arg(fault.position->line)
               .arg(fault.position->offset) +
           contextText(fault.position->preContext) + u"<<HERE>>"_s + contextText(fault.position->postContext);
}

QString description(const RegexFault& fault)
{
    return fault.kind == RegexFault::Kind::Compiling ? u"There was an error compiling the regular expression."_s
                                                     : u"The ICU library returned an unexpected error."_s;
}

void addPosition(UserInfo& info, const UParseError& position)
{
    info[RKLICURegexLineErrorKey] = QString::number(position.line);
    info[RKLICURegexOffsetErrorKey] = QString::number(position.offset);
    info[RKLICURegexPreContextErrorKey] = contextText(position.preContext);
    info[RKLICURegexPostContextErrorKey] = contextText(position.postContext);
}

void addReplacement(UserInfo& info, const RegexRequest& request, const PartialReplacement& done)
{
    info[RKLICURegexReplacementStringErrorKey] = request.replacement.text();
    info[RKLICURegexReplacedStringErrorKey] = done.text;
    info[RKLICURegexReplacedCountErrorKey] = QString::number(done.count);
}

UserInfo userInfo(const RegexFault& fault, const RegexRequest& request, const PartialReplacement& done)
{
    UserInfo info{
        {RKLICURegexRegexErrorKey, request.pattern.text()},
        {RKLICURegexRegexOptionsErrorKey, QString::number(request.options)},
        {RKLICURegexErrorCodeErrorKey, QString::number(fault.status)},
        {RKLICURegexErrorNameErrorKey, QString::fromLatin1(u_errorName(fault.status))},
        {RKLICURegexSubjectStringErrorKey, request.subject.text()},
        {RKLICURegexSubjectRangeErrorKey, textOf(request.searchedRange())},
        {regexErrorDomainKey, RKLICURegexErrorDomain},
        {regexErrorDescriptionKey, description(fault)},
        {regexErrorFailureReasonKey, failureReason(fault)},
    };
    if (request.replaces) addReplacement(info, request, done);
    if (fault.position) addPosition(info, *fault.position);
    return info;
}

} // namespace

void RegexFault::noteRange(const char* what)
{
    kind = Kind::Range;
    text = what;
}

void RegexFault::noteStatus(Kind when, UErrorCode icuStatus)
{
    if (U_SUCCESS(icuStatus)) return;
    kind = when;
    status = icuStatus;
}

void RegexFault::notePosition(const UParseError& where)
{
    if (where.line > 0) position = where;
}

QString rkl_stringFromClassAndMethod(const char* className, const char* method)
{
    return QString::fromLatin1(className) + u"::"_s + QString::fromLatin1(method);
}

void raiseFault(const RegexFault& fault, const RegexRequest& request, const PartialReplacement& done)
{
    if (fault.kind == RegexFault::Kind::Range) throw RangeException(QString::fromLatin1(fault.text));
    const QString reason = u"ICU regular expression error #%1, %2."_s.arg(fault.status)
                               .arg(QString::fromLatin1(u_errorName(fault.status)));
    throw PlatformException(RKLICURegexException, reason, userInfo(fault, request, done));
}

} // namespace zolt
