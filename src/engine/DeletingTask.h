// Tasks that can delete their source once it is safe to.
#pragma once

#include "platform/files/Files.h"
#include "shell/Util.h"

#include <QString>

#include <atomic>

namespace zolt {

/// Adds the flag, its accessors and the condition to a family of tasks.
/// @tparam Task  ZOLTAsyncNSTask, ZOLTThreadTask or one of their families
template <class Task> class DeletingTask : public Task
{
public:
    bool deleteOriginal() const { return deleteOriginal_; }
    void setDeleteOriginal(bool deleteOriginal) override { deleteOriginal_ = deleteOriginal; }

protected:
    using Task::Task;

    /// Asked for, and the task was neither cancelled nor did it fail.
    bool mayDeleteSource() const { return deleteOriginal_ && !this->cancelled() && !this->error(); }
    /// Deletes the source, as the user's setting says, if that is allowed now.
    void deleteSource(const QString& fileName) const
    {
        if (mayDeleteSource()) Util::deleteFile(fileName);
    }
    /// As deleteSource, but gone before the setting could send it to the trash.
    void removeSource(const QString& fileName) const
    {
        if (!mayDeleteSource()) return;
        removeItem(fileName);
        Util::deleteFile(fileName);
    }

private:
    std::atomic<bool> deleteOriginal_ = false;
};

} // namespace zolt
