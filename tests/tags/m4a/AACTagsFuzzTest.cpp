// Broken M4A files: whatever stands in them ends in a record, a written file or one of the told faults.
#include "tags/AACTagsHelper.h"

#include "platform/errors/Exceptions.h"
#include "tags/m4a/M4AFiles.h"
#include "tags/mp4/Mp4Document.h"
#include "tags/mp4/Mp4Tables.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include <random>
#include <set>
#include <sys/resource.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

#ifndef ZOLT_SANITIZED // sanitizers need the whole address space for themselves
/// As long as it lives the program gets no more memory than this beyond what it has.
class MemoryLimit
{
public:
    explicit MemoryLimit(rlim_t more)
    {
        getrlimit(RLIMIT_AS, &old_);
        QFile status(u"/proc/self/statm"_s);
        if (!status.open(QIODevice::ReadOnly)) return;
        const rlim_t pages = status.readAll().split(' ').first().toULongLong();
        const rlimit limited{pages * 4096 + more, old_.rlim_max};
        setrlimit(RLIMIT_AS, &limited);
    }
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &old_); }

private:
    rlimit old_ = {};
};
#endif

class Mutator
{
public:
    /// The same file for the same seed, broken in one to four places, mostly within the index.
    QByteArray broken(QByteArray file)
    {
        const int faults = below(4) + 1;
        for (int fault = 0; fault < faults && !file.isEmpty(); ++fault)
            breakOnce(file);
        return file;
    }

private:
    int below(qsizetype limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    /// Where an atom's size stands, more or less: in front of four letters of its name.
    qsizetype somewhere(const QByteArray& file)
    {
        static const QByteArrayList names = {"moov", "trak", "stbl", "stco", "stsz", "udta", "meta",
                                             "ilst", "data", "covr", "mdat", "hdlr", "moof", "tfhd"};
        const qsizetype found = file.indexOf(names[below(names.size())]);
        if (found < 8 || below(3) == 0) return below(file.size());
        return std::min(found - 8 + 4 * below(5), file.size() - 1);
    }

    void breakOnce(QByteArray& file)
    {
        static const QList<quint32> sizes = {0, 1, 4, 7, 8, 9, 15, 16, 0x7fffffff, 0x80000000, 0xfffffff0, 0xffffffff};
        const qsizetype position = somewhere(file);
        const int kind = below(20);
        if (kind == 0)
            file.truncate(position);
        else if (kind == 1)
            file.remove(position, below(64) + 1);
        else if (kind == 2)
            file.insert(position, file.mid(below(file.size()), below(200)));
        else if (kind == 3)
            file.replace(position, 8, bigEndian(1, 4) + file.mid(position + 4, 4));
        else if (kind < 7)
            file.replace(position, 4, bigEndian(sizes[below(sizes.size())], 4));
        else if (kind < 9)
            file.replace(position, 20, file.mid(somewhere(file), 20));
        else
            file[position] = static_cast<char>(below(256));
    }

    std::mt19937 random_{20250607};
};

/// The bytes at which the index says that chunks start, as far as they are among the first `size` of the file;
/// nothing for a file that does not open.
std::optional<QByteArray> chunkStarts(const QString& path, qsizetype size)
try {
    const QByteArray bytes = contentOf(path);
    Mp4Document document(path, Mp4Document::Access::Read);
    QByteArray starts;
    relocateChunks(document.index(), [&](quint64 position) {
        if (position < static_cast<quint64>(size)) starts.append(bytes[static_cast<qsizetype>(position)]);
        return position;
    });
    return starts;
} catch (const Mp4Error&) {
    return std::nullopt;
}

class AACTagsFuzz : public testing::Test
{
protected:
    /// What came of it: "read", "written" or the reason of the fault.
    QString outcomeOf(const QString& path, const std::function<void()>& work, const QString& success)
    {
        try {
            work();
            return success;
        } catch (const PlatformException& fault) {
            EXPECT_TRUE(QFileInfo::exists(path)) << "the file is gone";
            return fault.reason();
        }
    }

    void tryOut(const QByteArray& bytes)
    {
        const QString path = files_.stored(u"broken.m4a"_s, bytes);
        const QString read = outcomeOf(
            path, [&] { AACTagsHelper().tagsForFile(path); }, u"read"_s);
        const auto before = chunkStarts(path, bytes.size());
        const QString written = outcomeOf(
            path, [&] { writeTo(path); }, u"written"_s);
        const bool refused = written == u"Unable to open the output file for tagging."_s;
        EXPECT_EQ(refused, read != u"read"_s);
        EXPECT_TRUE(!refused || contentOf(path) == bytes) << "a refused file was touched";
        // What was written anew may be shorter; what was tagged as it lay has grown at its end.
        const qsizetype size = written == u"written"_s ? contentOf(path).size() : bytes.size();
        EXPECT_TRUE(refused || chunkStarts(path, size) == before) << "the index points elsewhere";
        outcomes_.insert(read);
        outcomes_.insert(written);
    }

    void writeTo(const QString& path)
    {
        TagsObject tags;
        tags.setTitleText(u"New title"_s);
        tags.setAlbumArt(art_);
        AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, true, true);
    }

    void tryOutManyOf(const QByteArray& file, int count)
    {
        for (int round = 0; round < count && !HasFatalFailure(); ++round)
            tryOut(mutator_.broken(file));
    }

    M4AFiles files_;
    const std::shared_ptr<const Image> art_ = Image::fromData(contentOf(files_.picture()));
    Mutator mutator_;
    std::set<QString> outcomes_;
};

} // namespace

TEST_F(AACTagsFuzz, BrokenFilesEndInToldFaults)
{
    const QByteArray plain = contentOf(files_.fromAtomicParsley());
    const QByteArray wide = contentOf(files_.wide());
    const QByteArray fragmented = contentOf(files_.fragmented(u"frag_keyframe+empty_moov"_s));
#ifndef ZOLT_SANITIZED
    const MemoryLimit limit(64 << 20);
#endif
    tryOutManyOf(plain, 500);
    tryOutManyOf(wide, 200);
    tryOutManyOf(fragmented, 200);
    const std::set<QString> told = {u"read"_s, u"written"_s, u"Unable to open the file for reading."_s,
                                    u"Unable to open the output file for tagging."_s, u"unable to optimize @% file"_s};
    EXPECT_EQ(outcomes_, told);
}

TEST_F(AACTagsFuzz, FilesCutAtAnyPlaceEndInToldFaults)
{
    const QByteArray file = contentOf(files_.indexFirst());
    const qsizetype media = file.indexOf("mdat");
    for (qsizetype length = 0; length < media - 4; length += 7)
        tryOut(file.first(length));
    EXPECT_FALSE(outcomes_.contains(u"written"_s));
    for (qsizetype length = media - 4; length < file.size(); length += 997)
        tryOut(file.first(length));
    EXPECT_TRUE(outcomes_.contains(u"written"_s));
}
