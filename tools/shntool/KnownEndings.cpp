#include "shntool/KnownEndings.h"

#include "ToolRun.h"
#include "shntool/OwnFolder.h"

#include <algorithm>
#include <array>

namespace zolt::companion {

namespace {

namespace fs = std::filesystem;

std::string lowerCase(std::string text)
{
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') letter = char(letter - 'A' + 'a');
    }
    return text;
}

/// Where the files stand: what is no option and no option's text.
std::vector<std::size_t> filesOf(const Arguments& arguments)
{
    std::vector<std::size_t> files;
    bool optionsEnded = false;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (optionsEnded || argument.empty() || argument[0] != '-')
            files.push_back(i);
        else if (argument == "--")
            optionsEnded = true;
        else if (takesText(argument))
            ++i;
    }
    return files;
}

/// @return the link's path; the file's own where there can be no link
std::string linkTo(const std::string& file, const OwnFolder& folder)
{
    const auto name = knownName(file);
    if (!name || !folder) return file;
    const fs::path link = fs::path(folder.path()) / *name;
    std::error_code failed;
    fs::create_symlink(fs::absolute(file, failed), link, failed);
    return failed ? file : link.string();
}

} // namespace

std::optional<std::string> knownName(const std::string& path)
{
    constexpr std::array known{".wav", ".aiff", ".flac", ".shn", ".wv", ".tta", ".ape"};
    const fs::path file(path);
    const std::string ending = file.extension().string(), lower = lowerCase(ending);
    const std::string wanted = lower == ".aif" ? ".aiff" : lower;
    const bool isKnown = std::find(known.begin(), known.end(), wanted) != known.end();
    if (!isKnown || wanted == ending) return std::nullopt;
    return file.stem().string() + wanted;
}

bool keepsEndings(const Arguments& arguments)
{
    if (arguments.empty() || (arguments[0] != "fix" && arguments[0] != "conv")) return false;
    const auto files = filesOf(arguments);
    return std::any_of(files.begin(), files.end(), [&](std::size_t i) { return knownName(arguments[i]).has_value(); });
}

int runOnKnownNames(const std::string& tool, const std::string& programName, Arguments arguments)
{
    int status = -1;
    {
        std::error_code failed;
        const fs::path place = fs::temp_directory_path(failed);
        const OwnFolder folder(failed ? "/tmp" : place);
        for (const std::size_t i : filesOf(arguments))
            arguments[i] = linkTo(arguments[i], folder);
        Arguments vector{programName};
        vector.insert(vector.end(), arguments.begin(), arguments.end());
        status = runTool(tool, vector);
    }
    return statusToExitWith(status);
}

} // namespace zolt::companion
