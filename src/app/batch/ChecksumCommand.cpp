#include "app/batch/ChecksumCommand.h"

#include "app/Program.h"
#include "checksum/ChecksumTab.h"
#include "shell/Constants.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

BaseTab& chosen(Program& program, ChecksumTab::Command command)
{
    auto& tab = program.tab<ChecksumTab>();
    tab.commandOptions->selectCell(command, 0);
    tab.displayRelevantOptions();
    return tab;
}

BaseTab& setUpCreation(Program& program, const BatchOptions& options)
{
    auto& tab = program.tab<ChecksumTab>();
    tab.createChecksumOptions->selectTitle(options.value(u"kind"_s, Constants::MD5));
    tab.sourceSaveButton->setState(!options.has(u"out"_s));
    return chosen(program, ChecksumTab::CreateList);
}

} // namespace

BatchCommand checksumTestCommand()
{
    return {.syntax = {u"checksum test"_s, u"has each file tested by the tool of its format: FLAC, APE, WV, TTA"_s, {}},
            .setUp = [](Program& program, const BatchOptions&) -> BaseTab& {
                return chosen(program, ChecksumTab::TestFiles);
            }};
}

BatchCommand checksumCreateCommand()
{
    return {
        .syntax = {u"checksum create"_s,
                   u"writes one list over all files"_s,
                   {{u"kind"_s,
                     u"KIND"_s,
                     {Constants::MD5, Constants::ST5, Constants::FFP},
                     u"of the files' bytes (MD5, otherwise), of their audio in any format (ST5), or what FLAC "
                     "files say of theirs (FFP)"_s},
                    {u"out"_s, u"FILE"_s, {}, u"the list (otherwise beside the first file, under its usual name)"_s}}},
        .setUp = setUpCreation};
}

BatchCommand checksumVerifyCommand()
{
    return {.syntax = {u"checksum verify"_s, u"checks the files that MD5, ST5 and FFP lists name"_s, {}},
            .setUp = [](Program& program, const BatchOptions&) -> BaseTab& {
                return chosen(program, ChecksumTab::VerifyLists);
            }};
}

} // namespace zolt::batch
