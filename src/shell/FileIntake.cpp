#include "shell/FileIntake.h"

#include "platform/files/FileWalk.h"
#include "platform/files/Files.h"
#include "platform/text/Text.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "shell/SystemFiles.h"

#include <QElapsedTimer>

#include <condition_variable>

namespace zolt {

namespace {

constexpr qint64 pause = 100; // milliseconds between two deliveries

} // namespace

Intake takeIn(const QStringList& paths, const Acceptance& accepts, const FileFound& found,
              const std::atomic<bool>& stop)
{
    Intake all;
    for (const QString& path : paths) {
        const bool walks = isDirectory(path);
        const auto visit = [&](const QString& file) {
            if (!accepts(file)) {
                all.refused.insert(path::extension(file));
            } else if (!walks || !isSystemFile(file)) {
                all.files.append(file);
                found(file);
            }
        };
        walkFiles(path, visit, &stop);
    }
    return all;
}

/// One start. Its thread shares it with the main thread, which alone hands over.
struct FileIntake::Run
{
    std::function<void(const QStringList&)> some;
    std::function<void(const Intake&)> ended;
    std::atomic<bool> stopped = false;
    std::mutex mutex;
    std::condition_variable gone;
    bool walks = true;

    /// On the thread of its own.
    void walk(const QStringList& paths, const Acceptance& accepts, const std::shared_ptr<Run>& self,
              const std::function<void()>& forget)
    {
        QStringList pending;
        QElapsedTimer sinceDelivery;
        const auto deliver = [&] {
            postToMain([self, files = std::exchange(pending, {})] {
                if (!self->stopped) self->some(files);
            });
            sinceDelivery.start();
        };
        const auto found = [&](const QString& file) {
            pending.append(file);
            if (!sinceDelivery.isValid() || sinceDelivery.hasExpired(pause)) deliver();
        };
        const Intake all = takeIn(paths, accepts, found, stopped);
        deliver();
        postToMain([self, all, forget] {
            if (self->stopped) return;
            forget();
            self->ended(all);
        });
    }
    void end()
    {
        const std::lock_guard guard(mutex);
        walks = false;
        gone.notify_all();
    }
    void waitForEnd()
    {
        std::unique_lock lock(mutex);
        gone.wait(lock, [this] { return !walks; });
    }
};

FileIntake::~FileIntake()
{
    stop();
}

void FileIntake::start(const QStringList& paths, const Acceptance& accepts,
                       const std::function<void(const QStringList&)>& some,
                       const std::function<void(const Intake&)>& ended)
{
    const auto run = std::make_shared<Run>();
    run->some = some;
    run->ended = ended;
    const auto forgets = [this, run] { forget(run.get()); };
    detachThread([run, paths, accepts, forgets] {
        // Also on the way out of a fault: who stops this waits for it, and nothing comes in any more.
        const std::shared_ptr<void> atEnd(nullptr, [run, forgets](void*) {
            postToMain([run, forgets] {
                if (!run->stopped) forgets();
            });
            run->end();
        });
        run->walk(paths, accepts, run, forgets);
    });
    runs_.push_back(run); // last: there is none where no thread was to be had
}

void FileIntake::forget(Run* run)
{
    run->stopped = true; // what it posts from here on finds nobody: its owner may be gone by then
    std::erase_if(runs_, [run](const auto& each) { return each.get() == run; });
}

void FileIntake::stop()
{
    for (const auto& run : runs_)
        run->stopped = true;
    for (const auto& run : std::exchange(runs_, {}))
        run->waitForEnd(); // what it asks of its owner must be there until then
}

} // namespace zolt
