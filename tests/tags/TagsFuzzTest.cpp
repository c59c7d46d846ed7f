// Files that are cut, flipped, zeroed, or no audio files at all: reading them ends, in bounds, with a record.
#include "tags/TagFormats.h"

#include "platform/errors/Exceptions.h"

#include <QDir>

#include <sys/resource.h>
#include <sys/stat.h>

#include <random>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

using TagsFuzz = TagFormatTest;

/// Breaks bytes in ways that files get broken, most of them near the start or the end, where tags lie.
class Breaker
{
public:
    QByteArray broken(QByteArray bytes)
    {
        const int strokes = 1 + below(4);
        for (int i = 0; i < strokes && !bytes.isEmpty(); ++i)
            strike(bytes);
        return bytes;
    }
    int below(qsizetype limit) { return static_cast<int>(numbers_() % static_cast<quint32>(limit)); }

private:
    int place(qsizetype size)
    {
        const int near = below(std::min<qsizetype>(size, 1 << (4 + below(9))));
        return below(3) == 0 ? static_cast<int>(size) - 1 - near : near;
    }
    void strike(QByteArray& bytes)
    {
        const int at = place(bytes.size());
        switch (below(6)) {
        case 0:
            bytes.truncate(at);
            break;
        case 1:
            bytes.remove(at, 1 + below(64));
            break;
        case 2:
            std::fill_n(bytes.begin() + at, std::min<qsizetype>(1 + below(64), bytes.size() - at), '\0');
            break;
        case 3:
            std::fill_n(bytes.begin() + at, std::min<qsizetype>(1 + below(4), bytes.size() - at), '\xff');
            break;
        case 4:
            bytes[at] = static_cast<char>(below(256));
            break;
        default:
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
        }
    }

    std::mt19937 numbers_{20241121}; // fixed, so that a failure comes back
};

/// More of them on demand, for a night's run.
int rounds()
{
    const int asked = qEnvironmentVariableIntValue("ZOLT_FUZZ_ROUNDS");
    return asked > 0 ? asked : 4000;
}

[[maybe_unused]] long mostKibibytesSoFar()
{
    struct rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Formats, TagsFuzz, testing::ValuesIn(tagFormats()), nameOfFormat);

TEST_P(TagsFuzz, BrokenFilesAreReadToAnEndInBoundedMemory)
{
    const QString sample = path();
    write(fullRecord());
    const QByteArray whole = contentOf(sample);
    const QString broken = files.pathOf(u"broken"_s);
    Breaker breaker;
    for (int i = 0; i < rounds(); ++i) {
        SCOPED_TRACE(i);
        writeContent(broken, breaker.broken(whole));
        const auto tags = read(broken);
        ASSERT_TRUE(tags && tags->titleText() && tags->composerText());
    }
#ifndef ZOLT_SANITIZED // a sanitizer keeps freed memory for a while
    EXPECT_LT(mostKibibytesSoFar(), 512 * 1024);
#endif
}

TEST_P(TagsFuzz, BrokenFilesAreTaggedOrRefused)
{
    const QString sample = path();
    const TagsObject record = fullRecord();
    write(record);
    const QByteArray whole = contentOf(sample);
    const QString broken = files.pathOf(u"broken"_s);
    Breaker breaker;
    for (int i = 0; i < 300; ++i) {
        SCOPED_TRACE(i);
        writeContent(broken, breaker.broken(whole));
        try {
            GetParam().write(broken, record, breaker.below(2) == 0);
        } catch (const AssertionException& fault) {
            EXPECT_EQ(fault.reason(), u"Unable to open the output file for tagging."_s);
        }
        EXPECT_TRUE(read(broken));
    }
}

TEST_P(TagsFuzz, FileCutAtEveryByteOfItsStartAndEndIsRead)
{
    const QString sample = path();
    write(fullRecord());
    const QByteArray whole = contentOf(sample);
    const QString broken = files.pathOf(u"cut"_s);
    for (qsizetype length = 0; length < std::min<qsizetype>(whole.size(), 300); ++length) {
        writeContent(broken, whole.first(length));
        ASSERT_TRUE(read(broken));
        writeContent(broken, whole.chopped(length));
        ASSERT_TRUE(read(broken));
    }
}

TEST_P(TagsFuzz, WhatIsNoFileReadsBlankAndIsNotTagged)
{
    const QString pipe = files.pathOf(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& place : {files.pathOf(u"missing"_s), files.pathOf(u"."_s), pipe, u"/dev/zero"_s}) {
        EXPECT_TRUE(isBlank(*read(place))) << place.toStdString();
        try {
            GetParam().write(place, TagsObject(), false);
            ADD_FAILURE() << place.toStdString() << " was tagged";
        } catch (const AssertionException& fault) {
            EXPECT_EQ(fault.reason(), u"Unable to open the output file for tagging."_s);
        }
    }
}

TEST_P(TagsFuzz, FilesWithoutTagsReadBlank)
{
    const QString broken = files.pathOf(u"other"_s);
    for (const QByteArray& bytes : {QByteArray(), QByteArray("x"), QByteArray("plain text\n").repeated(100),
                                    QByteArray(70000, '\0'), QByteArray(70000, '\xff'), contentOf(files.wav())}) {
        writeContent(broken, bytes);
        EXPECT_TRUE(isBlank(*read(broken))) << bytes.left(20).toStdString();
    }
}

TEST_P(TagsFuzz, KnownBadFilesAreRead)
{
    const QDir folder(QStringLiteral(ZOLT_FIXTURES));
    if (!folder.exists()) GTEST_SKIP() << "left out: the folder " << ZOLT_FIXTURES << " is not there";
    const auto names = folder.entryList(QDir::Files);
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_TRUE(read(folder.filePath(name)));
    }
}
