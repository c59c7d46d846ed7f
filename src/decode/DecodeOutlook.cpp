#include "decode/DecodeOutlook.h"

#include "decode/DecodeTab.h"
#include "platform/text/Text.h"
#include "shell/Constants.h"

#include <QHash>
#include <QLocale>
#include <QMap>
#include <QSet>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

// Lossless audio hardly ever shrinks to less than this part; only where room is scarcer than that are the files read.
constexpr std::int64_t usualGrowth = 4;

QString upperExtension(const QString& file)
{
    return path::extension(file).toUpper();
}

QString sizeText(std::int64_t bytes)
{
    return QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

/// Where the files of one file system go and what they take there.
struct Room
{
    QString folder;
    QStringList files;
    std::int64_t sourceBytes = 0;
};

class Prediction
{
public:
    Prediction(const DecodePlan& plan, const OutlookDisk& disk, const std::atomic<bool>& stop)
        : plan_(plan), disk_(disk), stop_(stop), passedOver_(passedOverByDecode(plan.files))
    {
        for (const QString& file : plan.files) {
            if (DecodeTab::decodes(upperExtension(file))) decoded_ += file;
        }
    }

    DecodeOutlook outlook()
    {
        DecodeOutlook result;
        if (plan_.files.isEmpty()) return result;
        result.intention = intention();
        tellMissingTools();
        tellPassedOver();
        tellVanished();
        tellCollisions();
        if (plan_.besideSource) {
            tellExisting();
            tellUnwritable();
            tellRoom();
        }
        result.problems = problems_;
        return result;
    }

private:
    QString intention() const
    {
        if (decoded_.isEmpty()) return u"Nothing in the list can be decoded"_s;
        QMap<QString, qsizetype> byFormat;
        for (const QString& file : decoded_)
            ++byFormat[upperExtension(file)];
        const bool one = decoded_.size() == 1;
        const QString sources =
            u"%1 to %2 "_s.arg(counted(decoded_.size(), enumerated(byFormat.keys()) + u" file"_s), plan_.format);
        const QString place = !plan_.besideSource ? u"in a folder that you choose"_s
                              : one               ? u"beside its source"_s
                                                  : u"beside their sources"_s;
        return sources + place + deletion();
    }

    QString deletion() const
    {
        if (!plan_.deleteOriginals) return QString();
        return u", and delete the %1"_s.arg(decoded_.size() == 1 ? u"original"_s
                                                                 : counted(decoded_.size(), u"original"_s));
    }

    void tellMissingTools()
    {
        for (const MissingTool& tool : plan_.missingTools)
            problems_ += missingToolMessage(tool);
    }

    void tellPassedOver()
    {
        if (passedOver_.isEmpty()) return;
        QSet<QString> names;
        for (const QString& file : passedOver_) {
            const QString extension = upperExtension(file);
            names += extension.isEmpty() ? u"files without an extension"_s : extension;
        }
        QStringList sorted = names.values();
        sorted.sort();
        problems_ += u"%1 will be passed over and stay in the list: this version does not decode %2"_s.arg(
            counted(passedOver_.size(), u"file"_s), enumerated(sorted));
    }

    void tellVanished()
    {
        QStringList gone;
        for (const QString& file : decoded_) {
            if (stop_) return;
            if (!disk_.exists(file)) gone += path::lastComponent(file);
        }
        if (gone.size() == 1) problems_ += u"%1 is no longer there"_s.arg(gone.first());
        if (gone.size() > 1)
            problems_ +=
                u"%1 are no longer there, first of them %2"_s.arg(counted(gone.size(), u"file"_s), gone.first());
    }

    QString outputOf(const QString& file) const
    {
        // In a chosen folder only the names count.
        return DecodeTab::outputPath(file, plan_.besideSource ? path::deletingLastComponent(file) : QString(),
                                     plan_.format);
    }

    void tellCollisions()
    {
        QHash<QString, int> sources;
        QStringList shared;
        for (const QString& file : decoded_) {
            const QString output = outputOf(file);
            if (++sources[output] == 2) shared += output;
        }
        if (shared.isEmpty()) return;
        const QString first = path::lastComponent(shared.first());
        problems_ +=
            shared.size() == 1
                ? u"%1 files in the list would be written to one %2: only the first one can be"_s
                      .arg(sources[shared.first()])
                      .arg(first)
                : u"%1 outputs would each come from several files in the list, such as %2: only the first one can be written"_s
                      .arg(shared.size())
                      .arg(first);
    }

    void tellExisting()
    {
        QStringList existing;
        for (const QString& file : decoded_) {
            if (stop_) return;
            const QString output = outputOf(file);
            if (disk_.exists(output)) existing += path::lastComponent(output);
        }
        existing.removeDuplicates();
        if (existing.size() == 1)
            problems_ += u"%1 exists already and will not be overwritten: move it away first"_s.arg(existing.first());
        if (existing.size() > 1) {
            problems_ +=
                u"%1 of the outputs exist already and will not be overwritten, such as %2: move them away first"_s
                    .arg(existing.size())
                    .arg(existing.first());
        }
    }

    QSet<QString> folders() const
    {
        QSet<QString> all;
        for (const QString& file : decoded_)
            all += path::deletingLastComponent(file);
        return all;
    }

    void tellUnwritable()
    {
        QStringList closed;
        for (const QString& folder : folders()) {
            if (disk_.exists(folder) && !disk_.isWritable(folder)) closed += folder;
        }
        closed.sort();
        if (closed.isEmpty()) return;
        const QString subject = closed.size() == 1
                                    ? u"The folder %1"_s.arg(closed.first())
                                    : u"%1 folders, such as %2,"_s.arg(closed.size()).arg(closed.first());
        problems_ += subject + u" cannot be written to: have the output written elsewhere"_s;
    }

    QMap<std::uint64_t, Room> rooms() const
    {
        QHash<QString, std::uint64_t> devices;
        for (const QString& folder : folders())
            devices[folder] = disk_.device(folder);
        QMap<std::uint64_t, Room> all;
        for (const QString& file : decoded_) {
            if (stop_) break;
            const QString folder = path::deletingLastComponent(file);
            Room& room = all[devices[folder]];
            if (room.files.isEmpty()) room.folder = folder;
            room.files += file;
            room.sourceBytes += disk_.size(file);
        }
        return all;
    }

    void tellRoom()
    {
        for (const Room& room : rooms()) {
            const std::int64_t available = disk_.freeBytes(room.folder);
            if (available / usualGrowth >= room.sourceBytes) continue;
            std::int64_t needed = 0;
            for (const QString& file : room.files) {
                if (stop_) return;
                needed += disk_.decodedBytes(file);
            }
            if (needed <= available) continue;
            problems_ += u"Too little room on the disk of %1: about %2 are needed and %3 are free"_s.arg(
                room.folder, sizeText(needed), sizeText(available));
        }
    }

    const DecodePlan& plan_;
    const OutlookDisk& disk_;
    const std::atomic<bool>& stop_;
    QStringList passedOver_;
    QStringList decoded_;
    QStringList problems_;
};

} // namespace

DecodeOutlook decodeOutlook(const DecodePlan& plan, const OutlookDisk& disk, const std::atomic<bool>& stop)
{
    return Prediction(plan, disk, stop).outlook();
}

QStringList passedOverByDecode(const QStringList& files)
{
    QStringList passedOver = files;
    passedOver.removeIf([](const QString& file) { return DecodeTab::decodes(upperExtension(file)); });
    return passedOver;
}

} // namespace zolt
