// Makes Shorten files of WAV files, and gives the WAV files back. Debian has no such program.

#include "audio/Console.h"
#include "shorten/ShortenRun.h"

int main(int argc, char** argv)
{
    using namespace zolt::companion;
    const auto work = [&] { return runShorten(std::vector<std::string>(argv + (argc > 0), argv + argc)); };
    return runProgram(work,
                      [](const Failure& failure) { say(std::string("shorten: error: ") + failure.what() + '\n'); });
}
