#include "tags/TagUndo.h"

#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "platform/text/Text.h"
#include "shell/Util.h"
#include "shell/Wording.h"
#include "tags/Log.h"
#include "tags/OptimizedReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

/// By what a file is known not to have been changed.
struct Facts
{
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = -1;
    timespec changed = {};

    bool operator==(const Facts& other) const
    {
        return device == other.device && inode == other.inode && size == other.size &&
               changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }
};

Facts factsOf(const QString& path)
{
    struct stat facts = {};
    if (::stat(bytesOfName(path).constData(), &facts) != 0) return {};
    return {facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim};
}

/// The first and the last bytes of each range, by which sound is known again.
QByteArrayList endsOf(const RandomAccessFile& file, const QList<ByteRange>& sound)
{
    constexpr quint64 letters = 64;
    QByteArrayList ends;
    for (const ByteRange& range : sound) {
        const quint64 count = std::min(range.length, letters);
        ends += file.read(range.start, count);
        ends += file.read(range.end() - count, count);
    }
    return ends;
}

/// A file under several names takes the other's bytes. @return false if it cannot, and has to be replaced
bool overwrite(RandomAccessFile& file, const RandomAccessFile& whole)
try {
    const quint64 size = whole.size();
    file.grow(size);
    file.copyFrom(whole, 0, size, 0);
    file.resize(size);
    file.flush();
    return true;
} catch (const PlatformException&) {
    return false;
}

/// As it stood before the run: for whoever goes by it the file has not changed.
void setTime(const QString& path, timespec changed)
{
    const timespec times[] = {{0, UTIME_OMIT}, changed};
    ::utimensat(AT_FDCWD, bytesOfName(path).constData(), times, 0);
}

const QString changedSince = u"It was changed since, and is left as it is."_s;

} // namespace

struct TagUndo::File
{
    QString path;
    Facts before;
    Facts after;
    bool wasWritten = false;
    QList<ByteRange> sound;       ///< in the file as it was
    QByteArrayList ends;          ///< of each piece of sound
    QList<QList<ByteRange>> kept; ///< what stood ahead of each piece of sound, and behind the last

    bool isChanged() const { return wasWritten && !(after == before); }
    void takeIn(KeptBytes& bytes);
    void putBack(const KeptBytes& bytes) const;
    void writeAroundSound(RandomAccessFile& now, const KeptBytes& bytes) const;
    void writeWhole(RandomAccessFile& made, const RandomAccessFile& now, const QList<ByteRange>& moved,
                    const KeptBytes& bytes) const;
    void replace(RandomAccessFile& now, const QList<ByteRange>& moved, const KeptBytes& bytes) const;
};

void TagUndo::File::takeIn(KeptBytes& bytes)
{
    before = factsOf(path);
    const RandomAccessFile file(path, RandomAccessFile::Mode::Read);
    sound = soundRanges(file);
    if (sound.isEmpty()) throw PlatformException(u"Undo"_s, u"no sound was found"_s);
    ends = endsOf(file, sound);
    quint64 from = 0;
    for (const ByteRange& range : sound) {
        kept += bytes.keep(file, {from, range.start - from});
        from = range.end();
    }
    kept += bytes.keep(file, {from, file.size() - from});
}

/// The sound lies where it lay, and so the file stays the one that it is.
void TagUndo::File::writeAroundSound(RandomAccessFile& now, const KeptBytes& bytes) const
{
    now.grow(quint64(before.size)); // where there is no room for it, nothing has happened yet
    quint64 end = bytes.writeTo(now, 0, kept.first());
    for (qsizetype i = 0; i < sound.size(); ++i)
        end = bytes.writeTo(now, sound[i].end(), kept[i + 1]);
    now.resize(end);
    now.flush();
}

/// As it was: the tags that were kept, and between them the sound from where it lies now.
void TagUndo::File::writeWhole(RandomAccessFile& made, const RandomAccessFile& now, const QList<ByteRange>& moved,
                               const KeptBytes& bytes) const
{
    quint64 end = bytes.writeTo(made, 0, kept.first());
    for (qsizetype i = 0; i < moved.size(); ++i) {
        made.copyFrom(now, moved[i].start, moved[i].length, end);
        end = bytes.writeTo(made, end + moved[i].length, kept[i + 1]);
    }
    made.takeAttributes(now);
    made.flush();
}

void TagUndo::File::replace(RandomAccessFile& now, const QList<ByteRange>& moved, const KeptBytes& bytes) const
{
    const QString file = realPath(path); // a link stays one
    const QString temporary = Util::generateTempFileNameExtension(path::deletingLastComponent(file), u"tags"_s);
    bool isWritten = false;
    try {
        RandomAccessFile made(temporary, RandomAccessFile::Mode::Create);
        writeWhole(made, now, moved, bytes);
        isWritten = now.hasOtherNames() && overwrite(now, made);
    } catch (const PlatformException&) {
        removeItem(temporary);
        throw;
    }
    if (isWritten)
        removeItem(temporary);
    else
        replaceFile(temporary, file);
}

void TagUndo::File::putBack(const KeptBytes& bytes) const
{
    RandomAccessFile now(path, RandomAccessFile::Mode::Update);
    const QList<ByteRange> moved = movedRanges(now, sound);
    if (moved.isEmpty() || endsOf(now, moved) != ends) throw PlatformException(u"Undo"_s, changedSince);
    if (moved == sound)
        writeAroundSound(now, bytes);
    else
        replace(now, moved, bytes);
    setTime(path, before.changed);
}

TagUndo::TagUndo(QString folder) : folder_(std::move(folder)) {}

TagUndo::~TagUndo() = default;

void TagUndo::clear()
{
    files_.clear();
    places_.clear();
    bytes_.reset();
}

bool TagUndo::keep(const QString& path)
try {
    if (places_.contains(path)) return true;
    if (!bytes_) bytes_ = std::make_unique<KeptBytes>(folder_);
    File file{.path = path};
    file.takeIn(*bytes_);
    places_.insert(path, files_.size());
    files_.push_back(std::move(file));
    return true;
} catch (const PlatformException& fault) {
    qCWarning(tagsLog).noquote() << "Cannot be undone:" << path << fault.reason();
    return false;
}

void TagUndo::written(const QString& path)
{
    const auto place = places_.constFind(path);
    if (place == places_.constEnd()) return;
    File& file = files_[*place];
    file.wasWritten = true;
    file.after = factsOf(path);
}

bool TagUndo::canUndo() const
{
    return std::any_of(files_.begin(), files_.end(), [](const File& file) { return file.isChanged(); });
}

TagUndo::Outcome TagUndo::undo(const std::function<void()>& between)
{
    Outcome outcome;
    places_.clear(); // a run begins anew
    std::erase_if(files_, [](const File& file) { return !file.isChanged(); });
    outcome.asked = qsizetype(files_.size());
    std::vector<File> again;
    for (File& file : files_) {
        if (between) between();
        try {
            if (!(factsOf(file.path) == file.after)) throw PlatformException(u"Undo"_s, changedSince);
            file.putBack(*bytes_);
            outcome.putBack += file.path;
        } catch (const PlatformException& fault) {
            outcome.leftAlone += {file.path, fault.reason()};
            if (fault.reason() == changedSince) continue;
            file.after = factsOf(file.path);
            again.push_back(std::move(file));
        }
    }
    files_ = std::move(again);
    if (files_.empty()) clear();
    return outcome;
}

QString TagUndo::Outcome::sentence() const
{
    QStringList parts{u"%1 of %2 put back."_s.arg(putBack.size()).arg(counted(asked, u"file"_s))};
    for (const File& file : leftAlone)
        parts += path::lastComponent(file.path) + u": "_s + file.reason;
    return parts.join(u' ');
}

} // namespace zolt
