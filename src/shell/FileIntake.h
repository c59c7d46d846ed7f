// How files come in: what is given is walked through, each file judged, on this thread or beside it.
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace zolt {

/// What was given, sorted out.
struct Intake
{
    QStringList files;     ///< accepted, in the order found
    QSet<QString> refused; ///< extensions of the others
};

/// Whether a file may enter. Called on the thread that walks.
using Acceptance = std::function<bool(const QString& file)>;
/// Told of each file that was accepted, on the thread that walks.
using FileFound = std::function<void(const QString& file)>;

/// Goes through the paths: folders with all that lies below them, without what file managers leave there, and files,
/// which enter by name whatever they are called. Any thread.
/// @param stop  set by another thread to end early
Intake takeIn(const QStringList& paths, const Acceptance& accepts, const FileFound& found,
              const std::atomic<bool>& stop);

/// Takes files in beside the main thread. Made, used and destroyed there; being destroyed stops what is under way.
class FileIntake
{
public:
    FileIntake() = default;
    ~FileIntake();
    FileIntake(const FileIntake&) = delete;
    FileIntake& operator=(const FileIntake&) = delete;

    /// Starts at once and returns. The first file is handed over as soon as it is found, the others several times a
    /// second.
    /// @param some   further files, on the main thread
    /// @param ended  all of it, on the main thread, behind the last of `some`; not called after stop()
    /// @throws PlatformException if the system gives no thread
    void start(const QStringList& paths, const Acceptance& accepts,
               const std::function<void(const QStringList& files)>& some,
               const std::function<void(const Intake& all)>& ended);
    bool isRunning() const { return !runs_.empty(); }
    /// Gives up what is under way; nothing of it is handed over any more.
    void stop();

private:
    struct Run;
    void forget(Run* run);

    std::vector<std::shared_ptr<Run>> runs_;
};

} // namespace zolt
