// What the queue and a file list cost in process.

#include "FileListCost.h"
#include "PanelCost.h"
#include "platform/desktop/UserDefaults.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    zolt::UserDefaults::standard().keepInMemory();
    zolt::UserDefaults::standard().set(QStringLiteral("maxThreads"), 2);
    zolt::bench::printFileListCost();
    zolt::bench::printPanelCost();
}
