#include "Contenders.h"

#include "tags/TagLibTagsHelper.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zolt::bench {

namespace {

void writeInProcess(const QString& folder, const QString& text)
{
    TagsObject tags;
    tags.setTitleText(text);
    tags.setArtistText(text);
    for (const QString& file : filesIn(folder))
        TagLibTagsHelper().writeTagsForFLACFileTagObjectWriteEmptyTags(file, tags, false);
}

void readInProcess(const QString& folder)
{
    for (const QString& file : filesIn(folder)) {
        if (!TagLibTagsHelper().tagsForFlacFile(file)->titleText()->isEmpty()) continue;
        std::fprintf(stderr, "no title in %s\n", qPrintable(file));
        std::exit(1);
    }
}

void writeByMetaflac(const QString& folder, const QString& text)
{
    for (const QString& file : filesIn(folder))
        run({u"metaflac"_s, u"--remove-tag=TITLE"_s, u"--remove-tag=ARTIST"_s, u"--set-tag=TITLE="_s + text,
             u"--set-tag=ARTIST="_s + text, file});
}

void readByMetaflac(const QString& folder)
{
    for (const QString& file : filesIn(folder))
        run({u"metaflac"_s, u"--show-tag=TITLE"_s, u"--show-tag=ARTIST"_s, file});
}

/// One run for all files, which it finds itself: given their names it takes a minute to choose them.
void writeByTagEditor(const QString& folder, const QString& text)
{
    run({u"kid3-cli"_s, u"-c"_s, u"select all"_s, u"-c"_s, u"set title '%1' 2"_s.arg(text), u"-c"_s,
         u"set artist '%1' 2"_s.arg(text), u"-c"_s, u"save"_s, folder});
}

void readByTagEditor(const QString& folder)
{
    run({u"kid3-cli"_s, u"-c"_s, u"select all"_s, u"-c"_s, u"get"_s, folder});
}

} // namespace

std::vector<Contender> contenders()
{
    return {{u"in process"_s, writeInProcess, readInProcess},
            {u"metaflac, one run a file"_s, writeByMetaflac, readByMetaflac},
            {u"kid3-cli, one run for all"_s, writeByTagEditor, readByTagEditor}};
}

QStringList filesIn(const QString& folder)
{
    QStringList paths;
    for (const QString& name : QDir(folder).entryList(QDir::Files))
        paths += folder + u'/' + name;
    return paths;
}

void run(const QStringList& command)
{
    std::vector<QByteArray> bytes;
    for (const QString& argument : command)
        bytes.push_back(argument.toUtf8());
    std::vector<char*> arguments;
    for (QByteArray& argument : bytes)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", 1, 0);
    pid_t child = 0;
    int status = 1;
    const int fault = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    if (fault == 0) waitpid(child, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    if (fault == 0 && status == 0) return;
    std::fprintf(stderr, "%s failed\n", arguments[0]);
    std::exit(1);
}

} // namespace zolt::bench
