#include "mac/MacCall.h"

#include "audio/Failure.h"

#include <charconv>

namespace zolt::companion {

namespace {

constexpr char usage[] = "usage: mac INPUT OUTPUT -cLEVEL, mac INPUT OUTPUT -d or mac INPUT -v; \"-\" is a pipe";

bool isFile(const std::string& argument)
{
    return argument == "-" || (!argument.empty() && argument[0] != '-');
}

/// The number behind "-c".
bool readLevel(const std::string& option, unsigned& level)
{
    const char* const end = option.data() + option.size();
    const auto [stop, fault] = std::from_chars(option.data() + 2, end, level);
    return fault == std::errc() && stop == end;
}

bool readTask(const std::string& option, MacCall& call)
{
    if (option == "-d") {
        call.task = MacCall::Task::Decode;
    } else if (option == "-v") {
        call.task = MacCall::Task::Verify;
    } else {
        call.task = MacCall::Task::Encode;
        return option.starts_with("-c") && readLevel(option, call.level);
    }
    return true;
}

} // namespace

MacCall readMacCall(const std::vector<std::string>& arguments)
{
    MacCall call;
    if (arguments.empty() || !readTask(arguments.back(), call)) throw Failure(Fault::Usage, usage);
    const std::size_t files = call.task == MacCall::Task::Verify ? 1 : 2;
    if (arguments.size() != files + 1 || !isFile(arguments[0]) || !isFile(arguments[files - 1])) {
        throw Failure(Fault::Usage, usage);
    }
    call.input = arguments[0];
    if (files == 2) call.output = arguments[1];
    return call;
}

} // namespace zolt::companion
