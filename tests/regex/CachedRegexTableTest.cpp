#include "RegexTesting.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

int compiledEntries(const RegexCache& cache)
{
    const auto& entries = cache.expressions.rkl_cachedRegexes();
    return static_cast<int>(
        std::count_if(entries.begin(), entries.end(), [](const CachedRegex& entry) { return entry.icu != nullptr; }));
}

bool isOf(const CachedRegex& entry, const QString& pattern)
{
    return entry.regexString.text() == RegexText(pattern);
}

int numberOf(const RegexCache& cache, const CachedRegex* entry)
{
    return static_cast<int>(entry - cache.expressions.rkl_cachedRegexes().data());
}

int asideNumber(const RegexCache& cache, RegexText pattern)
{
    return cache.expressions.rkl_regexLookasideCache()[CachedRegexTable::lookasideOf(pattern, 0)];
}

} // namespace

TEST(CachedRegexTable, FreshTableIsFreeAndEveryGroupInItsInitialState)
{
    const RegexCache cache;
    EXPECT_EQ(cache.expressions.rkl_cachedRegexes().size(), 52U);
    EXPECT_EQ(cache.expressions.rkl_regexLookasideCache().size(), 64U);
    EXPECT_EQ(cache.expressions.rkl_cachedRegexCacheSets().size(), 13U);
    EXPECT_EQ(cache.expressions.rkl_lastCachedRegex(), nullptr);
    for (const LruState set : cache.expressions.rkl_cachedRegexCacheSets())
        EXPECT_EQ(set.bits(), 0x0137);
    for (const CachedRegex& entry : cache.expressions.rkl_cachedRegexes()) {
        EXPECT_FALSE(entry.regexString.text().isPresent());
        EXPECT_EQ(entry.captureCount, -1);
        EXPECT_EQ(entry.setToRange, (TextRange{TextRange::notFound, 0}));
    }
}

TEST(CachedRegexTable, EntryKnowsItsPatternAndTheSubjectSetOnIt)
{
    RegexCache cache;
    const QString pattern = ownText(u"([0-9]+)(%)");
    const QString subject = ownText(u"at 55% now");
    match(cache, subject, pattern);
    const CachedRegex& entry = *cache.expressions.rkl_lastCachedRegex();
    EXPECT_EQ(&entry, &entryAt(cache, setOf(pattern), 3));
    EXPECT_TRUE(entry.regexString.text().isSame(pattern));
    EXPECT_EQ(entry.regexHash, hashOfUnits(pattern));
    EXPECT_EQ(entry.options, 0U);
    EXPECT_EQ(entry.captureCount, 2);
    EXPECT_TRUE(entry.setToString.text().isSame(subject));
    EXPECT_EQ(entry.setToHash, hashOfUnits(subject));
    EXPECT_EQ(entry.setToLength, subject.size());
    EXPECT_FALSE(entry.setToNeedsConversion);
    EXPECT_EQ(static_cast<const void*>(entry.setToUniChar), subject.constData());
    EXPECT_EQ(entry.setToRange, (TextRange{0, 10}));
    EXPECT_EQ(entry.lastMatchRange, (TextRange{3, 3}));
    EXPECT_EQ(entry.buffer, nullptr);
}

TEST(CachedRegexTable, EqualPatternsInDistinctObjectsShareOneEntry)
{
    RegexCache cache;
    const QString first = ownText(u"[a-f]+");
    const QString second = ownText(u"[a-f]+");
    ASSERT_NE(first.constData(), second.constData());
    match(cache, u"cafe"_s, first);
    const URegularExpression* icu = cache.expressions.rkl_lastCachedRegex()->icu.get();
    const QString literal = u"[a-f]+"_s;
    const EncodedText bytes = latin1Text("[a-f]+");
    for (const RegexText other : {RegexText(second), RegexText(literal), RegexText(bytes)}) {
        EXPECT_EQ(match(cache, u"cafe"_s, other), u"cafe"_s);
        EXPECT_EQ(cache.expressions.rkl_lastCachedRegex()->icu.get(), icu);
    }
    EXPECT_EQ(compiledEntries(cache), 1);
}

TEST(CachedRegexTable, FivePatternsOfOneSetEvictTheOneUsedLongestAgo)
{
    RegexCache cache;
    const QStringList patterns = patternsOfOneSet(5);
    const std::size_t set = setOf(patterns.first());
    for (std::size_t number = 0; number < 4; ++number) {
        match(cache, u"piece"_s, patterns.at(static_cast<qsizetype>(number)));
        EXPECT_TRUE(isOf(entryAt(cache, set, 3 - number), patterns.at(static_cast<qsizetype>(number))));
    }
    match(cache, u"piece"_s, patterns.at(4));
    EXPECT_TRUE(isOf(entryAt(cache, set, 3), patterns.at(4)));
    EXPECT_EQ(entryOf(cache, patterns.at(0)), nullptr);
    match(cache, u"piece"_s, patterns.at(0));
    EXPECT_TRUE(isOf(entryAt(cache, set, 2), patterns.at(0)));
    EXPECT_EQ(compiledEntries(cache), 4);
}

TEST(CachedRegexTable, UseKeepsAnEntryFromEviction)
{
    RegexCache cache;
    const QStringList patterns = patternsOfOneSet(5);
    for (const QString& pattern : patterns.first(4))
        match(cache, u"piece"_s, pattern);
    match(cache, u"piece"_s, patterns.at(0));
    match(cache, u"piece"_s, patterns.at(4));
    EXPECT_NE(entryOf(cache, patterns.at(0)), nullptr);
    EXPECT_EQ(entryOf(cache, patterns.at(1)), nullptr);
}

TEST(CachedRegexTable, EvictedEntryLetsGoOfItsSubject)
{
    RegexCache cache;
    const QStringList patterns = patternsOfOneSet(5);
    const QString subject = ownText(u"held while it is set");
    match(cache, subject, patterns.first());
    EXPECT_FALSE(subject.isDetached());
    for (const QString& pattern : patterns.last(4))
        match(cache, u"piece"_s, pattern);
    EXPECT_TRUE(subject.isDetached());
}

TEST(CachedRegexTable, EntryUsedLastIsTakenBeforeLookasideAndSet)
{
    RegexCache cache;
    const QString pattern = ownText(u"hit");
    match(cache, u"hit"_s, pattern);
    const CachedRegex* entry = cache.expressions.rkl_lastCachedRegex();
    const std::uint8_t nowhere = numberOf(cache, entry) == 0 ? 1 : 0;
    const_cast<std::uint8_t&>(cache.expressions.rkl_regexLookasideCache()[CachedRegexTable::lookasideOf(pattern, 0)]) =
        nowhere;
    const_cast<CachedRegex*>(entry)->regexHash ^= 1;
    EXPECT_EQ(match(cache, u"hit"_s, pattern), u"hit"_s);
    EXPECT_EQ(cache.expressions.rkl_lastCachedRegex(), entry);
    EXPECT_EQ(compiledEntries(cache), 1);
    EXPECT_EQ(asideNumber(cache, pattern), nowhere);
}

TEST(CachedRegexTable, LookasideIsChosenByAddressAndOptions)
{
    static QChar data[64];
    const QString pattern = QString::fromRawData(data, 3);
    const QString next = QString::fromRawData(data + 8, 3); // 16 bytes on
    const auto address = reinterpret_cast<std::uintptr_t>(data);
    EXPECT_EQ(CachedRegexTable::lookasideOf(pattern, 0), (address >> 4) % 64);
    EXPECT_EQ(CachedRegexTable::lookasideOf(next, 0), ((address >> 4) + 1) % 64);
    EXPECT_EQ(CachedRegexTable::lookasideOf(pattern, 0x35), ((address >> 4) + 0x35 + 3) % 64);
}

TEST(CachedRegexTable, LookasideHoldsTheEntryByThePatternsAddress)
{
    RegexCache cache;
    const QString first = ownText(u"first pattern");
    match(cache, u"text"_s, first);
    const CachedRegex* entry = cache.expressions.rkl_lastCachedRegex();
    EXPECT_EQ(asideNumber(cache, first), numberOf(cache, entry));
    match(cache, u"text"_s, ownText(u"second pattern"));
    EXPECT_NE(cache.expressions.rkl_lastCachedRegex(), entry);
    match(cache, u"text"_s, first);
    EXPECT_EQ(cache.expressions.rkl_lastCachedRegex(), entry);
}

TEST(CachedRegexTable, LookasideHitTakesTheEntryWithoutLookingAtItsSet)
{
    RegexCache cache;
    const QString pattern = ownText(u"hit");
    match(cache, u"hit"_s, pattern);
    const CachedRegex* entry = cache.expressions.rkl_lastCachedRegex();
    match(cache, u"text"_s, ownText(u"another"));
    // Only the way through the set compares hashes.
    const_cast<CachedRegex*>(entry)->regexHash ^= 1;
    EXPECT_EQ(match(cache, u"hit"_s, pattern), u"hit"_s);
    EXPECT_EQ(cache.expressions.rkl_lastCachedRegex(), entry);
    EXPECT_EQ(compiledEntries(cache), 2);
}

TEST(CachedRegexTable, PatternsThatShareALookasideAreToldApart)
{
    RegexCache cache;
    // Three patterns at one address, in the same place of the table therefore.
    char16_t data[] = u"a[0-9]";
    const QString pattern = QString::fromRawData(reinterpret_cast<QChar*>(data), 6);
    std::vector<int> numbers;
    for (const char16_t letter : {u'a', u'b', u'c', u'a', u'b', u'c'}) {
        data[0] = letter;
        EXPECT_EQ(match(cache, u"c3 b2 a1"_s, pattern)->front(), QChar(letter));
        numbers.push_back(asideNumber(cache, pattern));
        EXPECT_EQ(numbers.back(), numberOf(cache, cache.expressions.rkl_lastCachedRegex()));
    }
    EXPECT_EQ(compiledEntries(cache), 3);
    EXPECT_EQ(numbers[0], numbers[3]);
    EXPECT_NE(numbers[0], numbers[1]);
}

TEST(CachedRegexTable, OptionsGiveAPatternAnEntryOfItsOwn)
{
    RegexCache cache;
    const QString pattern = ownText(u"abc");
    const QString subject = u"xABC"_s;
    RegexRequest request = RegexRequest::stringByMatching(subject, pattern);
    EXPECT_EQ(rkl_performRegexOp(cache, request), std::nullopt);
    request.options = UREGEX_CASE_INSENSITIVE;
    EXPECT_EQ(rkl_performRegexOp(cache, request), u"ABC"_s);
    const int number = numberOf(cache, cache.expressions.rkl_lastCachedRegex());
    EXPECT_EQ(static_cast<std::size_t>(number) / 4, (hashOfUnits(pattern) ^ UREGEX_CASE_INSENSITIVE) % 13);
    EXPECT_EQ(cache.expressions.rkl_lastCachedRegex()->options, 2U);
    EXPECT_EQ(compiledEntries(cache), 2);
}

TEST(CachedRegexTable, RefusedPatternFreesTheEntryThatWasGivenUpForIt)
{
    RegexCache cache;
    const QString broken = ownText(u"(");
    const std::size_t set = setOf(broken);
    QStringList patterns;
    for (int number = 0; patterns.size() < 4; ++number) {
        const QString pattern = u"piece%1"_s.arg(number);
        if (setOf(pattern) == set) patterns << pattern;
    }
    for (const QString& pattern : patterns)
        match(cache, u"piece"_s, pattern);
    const LruState before = cache.expressions.rkl_cachedRegexCacheSets()[set];
    EXPECT_THROW(match(cache, u"text"_s, broken), PlatformException);
    EXPECT_FALSE(entryAt(cache, set, 3).regexString.text().isPresent());
    EXPECT_EQ(entryAt(cache, set, 3).icu, nullptr);
    EXPECT_EQ(entryAt(cache, set, 3).captureCount, -1);
    EXPECT_EQ(cache.expressions.rkl_cachedRegexCacheSets()[set].bits(), before.bits());
    EXPECT_EQ(compiledEntries(cache), 3);
    EXPECT_EQ(match(cache, u"piece"_s, patterns.first()), std::nullopt);
    EXPECT_EQ(compiledEntries(cache), 4);
}

TEST(CachedRegexTable, MorePatternsThanEntriesAllGiveTheirOwnMatches)
{
    RegexCache cache;
    for (int round = 0; round < 3; ++round) {
        for (int number = 0; number < 120; ++number) {
            const QString text = u"p%1;"_s.arg(number);
            EXPECT_EQ(match(cache, u"x"_s + text, text), text);
        }
    }
    EXPECT_LE(compiledEntries(cache), 52);
}

TEST(CachedRegexTable, LongEncodedPatternsAreCompiledFromScratchSpace)
{
    RegexCache cache;
    const QByteArray bytes(70000, 'a');
    EXPECT_TRUE(match(cache, latin1Text(bytes), latin1Text(bytes)));
    EXPECT_EQ(match(cache, latin1Text(bytes.chopped(1)), latin1Text(bytes)), std::nullopt);
    EXPECT_EQ(cache.rkl_scratchBuffer.blocksInUse(), 0U);
}

TEST(CachedRegexTable, SubjectChangedInPlaceIsNoticedByItsHash)
{
    RegexCache cache;
    const QString subject = ownText(u"abc 1");
    match(cache, subject, u"[0-9]"_s);
    const_cast<QChar*>(subject.constData())[4] = u'x';
    EXPECT_EQ(match(cache, subject, u"[0-9]"_s), std::nullopt);
    EXPECT_EQ(cache.expressions.rkl_lastCachedRegex()->setToHash, hashOfUnits(subject));
}
