#include "platform/threads/NotificationCenter.h"

#include "support/HeldMutex.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace zolt::test {
std::mutex& mutexOf(const NotificationCenter&);
template struct OpenMutex<NotificationCenter, &NotificationCenter::mutex_>;
} // namespace zolt::test

TEST(NotificationCenter, ObserverHearsItsSenderOrAny)
{
    NotificationCenter centre;
    const int sender = 0, other = 0, observer = 0;
    int own = 0, any = 0;
    centre.addObserver(&observer, u"n"_s, &sender, [&](const Notification&) { ++own; });
    centre.addObserver(&observer, u"n"_s, nullptr,
                       [&](const Notification& note) { any += std::any_cast<int>(note.object); });
    centre.post({u"n"_s, &sender, 5});
    centre.post({u"n"_s, &other, 7});
    centre.post({u"m"_s, &sender, 100});
    EXPECT_EQ(own, 1);
    EXPECT_EQ(any, 12);
    centre.post({u"n"_s, nullptr, 100});
    EXPECT_EQ(any, 112) << "once, where nobody is named as the sender";
}

TEST(NotificationCenter, ThreadsComeAndGoWhileOthersPost)
{
    NotificationCenter centre;
    std::vector<std::thread> threads;
    std::atomic<int> heard = 0;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            int sender = 0;
            for (int round = 0; round < 500; ++round) {
                centre.addObserver(&sender, u"n"_s, &sender, [&](const Notification&) { ++heard; });
                centre.post({u"n"_s, &sender, {}});
                centre.removeObserver(&sender, u"n"_s, &sender);
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(heard, 2000);
    EXPECT_EQ(centre.observerCount(u"n"_s), 0U);
}

TEST(NotificationCenter, RemovedObserverHearsNothingMore)
{
    NotificationCenter centre;
    const int sender = 0, observer = 0;
    int heard = 0;
    centre.addObserver(&observer, u"n"_s, &sender, [&](const Notification&) {
        ++heard;
        centre.removeObserver(&observer, u"n"_s, &sender); // from inside, as a task does at its end
    });
    centre.post({u"n"_s, &sender, {}});
    centre.post({u"n"_s, &sender, {}});
    EXPECT_EQ(heard, 1);
    centre.removeObserver(&observer, u"n"_s, &sender);
}

TEST(NotificationCenter, CarriesWhatElseIsToBeKnown)
{
    zolt::NotificationCenter centre;
    std::map<QString, QString> seen{{QStringLiteral("before"), {}}};
    centre.addObserver(&centre, QStringLiteral("n"), nullptr, [&](const auto& told) { seen = told.userInfo; });
    centre.post({QStringLiteral("n"), nullptr, {}, {{QStringLiteral("source"), QStringLiteral("list")}}});
    EXPECT_EQ(seen.at(QStringLiteral("source")), QStringLiteral("list"));
    centre.post({QStringLiteral("n"), nullptr, 1});
    EXPECT_TRUE(seen.empty());
}

TEST(NotificationCenter, NobodyLooksAtTheEntriesWhileAnotherChangesThem)
{
    NotificationCenter centre;
    std::mutex& mutex = test::mutexOf(centre);
    EXPECT_TRUE(test::waitsFor(mutex, [&] { centre.addObserver(&centre, u"n"_s, nullptr, [](const auto&) {}); }));
    EXPECT_TRUE(test::waitsFor(mutex, [&] { centre.observerCount(u"n"_s); }));
    EXPECT_TRUE(test::waitsFor(mutex, [&] { centre.post({u"n"_s, nullptr, {}}); }));
    EXPECT_TRUE(test::waitsFor(mutex, [&] { centre.removeObserver(&centre, u"n"_s, nullptr); }));
}

TEST(NotificationCenter, AHandlerMayPostAndLookWhileItIsCalled)
{
    NotificationCenter centre;
    std::size_t seen = 0;
    centre.addObserver(&centre, u"outer"_s, nullptr, [&](const auto&) { centre.post({u"inner"_s, nullptr, {}}); });
    centre.addObserver(&centre, u"inner"_s, nullptr, [&](const auto&) { seen = centre.observerCount(u"inner"_s); });
    centre.post({u"outer"_s, nullptr, {}});
    EXPECT_EQ(seen, 1U);
}
