// zolt-batch: the program without a window.

#include "app/batch/BatchCommands.h"
#include "app/batch/BatchRun.h"
#include "app/batch/Console.h"
#include "platform/Product.h"
#include "platform/files/FileNames.h"
#include "platform/process/ChildProcess.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <unistd.h>

namespace {

using namespace zolt;
using namespace zolt::batch;
using namespace Qt::StringLiterals;

/// The arguments behind the program's name.
QStringList argumentTexts(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(nameOfBytes(argv[i]));
    return arguments;
}

QString versionText()
{
    return u"%1 %2 (Build %3)\n"_s.arg(QLatin1String(product::name), QLatin1String(product::version),
                                       QLatin1String(product::build));
}

int execute(const BatchOptions& options)
{
    switch (options.action) {
    case BatchOptions::Action::Help:
        print(stdout, helpText(batchSyntax(), options.command));
        return exitStatus::allComplete;
    case BatchOptions::Action::Version:
        print(stdout, versionText());
        return exitStatus::allComplete;
    case BatchOptions::Action::Run:
        break;
    }
    return BatchRun(options).run();
}

/// A person at a terminal reads rows and reports; the log is for files and for those who ask.
void quietenLog()
{
    if (::isatty(STDERR_FILENO) == 1) QLoggingCategory::setFilterRules(u"zolt.*=false"_s);
}

} // namespace

int main(int argc, char** argv)
{
    ChildProcess::takeSignalsBack();
    QCoreApplication application(argc, argv);
    quietenLog();
    try {
        const int status = execute(parseOptions(argumentTexts(argc, argv), batchSyntax()));
        return status == exitStatus::allComplete && isOutputLost() ? exitStatus::failed : status;
    } catch (const UsageError& fault) {
        complain(fault.text + u". See zolt-batch --help."_s);
        return exitStatus::nothingToDo;
    }
}
