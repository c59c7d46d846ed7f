#include "shntool/ShntoolInspection.h"

#include "platform/files/Files.h"
#include "shell/Constants.h"
#include "shntool/SectorBoundary.h"
#include "tags/AudioFacts.h"

#include <QFile>
#include <QtEndian>

#include <functional>

namespace zolt::shntoolInspection {

using namespace Qt::StringLiterals;

namespace {

/// A caution and the items that it is about.
struct Question
{
    QString text;
    std::function<bool(const QString& path, const std::optional<AudioFormatObject>& format)> holds;
};

/// The cautions that are about some item; each file is opened once for all of them.
Cautions answers(const WorkPlan& plan, const Stop& stop, const std::vector<Question>& questions)
{
    Cautions all;
    for (const Question& question : questions)
        all.push_back({question.text, {}});
    for (const WorkItem& item : plan.items) {
        if (stop) return {};
        const auto format = audioFormatOf(item.source);
        for (std::size_t i = 0; i < questions.size(); ++i) {
            if (questions[i].holds(item.source, format)) all[i].rows += item.row;
        }
    }
    std::erase_if(all, [](const WorkCaution& caution) { return caution.rows.isEmpty(); });
    return all;
}

bool isKnownAsOther(const QString&, const std::optional<AudioFormatObject>& format)
{
    return format && !isCdAudio(*format);
}

bool endsOnBoundary(const QString&, const std::optional<AudioFormatObject>& format)
{
    return format && isCdAudio(*format) && bytesOffBoundary(*format) == 0;
}

/// Whether the tool finds nothing to strip: a decoder's output has a plain header always, a WAV file often.
bool isPlain(const QString& path)
{
    if (path::extension(path).toUpper() != Constants::WAV) return true;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray head = file.read(44);
    if (head.size() < 44 || !head.startsWith("RIFF") || head.mid(36, 4) != "data") return false;
    const qint64 audio = qFromLittleEndian<quint32>(head.constData() + 40);
    return audio + audio % 2 + 36 == qFromLittleEndian<quint32>(head.constData() + 4);
}

Question noCdAudio()
{
    return {u"What is not 44.1 kHz, 16 bits and stereo has no CD sectors: shntool declines it"_s, isKnownAsOther};
}

} // namespace

Cautions wantsCdAudio(const WorkPlan& plan, const Stop& stop)
{
    return answers(plan, stop, {noCdAudio()});
}

Cautions wantsRaggedEnd(const WorkPlan& plan, const Stop& stop)
{
    return answers(
        plan, stop,
        {noCdAudio(), {u"What ends on a sector boundary needs no padding: shntool declines it"_s, endsOnBoundary}});
}

Cautions wantsBrokenBoundary(const WorkPlan& plan, const Stop& stop)
{
    const QString whole = u"Every file ends on a sector boundary: shntool declines, as there is nothing to fix"_s;
    Cautions cautions = answers(plan, stop, {noCdAudio(), {whole, endsOnBoundary}});
    std::erase_if(cautions, [&](const WorkCaution& caution) {
        return caution.text == whole && caution.rows.size() < qsizetype(plan.items.size());
    });
    return cautions;
}

Cautions wantsSomethingToStrip(const WorkPlan& plan, const Stop& stop)
{
    return answers(plan, stop,
                   {{u"What has a plain header and no extra chunks has nothing to strip: shntool declines it"_s,
                     [](const QString& path, const auto&) { return isPlain(path); }}});
}

Cautions wantsPlaceForPieces(const WorkPlan& plan, const Stop& stop)
{
    Cautions cautions = answers(
        plan, stop,
        {{u"A cue sheet's places are for 44.1 kHz, 16 bits and stereo: this file would be cut at wrong ones. Plain times are right"_s,
          isKnownAsOther}});
    const QStringList there = plan.folder.isEmpty() ? QStringList() : directoryListing(plan.folder);
    const auto isPiece = [](const QString& name) { return name.startsWith(u"split-track"_s); };
    const auto piece = std::find_if(there.begin(), there.end(), isPiece);
    if (piece != there.end())
        cautions.push_back(
            {u"The folder holds %1 already: the tool would refuse, and pieces of before would be renamed. Choose another folder"_s
                 .arg(*piece),
             {}});
    return cautions;
}

} // namespace zolt::shntoolInspection
