#include "FileListCost.h"

#include "Clock.h"
#include "app/Program.h"
#include "decode/DecodeTab.h"
#include "platform/errors/Exceptions.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace zolt::bench {

namespace {

constexpr int files = 20000;

void makeFiles(const QString& folder)
{
    for (int i = 0; i < files; ++i) {
        const QString disc = folder + QStringLiteral("/disc %1").arg(i % 100);
        if (i < 100) QDir().mkpath(disc);
        QFile file(disc + QStringLiteral("/track %1.flac").arg(i));
        if (!file.open(QIODevice::WriteOnly))
            throw AssertionException(QStringLiteral("cannot make ") + file.fileName());
    }
}

} // namespace

void printFileListCost()
{
    const QTemporaryDir folder;
    makeFiles(folder.path());
    Program program;
    DecodeTab& tab = program.tab<DecodeTab>();
    const double before = residentMebibytes();
    const double time = millisecondsOf([&] { tab.addFiles({folder.path()}); });
    const double memory = residentMebibytes() - before;
    std::printf("20,000 files dropped on a tab, without a window\n");
    std::printf("  listed and sorted               %8.1f ms    (aim: 1,000)\n", time);
    std::printf("  memory                          %8.1f MiB   (aim: 10)\n", memory);
    if (tab.fileNames().count() != files)
        std::printf("  WRONG: %lld files are listed\n", static_cast<long long>(tab.fileNames().count()));
    tab.clearFiles();
    program.finish();
}

} // namespace zolt::bench
