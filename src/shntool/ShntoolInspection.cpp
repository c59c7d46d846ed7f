#include "shntool/ShntoolInspection.h"

#include "platform/files/Files.h"
#include "shell/Constants.h"
#include "shntool/SectorBoundary.h"

#include <QFile>
#include <QtEndian>

namespace zolt::shntoolInspection {

using namespace Qt::StringLiterals;

namespace {

/// One caution about all items of which `holds` is true; none where there are none.
template <class Holds>
void add(Cautions& cautions, const WorkPlan& plan, const Stop& stop, const QString& text, Holds holds)
{
    WorkCaution caution{text, {}};
    for (const WorkItem& item : plan.items) {
        if (stop) return;
        if (holds(item.source)) caution.rows += item.row;
    }
    if (!caution.rows.isEmpty()) cautions.push_back(caution);
}

bool isKnownAsOther(const QString& path)
{
    const auto format = audioFormatOf(path);
    return format && !isCdAudio(*format);
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

} // namespace

Cautions wantsCdAudio(const WorkPlan& plan, const Stop& stop)
{
    Cautions cautions;
    add(cautions, plan, stop, u"What is not 44.1 kHz, 16 bits and stereo has no CD sectors: shntool declines it"_s,
        isKnownAsOther);
    return cautions;
}

Cautions wantsRaggedEnd(const WorkPlan& plan, const Stop& stop)
{
    Cautions cautions = wantsCdAudio(plan, stop);
    add(cautions, plan, stop, u"What ends on a sector boundary needs no padding: shntool declines it"_s,
        [](const QString& path) {
            const auto format = audioFormatOf(path);
            return format && isCdAudio(*format) && bytesOffBoundary(*format) == 0;
        });
    return cautions;
}

Cautions wantsSomethingToStrip(const WorkPlan& plan, const Stop& stop)
{
    Cautions cautions;
    add(cautions, plan, stop,
        u"What has a plain header and no extra chunks has nothing to strip: shntool declines it"_s, isPlain);
    return cautions;
}

Cautions wantsPlaceForPieces(const WorkPlan& plan, const Stop& stop)
{
    Cautions cautions;
    add(cautions, plan, stop,
        u"A cue sheet's places are for 44.1 kHz, 16 bits and stereo: this file would be cut at wrong ones. Plain times are right"_s,
        isKnownAsOther);
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
