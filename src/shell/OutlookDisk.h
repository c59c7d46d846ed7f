// What an outlook asks of the disk.
#pragma once

#include "platform/desktop/ToolsDirectory.h"

#include <QString>

#include <cstdint>

namespace zolt {

/// Any thread; nothing is changed on the disk.
class OutlookDisk
{
public:
    virtual ~OutlookDisk() = default;
    virtual bool exists(const QString& path) const = 0;
    /// Whether this user may make files in the folder.
    virtual bool isWritable(const QString& folder) const = 0;
    /// A number that folders of one file system share.
    virtual std::uint64_t device(const QString& folder) const = 0;
    /// Bytes that this user may still write there.
    virtual std::int64_t freeBytes(const QString& folder) const = 0;
    virtual std::int64_t size(const QString& path) const = 0;
    /// The size of the file's audio once it is decoded: exact for FLAC, else the source's own size, which is the least
    /// it can be.
    virtual std::int64_t decodedBytes(const QString& path) const = 0;
    /// The folder's one true path, however it was reached; the path itself where there is no such folder.
    virtual QString trueFolder(const QString& folder) const = 0;
    /// Those of the tools that are missing.
    virtual QList<MissingTool> missing(const QStringList& tools) const = 0;
};

/// The disks of this machine.
class LocalDisk : public OutlookDisk
{
public:
    bool exists(const QString& path) const override;
    bool isWritable(const QString& folder) const override;
    std::uint64_t device(const QString& folder) const override;
    std::int64_t freeBytes(const QString& folder) const override;
    std::int64_t size(const QString& path) const override;
    std::int64_t decodedBytes(const QString& path) const override;
    QString trueFolder(const QString& folder) const override;
    QList<MissingTool> missing(const QStringList& tools) const override;
};

} // namespace zolt
