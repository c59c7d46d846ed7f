#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    // The tests' own settings, trash and cache, never the user's.
    const QTemporaryDir home;
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    QCoreApplication application(argc, argv);
    zolt::MainQueue::instance(); // makes this thread the main one
    testing::InitGoogleMock(&argc, argv);
    const int status = RUN_ALL_TESTS();
    zolt::waitForDetachedThreads(); // none may outlive the application that it calls
    return status;
}
