// A folder for one call of the tool.
#pragma once

#include <filesystem>
#include <string>

#include <stdlib.h>

namespace zolt::companion {

/// A new folder that goes with all it holds.
class OwnFolder
{
public:
    explicit OwnFolder(const std::filesystem::path& parent) : path_((parent / ".zolt-shntool-XXXXXX").string())
    {
        made_ = ::mkdtemp(path_.data()) != nullptr;
    }
    ~OwnFolder()
    {
        std::error_code ignored;
        if (made_) std::filesystem::remove_all(path_, ignored);
    }
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    explicit operator bool() const { return made_; }
    const std::string& path() const { return path_; }

    /// The one file in the folder; empty if there is none or more than one.
    std::filesystem::path onlyFile() const
    {
        std::error_code ignored;
        std::filesystem::path found;
        for (const auto& entry : std::filesystem::directory_iterator(path_, ignored)) {
            if (!found.empty()) return {};
            found = entry.path();
        }
        return found;
    }

private:
    std::string path_;
    bool made_ = false;
};

} // namespace zolt::companion
