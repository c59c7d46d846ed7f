#include "RegexTesting.h"
#include "regex/RegexErrorKeys.h"

#include <sys/mman.h>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype overIntMax = qsizetype{2147483647} + 1;

/// A text that says it is that long. Its data must not be read.
QString textOfLength(qsizetype length)
{
    static const QChar unit = u'a';
    return QString::fromRawData(&unit, length);
}

} // namespace

TEST(RegexFault, MalformedPatternRaisesWithTheLockReleased)
{
    RegexCache cache;
    const PlatformException fault = faultOf([&] { match(cache, u"text"_s, u"ab(cd"_s); });
    EXPECT_EQ(fault.name(), u"RKLICURegexException"_s);
    EXPECT_EQ(fault.reason(), u"ICU regular expression error #66310, U_REGEX_MISMATCHED_PAREN."_s);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
    EXPECT_EQ(match(cache, u"text"_s, u"t"_s), u"t"_s);
}

TEST(RegexFault, UserInfoTellsWhereThePatternIsMalformed)
{
    RegexCache cache;
    const auto info = faultOf([&] { match(cache, ownText(u"the subject"), u"ab\n(cd"_s); }).userInfo();
    EXPECT_EQ(info[u"RKLICURegexRegex"_s], u"ab\n(cd"_s);
    EXPECT_EQ(info[u"RKLICURegexRegexOptions"_s], u"0"_s);
    EXPECT_EQ(info[u"RKLICURegexErrorCode"_s], u"66310"_s);
    EXPECT_EQ(info[u"RKLICURegexErrorName"_s], u"U_REGEX_MISMATCHED_PAREN"_s);
    EXPECT_EQ(info[u"RKLICURegexSubjectString"_s], u"the subject"_s);
    EXPECT_EQ(info[u"RKLICURegexSubjectRange"_s], u"{0, 11}"_s);
    EXPECT_EQ(info[u"RKLICURegexLine"_s], u"2"_s);
    EXPECT_EQ(info[u"RKLICURegexOffset"_s], u"3"_s);
    EXPECT_EQ(info[u"RKLICURegexPreContext"_s], u"ab\n(cd"_s);
    EXPECT_EQ(info[u"RKLICURegexPostContext"_s], u""_s);
    EXPECT_EQ(info[regexErrorDomainKey], u"RKLICURegexErrorDomain"_s);
    EXPECT_EQ(info[regexErrorDescriptionKey], u"There was an error compiling the regular expression."_s);
    EXPECT_EQ(info[regexErrorFailureReasonKey],
              u"The error U_REGEX_MISMATCHED_PAREN occurred at line 2, column 3: ab\n(cd<<HERE>>"_s);
    EXPECT_FALSE(info.contains(RKLICURegexReplacementStringErrorKey));
    EXPECT_FALSE(info.contains(RKLICURegexReplacedCountErrorKey));
}

TEST(RegexFault, PatternMayHoldPercentsAndPlacesOfFormats)
{
    RegexCache cache;
    const auto info = faultOf([&] { match(cache, u"text"_s, u"%1 %2 (%3"_s); }).userInfo();
    EXPECT_EQ(info[regexErrorFailureReasonKey],
              u"The error U_REGEX_MISMATCHED_PAREN occurred at line 1, column 9: %1 %2 (%3<<HERE>>"_s);
}

TEST(RegexFault, FaultWithoutAPositionNamesTheErrorAlone)
{
    RegexCache cache;
    const PlatformException fault = faultOf([&] { match(cache, u"text"_s, u""_s); });
    EXPECT_EQ(fault.reason(), u"ICU regular expression error #1, U_ILLEGAL_ARGUMENT_ERROR."_s);
    EXPECT_EQ(fault.userInfo()[regexErrorFailureReasonKey], u"The error U_ILLEGAL_ARGUMENT_ERROR occurred."_s);
    EXPECT_FALSE(fault.userInfo().contains(RKLICURegexLineErrorKey));
}

TEST(RegexFault, FailureOfTheSearchItselfIsTold)
{
    RegexCache cache;
    const PlatformException fault = faultOf([&] { match(cache, QString(2000000, u'a'), u"(?:a|b)*c"_s); });
    EXPECT_EQ(fault.name(), u"RKLICURegexException"_s);
    EXPECT_EQ(fault.reason(), u"ICU regular expression error #66321, U_REGEX_STACK_OVERFLOW."_s);
    EXPECT_EQ(fault.userInfo()[regexErrorDescriptionKey], u"The ICU library returned an unexpected error."_s);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
    EXPECT_EQ(match(cache, u"aac"_s, u"(?:a|b)*c"_s), u"aac"_s);
}

TEST(RegexFault, FaultyReplacementTellsHowFarItCame)
{
    RegexCache cache;
    const PlatformException fault = faultOf([&] { replace(cache, u"a1b"_s, u"[0-9]"_s, u"<$9>"_s); });
    EXPECT_EQ(fault.name(), u"RKLICURegexException"_s);
    EXPECT_EQ(fault.reason(), u"ICU regular expression error #8, U_INDEX_OUTOFBOUNDS_ERROR."_s);
    EXPECT_EQ(fault.userInfo()[u"RKLICURegexReplacementString"_s], u"<$9>"_s);
    EXPECT_EQ(fault.userInfo()[u"RKLICURegexReplacedCount"_s], u"0"_s);
    EXPECT_EQ(fault.userInfo()[u"RKLICURegexReplacedString"_s], u""_s);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
}

TEST(RegexFault, SearchThatFailsHalfwayTellsWhatWasReplaced)
{
    RegexCache cache;
    const QString subject = u"1-2-"_s + QString(2000000, u'a');
    const PlatformException fault = faultOf([&] { replace(cache, subject, u"[0-9]|(?:a|b)*c"_s, u"#"_s); });
    EXPECT_EQ(fault.userInfo()[RKLICURegexErrorNameErrorKey], u"U_REGEX_STACK_OVERFLOW"_s);
    EXPECT_EQ(fault.userInfo()[RKLICURegexReplacedCountErrorKey], u"2"_s);
    EXPECT_EQ(fault.userInfo()[RKLICURegexReplacedStringErrorKey], u"#-#"_s);
}

TEST(RegexFault, MissingArgumentsAreNamedWithClassAndMethod)
{
    RegexCache cache;
    EXPECT_EQ(faultOf([&] { match(cache, u"text"_s, std::nullopt); }).reason(),
              u"QString::stringByMatching: The regular expression argument is NULL."_s);
    EXPECT_EQ(
        faultOf([&] { replace(cache, latin1Text("text"), std::nullopt, u"a"_s); }).reason(),
        u"EncodedText::stringByReplacingOccurrencesOfRegexWithString: The regular expression argument is NULL."_s);
    EXPECT_EQ(faultOf([&] { replace(cache, u"text"_s, u"a"_s, std::nullopt); }).reason(),
              u"QString::stringByReplacingOccurrencesOfRegexWithString: The replacement string argument is NULL."_s);
    EXPECT_THROW(match(cache, u"text"_s, OptionalText()), InvalidArgumentException);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
}

TEST(RegexFault, RangeOutsideTheSubjectIsARangeFault)
{
    RegexCache cache;
    const QString subject = u"abc"_s;
    const QString pattern = u"b"_s;
    RegexRequest request = RegexRequest::stringByMatching(subject, pattern);
    for (const TextRange range : {TextRange{4, 0}, TextRange{2, 2}, TextRange{-1, 1}, TextRange{0, -1},
                                  TextRange{1, std::numeric_limits<qsizetype>::max()}}) {
        request.range = range;
        EXPECT_THROW(rkl_performRegexOp(cache, request), RangeException);
        EXPECT_EQ(faultOf([&] { rkl_performRegexOp(cache, request); }).reason(), u"Range or index out of bounds."_s);
    }
    request.range = TextRange{3, 0};
    EXPECT_EQ(rkl_performRegexOp(cache, request), std::nullopt);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
}

TEST(RegexFault, TextsLongerThanIcuCanCountAreRangeFaults)
{
    RegexCache cache;
    const QString tooLong = textOfLength(overIntMax);
    EXPECT_EQ(faultOf([&] { match(cache, tooLong, u"b"_s); }).reason(), u"String length exceeds INT_MAX."_s);
    EXPECT_EQ(faultOf([&] { replace(cache, u"abc"_s, u"b"_s, tooLong); }).reason(),
              u"String length exceeds INT_MAX."_s);
    EXPECT_THROW(match(cache, tooLong, u"b"_s), RangeException);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
}

TEST(RegexFault, PatternLongerThanIcuCanCountIsARangeFault)
{
    // Four gigabytes of addresses, none of memory: pages that are only read stay the system's one empty page.
    const std::size_t bytes = overIntMax * sizeof(QChar);
    void* pages = mmap(nullptr, bytes, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    RegexCache cache;
    const QString pattern = QString::fromRawData(static_cast<const QChar*>(pages), 2147483647);
    const PlatformException fault = faultOf([&] { match(cache, u"text"_s, pattern); });
    EXPECT_EQ(fault.name(), u"RangeException"_s);
    EXPECT_EQ(fault.reason(), u"Regex string length exceeds INT_MAX"_s);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
    munmap(pages, bytes);
}

TEST(RegexFault, KeysKeepTheirLiterals)
{
    EXPECT_EQ(RKLICURegexException, u"RKLICURegexException"_s);
    EXPECT_EQ(RKLICURegexErrorDomain, u"RKLICURegexErrorDomain"_s);
    EXPECT_EQ(RKLICURegexRegexErrorKey, u"RKLICURegexRegex"_s);
    EXPECT_EQ(RKLICURegexRegexOptionsErrorKey, u"RKLICURegexRegexOptions"_s);
    EXPECT_EQ(RKLICURegexErrorCodeErrorKey, u"RKLICURegexErrorCode"_s);
    EXPECT_EQ(RKLICURegexErrorNameErrorKey, u"RKLICURegexErrorName"_s);
    EXPECT_EQ(RKLICURegexSubjectStringErrorKey, u"RKLICURegexSubjectString"_s);
    EXPECT_EQ(RKLICURegexSubjectRangeErrorKey, u"RKLICURegexSubjectRange"_s);
    EXPECT_EQ(RKLICURegexReplacementStringErrorKey, u"RKLICURegexReplacementString"_s);
    EXPECT_EQ(RKLICURegexReplacedStringErrorKey, u"RKLICURegexReplacedString"_s);
    EXPECT_EQ(RKLICURegexReplacedCountErrorKey, u"RKLICURegexReplacedCount"_s);
    EXPECT_EQ(RKLICURegexEnumerationOptionsErrorKey, u"RKLICURegexEnumerationOptions"_s);
    EXPECT_EQ(RKLICURegexLineErrorKey, u"RKLICURegexLine"_s);
    EXPECT_EQ(RKLICURegexOffsetErrorKey, u"RKLICURegexOffset"_s);
    EXPECT_EQ(RKLICURegexPreContextErrorKey, u"RKLICURegexPreContext"_s);
    EXPECT_EQ(RKLICURegexPostContextErrorKey, u"RKLICURegexPostContext"_s);
}
