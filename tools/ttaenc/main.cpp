// Makes TTA files of WAV files, WAV files of TTA files, and tests TTA files. Debian has no such program.

#include "audio/Console.h"
#include "ttaenc/TtaRun.h"

int main(int argc, char** argv)
{
    using namespace zolt::companion;
    const auto work = [&] { return runTta(readTtaCall(std::vector<std::string>(argv + (argc > 0), argv + argc))); };
    return runProgram(work,
                      [](const Failure& failure) { say(std::string("\nttaenc: error: ") + failure.what() + '\n'); });
}
