#include "TabRun.h"

#include "Contenders.h"

#include "platform/desktop/UserDefaults.h"
#include "platform/images/Image.h"
#include "shell/Constants.h"
#include "shell/ZOLTController.h"
#include "tags/TagRoutes.h"
#include "tags/TagsTab.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace zolt::bench {

namespace {

constexpr int files = 1000;
constexpr int rounds = 5;

QStringList copies(const QTemporaryDir& folder, const QString& sample)
{
    for (int i = 0; i < files; ++i)
        QFile::copy(sample, folder.filePath(u"%1.flac"_s.arg(i, 4, 10, QChar(u'0'))));
    return filesIn(folder.path());
}

double millisecondsAFile(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6 / files;
}

TagsObject record(const std::shared_ptr<const Image>& cover)
{
    TagsObject tags;
    tags.setArtistText(u"Anna"_s);
    tags.setAlbumText(u"Barn"_s);
    tags.setAlbumArt(cover);
    return tags;
}

double byHelpers(const QString& sample, const std::shared_ptr<const Image>& cover)
{
    const QTemporaryDir folder;
    const QStringList paths = copies(folder, sample);
    return millisecondsAFile([&] {
        const TagsObject tags = record(cover);
        for (const QString& path : paths)
            tagRouteFor(path)->write(path, tags, false);
    });
}

/// One press of the tab's command, with everything kept that undoing needs.
double byTab(const QString& sample, const std::shared_ptr<const Image>& cover)
{
    const QTemporaryDir folder, cache;
    ZOLTController controller;
    TagsTab tab;
    controller.addTab(tab, Constants::TAGS);
    controller.awakeFromNib();
    tab.setUndoFolder(cache.path());
    tab.addFiles(copies(folder, sample));
    QList<qsizetype> rows;
    for (qsizetype row = 0; row < tab.fileNames().count(); ++row)
        rows += row;
    tab.tableView->selectRows(rows);
    tab.artistText->setStringValue(u"Anna"_s);
    tab.albumText->setStringValue(u"Barn"_s);
    tab.albumArtImageView->setImage(cover);
    const double spent = millisecondsAFile([&] { tab.executeCommand(nullptr); });
    if (tab.lastRun().written() == files && tab.canUndoWrite()) return spent;
    std::fprintf(stderr, "the tab wrote %lld files\n", static_cast<long long>(tab.lastRun().written()));
    std::exit(1);
}

std::shared_ptr<const Image> somePicture()
{
    QImage pixels(300, 300, QImage::Format_RGB32);
    pixels.fill(Qt::darkRed);
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    pixels.save(&png, "PNG");
    return Image::fromData(png.data());
}

void compare(const char* name, const QString& sample, const std::shared_ptr<const Image>& cover)
{
    double helpers = 0, tab = 0;
    for (int round = 0; round < rounds; ++round) {
        const double now[] = {byHelpers(sample, cover), byTab(sample, cover)};
        helpers = round == 0 ? now[0] : std::min(helpers, now[0]);
        tab = round == 0 ? now[1] : std::min(tab, now[1]);
    }
    std::printf("%-28s%12.3f%12.3f%12.3f\n", name, tab, helpers, tab / helpers);
}

} // namespace

void compareTabRun(const QString& sample)
{
    const QTemporaryDir settings;
    UserDefaults::standard().reopen(settings.filePath(u"settings.ini"_s));
    ZOLTController::initialize();
    std::printf("\n%-28s%12s%12s%12s\n", "milliseconds a file", "tab's run", "helpers", "ratio");
    compare("artist and album", sample, nullptr);
    compare("and a cover", sample, somePicture());
}

} // namespace zolt::bench
