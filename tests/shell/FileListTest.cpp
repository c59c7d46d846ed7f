#include "shell/FileList.h"

#include "platform/errors/Exceptions.h"
#include "support/HeldMutex.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace zolt::test {
std::mutex& mutexOf(const FileList&);
template struct OpenMutex<FileList, &FileList::mutex_>;
} // namespace zolt::test

TEST(FileList, IsSortedLiterallyAndKeepsAPathThatComesTwice)
{
    FileList list;
    list.addSorted({u"/b"_s, u"/a"_s});
    list.addSorted({u"/B"_s});
    list.addSorted({u"/a"_s, u"/c"_s});
    EXPECT_EQ(list.copy(), QStringList({u"/B"_s, u"/a"_s, u"/a"_s, u"/b"_s, u"/c"_s}));
    EXPECT_EQ(list.at(3), u"/b"_s);
    EXPECT_THROW(list.at(5), RangeException);
    list.removeAt({4, 0});
    EXPECT_EQ(list.copy(), QStringList({u"/a"_s, u"/a"_s, u"/b"_s}));
}

TEST(FileList, ThreadsFillItAndReadItSideBySide)
{
    constexpr int threads = 4, each = 60, paths = 50;
    FileList list;
    std::atomic<int> ready = 0;
    std::vector<std::thread> fillers;
    for (int thread = 0; thread < threads; ++thread) {
        fillers.emplace_back([&, thread] {
            for (++ready; ready < threads;)
                std::this_thread::yield();
            for (int round = 0; round < each; ++round) {
                QStringList added;
                for (int path = 0; path < paths; ++path)
                    added += u"/%1/%2/%3"_s.arg(path).arg(round).arg(thread);
                list.addSorted(added);
                EXPECT_FALSE(list.isEmpty());
            }
        });
    }
    for (auto& filler : fillers)
        filler.join();
    const QStringList all = list.copy();
    EXPECT_EQ(all.size(), threads * each * paths);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
}

TEST(FileList, NobodyTouchesThePathsWhileAnotherDoes)
{
    FileList list({u"/a"_s, u"/b"_s});
    const std::function<void()> operations[] = {
        [&] { list.copy(); },
        [&] { list.count(); },
        [&] { list.isEmpty(); },
        [&] { list.at(0); },
        [&] { list.addSorted({u"/c"_s}); },
        [&] { list.removeAt({0}); },
        [&] { list.remove({u"/b"_s}); },
        [&] { list.clear(); },
    };
    for (std::size_t index = 0; index < std::size(operations); ++index)
        EXPECT_TRUE(test::waitsFor(test::mutexOf(list), operations[index])) << "operation " << index;
}
