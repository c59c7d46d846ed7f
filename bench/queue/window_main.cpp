// What many rows cost the window program.

#include "WindowCost.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/threads/MainQueue.h"
#include "ui/GuardedApplication.h"

#include <QLoggingCategory>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    zolt::GuardedApplication application(argc, argv);
    zolt::MainQueue::instance(); // makes this thread the main one
    QLoggingCategory::setFilterRules(QStringLiteral("zolt.*=false"));
    zolt::UserDefaults::standard().keepInMemory();
    zolt::UserDefaults::standard().set(QStringLiteral("maxThreads"), 2);
    zolt::bench::printWindowCost();
}
