#include "RegexTesting.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

const ConversionBuffer* bufferUsed(const RegexCache& cache)
{
    return cache.expressions.rkl_lastCachedRegex()->buffer;
}

bool isOneOf(const ConversionBuffers::Buffers& buffers, const ConversionBuffer* buffer)
{
    return std::any_of(buffers.begin(), buffers.end(), [&](const ConversionBuffer& one) { return &one == buffer; });
}

EncodedText numbered(int number, int length)
{
    QByteArray bytes = "n" + QByteArray::number(number) + ";";
    return latin1Text(bytes + QByteArray(length - bytes.size(), '.'));
}

} // namespace

TEST(ConversionBuffers, SubjectOf2047UnitsIsFixedAndOf2048Dynamic)
{
    RegexCache cache;
    match(cache, latin1Text(QByteArray(2047, 'a')), u"b"_s);
    EXPECT_TRUE(isOneOf(cache.buffers.rkl_lruFixedBuffer(), bufferUsed(cache)));
    EXPECT_EQ(cache.buffers.rkl_lruDynamicBufferCacheSet().bits(), LruState::initial);
    match(cache, latin1Text(QByteArray(2048, 'a')), u"b"_s);
    EXPECT_TRUE(isOneOf(cache.buffers.rkl_lruDynamicBuffer(), bufferUsed(cache)));
    EXPECT_EQ(bufferUsed(cache), &cache.buffers.rkl_lruDynamicBuffer()[3]);
}

TEST(ConversionBuffers, UnitsCountAndNotBytes)
{
    RegexCache cache;
    const QByteArray euros = QByteArray("\xE2\x82\xAC").repeated(2047); // 6,141 bytes
    match(cache, *EncodedText::fromUtf8(euros), u"b"_s);
    EXPECT_TRUE(isOneOf(cache.buffers.rkl_lruFixedBuffer(), bufferUsed(cache)));
    EXPECT_EQ(bufferUsed(cache)->uniChar[2046], u'\u20AC');
}

TEST(ConversionBuffers, BufferKnowsItsSubject)
{
    RegexCache cache;
    const EncodedText subject = latin1Text("caf\xE9");
    match(cache, subject, u"b"_s);
    const ConversionBuffer& buffer = cache.buffers.rkl_lruFixedBuffer()[3];
    EXPECT_TRUE(buffer.string.text().isSame(subject));
    EXPECT_EQ(buffer.hash, subject.hash());
    EXPECT_EQ(buffer.length, 4);
    EXPECT_EQ(buffer.uniChar[3], u'\u00E9');
    const CachedRegex& entry = *cache.expressions.rkl_lastCachedRegex();
    EXPECT_TRUE(entry.setToNeedsConversion);
    EXPECT_EQ(entry.setToUniChar, buffer.uniChar);
}

TEST(ConversionBuffers, TextsThatGiveOutTheirUnitsNeedNone)
{
    RegexCache cache;
    match(cache, u"text"_s, u"b"_s);
    match(cache, QString(3000, u'a'), u"b"_s);
    EXPECT_EQ(bufferUsed(cache), nullptr);
    EXPECT_EQ(cache.buffers.rkl_lruFixedBufferCacheSet().bits(), LruState::initial);
    EXPECT_EQ(cache.buffers.rkl_lruDynamicBufferCacheSet().bits(), LruState::initial);
}

TEST(ConversionBuffers, OneCopyServesEveryPattern)
{
    RegexCache cache;
    const EncodedText subject = latin1Text("shared subject");
    match(cache, subject, u"a"_s);
    const ConversionBuffer* buffer = bufferUsed(cache);
    for (const QString& pattern : {u"b"_s, u"c"_s, u"d"_s, u"a"_s}) {
        match(cache, subject, pattern);
        EXPECT_EQ(bufferUsed(cache), buffer);
    }
}

TEST(ConversionBuffers, SubjectUsedLongestAgoIsGivenUp)
{
    for (const int length : {20, 3000}) {
        ConversionBuffers buffers;
        std::vector<EncodedText> subjects;
        for (int number = 0; number < 5; ++number)
            subjects.push_back(numbered(number, length));
        const auto isCopied = [&](std::size_t number) {
            return buffers.bufferFor(subjects[number], subjects[number].hash()).isNew;
        };
        for (const std::size_t number : {0U, 1U, 2U, 3U})
            EXPECT_TRUE(isCopied(number));
        for (const std::size_t number : {0U, 2U, 3U})
            EXPECT_FALSE(isCopied(number));
        EXPECT_TRUE(isCopied(4)); // gives up 1
        EXPECT_FALSE(isCopied(0));
        EXPECT_TRUE(isCopied(1)); // gives up 2
        EXPECT_FALSE(isCopied(4));
        EXPECT_TRUE(isCopied(2));
    }
}

TEST(ConversionBuffers, EntriesFindTheirSubjectAgainWhereverItLies)
{
    RegexCache cache;
    std::vector<EncodedText> subjects;
    for (int number = 0; number < 6; ++number)
        subjects.push_back(numbered(number, 30 + number));
    for (int number = 6; number < 12; ++number)
        subjects.push_back(numbered(number, 2048 + 977 * (number % 4)));
    const QStringList patterns{u"[0-9]+"_s, u"[0-9]+;"_s, u"n[0-9]+"_s};
    for (std::size_t step = 0; step < 600; ++step) {
        const std::size_t number = (step * 7 + step / 5) % subjects.size();
        const QString digits = QString::number(number);
        EXPECT_EQ(match(cache, subjects[number], patterns[0]), digits);
        EXPECT_EQ(match(cache, subjects[(number + step) % subjects.size()], patterns[1]),
                  QString::number((number + step) % subjects.size()) + u";"_s);
        EXPECT_EQ(match(cache, subjects[number], patterns[2]), u"n"_s + digits);
    }
}

TEST(ConversionBuffers, OneSubjectForTwoPatternsIsSetAgainWhenItsBufferWasReused)
{
    RegexCache cache;
    const EncodedText subject = numbered(1, 40);
    EXPECT_EQ(match(cache, subject, u"[0-9]+"_s), u"1"_s);
    for (int number = 2; number < 7; ++number)
        match(cache, numbered(number, 40), u"n[0-9]+"_s);
    EXPECT_EQ(match(cache, subject, u"[0-9]+"_s), u"1"_s);
}

TEST(ConversionBuffers, EmptySubjectsHaveABuffer)
{
    RegexCache cache;
    EXPECT_EQ(match(cache, latin1Text(""), u"^$"_s), u""_s);
    EXPECT_EQ(match(cache, *EncodedText::fromUtf8(""), u"a"_s), std::nullopt);
}
