// The tags of one file as zolt-batch prints them.
#pragma once

#include <QString>

#include <memory>

namespace zolt {

class TagsObject;

namespace batch {

/// Reads the file when it is made. Main thread.
class TagsListing
{
public:
    explicit TagsListing(QString path);

    /// The path on a line, then a line for each tag that is not empty.
    QString text() const;
    /// One JSON object on a line: "file", the fields by the names of their options, "custom" and "cover".
    QString json() const;
    /// Why the file could not be read; empty if it was.
    const QString& fault() const { return fault_; }

private:
    const QString path_;
    QString fault_;
    std::shared_ptr<const TagsObject> tags_;
};

} // namespace batch
} // namespace zolt
