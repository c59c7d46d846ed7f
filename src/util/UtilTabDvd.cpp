// The tab's command for DVD-Audio discs: what the files are, the table of that, and the disc's totals.
#include "encode/CoreAudioHelper.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "shell/Constants.h"
#include "tags/FlacTagHelper.h"
#include "util/DVDAuthorTask.h"
#include "util/Log.h"
#include "util/UtilPlan.h"
#include "util/UtilTab.h"

#include <cmath>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

bool matches(const AudioFormatObject& one, const AudioFormatObject& other)
{
    return one.sampleRate() == other.sampleRate() && one.bitsPerChannel() == other.bitsPerChannel() &&
           one.channels() == other.channels();
}

bool isAiffName(const QString& file)
{
    return utilPlan::withExtensions({file}, {C::AIF, C::AIFF}).size() == 1;
}

/// Nothing for a file that cannot go on a DVD.
std::shared_ptr<AudioFormatObject> formatOf(const QString& file)
{
    if (isAiffName(file)) return nullptr;
    if (path::extension(file).toUpper() != C::FLAC) return CoreAudioHelper::getFormatInfo(file);
    const auto format = FlacTagHelper().getFormatInfo(file);
    return format && format->sampleRate() > 0 ? format : nullptr; // zeros for a file that is none
}

QString whyUnfit(const QString& file)
{
    const QString name = path::lastComponent(file);
    return isAiffName(file) ? u"AIFF files such as %1 cannot go on a DVD-Audio disc"_s.arg(name)
                            : u"%1 cannot be read as audio"_s.arg(name);
}

} // namespace

QString UtilTab::parseTimeAsString(double seconds)
{
    const int minutes = int(seconds / 60);
    const int rest = int(seconds - 60 * std::floor(seconds / 60));
    return u"%1:%2%3"_s.arg(minutes).arg(rest <= 9 ? u"0"_s : QString()).arg(rest);
}

QString UtilTab::parseSizeFromTimeAsStringSampleRateBitDepthNumChannels(double seconds, int sampleRate, int bitDepth,
                                                                        int channels)
{
    constexpr double bitsOfAMegabyte = 8000000; // as file managers count today
    const double size = sampleRate * seconds * bitDepth * channels / bitsOfAMegabyte;
    return QString::number(size, 'f', 2) + u" MB"_s;
}

void UtilTab::filesAdded()
{
    if (command() == dvdDisc) findFormatInfo();
}

void UtilTab::rowsRemoved(const QList<qsizetype>& rows)
{
    std::vector<std::shared_ptr<AudioFormatObject>> kept;
    for (std::size_t row = 0; row < formatObjects_.size(); ++row) {
        if (!rows.contains(qsizetype(row))) kept.push_back(formatObjects_[row]);
    }
    formatObjects_ = std::move(kept);
    showTotals();
}

void UtilTab::findFormatInfo()
{
    formatObjects_.clear();
    scanNote->setStringValue(QString());
    try {
        scan();
    } catch (const PlatformException& fault) {
        qCWarning(utilLog).noquote() << "error" << fault.reason();
        giveUpList(fault.reason());
    }
    tableView->reloadData();
}

void UtilTab::scan()
{
    for (const QString& file : fileNames().copy()) {
        const auto format = formatOf(file);
        if (!format) return giveUpList(whyUnfit(file));
        formatObjects_.push_back(format);
        if (matches(*format, *formatObjects_.front())) continue;
        panels().runAlert(u"The Files in the list must match in sample rate, bit depth and number of channels."_s,
                          QString(), u"OK"_s);
        return giveUpList(u"%1 differs from the files before it"_s.arg(path::lastComponent(file)));
    }
    showTotals();
}

void UtilTab::showTotals()
{
    double seconds = 0;
    for (const auto& format : formatObjects_)
        seconds += format->time();
    QString length, size;
    if (!formatObjects_.empty()) {
        const AudioFormatObject& first = *formatObjects_.front();
        length = parseTimeAsString(seconds);
        size = parseSizeFromTimeAsStringSampleRateBitDepthNumChannels(seconds, first.sampleRate(),
                                                                      first.bitsPerChannel(), first.channels());
    }
    dvdAudioDiscTime->setStringValue(length);
    dvdAudioDiscSize->setStringValue(size);
}

void UtilTab::giveUpList(const QString& why)
{
    clearFiles();
    scanNote->setStringValue(u"The list was emptied: "_s + why);
}

QString UtilTab::tableViewObjectValueForTableColumnRow(int column, qsizetype row) const
{
    if (column == 0) return BaseTab::tableViewObjectValueForTableColumnRow(column, row);
    if (row < 0 || std::size_t(row) >= formatObjects_.size()) return QString();
    const AudioFormatObject& format = *formatObjects_[std::size_t(row)];
    if (column == 1) return parseTimeAsString(format.time());
    if (column == 2) return QString::number(format.sampleRate());
    return column == 3 ? QString::number(format.bitsPerChannel()) : QString();
}

void UtilTab::resizeFileTable(const QRectF& frame)
{
    scrollView->setFrame(frame);
    scrollView->display();
}

void UtilTab::growFileTable()
{
    tableView->setColumnHeader(0, u"fileName"_s);
    for (const QString& header : {u"length (min)"_s, u"sample rate"_s, u"bit depth"_s})
        tableView->addTableColumn(header);
}

void UtilTab::shrinkFileTable()
{
    tableView->setColumnHeader(0, QString());
    tableView->removeTableColumnsBehind(1);
}

bool UtilTab::chooseDvd()
{
    const int chosen = commandMatrix->selectedIndex();
    if (commandMatrixLastSelectedCell_ == chosen) {
        inAMoment([this] { commandMatrix->deselectAllCells(); });
        commandMatrixLastSelectedCell_ = -1;
        return false;
    }
    const int reply = panels().runAlert(u"You have chosen \"DVD Audio Disc.\" This will scan the files in the list for "
                                        "format information. Are you sure you want to continue?"_s,
                                        QString(), u"Yes"_s, u"No"_s);
    if (reply != alertReply::defaultButton) {
        inAMoment([this, former = commandMatrixLastSelectedCell_] {
            former < 0 ? commandMatrix->deselectAllCells() : commandMatrix->selectIndex(former);
        });
        return false;
    }
    for (const auto& label :
         {dvdAudioDiscTime, dvdAudioDiscTimeStaticText, dvdAudioDiscSize, dvdAudioDiscSizeStaticText})
        label->setHidden(false);
    tableView->setHeaderView(tableHeader_);
    growFileTable();
    findFormatInfo();
    return true;
}

void UtilTab::authorDvd()
{
    // Files that are still coming in have not been looked at: that is done behind the last.
    if (formatObjects_.size() != std::size_t(fileNames().count())) findFormatInfo();
    if (fileNames().isEmpty()) return;
    const OptionalText folder = chooseOutputFolder();
    if (!folder) return;
    taskQueue()->addTask(DVDAuthorTask::initTaskWithQueueFileNamesOutputPath(taskQueue(), fileNames().copy(), *folder));
    clearFiles();
}

void UtilTab::planDvd(WorkPlan& plan) const
{
    utilPlan::authoring(plan, destination());
}

} // namespace zolt
