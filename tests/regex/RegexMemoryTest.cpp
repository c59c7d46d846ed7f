// Counts the memory requests of the search itself, ICU's and Qt's among them, and lets requests fail.
#include "RegexTesting.h"
#include "support/LogCapture.h"

#include <cstdlib>
#include <new>

using namespace zolt;
using zolt::test::LogCapture;
using namespace Qt::StringLiterals;

namespace {

constinit thread_local bool isCounting = false;
constinit thread_local int requests = 0;
constinit thread_local int successes = 0; // of the next requests by operator new,
constinit thread_local int failures = 0;  // and then of failures

void countRequest()
{
    if (isCounting) ++requests;
}

/// How many memory requests the work makes on this thread.
int requestsOf(const std::function<void()>& work)
{
    requests = 0;
    isCounting = true;
    work();
    isCounting = false;
    return requests;
}

} // namespace

#ifdef ZOLT_SANITIZED
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(const volatile void*, std::size_t),
                                                         void (*onFree)(const volatile void*));
static const int hooksInstalled = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void*, std::size_t) { countRequest(); }, [](const volatile void*) {});
#else
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size)
{
    countRequest();
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    countRequest();
    return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size)
{
    countRequest();
    return __libc_realloc(block, size);
}
}
#endif

void* operator new(std::size_t size)
{
    if (failures > 0 && --successes < 0 && failures-- > 0) throw std::bad_alloc();
    void* block = std::malloc(size);
    if (!block) throw std::bad_alloc();
    return block;
}
void* operator new[](std::size_t size)
{
    return operator new(size);
}
void operator delete(void* block) noexcept
{
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}
void operator delete[](void* block) noexcept
{
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace {

/// Eighty characters, as a tool prints them; each a text of its own.
QStringList consolePieces()
{
    QStringList pieces;
    for (int number = 0; number < 50; ++number) {
        pieces << u"track %1: reading sectors, "_s.arg(number).leftJustified(80, u'.');
    }
    return pieces;
}

std::vector<EncodedText> encodedPieces()
{
    std::vector<EncodedText> pieces;
    for (const QString& piece : consolePieces())
        pieces.push_back(latin1Text(piece.toLatin1()));
    return pieces;
}

/// The requests of searching all subjects, the second time round.
template <typename Subjects> int requestsOfSearching(const Subjects& subjects, const std::vector<RegexText>& patterns)
{
    RegexCache cache;
    const auto searchAll = [&] {
        for (const auto& subject : subjects) {
            for (const RegexText pattern : patterns)
                EXPECT_EQ(match(cache, subject, pattern), std::nullopt);
        }
    };
    searchAll();
    return requestsOf(searchAll);
}

} // namespace

TEST(RegexMemory, TheCounterCounts)
{
    EXPECT_GE(requestsOf([] { operator delete(operator new(1)); }), 1);
    EXPECT_GE(requestsOf([] { QString(100, u'x').clear(); }), 1);
}

TEST(RegexMemory, HitWithoutAMatchTakesNoMemory)
{
    const QStringList pieces = consolePieces();
    const QString pattern = ownText(u"[0-9]+%");
    EXPECT_EQ(requestsOfSearching(pieces, {pattern}), 0) << "by the entry used last";
    EXPECT_EQ(requestsOfSearching(pieces, {u"[0-9]+%"_s}), 0) << "a literal, by the lookaside";
    EXPECT_EQ(requestsOfSearching(pieces, {pattern, ownText(u"%[0-9]"), latin1Text("x[0-9]")}), 0);
    EXPECT_EQ(requestsOfSearching(encodedPieces(), {pattern, ownText(u"%[0-9]")}), 0) << "by fixed buffers";
}

TEST(RegexMemory, ReplacementWithoutAMatchTakesNoMemory)
{
    RegexCache cache;
    const QStringList pieces = consolePieces();
    const auto replaceInAll = [&] {
        for (const QString& piece : pieces) {
            EXPECT_EQ(replace(cache, piece, u"[0-9]+%"_s, u"#"_s)->constData(), piece.constData());
        }
    };
    replaceInAll();
    EXPECT_EQ(requestsOf(replaceInAll), 0);
}

TEST(RegexMemory, OnlyTheResultOfAMatchTakesMemory)
{
    RegexCache cache;
    const QStringList pieces = consolePieces();
    const auto searchAll = [&] {
        for (const QString& piece : pieces)
            EXPECT_TRUE(match(cache, piece, u"track [0-9]+"_s));
    };
    searchAll();
    EXPECT_EQ(requestsOf(searchAll), pieces.size());
}

TEST(RegexMemory, LackOfMemoryUnderTheLockLeavesItFreeAndTheCacheUsable)
{
    LogCapture log;
    RegexCache cache;
    const EncodedText text = latin1Text(QByteArray(70000, 'a'));
    successes = 0;
    failures = 1;
    EXPECT_THROW(match(cache, text, text), std::bad_alloc);
    EXPECT_EQ(failures, 0);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
    EXPECT_EQ(cache.rkl_scratchBuffer.blocksInUse(), 0U);
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().contains(u"still held"_s));
    EXPECT_TRUE(match(cache, text, text));
}

TEST(RegexMemory, LackOfMemoryForTheWarningTooIsSurvived)
{
    RegexCache cache;
    const EncodedText text = latin1Text(QByteArray(70000, 'a'));
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { operator delete(operator new(1)); });
    successes = 0;
    failures = 1000;
    EXPECT_THROW(match(cache, text, text), std::bad_alloc);
    failures = 0;
    qInstallMessageHandler(previous);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
    EXPECT_TRUE(match(cache, text, text));
}

TEST(RegexMemory, LackOfMemoryForACopyFreesTheOthers)
{
    LogCapture log;
    RegexCache cache;
    const QString subject(70000, u'x');
    const EncodedText replacement = latin1Text(QByteArray(70000, 'r'));
    match(cache, subject, u"y"_s);
    successes = 1; // the replacement's copy is made, the room for the result is not
    failures = 1;
    EXPECT_THROW(replace(cache, subject, u"y"_s, replacement), std::bad_alloc);
    EXPECT_EQ(failures, 0);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
    EXPECT_EQ(cache.rkl_scratchBuffer.blocksInUse(), 0U);
    EXPECT_EQ(*replace(cache, subject, u"y"_s, replacement), subject);
}
