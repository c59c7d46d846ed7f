#include "app/batch/FixCommand.h"

#include "app/Program.h"
#include "app/batch/CommonOptions.h"
#include "shell/Constants.h"
#include "shntool/FixTab.h"
#include "shntool/FixTask.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

QString md5Title(const QString& choice)
{
    if (choice == u"one") return FixTask::oneMD5;
    return choice == u"disc" ? FixTask::MD5ByDisc : FixTask::noMD5;
}

BaseTab& setUp(Program& program, const BatchOptions& options)
{
    auto& tab = program.tab<FixTab>();
    tab.outputFormatMatrix->selectTitle(options.value(u"format"_s, Constants::FLAC));
    tab.displayRelevantOptions();
    tab.shnMd5Option->selectTitle(md5Title(options.value(u"md5"_s)));
    tab.deleteOriginalsButton->setState(options.has(u"delete-originals"_s));
    requireOutputFolder(tab, options);
    return tab;
}

} // namespace

BatchCommand fixCommand()
{
    return {.syntax = {u"fix"_s,
                       u"repairs the sector boundaries of a set of files of CD audio"_s,
                       {shntoolFormatOption(),
                        requiredOutOption(),
                        {u"md5"_s,
                         u"WHICH"_s,
                         {u"none"_s, u"one"_s, u"disc"_s},
                         u"lists of sums over the outputs: none (otherwise), one, or one a disc"_s},
                        deleteOption()}},
            .setUp = setUp};
}

} // namespace zolt::batch
