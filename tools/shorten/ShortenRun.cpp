#include "shorten/ShortenRun.h"

#include "audio/Failure.h"
#include "shorten/ShnDecoder.h"
#include "shorten/ShnEncoder.h"

namespace zolt::companion {

namespace {

constexpr char usage[] = "usage: shorten INPUT OUTPUT, or shorten -x INPUT OUTPUT to decode; \"-\" is a pipe";

void decode(ByteSource& source, const std::string& path)
{
    ShnDecoder decoder(source);
    Output output(path, source, Unfinished::Kept);
    decoder.decode(output);
    output.finish();
}

void encode(ByteSource& source, const std::string& path)
{
    WavReader wav(source);
    if (wav.format().bits > 16) {
        throw Failure(Fault::Format, source.name() + ": has samples of 24 bits; Shorten files hold 8 or 16");
    }
    Output output(path, source, Unfinished::Removed);
    ShnEncoder(wav, output).encode();
}

bool isFile(const std::string& argument)
{
    return argument == "-" || (!argument.empty() && argument[0] != '-');
}

} // namespace

int runShorten(const std::vector<std::string>& arguments)
{
    const bool extracts = !arguments.empty() && arguments[0] == "-x";
    const std::vector<std::string> files(arguments.begin() + extracts, arguments.end());
    if (files.size() != 2 || !isFile(files[0]) || !isFile(files[1])) throw Failure(Fault::Usage, usage);
    ByteSource source(files[0]);
    extracts ? decode(source, files[1]) : encode(source, files[1]);
    return 0;
}

} // namespace zolt::companion
