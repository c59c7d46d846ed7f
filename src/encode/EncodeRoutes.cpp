#include "encode/EncodeRoutes.h"

#include "encode/EncodeALACTask.h"
#include "encode/EncodeALACToAPETask.h"
#include "encode/EncodeALACToFlacTask.h"
#include "encode/EncodeALACToTTATask.h"
#include "encode/EncodeALACToWavpackTask.h"
#include "encode/EncodeApeTask.h"
#include "encode/EncodeSHNTask.h"
#include "encode/EncodeTTATask.h"
#include "encode/EncodeTab.h"
#include "encode/EncodeWavpackTask.h"
#include "encode/ShntoolConversion.h"
#include "shell/Constants.h"

namespace zolt {

using namespace Qt::StringLiterals;
using C = Constants;

namespace {

std::shared_ptr<ZOLTTask> toShorten(const EncodeJob& job)
{
    return job.tab.encodeSHNOutputPathInQueueWithResults(job.file, job.folder, job.tab.taskQueue(), job.results);
}

std::shared_ptr<ZOLTTask> toFlac(const EncodeJob& job)
{
    return job.tab.encodeFLACOutputPathInQueue(job.file, job.folder, job.tab.taskQueue());
}

std::shared_ptr<ZOLTTask> toApe(const EncodeJob& job)
{
    return EncodeApeTask::initEncodeTaskWithQueueFileNameLevelOutputPath(job.tab.taskQueue(), job.file,
                                                                         job.tab.apeLevel(), job.folder);
}

std::shared_ptr<ZOLTTask> alacToApe(const EncodeJob& job)
{
    return EncodeALACToAPETask::initEncodeTaskWithQueueFileNameOutputPathLevel(job.tab.taskQueue(), job.file,
                                                                               job.folder, job.tab.apeLevel());
}

std::shared_ptr<ZOLTTask> toWavpack(const EncodeJob& job)
{
    return EncodeWavpackTask::initEncodeTaskWithQueueFileNameLevelOutputPath(job.tab.taskQueue(), job.file,
                                                                             job.tab.wavpackOption(), job.folder);
}

std::shared_ptr<ZOLTTask> alacToWavpack(const EncodeJob& job)
{
    return EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(job.tab.taskQueue(), job.file,
                                                                                   job.folder, job.tab.wavpackOption());
}

std::shared_ptr<ZOLTTask> toTrueAudio(const EncodeJob& job)
{
    return EncodeTTATask::initEncodeTaskWithQueueFileNameOutputPath(job.tab.taskQueue(), job.file, job.folder);
}

std::shared_ptr<ZOLTTask> alacToTrueAudio(const EncodeJob& job)
{
    return EncodeALACToTTATask::initEncodeTaskWithQueueFileNameOutputPath(job.tab.taskQueue(), job.file, job.folder);
}

std::shared_ptr<ZOLTTask> toAppleLossless(const EncodeJob& job)
{
    return EncodeALACTask::initEncodeTaskWithQueueFileNameOutputPath(job.tab.taskQueue(), job.file, job.folder);
}

const std::vector<EncodeRoute>& routes()
{
    using enum WorkItem::Existing;
    using enum EncodeRoute::Deletion;
    static const std::vector<EncodeRoute> rows{
        {C::SHN, {}, {u"shntool"_s, u"shorten"_s}, true, false, Refused, AsSet, toShorten},
        {C::FLAC, {C::SHN, C::APE}, {u"shntool"_s, u"flac"_s}, true, false, Refused, ForGood, toFlac},
        {C::FLAC, {C::M4A}, {u"flac"_s, u"metaflac"_s}, false, true, Refused, Impossible, toFlac},
        {C::FLAC, {C::AIF, C::AIFF}, {u"flac"_s, u"metaflac"_s}, false, false, Refused, ForGood, toFlac},
        {C::FLAC, {}, {u"flac"_s}, false, false, Refused, ForGood, toFlac},
        {C::APE, {C::M4A}, {u"mac"_s}, false, true, Overwritten, Impossible, alacToApe},
        {C::APE, {C::AIF, C::AIFF}, {u"mac"_s}, false, true, Overwritten, AsSet, toApe},
        {C::APE, {}, {u"mac"_s}, false, false, Overwritten, AsSet, toApe},
        {C::WV, {C::M4A}, {u"wavpack"_s}, false, true, Refused, Impossible, alacToWavpack},
        {C::WV, {C::AIF, C::AIFF}, {u"wavpack"_s}, false, true, Refused, AsSet, toWavpack},
        {C::WV, {}, {u"wavpack"_s}, false, false, Refused, AsSet, toWavpack},
        {C::TTA, {C::M4A}, {u"ttaenc"_s}, false, true, Overwritten, Impossible, alacToTrueAudio},
        {C::TTA, {C::AIF, C::AIFF}, {u"ttaenc"_s}, false, true, Overwritten, AsSet, toTrueAudio},
        {C::TTA, {}, {u"ttaenc"_s}, false, false, Overwritten, AsSet, toTrueAudio},
        {C::M4A, {C::SHN}, {u"shntool"_s, u"AtomicParsley"_s}, true, true, Overwritten, AsSet, toAppleLossless},
        {C::M4A, {C::FLAC}, {u"flac"_s, u"AtomicParsley"_s}, false, true, Overwritten, AsSet, toAppleLossless},
        {C::M4A, {C::APE}, {u"mac"_s, u"AtomicParsley"_s}, false, true, Overwritten, AsSet, toAppleLossless},
        {C::M4A, {}, {u"AtomicParsley"_s}, false, false, Overwritten, AsSet, toAppleLossless},
    };
    return rows;
}

/// What the tool of a target takes no sources of.
struct Declined
{
    QString target;
    QString tool;
    QStringList sources;
};

const std::vector<Declined>& declined()
{
    static const std::vector<Declined> rows{
        {C::SHN, u"shntool"_s, {C::M4A}},
        {C::FLAC, u"flac"_s, {C::WV, C::TTA}},
        {C::APE, u"mac"_s, {C::FLAC, C::SHN, C::APE, C::WV, C::TTA}},
        {C::WV, u"wavpack"_s, {C::FLAC, C::SHN, C::APE, C::TTA}},
        {C::TTA, u"ttaenc"_s, {C::FLAC, C::SHN, C::APE, C::WV, C::TTA}},
        {C::M4A, u"the Apple Lossless encoder"_s, {C::WV, C::TTA, C::M4A}},
    };
    return rows;
}

} // namespace

QString EncodeRoute::output(const QString& file, const QString& folder) const
{
    return path::inFolderWithExtension(file, folder, target.toLower());
}

const EncodeRoute* encodeRoute(const QString& target, const QString& sourceType)
{
    const auto& rows = routes();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& each) {
        return each.target == target && (each.sources.isEmpty() || each.sources.contains(sourceType));
    });
    return row == rows.end() ? nullptr : &*row;
}

QStringList toolsOf(const EncodeRoute& route, const QString& sourceType)
{
    QStringList tools = route.tools;
    if (route.readsBySHNTool) tools += shntool::readersOf(sourceType);
    return tools;
}

QString declinedInWords(const QString& target, const QString& sourceType)
{
    const auto& rows = declined();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& each) { return each.target == target; });
    if (row == rows.end() || !row->sources.contains(sourceType)) return {};
    return u"%1 takes no %2 files: they will fail unless you leave them out, or decode them first"_s.arg(row->tool,
                                                                                                         sourceType);
}

} // namespace zolt
