// What the queue and a file list cost in process.

#include "FileListCost.h"
#include "PanelCost.h"
#include "platform/desktop/UserDefaults.h"

#include <QCoreApplication>
#include <QLoggingCategory>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("zolt.*=false")); // each failed row would be logged
    zolt::UserDefaults::standard().keepInMemory();
    zolt::UserDefaults::standard().set(QStringLiteral("maxThreads"), 2);
    zolt::bench::printFileListCost();
    zolt::bench::printPanelCost();
}
