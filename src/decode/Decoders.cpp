#include "decode/Decoders.h"

#include "decode/DecodeALACTask.h"
#include "decode/DecodeAPETask.h"
#include "decode/DecodeFlacTask.h"
#include "decode/DecodeSHNTask.h"
#include "decode/DecodeTTATask.h"
#include "decode/DecodeTab.h"
#include "decode/DecodeWavpackTask.h"
#include "shell/Constants.h"

namespace zolt {

using namespace Qt::StringLiterals;
using C = Constants;

namespace {

std::shared_ptr<ZOLTTask> flac(const DecodeJob& job)
{
    return job.tab.decodeFlacOutputPathForFormatInQueue(job.file, job.folder, job.format, job.tab.taskQueue());
}

std::shared_ptr<ZOLTTask> shorten(const DecodeJob& job)
{
    return job.tab.decodeSHNOutputPathForFormatInQueue(job.file, job.folder, job.format, job.tab.taskQueue());
}

/// The others build their own calls.
template <class Task> std::shared_ptr<ZOLTTask> own(const DecodeJob& job)
{
    return Task::initDecodeTaskWithQueueFileNameOutputPathFormat(job.tab.taskQueue(), job.file, job.folder, job.format);
}

const std::vector<Decoder>& decoders()
{
    using enum WorkItem::Existing;
    static const std::vector<Decoder> rows{
        {C::FLAC, {u"flac"_s}, {u"metaflac"_s}, Refused, Refused, true, flac}, // metaflac gives the tags
        {C::SHN, {u"shntool"_s, u"shorten"_s}, {}, Refused, Refused, true, shorten},
        {C::WV, {u"wvunpack"_s}, {}, Refused, Overwritten, true, own<DecodeWavpackTask>},
        {C::TTA, {u"ttaenc"_s}, {}, Overwritten, Overwritten, false, own<DecodeTTATask>},
        {C::M4A, {}, {}, Overwritten, Overwritten, true, own<DecodeALACTask>},
        {C::APE, {u"mac"_s}, {}, Overwritten, Overwritten, true, own<DecodeAPETask>},
    };
    return rows;
}

} // namespace

WorkItem::Existing Decoder::existing(const QString& format) const
{
    return format == C::AIFF ? existingAiff : existingWav;
}

QString Decoder::output(const QString& file, const QString& folder, const QString& format) const
{
    return path::inFolderWithExtension(file, folder, format == C::AIFF ? u"aiff"_s : u"wav"_s);
}

const Decoder* decoderOf(const QString& file)
{
    const QString extension = path::extension(file).toUpper();
    const auto& rows = decoders();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const auto& each) { return each.extension == extension; });
    return row == rows.end() ? nullptr : &*row;
}

} // namespace zolt
