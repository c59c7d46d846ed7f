#include "ttaenc/TtaCall.h"

#include "audio/Failure.h"

namespace zolt::companion {

namespace {

constexpr char usage[] = "usage: ttaenc [-e | -d] INPUT -o OUTPUT, or ttaenc -t INPUT; \"-\" is a pipe";

void setInput(TtaCall& call, const std::string& argument)
{
    const bool isOption = argument.size() > 1 && argument[0] == '-';
    if (isOption || argument.empty() || !call.input.empty()) throw Failure(Fault::Usage, usage);
    call.input = argument;
}

} // namespace

TtaCall readTtaCall(const std::vector<std::string>& arguments)
{
    TtaCall call;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "-e")
            call.task = TtaCall::Task::Encode;
        else if (argument == "-d")
            call.task = TtaCall::Task::Decode;
        else if (argument == "-t")
            call.task = TtaCall::Task::Test;
        else if (argument == "-o" && i + 1 < arguments.size())
            call.output = arguments[++i];
        else
            setInput(call, argument);
    }
    const bool writes = call.task != TtaCall::Task::Test;
    if (call.input.empty() || call.output.empty() == writes) throw Failure(Fault::Usage, usage);
    return call;
}

} // namespace zolt::companion
