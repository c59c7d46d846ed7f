// Makes, decodes and verifies Monkey's Audio files. Debian has no such program.

#include "audio/Console.h"
#include "mac/MacRun.h"

namespace {

using zolt::companion::Failure;
using zolt::companion::Fault;

/// The numbers that mac is known for.
struct Number
{
    Fault fault;
    const char* text;
};

constexpr Number numbers[] = {
    {Fault::Usage, "1001 (not written)"},       {Fault::Read, "1000 (cannot be read)"},
    {Fault::Write, "1001 (not written)"},       {Fault::Format, "1002 (not of the expected kind)"},
    {Fault::Checksum, "1009 (wrong checksum)"}, {Fault::Memory, "2000 (too little memory)"},
};

void tell(const Failure& failure)
{
    for (const Number& number : numbers) {
        if (number.fault != failure.fault()) continue;
        zolt::companion::say(std::string("\nError: ") + number.text + "\n" + failure.what() + "\n");
    }
}

} // namespace

int main(int argc, char** argv)
{
    using namespace zolt::companion;
    const std::vector<std::string> arguments(argv + (argc > 0), argv + argc);
    return runProgram([&] { return runMac(readMacCall(arguments)); }, tell);
}
