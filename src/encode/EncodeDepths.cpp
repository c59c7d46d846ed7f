#include "encode/EncodeDepths.h"

#include "encode/CoreAudioHelper.h"
#include "shell/Constants.h"

#include <QHash>

namespace zolt {

using namespace Qt::StringLiterals;
using C = Constants;

namespace {

/// The depths that a target takes; empty for one that takes what its tool reads.
QList<int> depthsOf(const QString& target)
{
    static const QHash<QString, QList<int>> depths{
        {C::SHN, {8, 16}}, {C::APE, {8, 16, 24}}, {C::TTA, {8, 16, 24}}, {C::M4A, {16, 20, 24}}};
    return depths.value(target);
}

/// A WAV holds whole bytes, also the one that stands on the way.
bool fits(const QString& target, const WorkItem& item, int bits)
{
    if (item.staged && bits % 8 != 0) return false;
    const QList<int> depths = depthsOf(target);
    return depths.isEmpty() || depths.contains(bits);
}

QString sentence(const QString& target, int bits)
{
    return u"Audio of %1 bits a sample does not go into %2: those files will fail unless you leave them out"_s.arg(
        QString::number(bits), target);
}

} // namespace

std::vector<WorkCaution> unfitDepths(const QString& target, const WorkPlan& plan, const std::atomic<bool>& stop)
{
    std::vector<WorkCaution> cautions;
    for (const WorkItem& item : plan.items) {
        if (stop) return {};
        if (!item.caution.isEmpty()) continue; // it has been told of already
        const auto format = CoreAudioHelper::getFormatInfo(item.source);
        if (!format || fits(target, item, format->bitsPerChannel())) continue;
        cautions.push_back({sentence(target, format->bitsPerChannel()), {item.row}});
    }
    return cautions;
}

} // namespace zolt
