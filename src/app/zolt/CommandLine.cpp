#include "app/zolt/CommandLine.h"

#include "platform/Product.h"
#include "platform/files/FileUris.h"
#include "platform/files/Files.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString tabOption = u"--select-tab"_s;

CommandLine wrong(const QString& fault)
{
    CommandLine line;
    line.action = CommandLine::Action::Wrong;
    line.fault = fault;
    return line;
}

CommandLine just(CommandLine::Action action)
{
    CommandLine line;
    line.action = action;
    return line;
}

QString pathOfArgument(const QString& argument)
{
    return absolutePath(pathOfUri(QUrl(argument)).value_or(argument));
}

/// How many values follow an option that the windows' toolkit takes itself; -1 for another.
int toolkitOption(const QString& argument)
{
    if (argument == u"-reverse") return 0;
    return argument == u"-style" || argument == u"-platform" ? 1 : -1;
}

bool readTab(const QString& number, int& tab)
{
    bool isNumber = false;
    tab = number.toInt(&isNumber);
    return isNumber && tab >= 0;
}

} // namespace

CommandLine readCommandLine(const QStringList& arguments)
{
    CommandLine line;
    bool onlyFiles = false;
    for (qsizetype index = 0; index < arguments.size(); ++index) {
        const QString& argument = arguments[index];
        if (onlyFiles || !argument.startsWith(u'-') || argument == u"-")
            line.request.files += pathOfArgument(argument);
        else if (argument == u"--")
            onlyFiles = true;
        else if (argument == u"--help" || argument == u"-h")
            return just(CommandLine::Action::Help);
        else if (argument == u"--version" || argument == u"-v")
            return just(CommandLine::Action::Version);
        else if (const int values = toolkitOption(argument); values >= 0)
            index += values;
        else if (argument != tabOption)
            return wrong(u"unknown option \"%1\""_s.arg(argument));
        else if (!readTab(arguments.value(++index), line.request.tab))
            return wrong(u"%1 needs the number of a tab, counted from 0"_s.arg(tabOption));
    }
    return line;
}

QString helpText()
{
    return u"Usage: zolt [OPTION]... [FILE|FOLDER]...\n"
           "Opens the window of %1, or brings the one that is open to the front,\n"
           "and adds the files to the tab in front.\n\n"
           "  --select-tab N   bring the tab number N to the front, counted from 0\n"
           "  -style NAME      draw the windows in another style, -reverse from right to left\n"
           "  -h, --help       show this text\n"
           "  -v, --version    show the version\n\n"
           "zolt-batch does the same work without a window.\n"_s.arg(QLatin1String(product::name));
}

QString versionText()
{
    return u"%1 %2 (Build %3)\n"_s.arg(QLatin1String(product::name), QLatin1String(product::version),
                                       QLatin1String(product::build));
}

QString handedOverText(const OpenRequest& request)
{
    const auto count = request.files.size();
    const QString files = count == 1 ? u" and takes the file"_s : u" and takes the %1 files"_s.arg(count);
    return u"%1 is running already: its window comes to the front%2. Quit it first to start another build.\n"_s.arg(
        QLatin1String(product::name), count ? files : QString());
}

} // namespace zolt
