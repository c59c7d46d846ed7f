// A folder that is made for a run which may not come about.
#pragma once

#include <QStringList>

namespace zolt::batch {

/// Makes a folder and those above it that are missing, and takes away again what it has made unless it is kept.
class NewFolder
{
public:
    /// @param folder  absolute; empty for no folder. One that is there is left alone.
    explicit NewFolder(const QString& folder);
    ~NewFolder();
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    /// From now on what was made stays. @return whether anything was
    bool keep();

private:
    QStringList made_; // the outermost first
};

} // namespace zolt::batch
