#include "app/batch/NewFolder.h"

#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "platform/text/Text.h"

#include <utility>

#include <unistd.h>

namespace zolt::batch {

NewFolder::NewFolder(const QString& folder)
{
    for (QString missing = folder; !missing.isEmpty() && !exists(missing);
         missing = path::deletingLastComponent(missing))
        made_.prepend(missing);
    if (!made_.isEmpty() && !makeDirectories(folder)) made_.clear();
}

NewFolder::~NewFolder()
{
    while (!made_.isEmpty()) // one that holds something by now stays
        ::rmdir(bytesOfName(made_.takeLast()).constData());
}

bool NewFolder::keep()
{
    return !std::exchange(made_, {}).isEmpty();
}

} // namespace zolt::batch
