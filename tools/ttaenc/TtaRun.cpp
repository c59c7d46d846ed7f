#include "ttaenc/TtaRun.h"

#include "audio/Console.h"
#include "audio/Progress.h"
#include "audio/WavHeader.h"
#include "audio/WavReader.h"
#include "audio/WavWriter.h"
#include "ttaenc/TtaEncoder.h"
#include "ttaenc/TtaReader.h"
#include "ttaenc/TtaWriter.h"

#include <limits>

namespace zolt::companion {

namespace {

/// Backspaces lead back to where the next text starts, as no line ends between them.
void sayOver(const std::string& text)
{
    say('\b' + text + std::string(text.size(), '\b'));
}

void printProgress(const Reading& reading)
{
    sayOver("Percent Progress: " + std::to_string(unsigned(reading.percent)));
}

void printTest(const Reading& reading)
{
    sayOver(std::to_string(unsigned(reading.percent)) + "% done");
}

Progress::Print printer(const TtaCall& call)
{
    if (call.quiet()) return {};
    return call.task == TtaCall::Task::Test ? printTest : printProgress;
}

/// Hands every frame on and counts those that are damaged. A pipe gets nothing from the first of them on: who reads
/// there, as shntool does, may never ask for the exit status, and is to see that the audio ends too early.
unsigned readFrames(TtaReader& reader, const TtaCall& call, const std::function<void(const Bytes&)>& take)
{
    Progress progress(reader.header().frames(), printer(call));
    unsigned damaged = 0;
    Bytes samples;
    for (std::uint32_t frame = 1; !reader.atEnd(); ++frame) {
        const bool whole = reader.read(samples);
        if (!whole) ++damaged;
        if (!whole && call.output == "-") break;
        take(samples);
        progress.reached(frame);
    }
    return damaged;
}

int tellOfDamage(unsigned damaged, const TtaReader& reader, const std::string& name, const std::string& instead)
{
    if (damaged == 0) return 0;
    throw Failure(Fault::Checksum, name + ": the checksum is wrong for " + std::to_string(damaged) + " of " +
                                       std::to_string(reader.header().frames()) + " frames" + instead);
}

int test(const TtaCall& call, ByteSource& source)
{
    TtaReader reader(source);
    const unsigned damaged = readFrames(reader, call, [](const Bytes&) {});
    tellOfDamage(damaged, reader, source.name(), "");
    if (!call.quiet()) say("\nThe file is whole: every checksum is right.\n");
    return 0;
}

int decode(const TtaCall& call, ByteSource& source)
{
    TtaReader reader(source);
    const TtaHeader& header = reader.header();
    const std::uint64_t dataBytes = std::uint64_t(header.samples) * header.format.frameBytes();
    const Bytes wav = wavHeader(header.format, dataBytes, source.name());
    Output output(call.output, source, Unfinished::Kept);
    WavWriter writer(output, wav, dataBytes);
    unsigned damaged = 0;
    try {
        damaged = readFrames(reader, call, [&writer](const Bytes& samples) { writer.write(samples); });
    } catch (const Failure& failure) {
        if (failure.fault() == Fault::Read) writer.finish(); // what was read of a cut file can be played
        throw;
    }
    writer.finish();
    return tellOfDamage(damaged, reader, source.name(), "; there is silence in their place");
}

std::optional<std::uint32_t> samplesOf(const WavReader& reader, const std::string& name)
{
    if (!reader.dataBytes()) return std::nullopt;
    const std::uint64_t samples = *reader.dataBytes() / reader.format().frameBytes();
    if (samples > std::numeric_limits<std::uint32_t>::max()) throw Failure(Fault::Format, name + ": is too long");
    return std::uint32_t(samples);
}

int encode(const TtaCall& call, ByteSource& source)
{
    WavReader reader(source);
    const PcmFormat& format = reader.format();
    const auto samples = samplesOf(reader, source.name());
    TtaEncoder encoder(format, source.name());
    Output output(call.output, source, Unfinished::Removed);
    TtaWriter writer(output, format, samples);
    Progress progress(samples.value_or(0), printer(call));
    Bytes bytes(std::size_t(TtaHeader{.format = format}.frameSamples()) * format.frameBytes());
    std::uint64_t done = 0;
    while (const std::uint32_t count = std::uint32_t(reader.read(bytes.data(), bytes.size()) / format.frameBytes())) {
        const AVPacket& packet = encoder.encode(bytes.data(), count);
        writer.add(packet.data, std::size_t(packet.size), count);
        progress.reached(done += count);
    }
    writer.finish();
    return 0;
}

bool endsInTta(const std::string& path)
{
    const std::size_t dot = path.rfind('.');
    if (dot == std::string::npos) return false;
    std::string extension = path.substr(dot);
    for (char& letter : extension)
        letter = char(std::tolower(static_cast<unsigned char>(letter)));
    return extension == ".tta";
}

/// Without -e and -d the first bytes decide.
TtaCall::Task taskFor(const TtaCall& call, ByteSource& source)
{
    if (call.task != TtaCall::Task::ByContent) return call.task;
    if (!looksLikeTta(source)) return TtaCall::Task::Encode;
    if (endsInTta(call.output)) throw Failure(Fault::Usage, source.name() + ": is a TTA file already");
    return TtaCall::Task::Decode;
}

} // namespace

int runTta(const TtaCall& call)
{
    ByteSource source(call.input);
    switch (taskFor(call, source)) {
    case TtaCall::Task::Test:
        return test(call, source);
    case TtaCall::Task::Decode:
        return decode(call, source);
    default:
        return encode(call, source);
    }
}

} // namespace zolt::companion
