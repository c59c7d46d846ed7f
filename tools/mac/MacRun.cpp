#include "mac/MacRun.h"

#include "audio/Console.h"
#include "audio/Progress.h"
#include "audio/WavHeader.h"
#include "audio/WavReader.h"
#include "audio/WavWriter.h"
#include "mac/ApeFrame.h"
#include "mac/ApeHeader.h"
#include "mac/ApeReader.h"
#include "mac/ApeWriter.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <future>

namespace zolt::companion {

namespace {

constexpr std::size_t mostTrailerBytes = 16 << 20;

/// Ahead of the first of these lines stands no digit: it would be taken for the number.
void printProgress(const Reading& reading)
{
    char line[100];
    std::snprintf(line, sizeof line, "\rProgress: %.1f%% (%.1f seconds remaining, %.1f seconds total)  ",
                  reading.percent, reading.remaining(), reading.total());
    say(line);
}

void sayUnlessQuiet(const MacCall& call, const char* text)
{
    if (!call.quiet()) say(text);
}

/// A file to be decoded. Another thread reads it meanwhile to sum it up.
struct Source
{
    explicit Source(const std::string& path)
        : file(path), header(readApeHeader(file)), reader(path, header.hasFrameSums()),
          content(std::async(std::launch::async, [this] { return readApeContent(file, header); }))
    {
    }

    ByteSource file;
    ApeHeader header;
    ApeReader reader;
    std::future<ApeContent> content;
};

/// Hands every frame on and counts those that are damaged. A pipe gets nothing from the first of them on: who reads
/// there, as shntool does, may never ask for the exit status, and is to see that the audio ends too early.
unsigned readFrames(Source& source, const MacCall& call, const std::function<void(const Bytes&)>& take)
{
    Progress progress(source.reader.samples(), call.quiet() ? Progress::Print() : printProgress);
    unsigned damaged = 0;
    for (Bytes samples; !source.reader.atEnd();) {
        const bool whole = source.reader.read(samples);
        if (!whole) ++damaged;
        if (!whole && call.output == "-") break;
        take(samples);
        progress.reached(source.reader.samplesRead());
    }
    return damaged;
}

int tell(const MacCall& call, unsigned damaged, const ApeContent& content, const ApeHeader& header)
{
    const auto fail = [&call](const std::string& why) { throw Failure(Fault::Checksum, call.input + ": " + why); };
    if (damaged > 0) fail("the checksum is wrong for " + std::to_string(damaged) + " of its frames");
    if (!content.matchesSum) fail("the checksum of the whole file is wrong");
    if (header.hasFrameSums())
        sayUnlessQuiet(call, "\nSuccess.\n");
    else
        sayUnlessQuiet(call, "\nDone. The file is of an old version whose checksums were not checked.\n");
    return 0;
}

int verify(const MacCall& call)
{
    sayUnlessQuiet(call, "Verifying\n");
    Source source(call.input);
    const unsigned damaged = readFrames(source, call, [](const Bytes&) {});
    return tell(call, damaged, source.content.get(), source.header);
}

/// The kept header where it tells the truth about the samples, else one of ours.
Bytes wavHeaderFor(const Source& source, std::uint64_t dataBytes)
{
    const Bytes own = wavHeader(source.reader.format(), dataBytes, source.file.name());
    const Bytes& kept = source.header.wavHeader;
    const bool isTrue = kept.size() >= own.size() && std::memcmp(kept.data(), "RIFF", 4) == 0 &&
                        std::memcmp(&kept[kept.size() - 8], &own[own.size() - 8], 8) == 0;
    return isTrue ? kept : own;
}

int decode(const MacCall& call)
{
    sayUnlessQuiet(call, "Decompressing\n");
    Source source(call.input);
    const std::uint64_t dataBytes = source.reader.samples() * source.reader.format().frameBytes();
    const Bytes header = wavHeaderFor(source, dataBytes);
    Output output(call.output, source.file, Unfinished::Kept);
    WavWriter writer(output, header, dataBytes);
    unsigned damaged = 0;
    try {
        damaged = readFrames(source, call, [&writer](const Bytes& samples) { writer.write(samples); });
    } catch (const Failure& failure) {
        if (failure.fault() == Fault::Read) writer.finish(); // what was read of a cut file can be played
        throw;
    }
    const ApeContent content = source.content.get();
    writer.finish(header == source.header.wavHeader ? content.wavTrailer : Bytes());
    return tell(call, damaged, content, source.header);
}

void check(const MacCall& call, const WavReader& wav)
{
    const auto refuse = [&call](const char* why) { throw Failure(Fault::Format, call.input + ": " + why); };
    if (call.level < 1000 || call.level > 5000 || call.level % 1000 != 0) refuse("there are levels 1000 to 5000 alone");
    if (wav.format().channels > 2) refuse("has more than two channels");
    if (!wav.dataBytes()) refuse("does not state how long it is");
    if (*wav.dataBytes() < wav.format().frameBytes()) refuse("holds no sample");
    if (*wav.dataBytes() > 0xffffffff / 2) refuse("is too long");
}

/// Decoders have to find out of stereo with 24 bits at the highest level how its predictions were summed up.
bool hasToBeTried(const MacCall& call, const PcmFormat& format)
{
    return call.level == 5000 && format.bits == 24 && format.channels == 2;
}

/// Decodes what was written. @throws Failure (Format) if it does not come back
void tryOut(const MacCall& call)
{
    ApeReader reader(call.output, true);
    for (Bytes samples; !reader.atEnd();) {
        if (!reader.read(samples))
            throw Failure(Fault::Format,
                          call.input + ": would not be decoded rightly from level 5000; level 4000 can hold it");
    }
}

int encode(const MacCall& call)
{
    ByteSource source(call.input);
    WavReader wav(source);
    check(call, wav);
    const std::size_t frameBytes = wav.format().frameBytes();
    const auto samples = std::uint32_t(*wav.dataBytes() / frameBytes);
    Output output(call.output, source, Unfinished::Removed);
    if (!output.canRewrite()) throw Failure(Fault::Write, call.output + ": is no file");
    sayUnlessQuiet(call, "Compressing\n");
    Progress progress(samples, call.quiet() ? Progress::Print() : printProgress);
    ApeWriter writer(output, wav.format(), call.level, samples, wav.header());
    for (std::uint32_t done = 0; done < samples;) {
        const std::uint32_t count = std::min(apeFrameSamples, samples - done);
        Bytes bytes(count * frameBytes);
        wav.read(bytes.data(), bytes.size());
        writer.add(encodeApeFrame(bytes, wav.format(), call.level));
        progress.reached(done += count);
    }
    Bytes rest(std::size_t(*wav.dataBytes() % frameBytes));
    wav.read(rest.data(), rest.size());
    const Bytes trailer = wav.trailer(mostTrailerBytes);
    rest.insert(rest.end(), trailer.begin(), trailer.end());
    writer.finish(rest);
    if (hasToBeTried(call, wav.format())) tryOut(call);
    output.finish();
    sayUnlessQuiet(call, "\nSuccess.\n");
    return 0;
}

} // namespace

int runMac(const MacCall& call)
{
    switch (call.task) {
    case MacCall::Task::Verify:
        return verify(call);
    case MacCall::Task::Decode:
        return decode(call);
    default:
        return encode(call);
    }
}

} // namespace zolt::companion
